#include "tests/platform/WidgetFixture.h"
#include "tests/support/TestObject.h"

#include <widgetry/CMessageBox.h>

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTextEdit>
#include <QtMath>

#include <functional>

namespace {

using Answer = std::function<void(CMessageBox&)>;

// Answers the box that the next statement opens; a box that is still open then fails the test.
void whenBox(const Answer& answer)
{
    whenModal([answer](QWidget* modal) {
        const QPointer<CMessageBox> box = qobject_cast<CMessageBox*>(modal);
        QVERIFY(box);
        QVERIFY(QTest::qWaitForWindowActive(box));
        answer(*box);
        // A mnemonic shows the button pressed for a moment.
        const bool answered = QTest::qWaitFor([box] { return !box || !box->isVisible(); });
        if (!answered)
            box->close();
        QVERIFY2(answered, "The box was still open");
    });
}

Answer press(CMessageBox::Button button)
{
    return [button](CMessageBox& box) { QTest::mouseClick(box.button(button), Qt::LeftButton); };
}

Answer key(Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    return [pressed, modifiers](CMessageBox& box) { QTest::keyClick(&box, pressed, modifiers); };
}

const QString title = QStringLiteral("Orvel");

constexpr auto yesNo = CMessageBox::Yes | CMessageBox::No;
constexpr auto yesNoCancel = yesNo | CMessageBox::Cancel;
constexpr auto okCancel = CMessageBox::Ok | CMessageBox::Cancel;

} // namespace

Q_DECLARE_METATYPE(CMessageBox::Buttons)
Q_DECLARE_METATYPE(CMessageBox::Button)

class tst_CMessageBox : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void pressedButton_data();
    void pressedButton();
    void closing_data();
    void closing();
    void returnPressesDefault_data();
    void returnPressesDefault();
    void mnemonics();
    void tabReachesEveryButton();
    void kinds_data();
    void kinds();
    void textIsPlain_data();
    void textIsPlain();
    void parentMayBeDestroyed();
    void parentMayBeHidden();
    void longTextStaysOnScreen_data();
    void longTextStaysOnScreen();
    void largeFontStaysOnScreen();
    void longWordIsBroken_data();
    void longWordIsBroken();
    void followsLanguage();
    void defaultsOfQuestion();
};

void tst_CMessageBox::pressedButton_data()
{
    QTest::addColumn<CMessageBox::Buttons>("buttons");
    QTest::addColumn<CMessageBox::Button>("pressed");
    QTest::addColumn<int>("result");
    QTest::newRow("Yes is 0") << yesNoCancel << CMessageBox::Yes << 0;
    QTest::newRow("No") << yesNoCancel << CMessageBox::No << int{CMessageBox::NoResult};
    QTest::newRow("Cancel") << yesNoCancel << CMessageBox::Cancel << int{CMessageBox::CancelResult};
    QTest::newRow("Ok") << okCancel << CMessageBox::Ok << int{CMessageBox::OkResult};
    QTest::newRow("Cancel beside Ok") << okCancel << CMessageBox::Cancel << int{CMessageBox::CancelResult};
    QTest::newRow("none asked for") << CMessageBox::Buttons() << CMessageBox::Ok << int{CMessageBox::OkResult};
}

void tst_CMessageBox::pressedButton()
{
    QFETCH(CMessageBox::Buttons, buttons);
    QFETCH(CMessageBox::Button, pressed);
    QFETCH(int, result);
    whenBox([&](CMessageBox& box) {
        for (const auto button : {CMessageBox::Yes, CMessageBox::No, CMessageBox::Cancel})
            QCOMPARE(box.button(button) != nullptr, buttons.testFlag(button));
        QCOMPARE(box.button(CMessageBox::Ok) != nullptr, buttons.testFlag(CMessageBox::Ok) || !buttons);
        press(pressed)(box);
    });
    QCOMPARE(CMessageBox::question(nullptr, QStringLiteral("Text"), title, buttons, pressed), result);
}

