#include "tests/support/TestObject.h"

#include <widgetry/CToolTip.h>

#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QTextDocument>
#include <QToolTip>

namespace {

// The text as the user reads it.
QString shown(const QString& toolTip)
{
    if (!Qt::mightBeRichText(toolTip))
        return toolTip;
    QTextDocument document;
    document.setHtml(toolTip);
    return document.toPlainText();
}

QWidget* tipWidget()
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget* widget : widgets) {
        if (widget->inherits("QTipLabel") && widget->isVisible())
            return widget;
    }
    return nullptr;
}

} // namespace

class tst_CToolTip : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void textStandsAsItIs_data();
    void textStandsAsItIs();
    void showAndHide();
    void longNameIsBroken();
    void breaksNoCharacter();
    void boundToRect();
};

void tst_CToolTip::textStandsAsItIs_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text :
         {"Cab 1.rcvp", "<b>Cab</b> 1", "<img src=x>", "a&lt;b", "A & B", "two  blanks", "two\nlines"})
        QTest::newRow(text) << QString::fromLatin1(text);
    QTest::newRow("empty") << QString();
}

void tst_CToolTip::textStandsAsItIs()
{
    QFETCH(QString, text);
    QCOMPARE(shown(CToolTip::fromPlainText(text)), text);
    QCOMPARE(CToolTip::fromPlainText(text).isEmpty(), text.isEmpty()); // no tooltip for no text
}

void tst_CToolTip::showAndHide()
{
    QWidget widget;
    widget.show();
    CToolTip::showText(widget.mapToGlobal({5, 5}), QStringLiteral("<i>Edit</i>"), &widget);
    QVERIFY(tipWidget());
    QCOMPARE(shown(QToolTip::text()), QStringLiteral("<i>Edit</i>"));
    CToolTip::hideText();
    QTRY_VERIFY(!tipWidget());
    CToolTip::showText(widget.mapToGlobal({5, 5}), QStringLiteral("Edit"), &widget);
    QVERIFY(tipWidget());
    CToolTip::showText(widget.mapToGlobal({5, 5}), QString(), &widget);
    QTRY_VERIFY(!tipWidget());
}

void tst_CToolTip::longNameIsBroken()
{
    QWidget widget;
    widget.show();
    CToolTip::showText({0, 0}, QString(255, QLatin1Char('W')), &widget);
    QVERIFY(tipWidget());
    QVERIFY(tipWidget()->width() < QGuiApplication::primaryScreen()->availableSize().width());
    QVERIFY(tipWidget()->height() > 2 * tipWidget()->fontMetrics().height());
    CToolTip::hideText();
    QTRY_VERIFY(!tipWidget());
}

void tst_CToolTip::breaksNoCharacter()
{
    // Characters outside the basic plane take two code units each.
    QString name(19, QLatin1Char('n'));
    for (int i = 0; i < 50; ++i)
        name.append(QStringLiteral("\U0001F600"));
    const QChar zeroWidthSpace(0x200b);
    const QString text = shown(CToolTip::fromPlainText(name));
    QVERIFY(text.contains(zeroWidthSpace));
    QCOMPARE(QString(text).remove(zeroWidthSpace), name);
    for (int i = 0; i < text.size(); ++i)
        QVERIFY(!text.at(i).isHighSurrogate() || text.at(i + 1).isLowSurrogate());
}

void tst_CToolTip::boundToRect()
{
    QWidget widget;
    widget.resize(100, 100);
    widget.show();
    CToolTip::showText(widget.mapToGlobal({5, 5}), QStringLiteral("Edit"), &widget, {0, 0, 16, 16});
    QVERIFY(tipWidget());
    const auto move = [&widget](const QPoint& point) {
        QMouseEvent event(QEvent::MouseMove, point, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    };
    move({10, 10});
    QVERIFY(tipWidget());
    move({50, 50});
    QTRY_VERIFY(!tipWidget());
}

SETTINGAREA_TEST_MAIN(tst_CToolTip, QApplication)
#include "tst_CToolTip.moc"
