#include "tests/platform/WidgetFixture.h"
#include "tests/support/TestObject.h"

#include <widgetry/CSpinBox.h>

#include <QApplication>
#include <QLineEdit>

#include <memory>

class tst_CSpinBox : public TestObject
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
    void disabled();

private:
    std::unique_ptr<CSpinBox> m_spinBox;
};

void tst_CSpinBox::init()
{
    TestObject::init();
    m_spinBox = std::make_unique<CSpinBox>();
    m_spinBox->setRange(20, 100);
    m_spinBox->setSuffix(QStringLiteral("\\u00b0C"));
    m_spinBox->setValue(60);
    m_spinBox->show();
}

void tst_CSpinBox::wheelNeedsFocus()
{
    m_spinBox->clearFocus();
    QVERIFY(!sendWheel(m_spinBox.get(), 120)); // left to the page that is scrolled
    QCOMPARE(m_spinBox->value(), 60);
    m_spinBox->setFocus();
    QTRY_VERIFY(m_spinBox->hasFocus());
    QVERIFY(sendWheel(m_spinBox.get(), 120));
    QCOMPARE(m_spinBox->value(), 61);
}

void tst_CSpinBox::wheelDoesNotGiveFocus()
{
    QCOMPARE(m_spinBox->focusPolicy(), Qt::StrongFocus);
}

void tst_CSpinBox::keys()
{
    QTest::keyClick(m_spinBox.get(), Qt::Key_Up);
    QCOMPARE(m_spinBox->value(), 61);
    QTest::keyClick(m_spinBox.get(), Qt::Key_Down);
    QCOMPARE(m_spinBox->value(), 60);
}

void tst_CSpinBox::returnCommits()
{
    m_spinBox->setKeyboardTracking(false);
    QSignalSpy finished(m_spinBox.get(), &CSpinBox::editingFinished);
    m_spinBox->selectAll();
    QTest::keyClicks(m_spinBox.get(), QStringLiteral("75"));
    QCOMPARE(m_spinBox->value(), 60);
    QTest::keyClick(m_spinBox.get(), Qt::Key_Return);
    QCOMPARE(m_spinBox->value(), 75);
    QCOMPARE(finished.count(), 1);
}

void tst_CSpinBox::leavingCommits()
{
    m_spinBox->setKeyboardTracking(false);
    m_spinBox->selectAll();
    QTest::keyClicks(m_spinBox.get(), QStringLiteral("75"));
    QFocusEvent leaving(QEvent::FocusOut);
    QCoreApplication::sendEvent(m_spinBox.get(), &leaving);
    QCOMPARE(m_spinBox->value(), 75);
}

void tst_CSpinBox::longestValueFits()
{
    m_spinBox->setValue(m_spinBox->maximum());
    m_spinBox->resize(m_spinBox->sizeHint());
    auto* const edit = m_spinBox->findChild<QLineEdit*>();
    QVERIFY(edit->width() > edit->fontMetrics().horizontalAdvance(m_spinBox->text()));
    QVERIFY(m_spinBox->text().endsWith(m_spinBox->suffix()));
}

void tst_CSpinBox::disabled()
{
    m_spinBox->setEnabled(false);
    sendWheel(m_spinBox.get(), 120);
    QTest::keyClick(m_spinBox.get(), Qt::Key_Up);
    QCOMPARE(m_spinBox->value(), 60);
}

SETTINGAREA_TEST_MAIN(tst_CSpinBox, QApplication)
#include "tst_CSpinBox.moc"
