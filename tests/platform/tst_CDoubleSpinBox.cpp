#include "tests/platform/WidgetFixture.h"
#include "tests/support/TestObject.h"

#include <widgetry/CDoubleSpinBox.h>

#include <QApplication>
#include <QLineEdit>

#include <memory>

class tst_CDoubleSpinBox : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void wheelNeedsFocus();
    void wheelDoesNotGiveFocus();
    void keys();
    void returnCommits();
    void leavingCommits();
    void longestValueFits();
    void buttonsGiveWay();
    void disabled();

private:
    std::unique_ptr<CDoubleSpinBox> m_spinBox;
};

void tst_CDoubleSpinBox::init()
{
    TestObject::init();
    m_spinBox = std::make_unique<CDoubleSpinBox>();
    m_spinBox->setRange(1.0, 20.0);
    m_spinBox->setDecimals(1);
    m_spinBox->setSingleStep(0.1);
    m_spinBox->setSuffix(QStringLiteral("V"));
    m_spinBox->setValue(5.0);
    m_spinBox->show();
}

void tst_CDoubleSpinBox::wheelNeedsFocus()
{
    m_spinBox->clearFocus();
    QVERIFY(!sendWheel(m_spinBox.get(), 120)); // left to the page that is scrolled
    QCOMPARE(m_spinBox->value(), 5.0);
    m_spinBox->setFocus();
    QTRY_VERIFY(m_spinBox->hasFocus());
    QVERIFY(sendWheel(m_spinBox.get(), 120));
    QCOMPARE(m_spinBox->value(), 5.1);
}

void tst_CDoubleSpinBox::wheelDoesNotGiveFocus()
{
    QCOMPARE(m_spinBox->focusPolicy(), Qt::StrongFocus);
}

void tst_CDoubleSpinBox::keys()
{
    QTest::keyClick(m_spinBox.get(), Qt::Key_Up);
    QCOMPARE(m_spinBox->value(), 5.1);
    QTest::keyClick(m_spinBox.get(), Qt::Key_Down);
    QCOMPARE(m_spinBox->value(), 5.0);
}

void tst_CDoubleSpinBox::returnCommits()
{
    m_spinBox->setKeyboardTracking(false);
    QSignalSpy finished(m_spinBox.get(), &CDoubleSpinBox::editingFinished);
    m_spinBox->selectAll();
    QTest::keyClicks(m_spinBox.get(), QStringLiteral("7.5"));
    QCOMPARE(m_spinBox->value(), 5.0);
    QTest::keyClick(m_spinBox.get(), Qt::Key_Return);
    QCOMPARE(m_spinBox->value(), 7.5);
    QCOMPARE(finished.count(), 1);
}

void tst_CDoubleSpinBox::leavingCommits()
{
    m_spinBox->setKeyboardTracking(false);
    m_spinBox->selectAll();
    QTest::keyClicks(m_spinBox.get(), QStringLiteral("7.5"));
    QFocusEvent leaving(QEvent::FocusOut);
    QCoreApplication::sendEvent(m_spinBox.get(), &leaving);
    QCOMPARE(m_spinBox->value(), 7.5);
}

void tst_CDoubleSpinBox::longestValueFits()
{
    m_spinBox->setValue(m_spinBox->maximum());
    m_spinBox->resize(m_spinBox->sizeHint());
    auto* const edit = m_spinBox->findChild<QLineEdit*>();
    QVERIFY(edit->width() > edit->fontMetrics().horizontalAdvance(m_spinBox->text()));
    QVERIFY(m_spinBox->text().endsWith(m_spinBox->suffix()));
    QCOMPARE(m_spinBox->buttonSymbols(), QAbstractSpinBox::UpDownArrows);
}

void tst_CDoubleSpinBox::buttonsGiveWay()
{
    QFont font = m_spinBox->font();
    font.setPixelSize(12);
    m_spinBox->setFont(font);
    const auto* const edit = m_spinBox->findChild<QLineEdit*>();
    const QString widest = QStringLiteral("20.0") + m_spinBox->suffix();
    const int text = m_spinBox->fontMetrics().horizontalAdvance(widest);

    m_spinBox->setFixedSize(text + 14, 24);
    QCOMPARE(m_spinBox->buttonSymbols(), QAbstractSpinBox::NoButtons);
    QVERIFY(edit->width() >= text + 5);
    m_spinBox->setFixedSize(text + 50, 24);
    QCOMPARE(m_spinBox->buttonSymbols(), QAbstractSpinBox::UpDownArrows);
    QVERIFY(edit->width() >= text + 5);

    // The value counts that is widest, not the one that is shown; with another suffix another one does.
    m_spinBox->setValue(m_spinBox->minimum());
    m_spinBox->setFixedSize(text + 14, 24);
    QCOMPARE(m_spinBox->buttonSymbols(), QAbstractSpinBox::NoButtons);
    m_spinBox->setSuffix(QString());
    m_spinBox->setFixedSize(text + 30, 24);
    QCOMPARE(m_spinBox->buttonSymbols(), QAbstractSpinBox::UpDownArrows);
    m_spinBox->setSuffix(QStringLiteral(" a long suffix"));
    QCOMPARE(m_spinBox->buttonSymbols(), QAbstractSpinBox::NoButtons);
    font.setPixelSize(4);
    m_spinBox->setFont(font);
    QCOMPARE(m_spinBox->buttonSymbols(), QAbstractSpinBox::UpDownArrows);
}

void tst_CDoubleSpinBox::disabled()
{
    m_spinBox->setEnabled(false);
    sendWheel(m_spinBox.get(), 120);
    QTest::keyClick(m_spinBox.get(), Qt::Key_Up);
    QCOMPARE(m_spinBox->value(), 5.0);
}

SETTINGAREA_TEST_MAIN(tst_CDoubleSpinBox, QApplication)
#include "tst_CDoubleSpinBox.moc"
