#include "host/theme/Theme.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QIcon>
#include <QPalette>
#include <QStyleFactory>

namespace {

constexpr double fontPoints = 9; // 12 pixels at 96 dots per inch

constexpr QColor page(26, 26, 30);
constexpr QColor panel(41, 41, 45);
constexpr QColor line(57, 57, 64);
constexpr QColor text(240, 240, 246);
constexpr QColor disabledText(150, 150, 162);
constexpr QColor accent(0x8c, 0x8a, 0xff);

QPalette palette()
{
    QPalette palette(text, panel, line, page, line, text, Qt::white, page, page);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, page);
    palette.setColor(QPalette::AlternateBase, panel);
    palette.setColor(QPalette::ToolTipBase, line);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Link, accent);
    palette.setColor(QPalette::PlaceholderText, disabledText);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, disabledText);
    return palette;
}

// One family that draws both languages looks calmer than two that take turns; what is installed is taken.
QFont font()
{
    QFont font = QApplication::font();
    QStringList families{font.family()};
    const QStringList installed = QFontDatabase().families();
    for (const QString& family : {QStringLiteral("Microsoft YaHei UI"), QStringLiteral("PingFang SC"),
                                  QStringLiteral("Source Han Sans SC"), QStringLiteral("Noto Sans CJK SC")}) {
        if (installed.contains(family))
            families.prepend(family);
    }
    font.setFamilies(families);
    font.setPointSizeF(fontPoints);
    return font;
}

} // namespace

void Theme::apply()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(palette());
    QApplication::setFont(font());
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/theme/orvel.svg")));
    QFile sheet(QStringLiteral(":/theme/orvel.qss"));
    sheet.open(QIODevice::ReadOnly);
    qApp->setStyleSheet(QString::fromUtf8(sheet.readAll()));
}
