#include "host/CMainWindow.h"
#include "host/ProjectCommands.h"
#include "host/project/Project.h"
#include "tests/host/ModalAnswer.h"
#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"

#include <QMessageBox>
#include <QTemporaryDir>

class tst_ProjectCommands : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aProjectIsSavedAndOpened();
    void savingAsksForAFileOnce();
    void aSuffixIsAdded();
    void theFileThatGetsTheSuffixIsAskedAbout_data();
    void theFileThatGetsTheSuffixIsAskedAbout();
    void cancelledDialogsChangeNothing();
    void changesAreAskedAbout_data();
    void changesAreAskedAbout();
    void failuresAreShown();

private:
    QString file(const char* name) const { return m_folder->filePath(QLatin1String(name)); }
    void change();

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<CMainWindow> m_window;
    std::unique_ptr<Project> m_project;
    std::unique_ptr<ProjectCommands> m_commands;
};

void tst_ProjectCommands::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
    m_window = std::make_unique<CMainWindow>();
    m_project = std::make_unique<Project>();
    m_commands = std::make_unique<ProjectCommands>(*m_project, *m_window);
    m_window->show();
}

// Places one more type.
void tst_ProjectCommands::change()
{
    SMD5 md5;
    std::fill_n(md5.data, 32, static_cast<char>('0' + m_project->placedTypes().size()));
    QVERIFY(m_project->place(md5, QStringLiteral("type")));
}

void tst_ProjectCommands::aProjectIsSavedAndOpened()
{
    change();
    {
        const ModalAnswer answer(file("stage.prj"));
        QVERIFY(m_commands->saveAs());
    }
    QVERIFY(!m_project->isModified());
    m_commands->create(); // asks nothing: all is saved
    QCOMPARE(m_project->placedTypes().size(), 0);
    const ModalAnswer answer(file("stage.prj"));
    m_commands->open();
    QCOMPARE(m_project->placedTypes().size(), 1);
    QCOMPARE(m_project->path(), file("stage.prj"));
}

void tst_ProjectCommands::savingAsksForAFileOnce()
{
    {
        const ModalAnswer answer(file("stage.prj"));
        QVERIFY(m_commands->save());
        QVERIFY(answer.wasThere());
    }
    change();
    const ModalAnswer answer(QString{});
    QVERIFY(m_commands->save());
    QVERIFY(!answer.wasThere());
    QVERIFY(!m_project->isModified());
}

void tst_ProjectCommands::aSuffixIsAdded()
{
    const ModalAnswer answer(file("stage"));
    QVERIFY(m_commands->saveAs());
    QCOMPARE(m_project->path(), file("stage.prj"));
    QVERIFY(QFile::exists(file("stage.prj")));
}

void tst_ProjectCommands::theFileThatGetsTheSuffixIsAskedAbout_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("in a folder") << QStringLiteral("walls");
    QTest::newRow("in a folder with a dot") << QStringLiteral("walls.d");
}

void tst_ProjectCommands::theFileThatGetsTheSuffixIsAskedAbout()
{
    QFETCH(QString, folder);
    QVERIFY(QDir(m_folder->path()).mkdir(folder));
    const QString name = m_folder->filePath(folder + QStringLiteral("/stage"));
    const QString existing = name + QStringLiteral(".prj");
    QVERIFY(writeFile(existing, "of another project"));
    QString question;
    QTimer refuse; // the question lies over the dialog, which may come once more before it
    connect(&refuse, &QTimer::timeout, this, [&] {
        QWidget* const modal = QApplication::activeModalWidget();
        auto* const dialog = qobject_cast<QFileDialog*>(modal);
        if (dialog && dialog->selectedFiles() == QStringList{existing})
            QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
        auto* const box = qobject_cast<QMessageBox*>(modal);
        if (!box)
            return;
        question = box->text();
        refuse.stop();
        QWidget* const under = box->parentWidget();
        QTest::mouseClick(box->button(QMessageBox::No), Qt::LeftButton);
        QTimer::singleShot(0, under, &QWidget::close);
    });
    refuse.start(1);
    const ModalAnswer answer(name);
    QVERIFY(!m_commands->saveAs());
    QVERIFY2(question.contains(QLatin1String("stage.prj")), qPrintable(question));
    QCOMPARE(readFile(existing), QByteArray("of another project"));
    QCOMPARE(m_project->path(), QString());
}

void tst_ProjectCommands::cancelledDialogsChangeNothing()
{
    {
        const ModalAnswer answer(QString{});
        m_commands->open();
        QVERIFY(answer.wasThere());
    }
    change();
    const ModalAnswer answer(QString{});
    QVERIFY(!m_commands->save());
    QVERIFY(answer.wasThere());
    QVERIFY(m_project->isModified());
}

void tst_ProjectCommands::changesAreAskedAbout_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("mayClose");
    QTest::addColumn<bool>("saved");
    QTest::newRow("yes") << int(CDialog::Yes) << true << true;
    QTest::newRow("no") << int(CDialog::No) << true << false;
    QTest::newRow("cancel") << int(CDialog::Cancel) << false << false;
}

void tst_ProjectCommands::changesAreAskedAbout()
{
    QFETCH(int, button);
    QFETCH(bool, mayClose);
    QFETCH(bool, saved);
    QVERIFY(m_commands->mayClose()); // nothing to ask about
    QString error;
    QVERIFY(m_project->save(file("stage.prj"), error));
    change();
    const ModalAnswer answer(static_cast<CDialog::Button>(button));
    QCOMPARE(m_commands->mayClose(), mayClose);
    QCOMPARE(answer.text(), QStringLiteral("The project stage has changes that are not saved. Save them?"));
    QCOMPARE(m_project->isModified(), !saved);
}

void tst_ProjectCommands::failuresAreShown()
{
    QVERIFY(writeFile(file("bad.prj"), "{}"));
    {
        QString text;
        QTimer answer; // two dialogs, one after the other
        connect(&answer, &QTimer::timeout, this, [&] {
            QWidget* const dialog = QApplication::activeModalWidget();
            if (auto* const box = qobject_cast<CMessageBox*>(dialog)) {
                text = box->text();
                box->close();
            }
        });
        answer.start(1);
        const ModalAnswer choose(file("bad.prj"));
        m_commands->open();
        QCOMPARE(text,
                 QStringLiteral("The project %1 was not opened: This is not a project file.").arg(file("bad.prj")));
    }
    QString error;
    QVERIFY(m_project->save(file("stage.prj"), error));
    change();
    const DiskIsFull full(1);
    const ModalAnswer answer(CDialog::Ok);
    QVERIFY(!m_commands->save());
    QCOMPARE(answer.text(), QStringLiteral("The project %1 was not saved: The file could not be written whole; perhaps "
                                           "the disk is full.")
                                .arg(file("stage.prj")));
    QVERIFY(m_project->isModified());
}

SETTINGAREA_TEST_MAIN(tst_ProjectCommands, QApplication)
#include "tst_ProjectCommands.moc"
