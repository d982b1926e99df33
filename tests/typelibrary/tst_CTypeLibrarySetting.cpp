#include "tests/support/ModalScript.h"
#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"
#include "tests/typelibrary/LibraryPage.h"

#include <widgetry/CSeparator.h>

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <vector>

namespace {

constexpr const char* buttonNames[] = {"NewTypeFolder", "ImportFolder", "ImportCabinet", "MultiRcvCabinet", "ClearAll"};

} // namespace

class tst_CTypeLibrarySetting : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void buttons_data();
    void buttons();
    void row();
    void tabOrder();
    void followsTheLanguage();
    void clearAllFollowsTheRows();
    void clearAllFollowsTheFolder();
    void clearAllAsks();
    void pageDestroyedWhileClearAllAsks();
    void editableSwitch();
    void keys_data();
    void keys();
    void keysOfAHiddenPage();
    void keysOfADisabledButton();
    void keyInTheNameEditor();
};

void tst_CTypeLibrarySetting::buttons_data()
{
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QString>("normal");
    QTest::addColumn<QString>("hover");
    QTest::addColumn<QString>("disabled");
    QTest::addColumn<QKeySequence>("shortcut");
    const auto add = [](const char* name, const char* toolTip, const char* icon, const char* shortcut) {
        const QString file = QStringLiteral(":/Image/SettingArea/TypeLibrary/%1_%2.svg").arg(QLatin1String(icon));
        QTest::newRow(name) << QString::fromUtf8(toolTip) << file.arg(QStringLiteral("normal"))
                            << file.arg(QStringLiteral("hover")) << file.arg(QStringLiteral("disabled"))
                            << QKeySequence(QLatin1String(shortcut));
    };
    add("NewTypeFolder", "New type folder(Ctrl+N)", "new-type-folder", "Ctrl+N");
    add("ImportFolder", "Import as folder(Ctrl+I)", "import-folder", "Ctrl+I");
    add("ImportCabinet", "Import cabinet type file(Suffix rcvp,rcvbp)(Ctrl+A)", "import-cabinet", "Ctrl+A");
    add("MultiRcvCabinet", "Create multi-receiver cabinet type", "multi-receiver", "");
    add("ClearAll", "Delete all types", "clear-all", "");
}

void tst_CTypeLibrarySetting::buttons()
{
    QFETCH(QString, toolTip);
    QFETCH(QString, normal);
    QFETCH(QString, hover);
    QFETCH(QString, disabled);
    QFETCH(QKeySequence, shortcut);
    const LibraryPage shown;
    const QToolButton* const button = shown.button(QTest::currentDataTag());
    QCOMPARE(button->toolTip(), toolTip);
    QCOMPARE(button->accessibleName(), toolTip);
    QCOMPARE(button->shortcut(), shortcut);
    QVERIFY(button->focusPolicy() & Qt::TabFocus);
    QVERIFY(button->autoRaise());
    const auto picture = [](const QIcon& icon, QIcon::Mode mode) { return icon.pixmap(16, mode).toImage(); };
    QCOMPARE(picture(button->icon(), QIcon::Normal), picture(QIcon(normal), QIcon::Normal));
    QCOMPARE(picture(button->icon(), QIcon::Active), picture(QIcon(hover), QIcon::Normal));
    QCOMPARE(picture(button->icon(), QIcon::Disabled), picture(QIcon(disabled), QIcon::Normal));
    QVERIFY(picture(QIcon(normal), QIcon::Normal) != picture(QIcon(hover), QIcon::Normal));
    QVERIFY(picture(QIcon(normal), QIcon::Normal) != picture(QIcon(disabled), QIcon::Normal));
}

