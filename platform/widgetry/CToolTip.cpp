#include <widgetry/CToolTip.h>

#include <QToolTip>

void CToolTip::showText(const QPoint& globalPos, const QString& text, QWidget* widget, const QRect& rect)
{
    QToolTip::showText(globalPos, fromPlainText(text), widget, rect);
}

void CToolTip::hideText()
{
    QToolTip::hideText();
}

QString CToolTip::fromPlainText(const QString& text)
{
    if (text.isEmpty())
        return {};
    return QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>").arg(text.toHtmlEscaped());
}
