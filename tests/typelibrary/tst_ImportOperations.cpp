#include "tests/typelibrary/ViewFixture.h"

#include <QApplication>

class tst_ImportOperations : public ViewFixture
{
    Q_OBJECT

private Q_SLOTS:
    void folder();
    void folderDialog();
    void folderCancelled();
    void folderTooDeep_data();
    void folderTooDeep();
    void folderWithoutTypes();
    void folderWithoutTypesAtTheDeepestLevel();
    void folderWithATakenName();
    void folderOfKnownTypes();
    void folderWithSomeKnownTypes();
    void folderThatCannotBeRead();
    void folderFromTheLibraryItself();
    void folderIntoAVanishedGroup();
    void folderWithoutAHost();

    void files();
    void filesDialog();
    void filesCancelled();
    void filesKnown();
    void filesThatCannotBeCopied();
    void filesEveryMessage();
    void filesOfAnUnscannedLibrary();
    void filesIntoAVanishedLibrary();

    void viewDestroyedWhileADialogIsOpen();
    void viewDestroyedWhileAMessageIsOpen();
};

void tst_ImportOperations::folder()
{
    write(QStringLiteral("G/old.rcvp"), "old");
    put(QStringLiteral("North/a.rcvp"), "a");
    put(QStringLiteral("North/Sub/b.rcvbp"), "multi b");
    put(QStringLiteral("North/readme.txt"), "r");
    load();
    QObject progress;
    handler->progress = &progress;
    handler->forgetCalls();
    ModalScript script;
    script.choose(outside->filePath(QStringLiteral("North")));
    choose(QStringLiteral("G"), QStringLiteral("Import as folder"));
    QCOMPARE(script.seen().size(), 1);
    QCOMPARE(libraryContent(),
             QStringList({QStringLiteral("G/"), QStringLiteral("G/North/"), QStringLiteral("G/North/Sub/"),
                          QStringLiteral("G/North/Sub/b.rcvbp=multi b"), QStringLiteral("G/North/a.rcvp=a"),
                          QStringLiteral("G/old.rcvp=old")}));
    const QStringList calls = handler->calls().filter(QStringLiteral("Progress"));
    QCOMPARE(calls, QStringList({QStringLiteral("showProgress(Importing..., 600, %1)").arg(QEasingCurve::InQuart),
                                 QStringLiteral("endProgress()")}));
    QVERIFY(agree());
    QTRY_COMPARE(rows(),
                 QStringList({QStringLiteral("G"), QStringLiteral(" North"), QStringLiteral("  Sub"),
                              QStringLiteral("   b.rcvbp"), QStringLiteral("  a.rcvp"), QStringLiteral(" old.rcvp")}));
}

void tst_ImportOperations::folderDialog()
{
    load();
    const QString first = QFileInfo(put(QStringLiteral("A/a.rcvp"), "a")).path();
    QStringList seen;
    ModalScript script;
    script.use([&](QWidget* widget) {
        auto* const dialog = static_cast<QFileDialog*>(widget);
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Import..."));
        QCOMPARE(dialog->fileMode(), QFileDialog::Directory);
        QVERIFY(dialog->testOption(QFileDialog::ShowDirsOnly));
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(first);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    view->importAsFolder();
    script.use([&](QWidget* widget) { // begins where the last one ended
        seen.append(static_cast<QFileDialog*>(widget)->directory().path());
        widget->close();
    });
    view->importAsFolder();
    QCOMPARE(seen, QStringList({first}));
    QVERIFY(agree());
}

void tst_ImportOperations::folderCancelled()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    handler->forgetCalls();
    ModalScript script;
    script.choose(QString());
    view->importAsFolder();
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("a.rcvp=a")}));
    QCOMPARE(handler->calls().filter(QStringLiteral("Progress")), QStringList());
}

void tst_ImportOperations::folderTooDeep_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("fits");
    QTest::newRow("two levels into the second") << QStringLiteral("1") << QStringLiteral("A/B/x.rcvp") << true;
    QTest::newRow("three levels into the second") << QStringLiteral("1") << QStringLiteral("A/B/C/x.rcvp") << false;
    QTest::newRow("one level into the deepest but one") << QStringLiteral("1/2") << QStringLiteral("A/x.rcvp") << true;
    QTest::newRow("two levels there") << QStringLiteral("1/2") << QStringLiteral("A/B/x.rcvp") << false;
    QTest::newRow("into the deepest") << QStringLiteral("1/2/3") << QStringLiteral("A/x.rcvp") << false;
}