void tst_CTypeLibrarySetting::row()
{
    const LibraryPage shown;
    const auto* const row = shown.page->findChild<QWidget*>(QStringLiteral("BGTransparent"));
    QVERIFY(row);
    auto* const separator = shown.page->findChild<CSeparator*>();
    QVERIFY(separator);
    QCOMPARE(separator->styleSheet(), QStringLiteral("background:rgba(57, 57, 64, 1);width: 1px;"));
    QCOMPARE(separator->width(), 1);
    QCOMPARE(separator->parentWidget(), row);
    const QImage line = separator->grab().toImage();
    QCOMPARE(line.pixelColor(line.rect().center()), QColor(57, 57, 64));

    // From left to right, each 16 pixels from the one before.
    QList<QWidget*> inOrder;
    for (const char* const name : buttonNames)
        inOrder.append(shown.button(name));
    inOrder.insert(4, separator);
    int left = 0;
    for (const QWidget* const widget : qAsConst(inOrder)) {
        QCOMPARE(widget->parentWidget(), row);
        QCOMPARE(widget->x(), left);
        left = widget->geometry().right() + 1 + 16;
    }
    QCOMPARE(row->x(), 0);
    QCOMPARE(row->height(), shown.button("ClearAll")->height());
    QCOMPARE(shown.view()->objectName(), QStringLiteral("TypeLibrary"));
    QCOMPARE(shown.view()->x(), 0);
    QCOMPARE(shown.view()->size(), QSize(1000, 600 - shown.view()->y()));
}

void tst_CTypeLibrarySetting::tabOrder()
{
    LibraryPage shown;
    QTRY_VERIFY(shown.button("ClearAll")->isEnabled());
    QWidget window;
    auto* const before = new QLineEdit(&window);
    shown.page->setParent(&window);
    auto* const after = new QLineEdit(&window);
    after->setObjectName(QStringLiteral("After"));
    shown.page->show();
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    before->setFocus();
    QStringList order;
    for (int step = 0; step < 7; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        order.append(QApplication::focusWidget()->objectName());
    }
    QCOMPARE(order.join(QLatin1Char(' ')),
             QStringLiteral("NewTypeFolder ImportFolder ImportCabinet MultiRcvCabinet ClearAll TypeLibrary After"));
    shown.page.reset();
}

void tst_CTypeLibrarySetting::followsTheLanguage()
{
    const LibraryPage shown;
    const UpperCase otherLanguage;
    QStringList texts;
    for (const char* const name : buttonNames) {
        texts.append(shown.button(name)->toolTip());
        QCOMPARE(shown.button(name)->accessibleName(), texts.constLast());
    }
    QCOMPARE(texts,
             QStringList({QStringLiteral("NEW TYPE FOLDER(CTRL+N)"), QStringLiteral("IMPORT AS FOLDER(CTRL+I)"),
                          QStringLiteral("IMPORT CABINET TYPE FILE(SUFFIX RCVP,RCVBP)(CTRL+A)"),
                          QStringLiteral("CREATE MULTI-RECEIVER CABINET TYPE"), QStringLiteral("DELETE ALL TYPES")}));
    QCOMPARE(shown.button("NewTypeFolder")->shortcut(), QKeySequence(Qt::CTRL + Qt::Key_N));
}

void tst_CTypeLibrarySetting::clearAllFollowsTheRows()
{
    const LibraryPage shown;
    const QToolButton* const button = shown.button("ClearAll");
    QTRY_VERIFY(button->isEnabled());
    QVERIFY(QFile::remove(shown.library.path(QStringLiteral("Card.rcvp"))));
    QTRY_VERIFY(!shown.find(QStringLiteral("Card")).isValid());
    QVERIFY(button->isEnabled()); // there is still the group
    QVERIFY(QDir(shown.library.path(QStringLiteral("G"))).removeRecursively());
    QTRY_VERIFY(!button->isEnabled());
    shown.library.add(QStringLiteral("New.rcvp"), "new");
    QTRY_VERIFY(button->isEnabled());
    QVERIFY(QFile::remove(shown.library.path(QStringLiteral("New.rcvp"))));
    QTRY_VERIFY(!button->isEnabled());
    // What is no type makes no row.
    shown.library.add(QStringLiteral("notes.txt"), "notes");
    shown.library.add(QStringLiteral("Last.rcvbp"), "last");
    QTRY_VERIFY(button->isEnabled());
    QVERIFY(QFile::remove(shown.library.path(QStringLiteral("Last.rcvbp"))));
    QTRY_VERIFY(!button->isEnabled());
}

