#include "tests/typelibrary/ViewFixture.h"

#include <QApplication>
#include <QStandardPaths>

class tst_ExportOperations : public ViewFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void type_data();
    void type();
    void typeOverAnExistingFile();
    void typeOverAnExistingFileBehindADot();
    void typeCancelled();
    void typeOntoItself();
    void typeIntoTheLibrary();
    void typeThatIsGone();
    void group();
    void groupContentsOnly();
    void groupCancelled();
    void groupThatIsGone();
    void library_();
    void libraryIntoItself();
    void unwritableFolder();
    void wrongCurrentEntry();

private:
    const QTemporaryDir m_home;

    static QString desktop() { return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation); }
};

void tst_ExportOperations::initTestCase()
{
    // A home that anybody may look into.
    QFile::setPermissions(m_home.path(), QFileDevice::Permissions(0x7777));
    qputenv("HOME", QFile::encodeName(m_home.path()));
    QVERIFY(QDir().mkpath(desktop()));
}

void tst_ExportOperations::type_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("single") << QStringLiteral("G/Cab 1.rcvp") << QByteArray("single") << QStringLiteral("rcvp");
    QTest::newRow("multi") << QStringLiteral("G/Cab.2.rcvbp") << QByteArray("multi") << QStringLiteral("rcvbp");
    // The kind counts.
    QTest::newRow("multi by content") << QStringLiteral("G/Cab.rcvp") << QByteArray("multi") << QStringLiteral("rcvbp");
}

void tst_ExportOperations::type()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(QString, suffix);
    write(file, content);
    load();
    QString proposal;
    QString directory;
    ModalScript script;
    script.use([&](QWidget* widget) {
        auto* const dialog = static_cast<QFileDialog*>(widget);
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Export..."));
        QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(dialog->nameFilters(), QStringList({QStringLiteral("File(*.%1)").arg(suffix)}));
        directory = dialog->directory().path();
        auto* const name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        proposal = name->text();
        name->setText(outside->filePath(QStringLiteral("x"))); // without suffix
        QMetaObject::invokeMethod(dialog, "accept");
    });
    choose(file, QStringLiteral("Export current cabinet parameters"));
    QCOMPARE(directory, desktop());
    QCOMPARE(proposal, QFileInfo(file).completeBaseName() + QLatin1Char('.') + suffix);
    QCOMPARE(script.seen(), QStringList()); // no message
    QCOMPARE(outsideContent(), QStringList({QStringLiteral("x.%1=%2").arg(suffix, QString::fromUtf8(content))}));
}

void tst_ExportOperations::typeOverAnExistingFile()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    makeCurrent(QStringLiteral("a.rcvp"));
    ModalScript script;
    script.choose(put(QStringLiteral("x.dat"), "old")); // a suffix of the user's
    view->exportCurrent();
    QCOMPARE(script.seen(), QStringList({QStringLiteral("Export...: File(*.rcvp)"), QStringLiteral("warning")}));
    QCOMPARE(outsideContent(), QStringList({QStringLiteral("x.dat=a")}));
}

// Qt adds no suffix to a path with a dot anywhere, and so does not look for the file that would be replaced.
void tst_ExportOperations::typeOverAnExistingFileBehindADot()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    makeCurrent(QStringLiteral("a.rcvp"));
    QVERIFY(QDir(outside->path()).mkdir(QStringLiteral("b.d")));
    const QString existing = put(QStringLiteral("b.d/x.rcvp"), "old");
    QStringList proposed;
    ModalScript script;
    script.choose(outside->filePath(QStringLiteral("b.d/x")));
    script.use([&](QWidget* dialog) {
        proposed = static_cast<QFileDialog*>(dialog)->selectedFiles();
        dialog->close();
    });
    view->exportCurrent();
    QCOMPARE(proposed, QStringList{existing});
    QCOMPARE(readFile(existing), QByteArray("old"));
}

void tst_ExportOperations::typeCancelled()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    makeCurrent(QStringLiteral("a.rcvp"));
    ModalScript script;
    script.choose(QString());
    view->exportCurrent();
    QCOMPARE(outsideContent(), QStringList());
}

void tst_ExportOperations::typeOntoItself()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    load();
    makeCurrent(QStringLiteral("a.rcvp"));
    ModalScript script;
    script.choose(path);
    view->exportCurrent();
    QCOMPARE(script.seen().mid(1), QStringList({QStringLiteral("warning")})); // of the dialog, no failure
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("a.rcvp=a")}));
    QVERIFY(agree());
}

void tst_ExportOperations::typeIntoTheLibrary()
{
    write(QStringLiteral("a.rcvp"), "a");
    write(QStringLiteral("b.rcvp"), "b");
    load();
    makeCurrent(QStringLiteral("a.rcvp"));
    ModalScript script;
    script.choose(pathOf(QStringLiteral("b.rcvp"))).choose(pathOf(QStringLiteral("c.rcvp")));
    view->exportCurrent();
    view->exportCurrent();
    QCOMPARE(libraryContent(),
             QStringList({QStringLiteral("a.rcvp=a"), QStringLiteral("b.rcvp=a"), QStringLiteral("c.rcvp=a")}));
    QVERIFY(agree());
}

void tst_ExportOperations::typeThatIsGone()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    load();
    makeCurrent(QStringLiteral("a.rcvp"));
    QFile::remove(path);
    ModalScript script;
    script.choose(put(QStringLiteral("x.rcvp"), "kept")).press(CDialog::Ok);
    view->exportCurrent();
    QCOMPARE(script.seen().mid(1), QStringList({QStringLiteral("warning"), information("Export failed.")}));
    QCOMPARE(outsideContent(), QStringList({QStringLiteral("x.rcvp=kept")}));
}

