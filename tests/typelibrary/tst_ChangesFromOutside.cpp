#include "tests/typelibrary/ViewFixture.h"

#include <QApplication>
#include <QLineEdit>

// Other programs change the library, or the host the page, while the user is in the midst of something.
class tst_ChangesFromOutside : public ViewFixture
{
    Q_OBJECT

private Q_SLOTS:
    void libraryVanishesWhileANameIsEdited();
    void libraryIsMadeAnew();
    void openGroupIsRenamed();
    void libraryWithOpenGroupsIsRenamed();
    void openGroupGetsItsFirstType();
    void groupVanishesWhileItIsRead();
    void entryVanishesBehindTheMessageOfItsName();
    void viewDestroyedBehindTheMessageOfAName();

private:
    // Edits the entry's name and leaves the editor by the return key, or by a click elsewhere.
    void rename(const QString& entry, const QString& name, bool byKey)
    {
        view->editIndex(indexOf(entry));
        const QPointer<QLineEdit> editor = qobject_cast<QLineEdit*>(view->indexWidget(view->currentIndex()));
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClicks(editor, name);
        if (byKey)
            QTest::keyClick(editor, Qt::Key_Return);
        else
            QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                              view->viewport()->rect().bottomLeft() + QPoint(5, -5));
    }
};

void tst_ChangesFromOutside::libraryVanishesWhileANameIsEdited()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    view->editIndex(indexOf(QStringLiteral("a.rcvp")));
    const QPointer<QLineEdit> editor = qobject_cast<QLineEdit*>(view->indexWidget(view->currentIndex()));
    QVERIFY(editor);
    QTest::keyClicks(editor, QStringLiteral("b"));
    QVERIFY(QDir(library->path()).removeRecursively());
    ModalScript script;
    script.press(CDialog::Ok);
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(script.seen(), QStringList({information("There is already a type with the same name.")}));
    QTRY_VERIFY(!editor);
    QTRY_VERIFY(!view->model());
    QVERIFY(!QFile::exists(library->path()));
}

void tst_ChangesFromOutside::libraryIsMadeAnew()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    indexOf(QStringLiteral("G/a.rcvp"));
    QVERIFY(QDir(library->path()).removeRecursively());
    write(QStringLiteral("b.rcvp"), "b");
    QTRY_COMPARE(rows(), QStringList({QStringLiteral("b.rcvp")}));
    write(QStringLiteral("c.rcvp"), "c");
    QTRY_COMPARE(rows(), QStringList({QStringLiteral("b.rcvp"), QStringLiteral("c.rcvp")}));
}

// Under its new name the folder is followed like any other, and so are those in it.
void tst_ChangesFromOutside::openGroupIsRenamed()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    write(QStringLiteral("G/H/b.rcvp"), "b");
    write(QStringLiteral("K/k.rcvp"), "k");
    load();
    indexOf(QStringLiteral("G/H/b.rcvp"));
    indexOf(QStringLiteral("K/k.rcvp"));
    QVERIFY(QDir(library->path()).rename(QStringLiteral("G"), QStringLiteral("R")));
    indexOf(QStringLiteral("R/H/b.rcvp"));
    const auto lines = [](const char* text) { return QString::fromLatin1(text).split(QLatin1Char('|')); };
    QTRY_COMPARE(rows(), lines("K| k.rcvp|R| H|  b.rcvp| a.rcvp"));
    for (const char* const path : {"R/c.rcvp", "R/H/d.rcvp", "K/l.rcvp"})
        write(QString::fromLatin1(path), path);
    QTRY_COMPARE(rows(), lines("K| k.rcvp| l.rcvp|R| H|  b.rcvp|  d.rcvp| a.rcvp| c.rcvp"));
}

