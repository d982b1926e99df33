#include "tests/platform/WidgetFixture.h"
#include "tests/support/TestObject.h"

#include <widgetry/CMenuPushButton.h>
#include <widgetry/CToolTip.h>

#include <QApplication>
#include <QHelpEvent>
#include <QMenu>
#include <QToolTip>

#include <functional>

namespace {

// A button with the menu of the wizard's first page: "Browse...", and a group with a group in it.
struct Button
{
    Button()
    {
        menu = new QMenu(&button);
        browse = menu->addAction(QStringLiteral("Browse..."));
        menu->addSeparator();
        single = menu->addAction(QStringLiteral("Cab 1"));
        group = menu->addMenu(QStringLiteral("Group"));
        inner = group->addMenu(QStringLiteral("Inner"));
        deep = inner->addAction(QStringLiteral("R&&D && Co"));
        button.setText(QStringLiteral("Please select"));
        button.setMenu(menu);
    }

    CMenuPushButton button;
    QMenu* menu;
    QMenu* group;
    QMenu* inner;
    QAction* browse;
    QAction* single;
    QAction* deep;
};

// Runs `check` with the menu that the next statement opens, and closes the menu.
void whenMenu(const std::function<void(QMenu&)>& check)
{
    soon([check] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            qFatal("No menu is open");
        check(*menu);
        while (QWidget* const popup = QApplication::activePopupWidget())
            popup->close();
    });
}

} // namespace

class tst_CMenuPushButton : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutSync();
    void actionBecomesText();
    void actionOfAnyDepth();
    void lazilyFilledMenu();
    void otherMenuLetGo();
    void ownerSetsTextAfterwards();
    void ampersands_data();
    void ampersands();
    void displayText();
    void opensWithKeyboard_data();
    void opensWithKeyboard();
    void chosenWithKeyboard();
    void opensWithMouse();
    void disabled();
    void longTextIsShortened();
    void tooltipShowsWholeText();
    void ownTooltip();
};

void tst_CMenuPushButton::withoutSync()
{
    Button b;
    QVERIFY(!b.button.isActionSync());
    b.single->trigger();
    QCOMPARE(b.button.text(), QStringLiteral("Please select"));
}

void tst_CMenuPushButton::actionBecomesText()
{
    Button b;
    b.button.setActionSync(true);
    QVERIFY(b.button.isActionSync());
    b.single->trigger();
    QCOMPARE(b.button.text(), QStringLiteral("Cab 1"));
    b.button.setActionSync(false);
    b.browse->trigger();
    QCOMPARE(b.button.text(), QStringLiteral("Cab 1"));
}

void tst_CMenuPushButton::actionOfAnyDepth()
{
    Button b;
    b.button.setActionSync(true);
    b.deep->trigger();
    QCOMPARE(b.button.displayText(), QStringLiteral("R&D & Co"));
    QCOMPARE(b.button.text(), QStringLiteral("R&&D && Co"));
}

void tst_CMenuPushButton::lazilyFilledMenu()
{
    Button b;
    b.button.setActionSync(true);
    connect(b.inner, &QMenu::aboutToShow, b.inner, [&b] {
        b.inner->clear();
        b.inner->addAction(QStringLiteral("Late"));
    });
    b.button.show();
    whenMenu([&b](QMenu& menu) {
        QCOMPARE(&menu, b.menu);
        QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier, menu.actionGeometry(b.group->menuAction()).center());
        QTRY_VERIFY(b.group->isVisible());
        QTest::mouseClick(b.group, Qt::LeftButton, Qt::NoModifier,
                          b.group->actionGeometry(b.inner->menuAction()).center());
        QTRY_VERIFY(b.inner->isVisible());
        QTest::mouseClick(b.inner, Qt::LeftButton, Qt::NoModifier,
                          b.inner->actionGeometry(b.inner->actions().constFirst()).center());
    });
    b.button.showMenu();
    QCOMPARE(b.button.text(), QStringLiteral("Late"));
}

void tst_CMenuPushButton::otherMenuLetGo()
{
    Button b;
    b.button.setActionSync(true);
    QMenu other;
    QAction* const action = other.addAction(QStringLiteral("Other"));
    b.button.setMenu(&other);
    b.single->trigger();
    QCOMPARE(b.button.text(), QStringLiteral("Please select"));
    action->trigger();
    QCOMPARE(b.button.text(), QStringLiteral("Other"));
    b.button.setMenu(nullptr);
    b.button.setText(QStringLiteral("None"));
    action->trigger();
    QCOMPARE(b.button.text(), QStringLiteral("None"));
}

void tst_CMenuPushButton::ownerSetsTextAfterwards()
{
    Button b;
    b.button.setActionSync(true);
    connect(b.browse, &QAction::triggered, &b.button, [&b] { b.button.setDisplayText(QStringLiteral("file")); });
    b.browse->trigger();
    QCOMPARE(b.button.text(), QStringLiteral("file"));
}

void tst_CMenuPushButton::ampersands_data()
{
    QTest::addColumn<QString>("actionText");
    QTest::addColumn<QString>("shown");
    QTest::newRow("name with ampersand") << QStringLiteral("A && B") << QStringLiteral("A & B");
    QTest::newRow("mnemonic") << QStringLiteral("&Open") << QStringLiteral("Open");
    QTest::newRow("both") << QStringLiteral("&Save && close") << QStringLiteral("Save & close");
    QTest::newRow("three") << QStringLiteral("A&&&B") << QStringLiteral("A&B");
    QTest::newRow("at the end") << QStringLiteral("A&") << QStringLiteral("A");
    QTest::newRow("with key") << QStringLiteral("Open\tCtrl+O") << QStringLiteral("Open");
    QTest::newRow("markup") << QStringLiteral("<b>x</b>") << QStringLiteral("<b>x</b>");
}

