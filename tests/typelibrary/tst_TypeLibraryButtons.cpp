#include "cellbuttons/CCellButtonDelegate.h"
#include "tests/support/ModalScript.h"
#include "tests/support/TestObject.h"
#include "tests/typelibrary/LibraryPage.h"
#include "typelibrary/CProductTreeModel.h"

#include <QApplication>
#include <QFileInfo>

// What the buttons and keys of the page do to the library on the disk.
class tst_TypeLibraryButtons : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void newFolderBesideTheCurrentType();
    void newFolderAtTheRoot();
    void importedFileMakesClearAllWork();
    void importSeesTheLibraryAsItIsNow_data();
    void importSeesTheLibraryAsItIsNow();
    void clearAll();
    void clearAllOfAnotherLibraryThanAskedAbout();
    void clearAllForbiddenWhileAsked();
    void buttonsOfTheRows();
    void renameButtonOpensTheEditor();
    void buttonsOfTheRowsAreDisabled();
    void changesForbiddenMeanwhile_data();
    void changesForbiddenMeanwhile();
    void libraryThatTookTheOthersPlaceGoes();
    void pageDestroyedByTheQuestionOfARow();

private:
    static constexpr int renameButton = 0;
    static constexpr int deleteButton = 1;

    static void clickInRow(const LibraryPage& shown, const QString& name, int button)
    {
        const QModelIndex cell = shown.find(name).siblingAtColumn(CProductTreeModel::OperateColumn);
        const QRect rect = CCellButtonDelegate::buttonRect(shown.view()->visualRect(cell), button);
        QTest::mouseClick(shown.view()->viewport(), Qt::LeftButton, {}, rect.center());
    }
    static bool exists(const LibraryPage& shown, const char* relative)
    {
        return QFileInfo::exists(shown.library.path(QLatin1String(relative)));
    }
};

void tst_TypeLibraryButtons::newFolderBesideTheCurrentType()
{
    const LibraryPage shown;
    QTRY_VERIFY(shown.findInGroup(QStringLiteral("Other")).isValid());
    shown.view()->setCurrentIndex(shown.findInGroup(QStringLiteral("Other")));
    QTest::keyClick(shown.view(), Qt::Key_N, Qt::ControlModifier);
    QTRY_VERIFY(exists(shown, "G/New type folder"));
    QVERIFY(!exists(shown, "New type folder"));
}

void tst_TypeLibraryButtons::newFolderAtTheRoot()
{
    const LibraryPage shown;
    QTRY_VERIFY(shown.find(QStringLiteral("Card")).isValid());
    QTest::mouseClick(shown.button("NewTypeFolder"), Qt::LeftButton);
    QTRY_VERIFY(exists(shown, "New type folder"));
}

void tst_TypeLibraryButtons::importedFileMakesClearAllWork()
{
    const LibraryPage shown;
    const QString outside = shown.library.addOutside(QStringLiteral("New.rcvp"), "new");
    QVERIFY(QFile::remove(shown.library.path(QStringLiteral("Card.rcvp"))));
    QVERIFY(QDir(shown.library.path(QStringLiteral("G"))).removeRecursively());
    QTRY_VERIFY(!shown.button("ClearAll")->isEnabled());
    ModalScript script;
    script.choose(outside);
    QTest::mouseClick(shown.button("ImportCabinet"), Qt::LeftButton);
    QCOMPARE(script.seen(), QStringList{QStringLiteral("Import...: Parameter(*.rcvp *.rcvbp)")});
    QCOMPARE(shown.library.files(), QStringList{QStringLiteral("New.rcvp=new")});
    QTRY_VERIFY(shown.button("ClearAll")->isEnabled());
    QTRY_VERIFY(shown.find(QStringLiteral("New")).isValid());
    script.press(CDialog::Yes);
    shown.view()->deleteIndex(shown.find(QStringLiteral("New")));
    QCOMPARE(shown.library.files(), QStringList());
    QTRY_VERIFY(!shown.button("ClearAll")->isEnabled());
}

void tst_TypeLibraryButtons::importSeesTheLibraryAsItIsNow_data()
{
    QTest::addColumn<QString>("message");
    QTest::newRow("ImportCabinet") << information("Duplicated type files:(New).");
    QTest::newRow("ImportFolder") << information("All type files in the type group has been added.");
}

