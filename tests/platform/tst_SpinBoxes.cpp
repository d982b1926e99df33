#include "tests/platform/WidgetFixture.h"
#include "tests/support/TestObject.h"

#include <widgetry/CDoubleSpinBox.h>
#include <widgetry/CSpinBox.h>

#include <QApplication>
#include <QLineEdit>

#include <memory>
#include <utility>

// What the two spin boxes have in common, which is all that there is: every function runs with either.
class tst_SpinBoxes : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
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
    double value() const { return m_spinBox->property("value").toDouble(); }
    void setSuffix(const QString& suffix);

    std::unique_ptr<QAbstractSpinBox> m_spinBox;
};

void tst_SpinBoxes::initTestCase_data()
{
    QTest::addColumn<bool>("isDouble");
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("next"); // a step further
    QTest::addColumn<double>("typed");
    QTest::addColumn<QString>("widest"); // number
    QTest::newRow("CSpinBox") << false << 60.0 << 61.0 << 75.0 << QStringLiteral("100");
    QTest::newRow("CDoubleSpinBox") << true << 5.0 << 5.1 << 7.5 << QStringLiteral("20.0");
}

void tst_SpinBoxes::init()
{
    TestObject::init();
    QFETCH_GLOBAL(bool, isDouble);
    if (isDouble) {
        auto box = std::make_unique<CDoubleSpinBox>();
        box->setRange(1.0, 20.0);
        box->setDecimals(1);
        box->setSingleStep(0.1);
        box->setSuffix(QStringLiteral("V"));
        box->setValue(5.0);
        m_spinBox = std::move(box);
    } else {
        auto box = std::make_unique<CSpinBox>();
        box->setRange(20, 100);
        box->setSuffix(QStringLiteral("\u00b0C"));
        box->setValue(60);
        m_spinBox = std::move(box);
    }
    m_spinBox->show();
}

void tst_SpinBoxes::setSuffix(const QString& suffix)
{
    if (auto* const box = qobject_cast<CDoubleSpinBox*>(m_spinBox.get()))
        box->setSuffix(suffix);
    else
        qobject_cast<CSpinBox*>(m_spinBox.get())->setSuffix(suffix);
}

void tst_SpinBoxes::wheelNeedsFocus()
{
    QFETCH_GLOBAL(double, first);
    QFETCH_GLOBAL(double, next);
    m_spinBox->clearFocus();
    QVERIFY(!sendWheel(m_spinBox.get(), 120)); // left to the page that is scrolled
    QCOMPARE(value(), first);
    m_spinBox->setFocus();
    QTRY_VERIFY(m_spinBox->hasFocus());
    QVERIFY(sendWheel(m_spinBox.get(), 120));
    QCOMPARE(value(), next);
}

void tst_SpinBoxes::wheelDoesNotGiveFocus()
{
    QCOMPARE(m_spinBox->focusPolicy(), Qt::StrongFocus);
}

void tst_SpinBoxes::keys()
{
    QFETCH_GLOBAL(double, first);
    QFETCH_GLOBAL(double, next);
    QTest::keyClick(m_spinBox.get(), Qt::Key_Up);
    QCOMPARE(value(), next);
    QTest::keyClick(m_spinBox.get(), Qt::Key_Down);
    QCOMPARE(value(), first);
}

void tst_SpinBoxes::returnCommits()
{
    QFETCH_GLOBAL(double, first);
    QFETCH_GLOBAL(double, typed);
    m_spinBox->setKeyboardTracking(false);
    QSignalSpy finished(m_spinBox.get(), &QAbstractSpinBox::editingFinished);
    m_spinBox->selectAll();
    QTest::keyClicks(m_spinBox.get(), QString::number(typed));
    QCOMPARE(value(), first);
    QTest::keyClick(m_spinBox.get(), Qt::Key_Return);
    QCOMPARE(value(), typed);
    QCOMPARE(finished.count(), 1);
}

void tst_SpinBoxes::leavingCommits()
{
    QFETCH_GLOBAL(double, typed);
    m_spinBox->setKeyboardTracking(false);
    m_spinBox->selectAll();
    QTest::keyClicks(m_spinBox.get(), QString::number(typed));
    QFocusEvent leaving(QEvent::FocusOut);
    QCoreApplication::sendEvent(m_spinBox.get(), &leaving);
    QCOMPARE(value(), typed);
}

void tst_SpinBoxes::longestValueFits()
{
    m_spinBox->setProperty("value", m_spinBox->property("maximum"));
    m_spinBox->resize(m_spinBox->sizeHint());
    auto* const edit = m_spinBox->findChild<QLineEdit*>();
    QVERIFY(edit->width() > edit->fontMetrics().horizontalAdvance(m_spinBox->text()));
    QVERIFY(m_spinBox->text().endsWith(m_spinBox->property("suffix").toString()));
    QCOMPARE(m_spinBox->buttonSymbols(), QAbstractSpinBox::UpDownArrows);
}

void tst_SpinBoxes::buttonsGiveWay()
{
    QFETCH_GLOBAL(QString, widest);
    QFont font = m_spinBox->font();
    font.setPixelSize(12);
    m_spinBox->setFont(font);
    const auto* const edit = m_spinBox->findChild<QLineEdit*>();
    const QString suffix = m_spinBox->property("suffix").toString();
    const int text = m_spinBox->fontMetrics().horizontalAdvance(widest + suffix);

    m_spinBox->setFixedSize(text + 14, 24);
    QCOMPARE(m_spinBox->buttonSymbols(), QAbstractSpinBox::NoButtons);
    QVERIFY(edit->width() >= text + 5);
    m_spinBox->setFixedSize(text + 50, 24);
    QCOMPARE(m_spinBox->buttonSymbols(), QAbstractSpinBox::UpDownArrows);
    QVERIFY(edit->width() >= text + 5);

    // The value counts that is widest, not the one that is shown; with another suffix another one does.
    m_spinBox->setProperty("value", m_spinBox->property("minimum"));
    m_spinBox->setFixedSize(text + 14, 24);
    QCOMPARE(m_spinBox->buttonSymbols(), QAbstractSpinBox::NoButtons);
    setSuffix(QString());
    m_spinBox->setFixedSize(text + 30, 24);
    QCOMPARE(m_spinBox->buttonSymbols(), QAbstractSpinBox::UpDownArrows);
    setSuffix(QStringLiteral(" a long suffix"));
    QCOMPARE(m_spinBox->buttonSymbols(), QAbstractSpinBox::NoButtons);
    font.setPixelSize(4);
    m_spinBox->setFont(font);
    QCOMPARE(m_spinBox->buttonSymbols(), QAbstractSpinBox::UpDownArrows);
}

void tst_SpinBoxes::disabled()
{
    QFETCH_GLOBAL(double, first);
    m_spinBox->setEnabled(false);
    sendWheel(m_spinBox.get(), 120);
    QTest::keyClick(m_spinBox.get(), Qt::Key_Up);
    QCOMPARE(value(), first);
}

SETTINGAREA_TEST_MAIN(tst_SpinBoxes, QApplication)
#include "tst_SpinBoxes.moc"