void tst_CMessageBox::closing_data()
{
    QTest::addColumn<CMessageBox::Buttons>("buttons");
    QTest::addColumn<int>("result");
    QTest::newRow("Yes, No, Cancel") << yesNoCancel << int{CMessageBox::CancelResult};
    QTest::newRow("Yes, No") << yesNo << int{CMessageBox::NoResult};
    QTest::newRow("Ok, Cancel") << okCancel << int{CMessageBox::CancelResult};
    QTest::newRow("Ok") << CMessageBox::Buttons(CMessageBox::Ok) << int{CMessageBox::OkResult};
    QTest::newRow("Yes") << CMessageBox::Buttons(CMessageBox::Yes) << int{CMessageBox::OkResult};
}

void tst_CMessageBox::closing()
{
    QFETCH(CMessageBox::Buttons, buttons);
    QFETCH(int, result);
    const Answer ways[] = {key(Qt::Key_Escape), [](CMessageBox& box) { box.close(); }};
    for (const Answer& way : ways) {
        whenBox(way);
        QCOMPARE(CMessageBox::question(nullptr, QStringLiteral("Text"), title, buttons, CMessageBox::Yes), result);
    }
}

void tst_CMessageBox::returnPressesDefault_data()
{
    QTest::addColumn<CMessageBox::Buttons>("buttons");
    QTest::addColumn<CMessageBox::Button>("preferred");
    QTest::addColumn<int>("result");
    QTest::newRow("Yes") << yesNo << CMessageBox::Yes << int{CMessageBox::YesResult};
    QTest::newRow("No") << yesNo << CMessageBox::No << int{CMessageBox::NoResult};
    QTest::newRow("Cancel") << yesNoCancel << CMessageBox::Cancel << int{CMessageBox::CancelResult};
    QTest::newRow("one that is not there") << yesNo << CMessageBox::Ok << int{CMessageBox::YesResult};
}

void tst_CMessageBox::returnPressesDefault()
{
    QFETCH(CMessageBox::Buttons, buttons);
    QFETCH(CMessageBox::Button, preferred);
    QFETCH(int, result);
    whenBox(key(Qt::Key_Return));
    QCOMPARE(CMessageBox::warning(nullptr, QStringLiteral("Text"), title, buttons, preferred), result);
}

void tst_CMessageBox::mnemonics()
{
    whenBox(key(Qt::Key_Y, Qt::AltModifier));
    QCOMPARE(CMessageBox::question(nullptr, QStringLiteral("Text"), title, yesNo, CMessageBox::No),
             int{CMessageBox::YesResult});
    whenBox(key(Qt::Key_N, Qt::AltModifier));
    QCOMPARE(CMessageBox::question(nullptr, QStringLiteral("Text"), title, yesNo, CMessageBox::Yes),
             int{CMessageBox::NoResult});
}

void tst_CMessageBox::tabReachesEveryButton()
{
    whenBox([](CMessageBox& box) {
        QCOMPARE(box.focusWidget(), box.button(CMessageBox::No));
        QTest::keyClick(box.focusWidget(), Qt::Key_Tab);
        QCOMPARE(box.focusWidget(), box.button(CMessageBox::Cancel));
        QTest::keyClick(box.focusWidget(), Qt::Key_Tab);
        QCOMPARE(box.focusWidget(), box.button(CMessageBox::Yes));
        QTest::keyClick(box.focusWidget(), Qt::Key_Space);
    });
    QCOMPARE(CMessageBox::question(nullptr, QStringLiteral("Text"), title, yesNoCancel, CMessageBox::No),
             int{CMessageBox::YesResult});
}

void tst_CMessageBox::kinds_data()
{
    QTest::addColumn<bool>("highDpiPixmaps");
    QTest::newRow("plain pixmaps") << false;
    QTest::newRow("high DPI pixmaps") << true;
}