void tst_CTypeLibrarySetting::clearAllFollowsTheFolder()
{
    const CTypeLibrarySetting withoutFolder;
    QVERIFY(!withoutFolder.findChild<QToolButton*>(QStringLiteral("ClearAll"))->isEnabled());

    const LibraryPage shown;
    const QToolButton* const button = shown.button("ClearAll");
    QTRY_VERIFY(button->isEnabled());
    const QTemporaryDir empty;
    shown.page->setData(empty.path());
    QTRY_VERIFY(!button->isEnabled());
    shown.page->setData(shown.library.root());
    QTRY_VERIFY(button->isEnabled());
    shown.page->setData(shown.library.root() + QStringLiteral("/not there"));
    QVERIFY(!button->isEnabled());
    shown.page->setData(QString());
    QVERIFY(!button->isEnabled());
    // By name, as the settings area does it.
    QVERIFY(QMetaObject::invokeMethod(shown.page.get(), "setData", Q_ARG(QString, shown.library.root())));
    QTRY_VERIFY(button->isEnabled());
    // The folder disappears.
    QVERIFY(QDir(shown.library.root()).removeRecursively());
    QTRY_VERIFY(!button->isEnabled());
}

void tst_CTypeLibrarySetting::clearAllAsks()
{
    const LibraryPage shown;
    QTRY_VERIFY(shown.button("ClearAll")->isEnabled());
    ModalScript script;
    script.press(CDialog::No);
    QTest::mouseClick(shown.button("ClearAll"), Qt::LeftButton);
    QCOMPARE(script.seen(), QStringList{question("Are you sure you want to delete all types?")});
    QCOMPARE(shown.library.files(),
             QStringList({QStringLiteral("Card.rcvp=card"), QStringLiteral("G/Other.rcvp=other")}));
}

void tst_CTypeLibrarySetting::pageDestroyedWhileClearAllAsks()
{
    LibraryPage shown;
    QTRY_VERIFY(shown.button("ClearAll")->isEnabled());
    QTimer::singleShot(0, shown.page.get(), [&shown] { shown.page.reset(); });
    QTest::mouseClick(shown.button("ClearAll"), Qt::LeftButton);
    QCOMPARE(shown.page.get(), nullptr);
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
    QCOMPARE(shown.library.files().size(), 2);
}

void tst_CTypeLibrarySetting::editableSwitch()
{
    const LibraryPage shown;
    QTRY_VERIFY(shown.button("ClearAll")->isEnabled());
    const auto isEnabled = [&shown] {
        QList<bool> enabled;
        for (const char* const name : buttonNames)
            enabled.append(shown.button(name)->isEnabled());
        return enabled;
    };
    QCOMPARE(isEnabled(), QList<bool>({true, true, true, true, true}));
    shown.page->setEditable(false);
    QCOMPARE(isEnabled(), QList<bool>({false, false, false, false, false}));
    // Rows that come do not lift it.
    shown.library.add(QStringLiteral("New.rcvp"), "new");
    QTRY_VERIFY(shown.find(QStringLiteral("New")).isValid());
    QVERIFY(!shown.button("ClearAll")->isEnabled());
    shown.page->setEditable(true);
    QCOMPARE(isEnabled(), QList<bool>({true, true, true, true, true}));

    const QTemporaryDir empty;
    shown.page->setData(empty.path());
    QTRY_COMPARE(isEnabled(), QList<bool>({true, true, true, true, false}));
    shown.page->setEditable(false);
    shown.page->setEditable(true);
    QCOMPARE(isEnabled(), QList<bool>({true, true, true, true, false}));
}

