#include "monitoring/CEmailTableWidget.h"
#include "tests/monitoring/Controls.h"
#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"

#include <widgetry/CScrollBar.h>

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

namespace {

QList<SEmailRecipient> recipients(int count)
{
    QList<SEmailRecipient> list;
    for (int i = 0; i < count; ++i)
        list.append({QStringLiteral("N%1").arg(i), QStringLiteral("r%1@host.com").arg(i)});
    return list;
}

CScrollBar* ownBar(const CEmailTableWidget& table)
{
    return table.findChild<CScrollBar*>();
}

QStringList headerTexts(const CEmailTableWidget& table)
{
    QStringList texts;
    for (int column = 0; column < table.columnCount(); ++column)
        texts.append(table.horizontalHeaderItem(column)->text());
    return texts;
}

// What a tooltip shows.
QString shownAs(const QString& toolTip)
{
    if (!Qt::mightBeRichText(toolTip))
        return toolTip;
    QTextDocument document;
    document.setHtml(toolTip);
    return document.toPlainText().remove(QChar(0x200b));
}

} // namespace

class tst_CEmailTableWidget : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void properties();
    void columns();
    void showsTheList();
    void setsAndAppendsRows();
    void toolTips_data();
    void toolTips();
    void textsAreNotMarkup();
    void cellsCannotBeEdited();
    void scrollBarWhileRowsOverflow();
    void scrollBarMovesTheRows();
    void scrollBarGeometry();
    void headerFollowsTheLanguage();
    void manyRecipients();
};

void tst_CEmailTableWidget::properties()
{
    CEmailTableWidget table;
    QCOMPARE(table.objectName(), QStringLiteral("RecevierMail"));
    QCOMPARE(table.minimumSize(), QSize(402, 173));
    QCOMPARE(table.maximumSize(), QSize(402, 173));
    QCOMPARE(table.editTriggers(), QAbstractItemView::NoEditTriggers);
    QVERIFY(table.alternatingRowColors());
    QCOMPARE(table.selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(table.selectionMode(), QAbstractItemView::SingleSelection);
    QVERIFY(!table.showGrid());
    QCOMPARE(table.focusPolicy(), Qt::NoFocus);
    QVERIFY(table.verticalHeader()->isHidden());
    QCOMPARE(table.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(table.rowCount(), 0);
}

void tst_CEmailTableWidget::columns()
{
    CEmailTableWidget table;
    QCOMPARE(headerTexts(table), QStringList({QStringLiteral("Name"), QStringLiteral("Email address"), QString()}));
    table.show();
    const QHeaderView* const header = table.horizontalHeader();
    QCOMPARE(table.columnWidth(0), 135);
    QCOMPARE(table.columnWidth(1), 131);
    QCOMPARE(header->sectionResizeMode(0), QHeaderView::Fixed);
    QCOMPARE(header->sectionResizeMode(1), QHeaderView::Fixed);
    QVERIFY(header->stretchLastSection());
    QCOMPARE(table.columnWidth(2), table.viewport()->width() - 135 - 131);
    QVERIFY(table.columnWidth(2) >= 116);
}

void tst_CEmailTableWidget::showsTheList()
{
    CEmailTableWidget table;
    for (const int count : {3, 1, 0, 2}) {
        table.setRecipients(recipients(count));
        QCOMPARE(rows(&table), texts(recipients(count)));
    }
}

void tst_CEmailTableWidget::setsAndAppendsRows()
{
    CEmailTableWidget table;
    table.setRecipients(recipients(2));
    table.appendRecipient({QStringLiteral("Eve"), QStringLiteral("eve@host.com")});
    table.setRecipient(0, {QStringLiteral("Dan"), QStringLiteral("dan@host.com")});
    QCOMPARE(rows(&table), QStringList({QStringLiteral("Dan <dan@host.com>"), QStringLiteral("N1 <r1@host.com>"),
                                        QStringLiteral("Eve <eve@host.com>")}));
    for (int row = 0; row < 3; ++row) {
        for (const int column : {0, 1})
            QCOMPARE(table.item(row, column)->toolTip(), table.item(row, column)->text());
    }
}

void tst_CEmailTableWidget::toolTips_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << QStringLiteral("Ann");
    QTest::newRow("tag") << QStringLiteral("<b>Ann</b>");
    QTest::newRow("picture") << QStringLiteral("<img src=\"a.png\"> Ann");
    QTest::newRow("later tag") << QStringLiteral("Ann <b>Bell</b>");
    QTest::newRow("entity") << QStringLiteral("Ann &lt; Bob");
    QTest::newRow("document type") << QStringLiteral("<!DOCTYPE html>x");
    QTest::newRow("longest") << QString(64, QLatin1Char('m'));
    QTest::newRow("too long") << QString(500, QLatin1Char('m'));
}

void tst_CEmailTableWidget::toolTips()
{
    QFETCH(QString, text);
    CEmailTableWidget table;
    table.setRecipients({{text, text}});
    table.show();
    for (const int column : {0, 1}) {
        QToolTip::hideText();
        const QPoint position = table.visualRect(table.model()->index(0, column)).center();
        QHelpEvent event(QEvent::ToolTip, position, table.viewport()->mapToGlobal(position));
        QCoreApplication::sendEvent(table.viewport(), &event);
        QCOMPARE(shownAs(QToolTip::text()), text);
    }
    QToolTip::hideText();
}

// Were it taken for markup, the cell would show less of it.
void tst_CEmailTableWidget::textsAreNotMarkup()
{
    const auto paintedWith = [](const QString& text) {
        CEmailTableWidget table;
        table.setRecipients({{text, text}});
        return table.grab().toImage();
    };
    QVERIFY(paintedWith(QStringLiteral("<b>A</b>")) != paintedWith(QStringLiteral("A")));
    QCOMPARE(paintedWith(QStringLiteral("A")), paintedWith(QStringLiteral("A")));
}

void tst_CEmailTableWidget::cellsCannotBeEdited()
{
    CEmailTableWidget table;
    table.setRecipients(recipients(1));
    table.show();
    const QPoint cell = table.visualRect(table.model()->index(0, 0)).center();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, cell);
    QTest::keyClick(&table, Qt::Key_F2);
    QVERIFY(!table.findChild<QLineEdit*>());
}

