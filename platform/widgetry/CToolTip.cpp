#include <widgetry/CToolTip.h>

#include <QToolTip>

namespace {

// Characters after which a text without spaces may be broken: a file name can be wider than the screen.
constexpr int longestRun = 20;

} // namespace

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
    QString breakable;
    int run = 0; // characters since the last place to break the line
    for (const QChar character : text) {
        run = character.isSpace() ? 0 : run + 1;
        breakable.append(character);
        if (run >= longestRun && !character.isHighSurrogate()) {
            breakable.append(QChar(0x200b)); // zero width space
            run = 0;
        }
    }
    return QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>").arg(breakable.toHtmlEscaped());
}
