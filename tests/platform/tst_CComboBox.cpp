#include "tests/platform/WidgetFixture.h"
#include "tests/support/TestObject.h"

#include <widgetry/CComboBox.h>

#include <QAbstractItemView>
#include <QApplication>

#include <memory>

class tst_CComboBox : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void wheelNeedsFocus();
    void keys();
    void listIsAsWideAsItsLongestEntry_data();
    void listIsAsWideAsItsLongestEntry();
    void listWithScrollBar();
    void disabled();

private:
    std::unique_ptr<CComboBox> m_comboBox;
};

void tst_CComboBox::init()
{
    TestObject::init();
    m_comboBox = std::make_unique<CComboBox>();
    m_comboBox->addItems({QStringLiteral("2 x 1"), QStringLiteral("1 x 2"), QStringLiteral("2 x 2")});
    m_comboBox->setCurrentIndex(1);
    m_comboBox->show();
}

void tst_CComboBox::wheelNeedsFocus()
{
    QCOMPARE(m_comboBox->focusPolicy(), Qt::StrongFocus);
    m_comboBox->clearFocus();
    QVERIFY(!sendWheel(m_comboBox.get(), 120));
    QCOMPARE(m_comboBox->currentIndex(), 1);
    m_comboBox->setFocus();
    QTRY_VERIFY(m_comboBox->hasFocus());
    QVERIFY(sendWheel(m_comboBox.get(), 120));
    QCOMPARE(m_comboBox->currentIndex(), 0);
}

void tst_CComboBox::keys()
{
    QTest::keyClick(m_comboBox.get(), Qt::Key_Down);
    QCOMPARE(m_comboBox->currentIndex(), 2);
    QTest::keyClick(m_comboBox.get(), Qt::Key_Home);
    QCOMPARE(m_comboBox->currentIndex(), 0);
    QTest::keyClick(m_comboBox.get(), Qt::Key_Space);
    QTRY_VERIFY(m_comboBox->view()->isVisible());
    QTest::keyClick(m_comboBox->view(), Qt::Key_Escape);
    QTRY_VERIFY(!m_comboBox->view()->isVisible());
}

void tst_CComboBox::listIsAsWideAsItsLongestEntry_data()
{
    QTest::addColumn<QString>("styleSheet");
    QTest::newRow("list over the box") << QString();
    QTest::newRow("list below the box") << QStringLiteral("CComboBox{combobox-popup:0;}");
}

void tst_CComboBox::listIsAsWideAsItsLongestEntry()
{
    QFETCH(QString, styleSheet);
    m_comboBox->setStyleSheet(styleSheet);
    const QString entry = QStringLiteral("An entry that is much longer than the box");
    m_comboBox->addItem(entry);
    m_comboBox->setFixedWidth(60);
    m_comboBox->showPopup();
    QVERIFY(m_comboBox->view()->viewport()->width() > m_comboBox->fontMetrics().horizontalAdvance(entry));
    m_comboBox->hidePopup();
}

void tst_CComboBox::listWithScrollBar()
{
    m_comboBox->setStyleSheet(QStringLiteral("CComboBox{combobox-popup:0;}")); // else the list has no scroll bar
    QString entry;
    for (int i = 0; i < 30; ++i) {
        entry = QStringLiteral("A long entry: number %1").arg(i);
        m_comboBox->addItem(entry);
    }
    m_comboBox->setFixedWidth(60);
    m_comboBox->showPopup();
    QVERIFY(m_comboBox->view()->viewport()->width() > m_comboBox->fontMetrics().horizontalAdvance(entry));
    m_comboBox->hidePopup();
}

void tst_CComboBox::disabled()
{
    m_comboBox->setEnabled(false);
    sendWheel(m_comboBox.get(), 120);
    QTest::keyClick(m_comboBox.get(), Qt::Key_Down);
    QCOMPARE(m_comboBox->currentIndex(), 1);
}

SETTINGAREA_TEST_MAIN(tst_CComboBox, QApplication)
#include "tst_CComboBox.moc"