void tst_ChangesFromOutside::libraryWithOpenGroupsIsRenamed()
{
    write(QStringLiteral("old/G/a.rcvp"), "a");
    view->setRootPath(pathOf(QStringLiteral("old")));
    view->show();
    indexOf(QStringLiteral("G/a.rcvp"));
    QVERIFY(QDir(library->path()).rename(QStringLiteral("old"), QStringLiteral("new")));
    view->setRootPath(pathOf(QStringLiteral("new")));
    indexOf(QStringLiteral("G/a.rcvp"));
    write(QStringLiteral("new/G/b.rcvp"), "b");
    QTRY_COMPARE(rows(), QStringList({QStringLiteral("G"), QStringLiteral(" a.rcvp"), QStringLiteral(" b.rcvp")}));
}

void tst_ChangesFromOutside::openGroupGetsItsFirstType()
{
    QVERIFY(QDir(library->path()).mkdir(QStringLiteral("G")));
    load();
    view->expand(indexOf(QStringLiteral("G")));
    QCoreApplication::processEvents();
    write(QStringLiteral("G/a.rcvp"), "a");
    QTRY_COMPARE(rows(), QStringList({QStringLiteral("G"), QStringLiteral(" a.rcvp")}));
}

// The base class takes the list of a folder that has gone for that of the top of the disk.
void tst_ChangesFromOutside::groupVanishesWhileItIsRead()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    const QString gone = pathOf(QStringLiteral("gone"));
    QVERIFY(QMetaObject::invokeMethod(view->model(), "_q_directoryChanged", Q_ARG(QString, gone),
                                      Q_ARG(QStringList, {QStringLiteral("b.rcvp")})));
    QVERIFY(!view->rootIndex().isValid()); // which is the whole disk
    QTRY_COMPARE(rows(), QStringList({QStringLiteral("G")}));
    write(QStringLiteral("c.rcvp"), "c");
    QTRY_COMPARE(rows(), QStringList({QStringLiteral("G"), QStringLiteral("c.rcvp")}));
    indexOf(QStringLiteral("G/a.rcvp"));
    write(QStringLiteral("G/d.rcvp"), "d");
    QTRY_COMPARE(rows().size(), 4);
}

void tst_ChangesFromOutside::entryVanishesBehindTheMessageOfItsName()
{
    write(QStringLiteral("b.rcvp"), "b");
    for (const bool byKey : {true, false}) {
        write(QStringLiteral("a.rcvp"), "a");
        view = std::make_unique<CProductTreeView>();
        load();
        ModalScript script;
        script.use([this](QWidget* box) {
            QFile::remove(pathOf(QStringLiteral("a.rcvp")));
            QTRY_COMPARE(rows(), QStringList({QStringLiteral("b.rcvp")}));
            static_cast<CMessageBox*>(box)->button(CDialog::Ok)->click();
        });
        rename(QStringLiteral("a.rcvp"), QStringLiteral("b"), byKey);
        QTRY_VERIFY(script.isDone());
        QTRY_VERIFY(!QApplication::activeModalWidget());
        QCOMPARE(libraryContent(), QStringList({QStringLiteral("b.rcvp=b")}));
    }
}

void tst_ChangesFromOutside::viewDestroyedBehindTheMessageOfAName()
{
    write(QStringLiteral("a.rcvp"), "a");
    write(QStringLiteral("b.rcvp"), "b");
    for (const bool byKey : {true, false}) {
        view = std::make_unique<CProductTreeView>();
        load();
        ModalScript script;
        script.use([this](QWidget* box) {
            view.reset();
            static_cast<CMessageBox*>(box)->button(CDialog::Ok)->click();
        });
        rename(QStringLiteral("a.rcvp"), QStringLiteral("b"), byKey);
        QTRY_VERIFY(script.isDone());
        QTRY_VERIFY(!QApplication::activeModalWidget());
        QVERIFY(!view);
    }
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("a.rcvp=a"), QStringLiteral("b.rcvp=b")}));
}

SETTINGAREA_TEST_MAIN(tst_ChangesFromOutside, QApplication)

#include "tst_ChangesFromOutside.moc"