void tst_CEmailTableWidget::scrollBarWhileRowsOverflow()
{
    CEmailTableWidget table;
    QVERIFY(ownBar(table)->isHidden());
    QCOMPARE(ownBar(table)->parentWidget(), &table);
    QCOMPARE(ownBar(table)->orientation(), Qt::Vertical);
    table.show();
    table.setRecipients(recipients(2));
    QCoreApplication::processEvents();
    QVERIFY(!ownBar(table)->isVisible());
    table.setRecipients(recipients(9));
    QTRY_VERIFY(ownBar(table)->isVisible());
    QVERIFY(!table.verticalScrollBar()->isVisible());
    table.setRecipients(recipients(2));
    QTRY_VERIFY(!ownBar(table)->isVisible());
}

void tst_CEmailTableWidget::scrollBarMovesTheRows()
{
    CEmailTableWidget table;
    table.setRecipients(recipients(9));
    table.show();
    QTRY_VERIFY(ownBar(table)->maximum() > 0);
    QCOMPARE(ownBar(table)->maximum(), table.verticalScrollBar()->maximum());
    ownBar(table)->setValue(ownBar(table)->maximum());
    QCOMPARE(table.verticalScrollBar()->value(), table.verticalScrollBar()->maximum());
    table.scrollToTop();
    QCOMPARE(ownBar(table)->value(), 0);
}

void tst_CEmailTableWidget::scrollBarGeometry()
{
    CEmailTableWidget table;
    table.setRecipients(recipients(9));
    table.show();
    QTRY_VERIFY(ownBar(table)->isVisible());
    const auto isInPlace = [&table] {
        const int header = table.horizontalHeader()->height();
        const int width = ownBar(table)->width();
        return ownBar(table)->geometry() == QRect(402 - width - 2, header + 1, width, 173 - header - 3);
    };
    QVERIFY(table.horizontalHeader()->height() > 10);
    QTRY_VERIFY(isInPlace());
    // A style sheet may come later and make header and bar larger.
    const int header = table.horizontalHeader()->height();
    table.setStyleSheet(QStringLiteral("QHeaderView::section{min-height: 40px;} QScrollBar:vertical{width: 7px;}"));
    QTRY_VERIFY(table.horizontalHeader()->height() != header);
    QTRY_COMPARE(ownBar(table)->width(), 7);
    QTRY_VERIFY(isInPlace());
    ownBar(table)->setGeometry(0, 0, 12, 12);
    table.AdjustScrollBarGeometry();
    QCOMPARE(ownBar(table)->width(), 12);
    QVERIFY(isInPlace());
}

void tst_CEmailTableWidget::headerFollowsTheLanguage()
{
    CEmailTableWidget table;
    {
        const UpperCase language;
        QCOMPARE(headerTexts(table), QStringList({QStringLiteral("NAME"), QStringLiteral("EMAIL ADDRESS"), QString()}));
    }
    QCOMPARE(headerTexts(table), QStringList({QStringLiteral("Name"), QStringLiteral("Email address"), QString()}));
}

void tst_CEmailTableWidget::manyRecipients()
{
    CEmailTableWidget table;
    table.show();
    table.setRecipients(recipients(10000));
    QCOMPARE(table.rowCount(), 10000);
    QCOMPARE(table.item(9999, 1)->text(), QStringLiteral("r9999@host.com"));
    const QString longText(1000000, QLatin1Char('w'));
    table.setRecipients({{longText, QStringLiteral("a\nb@host.com")}});
    table.grab();
    QCOMPARE(table.item(0, 0)->text(), QString(1000, QLatin1Char('w')));
    QCOMPARE(table.item(0, 1)->text(), QStringLiteral("a\nb@host.com"));
    QCOMPARE(table.rowHeight(0), 28);
}

SETTINGAREA_TEST_MAIN(tst_CEmailTableWidget, QApplication)

#include "tst_CEmailTableWidget.moc"