void tst_ImportOperations::folderTooDeep()
{
    QFETCH(QString, target);
    QFETCH(QString, file);
    QFETCH(bool, fits);
    makeFolder(QStringLiteral("1/2/3"));
    put(file, "x");
    put(QStringLiteral("A/Notes/of/no/depth.txt"), "n"); // nothing of it is copied
    load();
    makeCurrent(target);
    ModalScript script;
    script.choose(outside->filePath(QStringLiteral("A"))).press(CDialog::Ok);
    view->importAsFolder();
    QCOMPARE(QFile::exists(pathOf(target + QLatin1Char('/') + file)), fits);
    QCOMPARE(script.seen().mid(1),
             fits ? QStringList()
                  : QStringList(
                        {information("The action cannot be done because the subdirectory is limited to 3 layers.")}));
}

void tst_ImportOperations::folderWithoutTypes()
{
    put(QStringLiteral("A/B/C/D/E/a.txt"), "a");
    put(QStringLiteral("A/b.RCVP"), "b");
    load();
    ModalScript script;
    script.choose(outside->filePath(QStringLiteral("A"))).press(CDialog::Ok);
    view->importAsFolder();
    QCOMPARE(script.seen().mid(1), QStringList({information("There is no valid type file in this folder.")}));
    QCOMPARE(libraryContent(), QStringList());
}

void tst_ImportOperations::folderWithoutTypesAtTheDeepestLevel()
{
    makeFolder(QStringLiteral("1/2/3"));
    put(QStringLiteral("A/a.txt"), "a");
    load();
    makeCurrent(QStringLiteral("1/2/3"));
    ModalScript script;
    script.choose(outside->filePath(QStringLiteral("A"))).press(CDialog::Ok);
    view->importAsFolder();
    QCOMPARE(script.seen().mid(1),
             QStringList({information("The action cannot be done because the subdirectory is limited to 3 layers.")}));
}

void tst_ImportOperations::folderWithATakenName()
{
    makeFolder(QStringLiteral("A"));
    write(QStringLiteral("A(1)/x.rcvp"), "x");
    put(QStringLiteral("A/a.rcvp"), "a");
    load();
    ModalScript script;
    script.choose(outside->filePath(QStringLiteral("A")));
    view->importAsFolder();
    QVERIFY(QFile::exists(pathOf(QStringLiteral("A(2)/a.rcvp"))));
    QVERIFY(agree());
}

void tst_ImportOperations::folderOfKnownTypes()
{
    write(QStringLiteral("a.rcvp"), "a");
    write(QStringLiteral("G/b.rcvp"), "b");
    put(QStringLiteral("A/other name.rcvp"), "a");
    put(QStringLiteral("A/Sub/b.rcvbp"), "another content");
    load();
    handler->forgetCalls();
    const QStringList before = libraryContent();
    ModalScript script;
    script.choose(outside->filePath(QStringLiteral("A"))).press(CDialog::Ok);
    view->importAsFolder();
    QCOMPARE(script.seen().mid(1), QStringList({information("All type files in the type group has been added.")}));
    QCOMPARE(libraryContent(), before);
    QCOMPARE(handler->calls().filter(QStringLiteral("Progress")), QStringList());
    QVERIFY(agree());
}

void tst_ImportOperations::folderWithSomeKnownTypes()
{
    write(QStringLiteral("a.rcvp"), "a");
    put(QStringLiteral("A/same as a.rcvp"), "a");
    put(QStringLiteral("A/b.rcvp"), "b");
    put(QStringLiteral("A/Sub/b.rcvbp"), "b again"); // the name is met twice
    load();
    ModalScript script;
    script.choose(outside->filePath(QStringLiteral("A"))).press(CDialog::Ok);
    view->importAsFolder();
    QCOMPARE(script.seen().mid(1), QStringList({information("There is already a same type file: same as a, b")}));
    QCOMPARE(libraryContent(),
             QStringList({QStringLiteral("A/"), QStringLiteral("A/b.rcvp=b"), QStringLiteral("a.rcvp=a")}));
    QCOMPARE(handler->calls().filter(QStringLiteral("showProgress")),
             QStringList({QStringLiteral("showProgress(Importing..., 300, %1)").arg(QEasingCurve::InQuart)}));
    QVERIFY(agree());
}

void tst_ImportOperations::folderThatCannotBeRead()
{
    put(QStringLiteral("A/a.rcvp"), "a");
    QFile::setPermissions(put(QStringLiteral("A/secret.rcvp"), "s"), QFileDevice::Permissions());
    for (const QString& path : {outside->path(), library->path()})
        QFile::setPermissions(path, QFileDevice::Permissions(0x7777));
    load();
    ModalScript script;
    script.choose(outside->filePath(QStringLiteral("A"))).press(CDialog::Ok);
    {
        const PermissionsApply user;
        view->importAsFolder();
    }
    QCOMPARE(script.seen().mid(1), QStringList({information("Import failed.")}));
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("A/"), QStringLiteral("A/a.rcvp=a")}));
    QVERIFY(agree());
}