void tst_CMessageBox::kinds()
{
    QFETCH(bool, highDpiPixmaps);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, highDpiPixmaps);
    QWidget parent;
    QVector<QImage> icons;
    for (auto* const kind : {&CMessageBox::information, &CMessageBox::warning, &CMessageBox::question}) {
        whenBox([&](CMessageBox& box) {
            QCOMPARE(box.text(), QStringLiteral("Text"));
            QCOMPARE(box.windowTitle(), title);
            QCOMPARE(box.parentWidget(), &parent);
            QCOMPARE(box.accessibleDescription(), QStringLiteral("Text"));
            const QPixmap icon = box.findChild<QLabel*>(QStringLiteral("MessageIcon"))->pixmap(Qt::ReturnByValue);
            const int size = box.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &box);
            const qreal width = icon.width() / icon.devicePixelRatio();
            QVERIFY2(width <= size && width >= 0.5 * size, qPrintable(QString::number(width)));
            QVERIFY(icon.devicePixelRatio() >= 1);
            icons.append(icon.toImage());
            press(CMessageBox::Ok)(box);
        });
        kind(&parent, QStringLiteral("Text"), title, CMessageBox::Ok, CMessageBox::Ok);
    }
    QCOMPARE(icons.size(), 3);
    QVERIFY(icons.at(0) != icons.at(1) && icons.at(1) != icons.at(2) && icons.at(2) != icons.at(0));
}

void tst_CMessageBox::textIsPlain_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"<b>Cab</b> 1", "<img src=x>", "a&lt;b & c", "two\nlines", "  two  blanks "})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void tst_CMessageBox::textIsPlain()
{
    QFETCH(QString, text);
    whenBox([&](CMessageBox& box) {
        QCOMPARE(box.text(), text);
        QCOMPARE(box.findChild<QTextEdit*>(QStringLiteral("MessageText"))->toPlainText(), text);
        press(CMessageBox::Ok)(box);
    });
    CMessageBox::information(nullptr, text, title);
}

void tst_CMessageBox::parentMayBeDestroyed()
{
    auto* const parent = new QWidget;
    whenModal([parent](QWidget* /*modal*/) { delete parent; });
    QCOMPARE(CMessageBox::question(parent, QStringLiteral("Text"), title), int{CMessageBox::NoResult});
}

void tst_CMessageBox::parentMayBeHidden()
{
    QWidget parent;
    parent.show();
    whenModal([&parent](QWidget* modal) {
        parent.hide();
        modal->hide();
    });
    QCOMPARE(CMessageBox::question(&parent, QStringLiteral("Text"), title), int{CMessageBox::NoResult});
}

