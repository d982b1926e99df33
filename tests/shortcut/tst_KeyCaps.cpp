#include "shortcut/KeyCaps.h"
#include "tests/support/TestObject.h"

#include <QCoreApplication>
#include <QKeySequence>

class tst_KeyCaps : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void capsOfSequence_data();
    void capsOfSequence();
};

void tst_KeyCaps::capsOfSequence_data()
{
    QTest::addColumn<QKeySequence>("keys");
    QTest::addColumn<QStringList>("caps");
    const auto add = [](const QKeySequence& keys, const char* caps) {
        QTest::addRow("%s", caps) << keys << QString::fromLatin1(caps).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    };
    add({}, "");
    add({Qt::Key_A}, "A");
    add({Qt::Key_Up}, "Up");
    add({Qt::Key_Down}, "Down");
    add({Qt::Key_Left}, "Left");
    add({Qt::Key_Right}, "Right");
    add({Qt::Key_Delete}, "Del");
    add({Qt::Key_Escape}, "Esc");
    add({Qt::Key_Minus}, "-");
    add({Qt::Key_Plus}, "+");
    add({Qt::Key_PageUp}, "Page up");
    add({Qt::Key_PageDown}, "Page down");
    add({Qt::Key_F12}, "F12");
    // The modifier is the second entry and comes first.
    add({Qt::Key_A, Qt::CTRL}, "Ctrl|A");
    add({Qt::Key_Plus, Qt::CTRL}, "Ctrl|+");
    add({Qt::Key_PageUp, Qt::SHIFT}, "Shift|Page up");
    add({Qt::Key_X, Qt::ALT, Qt::CTRL}, "Ctrl|Alt|X");
    add({Qt::Key_X, Qt::SHIFT, Qt::ALT, Qt::CTRL}, "Ctrl|Alt|Shift|X");
    add({Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4}, "4|3|2|1");
    add({Qt::Key_A, static_cast<int>(Qt::CTRL) | static_cast<int>(Qt::SHIFT)}, "CtrlShift|A");
    // An entry that is a combination of its own is one cap, and only a key alone has a text of its own.
    add({static_cast<int>(Qt::CTRL) | Qt::Key_A}, "CtrlA");
    add({static_cast<int>(Qt::CTRL) | Qt::Key_Plus}, "Ctrl");
    add({static_cast<int>(Qt::SHIFT) | Qt::Key_PageUp}, "ShiftPgUp");
}

void tst_KeyCaps::capsOfSequence()
{
    QFETCH(QKeySequence, keys);
    QFETCH(QStringList, caps);
    QCOMPARE(keyCaps(keys), caps);
}

SETTINGAREA_TEST_MAIN(tst_KeyCaps, QGuiApplication)
#include "tst_KeyCaps.moc"