void tst_ImportOperations::folderFromTheLibraryItself()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    const QStringList before = libraryContent();
    for (const QString& folder : {library->path(), pathOf(QStringLiteral("G"))}) {
        makeCurrent(QStringLiteral("G"));
        ModalScript script;
        script.choose(folder).press(CDialog::Ok);
        view->importAsFolder();
        QCOMPARE(script.seen().mid(1), QStringList({information("All type files in the type group has been added.")}));
        QCOMPARE(libraryContent(), before);
        QVERIFY(agree());
    }
}

void tst_ImportOperations::folderIntoAVanishedGroup()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    put(QStringLiteral("A/b.rcvp"), "b");
    load();
    makeCurrent(QStringLiteral("G"));
    ModalScript script;
    script
        .use([this](QWidget* dialog) {
            QVERIFY(QDir(pathOf(QStringLiteral("G"))).removeRecursively());
            dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
                ->setText(outside->filePath(QStringLiteral("A")));
            QMetaObject::invokeMethod(dialog, "accept");
        })
        .press(CDialog::Ok);
    view->importAsFolder();
    QCOMPARE(script.seen(), QStringList({information("Import failed.")}));
    QCOMPARE(libraryContent(), QStringList());
}

void tst_ImportOperations::folderWithoutAHost()
{
    put(QStringLiteral("A/a.rcvp"), "a");
    load();
    setStoreHandler(nullptr);
    ModalScript script;
    script.choose(outside->filePath(QStringLiteral("A")));
    view->importAsFolder();
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("A/"), QStringLiteral("A/a.rcvp=a")}));
}

void tst_ImportOperations::files()
{
    write(QStringLiteral("G/old.rcvp"), "old");
    load();
    ModalScript script;
    script.chooseAll({put(QStringLiteral("a.rcvp"), "a"), put(QStringLiteral("b.rcvbp"), "multi")});
    choose(QStringLiteral("G/old.rcvp"), QStringLiteral("Import cabinet type file(Suffix rcvbp)"));
    QCOMPARE(script.seen(), QStringList({QStringLiteral("Import...: Parameter(*.rcvp *.rcvbp)")}));
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("G/"), QStringLiteral("G/a.rcvp=a"),
                                            QStringLiteral("G/b.rcvbp=multi"), QStringLiteral("G/old.rcvp=old")}));
    QVERIFY(agree());
}

void tst_ImportOperations::filesDialog()
{
    load();
    const QString file = put(QStringLiteral("A/a.rcvp"), "a");
    QString directory;
    ModalScript script;
    script.choose(file).use([&directory](QWidget* widget) {
        directory = static_cast<QFileDialog*>(widget)->directory().path();
        QCOMPARE(static_cast<QFileDialog*>(widget)->fileMode(), QFileDialog::ExistingFiles);
        widget->close();
    });
    view->importCabinetFiles();
    view->importCabinetFiles();
    QCOMPARE(directory, QFileInfo(file).path());
}

void tst_ImportOperations::filesCancelled()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    ModalScript script;
    script.choose(QString());
    view->importCabinetFiles();
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("a.rcvp=a")}));
}

void tst_ImportOperations::filesKnown()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    ModalScript script;
    script.choose(put(QStringLiteral("other name.rcvp"), "a")).press(CDialog::Ok);
    view->importCabinetFiles();
    QCOMPARE(script.seen().mid(1), QStringList({information("Duplicated type files:(other name).")}));
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("G/"), QStringLiteral("G/a.rcvp=a")}));
}