// A file that another program has put there since the last scan counts.
void tst_TypeLibraryButtons::importSeesTheLibraryAsItIsNow()
{
    QFETCH(QString, message);
    const LibraryPage shown;
    const QString outside = shown.library.addOutside(QStringLiteral("New.rcvp"), "late");
    shown.library.add(QStringLiteral("Late.rcvp"), "late");
    ModalScript script;
    script.choose(qstrcmp(QTest::currentDataTag(), "ImportFolder") == 0 ? QFileInfo(outside).path() : outside);
    script.press(CDialog::Ok);
    QTest::mouseClick(shown.button(QTest::currentDataTag()), Qt::LeftButton);
    QCOMPARE(script.seen().value(1), message);
    QVERIFY(!shown.library.files().contains(QStringLiteral("New.rcvp=late")));
}

void tst_TypeLibraryButtons::clearAll()
{
    const LibraryPage shown;
    QTRY_VERIFY(shown.button("ClearAll")->isEnabled());
    const QString card = shown.library.path(QStringLiteral("Card.rcvp"));
    const auto sameName = [] { return CTypeLibrary::instance().searchSameName(QStringLiteral("Card")); };
    QCOMPARE(sameName(), card);
    ModalScript script;
    script.press(CDialog::Yes);
    QTest::mouseClick(shown.button("ClearAll"), Qt::LeftButton);
    QCOMPARE(script.seen(), QStringList{question("Are you sure you want to delete all types?")});
    QTRY_COMPARE(shown.library.files(), QStringList());
    QVERIFY(!exists(shown, "G"));
    QTRY_VERIFY(!shown.button("ClearAll")->isEnabled());
    QCOMPARE(sameName(), card); // the store looks again when the next one asks it to
}

// The host gives another folder behind the open question: nobody has asked about what is in that one.
void tst_TypeLibraryButtons::clearAllOfAnotherLibraryThanAskedAbout()
{
    const LibraryPage shown;
    QTRY_VERIFY(shown.button("ClearAll")->isEnabled());
    const QString other = shown.library.addOutside(QStringLiteral("Kept.rcvp"), "kept");
    const QStringList before = shown.library.files();
    ModalScript script;
    script.use([&](QWidget* box) {
        shown.page->setData(QFileInfo(other).path());
        static_cast<CMessageBox*>(box)->button(CDialog::Yes)->click();
    });
    QTest::mouseClick(shown.button("ClearAll"), Qt::LeftButton);
    QVERIFY(script.isDone());
    QVERIFY(QFileInfo::exists(other));
    QCOMPARE(shown.library.files(), before);
}

void tst_TypeLibraryButtons::clearAllForbiddenWhileAsked()
{
    const LibraryPage shown;
    QTRY_VERIFY(shown.button("ClearAll")->isEnabled());
    const QStringList before = shown.library.files();
    ModalScript script;
    script.use([&](QWidget* box) {
        shown.page->setEditable(false);
        static_cast<CMessageBox*>(box)->button(CDialog::Yes)->click();
    });
    QTest::mouseClick(shown.button("ClearAll"), Qt::LeftButton);
    QVERIFY(script.isDone());
    QCOMPARE(shown.library.files(), before);
}

void tst_TypeLibraryButtons::buttonsOfTheRows()
{
    const LibraryPage shown;
    QTRY_VERIFY(shown.find(QStringLiteral("Card")).isValid());
    ModalScript script;
    script.press(CDialog::No).press(CDialog::Yes);
    clickInRow(shown, QStringLiteral("Card"), deleteButton);
    QVERIFY(exists(shown, "Card.rcvp"));
    QCOMPARE(shown.view()->currentIndex().row(), shown.find(QStringLiteral("Card")).row());
    clickInRow(shown, QStringLiteral("Card"), deleteButton);
    QVERIFY(!exists(shown, "Card.rcvp"));
    QVERIFY(exists(shown, "G/Other.rcvp"));
    const QString asked = question("Are you sure want to delete type(Card)?");
    QCOMPARE(script.seen(), QStringList({asked, asked}));
}