void tst_CMessageBox::longTextStaysOnScreen_data()
{
    QStringList names;
    for (int i = 0; i < 800; ++i)
        names.append(QStringLiteral("Cabinet type number %1").arg(i));
    QTest::addColumn<QString>("text");
    QTest::newRow("names") << names.join(QStringLiteral(", "));
    QTest::newRow("lines") << names.join(QLatin1Char('\n'));
    QTest::newRow("one word") << QString(20'000, QLatin1Char('W'));
    QTest::newRow("one Chinese word") << QString(20'000, QChar(0x7bb1));
}

void tst_CMessageBox::longTextStaysOnScreen()
{
    QFETCH(QString, text);
    whenBox([&](CMessageBox& box) {
        QCOMPARE(box.text(), text);
        const QRect room = box.screen()->availableGeometry();
        QVERIFY2(room.contains(box.frameGeometry()), qPrintable(QStringLiteral("%1 x %2 on %3 x %4")
                                                                    .arg(box.width())
                                                                    .arg(box.height())
                                                                    .arg(room.width())
                                                                    .arg(room.height())));
        const QPushButton* const button = box.button(CMessageBox::Ok);
        QCOMPARE(button->visibleRegion(), QRegion(button->rect()));
        QVERIFY(box.rect().contains(QRect(button->mapTo(&box, {}), button->size())));

        auto* const edit = box.findChild<QTextEdit*>(QStringLiteral("MessageText"));
        const QScrollBar* const bar = edit->verticalScrollBar();
        QCOMPARE(edit->height(), qCeil(0.6 * room.height()));
        QCOMPARE(edit->visibleRegion().boundingRect(), edit->rect());
        QVERIFY(bar->isVisible());
        QCOMPARE(edit->horizontalScrollBar()->maximum(), 0);
        QTest::keyClick(box.focusWidget(), Qt::Key_Tab);
        QCOMPARE(box.focusWidget(), edit);
        QTest::keyClick(edit, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(edit, Qt::Key_PageDown);
        QVERIFY(bar->value() > 0);
        QTest::keyClick(edit, Qt::Key_Tab);
        QCOMPARE(box.focusWidget(), button);
        QTest::keyClick(edit, Qt::Key_Escape);
    });
    CMessageBox::information(nullptr, text, title);
}

// So large that the screen holds fewer characters than the text of a box is wide at the least.
void tst_CMessageBox::largeFontStaysOnScreen()
{
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPixelSize(60);
    QApplication::setFont(large);
    whenBox([](CMessageBox& box) {
        const QRect room = box.screen()->availableGeometry();
        const auto* const edit = box.findChild<QTextEdit*>(QStringLiteral("MessageText"));
        QCOMPARE(edit->width(), qCeil(0.6 * room.width()));
        QVERIFY(room.width() >= box.width());
        press(CMessageBox::Ok)(box);
    });
    CMessageBox::information(nullptr, QStringLiteral("Import failed."), title);
    QApplication::setFont(usual);
}

void tst_CMessageBox::longWordIsBroken_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("Latin") << QString(100, QLatin1Char('W'));
    QTest::newRow("Chinese") << QString(60, QChar(0x7bb1));
}

void tst_CMessageBox::longWordIsBroken()
{
    whenBox([](CMessageBox& box) {
        auto* const edit = box.findChild<QTextEdit*>(QStringLiteral("MessageText"));
        QVERIFY(box.width() <= box.screen()->availableGeometry().width());
        QCOMPARE(edit->horizontalScrollBar()->maximum(), 0);
        QCOMPARE(edit->verticalScrollBar()->maximum(), 0);
        QVERIFY(edit->height() > 2 * edit->fontMetrics().height());
        QCOMPARE(edit->height(), qCeil(edit->document()->size().height()));
        press(CMessageBox::Ok)(box);
    });
    QFETCH(QString, text);
    CMessageBox::information(nullptr, text, title);
}

void tst_CMessageBox::followsLanguage()
{
    whenBox([](CMessageBox& box) {
        const OtherLanguage other;
        QCoreApplication::processEvents();
        QCOMPARE(box.button(CMessageBox::Yes)->text(), OtherLanguage::translated(QStringLiteral("&Yes")));
        QCOMPARE(box.button(CMessageBox::No)->text(), OtherLanguage::translated(QStringLiteral("&No")));
        for (const auto button : {CMessageBox::Yes, CMessageBox::No}) {
            const QPushButton* const push = box.button(button);
            QTRY_VERIFY(push->width() > push->fontMetrics().size(Qt::TextShowMnemonic, push->text()).width());
        }
        press(CMessageBox::Yes)(box);
    });
    QCOMPARE(CMessageBox::question(nullptr, QStringLiteral("Text"), title), int{CMessageBox::YesResult});
}

void tst_CMessageBox::defaultsOfQuestion()
{
    whenBox([](CMessageBox& box) {
        QCOMPARE(box.button(CMessageBox::Yes)->text(), QStringLiteral("&Yes"));
        QCOMPARE(box.button(CMessageBox::No)->text(), QStringLiteral("&No"));
        QVERIFY(box.button(CMessageBox::Yes)->isDefault());
        QVERIFY(!box.button(CMessageBox::Ok) && !box.button(CMessageBox::Cancel));
        QVERIFY(box.button(CMessageBox::Yes)->x() < box.button(CMessageBox::No)->x());
        press(CMessageBox::No)(box);
    });
    QCOMPARE(CMessageBox::question(nullptr, QStringLiteral("Text"), title), int{CMessageBox::NoResult});
}

SETTINGAREA_TEST_MAIN(tst_CMessageBox, QApplication)
#include "tst_CMessageBox.moc"