void tst_ImportOperations::filesThatCannotBeCopied()
{
    load();
    const QString file = put(QStringLiteral("large.rcvp"), QByteArray(100'000, 'x'));
    ModalScript script;
    script.choose(file).press(CDialog::Ok);
    const DiskIsFull full(50'000);
    view->importCabinetFiles();
    QCOMPARE(script.seen().mid(1), QStringList({information("Add cabinet type failed.")}));
    QCOMPARE(libraryContent(), QStringList());
    QVERIFY(agree());
}

void tst_ImportOperations::filesEveryMessage()
{
    write(QStringLiteral("a.rcvp"), "a");
    write(QStringLiteral("b.rcvp"), "b");
    load();
    QFile::setPermissions(put(QStringLiteral("secret.rcvp"), "s"), QFileDevice::Permissions());
    for (const QString& path : {outside->path(), library->path()})
        QFile::setPermissions(path, QFileDevice::Permissions(0x7777));
    put(QStringLiteral("1.rcvp"), "a");
    put(QStringLiteral("2.rcvp"), "b");
    put(QStringLiteral("a.rcvbp"), "x");
    put(QStringLiteral("b.rcvbp"), "y");
    put(QStringLiteral("new.rcvp"), "new");
    QStringList chosen;
    for (const char* name : {"1.rcvp", "a.rcvbp", "secret.rcvp", "2.rcvp", "new.rcvp", "b.rcvbp"})
        chosen.append(outside->filePath(QLatin1String(name)));
    ModalScript script;
    script.chooseAll(chosen).press(CDialog::Ok).press(CDialog::Ok).press(CDialog::Ok);
    {
        const PermissionsApply user;
        view->importCabinetFiles();
    }
    QCOMPARE(script.seen().mid(1),
             QStringList({information("Add cabinet type failed."), information("Duplicated type files:(1, 2)."),
                          information("There is already a type file with the same name under this "
                                      "subdirectory(a, b).")}));
    QCOMPARE(libraryContent(),
             QStringList({QStringLiteral("a.rcvp=a"), QStringLiteral("b.rcvp=b"), QStringLiteral("new.rcvp=new")}));
    QVERIFY(agree());
}

// The menu's import looks at the library as it is, not as the last scan has seen it.
void tst_ImportOperations::filesOfAnUnscannedLibrary()
{
    makeFolder(QStringLiteral("G"));
    load();
    write(QStringLiteral("G/late.rcvp"), "late");
    ModalScript script;
    script.choose(put(QStringLiteral("x.rcvp"), "late")).press(CDialog::Ok);
    choose(QStringLiteral("G"), QStringLiteral("Import cabinet type file(Suffix rcvbp)"));
    QCOMPARE(script.seen().mid(1), QStringList({information("Duplicated type files:(x).")}));

    write(QStringLiteral("G/later.rcvp"), "later");
    put(QStringLiteral("A/y.rcvp"), "later");
    script.choose(outside->filePath(QStringLiteral("A"))).press(CDialog::Ok);
    choose(QStringLiteral("G"), QStringLiteral("Import as folder"));
    QCOMPARE(script.seen().mid(3), QStringList({information("All type files in the type group has been added.")}));
}

void tst_ImportOperations::filesIntoAVanishedLibrary()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    const QString file = put(QStringLiteral("b.rcvp"), "b");
    ModalScript script;
    script
        .use([&](QWidget* dialog) {
            QVERIFY(QDir(library->path()).removeRecursively());
            dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(file);
            QMetaObject::invokeMethod(dialog, "accept");
        })
        .press(CDialog::Ok);
    view->importCabinetFiles();
    QCOMPARE(script.seen(), QStringList({information("Add cabinet type failed.")}));
    QVERIFY(!QFile::exists(library->path()));
    QTRY_VERIFY(!view->hasRows());
    view->newTypeFolder();
    view->clear();
    QVERIFY(!QFile::exists(library->path()));
}

void tst_ImportOperations::viewDestroyedWhileADialogIsOpen()
{
    for (const auto operation :
         {&CProductTreeView::importAsFolder, &CProductTreeView::importCabinetFiles, &CProductTreeView::exportAll}) {
        view = std::make_unique<CProductTreeView>();
        load();
        ModalScript script;
        script.use([this](QWidget*) { view.reset(); });
        (view.get()->*operation)();
        QVERIFY(script.isDone());
        QVERIFY(!view);
    }
}

void tst_ImportOperations::viewDestroyedWhileAMessageIsOpen()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    ModalScript script;
    script.chooseAll({put(QStringLiteral("x.rcvp"), "a"), put(QStringLiteral("a.rcvbp"), "y")});
    script.use([this](QWidget*) { view.reset(); });
    view->importCabinetFiles();
    QCOMPARE(script.seen().size(), 1); // the second message is not shown any more
    QVERIFY(script.isDone());

    view = std::make_unique<CProductTreeView>();
    load();
    place("a");
    for (const auto operation : {&CProductTreeView::editIndex, &CProductTreeView::deleteIndex}) {
        const QModelIndex type = indexOf(QStringLiteral("a.rcvp"));
        script.use([this](QWidget*) { view.reset(); });
        (view.get()->*operation)(type);
        QVERIFY(script.isDone());
        view = std::make_unique<CProductTreeView>();
        load();
    }
    const QModelIndex type = indexOf(QStringLiteral("a.rcvp"));
    handler->isUsed = [](const SMD5&) { return false; };
    script.use([this](QWidget*) { view.reset(); });
    view->deleteIndex(type); // the question
    QVERIFY(script.isDone());
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("a.rcvp=a")}));
}

SETTINGAREA_TEST_MAIN(tst_ImportOperations, QApplication)

#include "tst_ImportOperations.moc"
