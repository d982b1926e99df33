#include "tests/support/TestObject.h"

#include <widgetry/CCustomGroupBox.h>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>

class tst_CCustomGroupBox : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void title_data();
    void title();
    void withoutTitle();
    void layoutsStandBelowEachOther();
    void disabledWithItsControls();
    void longTitleIsNotCut();
    void styleSheet();
};

void tst_CCustomGroupBox::title_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << QStringLiteral("General settings");
    QTest::newRow("ampersand") << QStringLiteral("R&D && more");
    QTest::newRow("markup") << QStringLiteral("<b>x</b>");
}

void tst_CCustomGroupBox::title()
{
    QFETCH(QString, text);
    CCustomGroupBox group(text);
    const auto* const label = group.findChild<QLabel*>(QStringLiteral("GroupTitle"));
    group.show();
    QCOMPARE(group.title(), text);
    QCOMPARE(group.accessibleName(), text);
    QCOMPARE(label->text(), text);
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QCOMPARE(label->buddy(), nullptr); // an ampersand is a mnemonic only with one
    QVERIFY(label->isVisible());
    group.setTitle(QStringLiteral("Other"));
    QCOMPARE(group.title(), QStringLiteral("Other"));
    QCOMPARE(group.accessibleName(), QStringLiteral("Other"));
}

void tst_CCustomGroupBox::withoutTitle()
{
    CCustomGroupBox group;
    auto* const box = new QCheckBox(QStringLiteral("Option"));
    auto* const layout = new QVBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(box);
    group.addCustomLayout(layout);
    group.show();
    QCOMPARE(group.title(), QString());
    QCOMPARE(box->mapTo(&group, QPoint()), QPoint(0, 0));
}

void tst_CCustomGroupBox::layoutsStandBelowEachOther()
{
    QPointer<QVBoxLayout> first = new QVBoxLayout;
    auto* const second = new QVBoxLayout;
    auto* const upper = new QCheckBox(QStringLiteral("Upper"));
    auto* const lower = new QCheckBox(QStringLiteral("Lower"));
    first->setContentsMargins(16, 0, 0, 0);
    first->addWidget(upper);
    second->addWidget(lower);
    {
        CCustomGroupBox group(QStringLiteral("Group"));
        group.addCustomLayout(first);
        group.addCustomLayout(second);
        group.show();
        const auto* const label = group.findChild<QLabel*>(QStringLiteral("GroupTitle"));
        QCOMPARE(label->pos(), QPoint(0, 0));
        QCOMPARE(upper->parentWidget(), &group);
        QCOMPARE(upper->x(), 16);
        QVERIFY(upper->y() > label->geometry().bottom());
        QVERIFY(lower->y() > upper->geometry().bottom());
    }
    QVERIFY(!first); // was the group's
}

void tst_CCustomGroupBox::disabledWithItsControls()
{
    CCustomGroupBox group(QStringLiteral("Group"));
    auto* const layout = new QVBoxLayout;
    auto* const box = new QCheckBox;
    layout->addWidget(box);
    group.addCustomLayout(layout);
    group.setEnabled(false);
    QVERIFY(!box->isEnabled());
    QVERIFY(!group.findChild<QLabel*>(QStringLiteral("GroupTitle"))->isEnabled());
}

void tst_CCustomGroupBox::longTitleIsNotCut()
{
    const QString text(40, QChar(0x8bbe));
    CCustomGroupBox group(text);
    const auto* const label = group.findChild<QLabel*>(QStringLiteral("GroupTitle"));
    QVERIFY(label->font().bold());
    QVERIFY(group.minimumSizeHint().width() >= label->fontMetrics().horizontalAdvance(text));
}

void tst_CCustomGroupBox::styleSheet()
{
    CCustomGroupBox group(QStringLiteral("Group"));
    group.setStyleSheet(QStringLiteral(
        "CCustomGroupBox{background:rgb(1,2,3);} #GroupTitle{color:rgb(4,5,6);background:transparent;}"));
    group.resize(100, 100);
    const QImage image = group.grab().toImage();
    QCOMPARE(image.pixel(image.width() / 2, image.height() - 5), qRgb(1, 2, 3));
    QCOMPARE(group.findChild<QLabel*>(QStringLiteral("GroupTitle"))->palette().color(QPalette::WindowText),
             QColor(4, 5, 6));
}

SETTINGAREA_TEST_MAIN(tst_CCustomGroupBox, QApplication)
#include "tst_CCustomGroupBox.moc"