void tst_CMenuPushButton::ampersands()
{
    QFETCH(QString, actionText);
    QFETCH(QString, shown);
    Button b;
    b.button.setActionSync(true);
    b.single->setText(actionText);
    b.single->trigger();
    QCOMPARE(b.button.displayText(), shown);
    QVERIFY(b.button.shortcut().isEmpty());
}

void tst_CMenuPushButton::displayText()
{
    CMenuPushButton button;
    button.setDisplayText(QStringLiteral("a & b && c"));
    QCOMPARE(button.displayText(), QStringLiteral("a & b && c"));
    QCOMPARE(button.text(), QStringLiteral("a && b &&&& c"));
    button.setText(QStringLiteral("&Type"));
    QCOMPARE(button.displayText(), QStringLiteral("Type"));
}

void tst_CMenuPushButton::opensWithKeyboard_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Down") << Qt::Key_Down;
    QTest::newRow("Space") << Qt::Key_Space;
}

void tst_CMenuPushButton::opensWithKeyboard()
{
    QFETCH(Qt::Key, key);
    Button b;
    b.button.show();
    bool opened = false;
    whenMenu([&](QMenu& menu) { opened = &menu == b.menu; });
    QTest::keyClick(&b.button, key);
    QVERIFY(opened);
}

void tst_CMenuPushButton::chosenWithKeyboard()
{
    Button b;
    b.button.setActionSync(true);
    b.button.show();
    whenMenu([](QMenu& menu) {
        QTest::keyClick(&menu, Qt::Key_Down); // "Browse..."
        QTest::keyClick(&menu, Qt::Key_Down); // past the separator
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    QTest::keyClick(&b.button, Qt::Key_Down);
    QCOMPARE(b.button.text(), QStringLiteral("Cab 1"));
}

void tst_CMenuPushButton::opensWithMouse()
{
    Button b;
    b.button.show();
    bool opened = false;
    whenMenu([&](QMenu& menu) { opened = &menu == b.menu; });
    QTest::mousePress(&b.button, Qt::LeftButton);
    QVERIFY(opened);
}

void tst_CMenuPushButton::disabled()
{
    Button b;
    b.button.setEnabled(false);
    b.button.show();
    QTest::keyClick(&b.button, Qt::Key_Down);
    QTest::mouseClick(&b.button, Qt::LeftButton);
    QVERIFY(!b.menu->isVisible());
}

void tst_CMenuPushButton::longTextIsShortened()
{
    Button b;
    const QString name(255, QLatin1Char('W'));
    b.button.setDisplayText(name);
    QVERIFY(b.button.sizeHint().width() < b.button.fontMetrics().horizontalAdvance(name) / 3);
    QVERIFY(b.button.minimumSizeHint().width() < b.button.sizeHint().width());
    QCOMPARE(b.button.minimumSizeHint().height(), b.button.sizeHint().height());

    // The end of the text is visible: another last character makes another picture.
    b.button.setFixedWidth(313);
    const QImage before = b.button.grab().toImage();
    b.button.setDisplayText(name.left(254) + QLatin1Char('i'));
    QVERIFY(b.button.grab().toImage() != before);
    // Ampersands are not lost: they fill most of the width.
    b.button.setText(QString());
    const QImage empty = b.button.grab().toImage();
    b.button.setDisplayText(QString(255, QLatin1Char('&')));
    const QImage ampersands = b.button.grab().toImage();
    int columns = 0;
    for (int x = 0; x < empty.width(); ++x)
        columns += empty.copy(x, 0, 1, empty.height()) != ampersands.copy(x, 0, 1, empty.height());
    QVERIFY2(columns > empty.width() / 2, qPrintable(QString::number(columns)));
    // A short text is painted as any push button paints it.
    QPushButton plain;
    plain.setMenu(b.menu);
    plain.setFixedSize(b.button.size());
    for (QPushButton* const button : {static_cast<QPushButton*>(&b.button), &plain})
        button->setText(QStringLiteral("&Cab && 1"));
    QCOMPARE(b.button.grab().toImage(), plain.grab().toImage());
}

void tst_CMenuPushButton::tooltipShowsWholeText()
{
    Button b;
    b.button.setFixedWidth(150);
    b.button.show();
    const auto hover = [&b] {
        QHelpEvent help(QEvent::ToolTip, {5, 5}, b.button.mapToGlobal({5, 5}));
        QCoreApplication::sendEvent(&b.button, &help);
    };
    const QString name = QStringLiteral("<b>a long name & more</b> of a type file.rcvp");
    b.button.setDisplayText(name);
    hover();
    QVERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), CToolTip::fromPlainText(name));
    b.button.setDisplayText(QStringLiteral("short"));
    hover();
    QTRY_VERIFY(!QToolTip::isVisible());
}

void tst_CMenuPushButton::ownTooltip()
{
    Button b;
    b.button.setToolTip(QStringLiteral("Choose a file"));
    b.button.show();
    QHelpEvent help(QEvent::ToolTip, {5, 5}, b.button.mapToGlobal({5, 5}));
    QCoreApplication::sendEvent(&b.button, &help);
    QCOMPARE(QToolTip::text(), QStringLiteral("Choose a file"));
    QToolTip::hideText();
}

SETTINGAREA_TEST_MAIN(tst_CMenuPushButton, QApplication)
#include "tst_CMenuPushButton.moc"