void tst_CTypeLibrarySetting::keys_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("NewTypeFolder") << Qt::Key_N;
    QTest::newRow("ImportFolder") << Qt::Key_I;
    QTest::newRow("ImportCabinet") << Qt::Key_A;
}

// Wherever the focus is in the window that shows the page, a key does one thing once.
void tst_CTypeLibrarySetting::keys()
{
    QFETCH(Qt::Key, key);
    const LibraryPage shown;
    for (QWidget* const focus :
         {static_cast<QWidget*>(shown.view()), static_cast<QWidget*>(shown.button("ClearAll"))}) {
        QTRY_VERIFY(focus->isEnabled());
        shown.page->activateWindow(); // again, after a dialog
        QVERIFY(QTest::qWaitForWindowActive(shown.page.get()));
        focus->setFocus();
        std::vector<std::unique_ptr<QSignalSpy>> clicks;
        for (const char* const name : buttonNames)
            clicks.push_back(std::make_unique<QSignalSpy>(shown.button(name), &QToolButton::clicked));
        ModalScript script;
        script.choose(QString());
        QTest::keyClick(focus, key, Qt::ControlModifier);
        for (std::size_t i = 0; i < clicks.size(); ++i)
            QTRY_COMPARE(clicks[i]->count(), qstrcmp(buttonNames[i], QTest::currentDataTag()) == 0 ? 1 : 0);
    }
}

void tst_CTypeLibrarySetting::keysOfAHiddenPage()
{
    LibraryPage shown;
    QWidget window;
    auto* const field = new QLineEdit(&window);
    shown.page->setParent(&window);
    shown.page->hide();
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    field->setFocus();
    std::vector<std::unique_ptr<QSignalSpy>> clicks;
    for (const char* const name : {"NewTypeFolder", "ImportFolder", "ImportCabinet"})
        clicks.push_back(std::make_unique<QSignalSpy>(shown.button(name), &QToolButton::clicked));
    const auto pressAll = [field] {
        for (const Qt::Key key : {Qt::Key_N, Qt::Key_I, Qt::Key_A})
            QTest::keyClick(field, key, Qt::ControlModifier);
    };
    const auto countClicks = [&clicks] {
        QList<int> counts;
        for (const auto& spy : clicks)
            counts.append(spy->count());
        return counts;
    };
    ModalScript script;
    script.choose(QString());
    pressAll();
    shown.page->show();
    pressAll();
    // A field takes Ctrl+A for itself, whatever is shown beside it.
    QTRY_COMPARE(countClicks(), QList<int>({1, 1, 0}));
    shown.page.reset();
}

void tst_CTypeLibrarySetting::keysOfADisabledButton()
{
    const LibraryPage shown;
    const QSignalSpy clicks(shown.button("NewTypeFolder"), &QToolButton::clicked);
    shown.page->setEditable(false);
    QTest::keyClick(shown.page.get(), Qt::Key_N, Qt::ControlModifier);
    shown.page->setEditable(true);
    QTest::keyClick(shown.page.get(), Qt::Key_N, Qt::ControlModifier);
    QTRY_COMPARE(clicks.count(), 1);
}

// While a name is edited, Ctrl+A selects its text, as in every field.
void tst_CTypeLibrarySetting::keyInTheNameEditor()
{
    const LibraryPage shown;
    QTRY_VERIFY(shown.find(QStringLiteral("Card")).isValid());
    shown.view()->edit(shown.find(QStringLiteral("Card")));
    auto* const editor = shown.view()->viewport()->findChild<QLineEdit*>();
    QVERIFY(editor);
    editor->deselect();
    const QSignalSpy clicks(shown.button("ImportCabinet"), &QToolButton::clicked);
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(editor->selectedText(), editor->text());
    QTest::keyClick(editor, Qt::Key_Escape);
    QCOMPARE(clicks.count(), 0);
}

SETTINGAREA_TEST_MAIN(tst_CTypeLibrarySetting, QApplication)

#include "tst_CTypeLibrarySetting.moc"