void tst_ExportOperations::group()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    write(QStringLiteral("G/Sub/b.rcvbp"), "multi");
    write(QStringLiteral("G/notes.txt"), "n");
    makeFolder(QStringLiteral("G/Empty"));
    write(QStringLiteral("c.rcvp"), "c");
    load();
    ModalScript script;
    script
        .use([this](QWidget* widget) {
            auto* const dialog = static_cast<QFileDialog*>(widget);
            QCOMPARE(dialog->windowTitle(), QStringLiteral("Export..."));
            QCOMPARE(dialog->directory().path(), desktop());
            QCOMPARE(dialog->fileMode(), QFileDialog::Directory);
            QVERIFY(dialog->testOption(QFileDialog::ShowDirsOnly));
            dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(outside->path());
            QMetaObject::invokeMethod(dialog, "accept");
        })
        .press(CDialog::Ok);
    choose(QStringLiteral("G"), QStringLiteral("Export cabinet parameters by group"));
    QCOMPARE(script.seen(), QStringList({information("Export successful.")}));
    QCOMPARE(outsideContent(),
             QStringList({QStringLiteral("Sub/"), QStringLiteral("Sub/b.rcvbp=multi"), QStringLiteral("a.rcvp=a")}));
}

void tst_ExportOperations::groupContentsOnly()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    makeCurrent(QStringLiteral("G"));
    put(QStringLiteral("a.rcvp"), "older");
    put(QStringLiteral("other.rcvp"), "other");
    ModalScript script;
    script.choose(outside->path()).press(CDialog::Ok);
    view->exportByGroup();
    QCOMPARE(outsideContent(), QStringList({QStringLiteral("a.rcvp=a"), QStringLiteral("other.rcvp=other")}));
}

void tst_ExportOperations::groupCancelled()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    makeCurrent(QStringLiteral("G"));
    ModalScript script;
    script.choose(QString()).choose(QString());
    view->exportByGroup();
    view->exportAll();
    QCOMPARE(script.seen().size(), 2);
    QCOMPARE(outsideContent(), QStringList());
}

void tst_ExportOperations::groupThatIsGone()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    makeCurrent(QStringLiteral("G"));
    ModalScript script;
    script
        .use([this](QWidget* dialog) {
            QVERIFY(QDir(pathOf(QStringLiteral("G"))).removeRecursively());
            dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(outside->path());
            QMetaObject::invokeMethod(dialog, "accept");
        })
        .press(CDialog::Ok);
    view->exportByGroup();
    QCOMPARE(script.seen(), QStringList({information("Export failed.")}));
}

void tst_ExportOperations::library_()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    write(QStringLiteral("b.rcvbp"), "multi");
    load();
    ModalScript script;
    script.choose(outside->path()).press(CDialog::Ok);
    choose(QStringLiteral("b.rcvbp"), QStringLiteral("Export all cabinet parameters"));
    QCOMPARE(script.seen().mid(1), QStringList({information("Export successful.")}));
    QCOMPARE(outsideContent(),
             QStringList({QStringLiteral("All types/"), QStringLiteral("All types/G/"),
                          QStringLiteral("All types/G/a.rcvp=a"), QStringLiteral("All types/b.rcvbp=multi")}));
}

void tst_ExportOperations::libraryIntoItself()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    for (int i = 0; i < 2; ++i) {
        ModalScript script;
        script.choose(library->path()).press(CDialog::Ok);
        view->exportAll();
        QCOMPARE(script.seen().mid(1), QStringList({information("Export successful.")}));
        QVERIFY(readFile(pathOf(QStringLiteral("a.rcvp"))) == "a");
        QVERIFY(agree());
    }
}

void tst_ExportOperations::unwritableFolder()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    makeCurrent(QStringLiteral("G/a.rcvp"));
    for (const QString& path : {library->path(), outside->path()})
        QFile::setPermissions(path, QFileDevice::Permissions(0x5555));
    ModalScript script;
    script.choose(outside->filePath(QStringLiteral("x.rcvp"))).press(CDialog::Ok);
    script.choose(outside->path()).press(CDialog::Ok).choose(outside->path()).press(CDialog::Ok);
    {
        const PermissionsApply user;
        view->exportCurrent();
        makeCurrent(QStringLiteral("G"));
        view->exportByGroup();
        view->exportAll();
    }
    const QString failed = information("Export failed.");
    const QString chooser = QStringLiteral("Export...: All Files (*)");
    QCOMPARE(script.seen(),
             QStringList({QStringLiteral("Export...: File(*.rcvp)"), failed, chooser, failed, chooser, failed}));
    for (const QString& path : {library->path(), outside->path()})
        QFile::setPermissions(path, QFileDevice::Permissions(0x7777));
    QCOMPARE(outsideContent(), QStringList());
}

void tst_ExportOperations::wrongCurrentEntry()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    ModalScript script;
    makeCurrent(QStringLiteral("G"));
    view->exportCurrent();
    view->editMultiRcvType();
    makeCurrent(QStringLiteral("G/a.rcvp"));
    view->exportByGroup();
    view->setCurrentIndex({});
    view->exportCurrent();
    view->exportByGroup();
    view->editMultiRcvType();
    CProductTreeView none;
    none.exportAll();
    QCOMPARE(script.seen(), QStringList());
}

SETTINGAREA_TEST_MAIN(tst_ExportOperations, QApplication)

#include "tst_ExportOperations.moc"