void tst_TypeLibraryButtons::renameButtonOpensTheEditor()
{
    const LibraryPage shown;
    QTRY_VERIFY(shown.find(QStringLiteral("Card")).isValid());
    clickInRow(shown, QStringLiteral("Card"), renameButton);
    auto* const editor = shown.view()->viewport()->findChild<QLineEdit*>();
    QVERIFY(editor);
    QCOMPARE(editor->text(), QStringLiteral("Card"));
    QCOMPARE(QApplication::focusWidget(), editor);
    QTest::keyClicks(editor, QStringLiteral("Renamed"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_VERIFY(exists(shown, "Renamed.rcvp"));
    QVERIFY(!exists(shown, "Card.rcvp"));
}

void tst_TypeLibraryButtons::buttonsOfTheRowsAreDisabled()
{
    const LibraryPage shown;
    QTRY_VERIFY(shown.find(QStringLiteral("Card")).isValid());
    shown.page->setEditable(false);
    ModalScript script;
    for (const int button : {renameButton, deleteButton})
        clickInRow(shown, QStringLiteral("Card"), button);
    QCoreApplication::processEvents();
    QCOMPARE(script.seen(), QStringList());
    QVERIFY(!shown.view()->viewport()->findChild<QLineEdit*>());
    shown.page->setEditable(true);
    clickInRow(shown, QStringLiteral("Card"), renameButton);
    QVERIFY(shown.view()->viewport()->findChild<QLineEdit*>());
}

void tst_TypeLibraryButtons::changesForbiddenMeanwhile_data()
{
    QTest::addColumn<QString>("chosen"); // in the folder outside of the library
    QTest::newRow("delete") << QString();
    QTest::newRow("ImportCabinet") << QStringLiteral("/New.rcvp");
    QTest::newRow("ImportFolder") << QStringLiteral("/");
}

// What was begun when it was allowed is not finished.
void tst_TypeLibraryButtons::changesForbiddenMeanwhile()
{
    QFETCH(QString, chosen);
    const LibraryPage shown;
    QTRY_VERIFY(shown.find(QStringLiteral("Card")).isValid());
    const QString folder = QFileInfo(shown.library.addOutside(QStringLiteral("New.rcvp"), "new")).path();
    const QStringList before = shown.library.files();
    ModalScript script;
    script.use([&](QWidget* dialog) {
        shown.page->setEditable(false);
        if (auto* const box = qobject_cast<CMessageBox*>(dialog)) {
            box->button(CDialog::Yes)->click();
            return;
        }
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(folder + chosen);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    if (chosen.isEmpty())
        clickInRow(shown, QStringLiteral("Card"), deleteButton);
    else
        QTest::mouseClick(shown.button(QTest::currentDataTag()), Qt::LeftButton);
    QVERIFY(script.isDone());
    QCOMPARE(script.seen(), QStringList());
    QCOMPARE(shown.library.files(), before);
}

void tst_TypeLibraryButtons::libraryThatTookTheOthersPlaceGoes()
{
    const LibraryPage shown;
    QTRY_VERIFY(shown.find(QStringLiteral("Card")).isValid());
    QVERIFY(QDir(shown.library.root()).removeRecursively());
    shown.library.add(QStringLiteral("Second.rcvp"), "second");
    QTRY_VERIFY(shown.find(QStringLiteral("Second")).isValid());
    QCoreApplication::processEvents();
    QVERIFY(QDir(shown.library.root()).removeRecursively());
    QTRY_VERIFY(!shown.button("ClearAll")->isEnabled());
    QVERIFY(!shown.view()->hasRows());
}

void tst_TypeLibraryButtons::pageDestroyedByTheQuestionOfARow()
{
    LibraryPage shown;
    QTRY_VERIFY(shown.find(QStringLiteral("Card")).isValid());
    QTimer::singleShot(0, shown.page.get(), [&shown] { shown.page.reset(); });
    clickInRow(shown, QStringLiteral("Card"), deleteButton);
    QCOMPARE(shown.page.get(), nullptr);
    QVERIFY(exists(shown, "Card.rcvp"));
}

SETTINGAREA_TEST_MAIN(tst_TypeLibraryButtons, QApplication)

#include "tst_TypeLibraryButtons.moc"
