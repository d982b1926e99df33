#include "host/theme/Theme.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QFontInfo>
#include <QProxyStyle>
#include <QPushButton>
#include <QRegularExpression>
#include <QSvgRenderer>

#include <cmath>

class tst_Theme : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void theSheetIsUnderstood();
    void everyImageCanBeDrawn();
    void textHasContrast_data();
    void textHasContrast();
    void everyTextColourOfTheSheetIsTested();
    void theFontDrawsChinese();
    void buttonsOfDialogsHaveNoPictures();
};

namespace {

const QColor page(26, 26, 30);
const QColor panel(41, 41, 45);
const QColor line(57, 57, 64);
const QColor selection(66, 65, 104);
const QColor accent(0x8c, 0x8a, 0xff);
const QColor trouble(0xff, 0x8a, 0x80);

// As WCAG 2 defines it.
double luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

QString sheet()
{
    QFile file(QStringLiteral(":/theme/orvel.qss"));
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll());
}

// As on a desktop where buttons have pictures; the offscreen platform is none.
class StyleWithPictures : public QProxyStyle
{
public:
    StyleWithPictures()
        : QProxyStyle(QStringLiteral("Fusion"))
    {
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override
    {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons ? 1 : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

// The grounds that a text of the sheet's colours lies on.
struct Pair
{
    const char* name;
    QColor text;
    QVector<QColor> grounds;
};

QVector<Pair> pairs()
{
    return {
        {"text", {240, 240, 246}, {page, panel, line, selection, QColor(72, 72, 80)}},
        {"secondary text", {0xb5, 0xb5, 0xc1}, {page, panel}},
        {"disabled text", {150, 150, 162}, {page, panel}},
        {"text on the accent", page, {accent, QColor(0xa3, 0xa1, 0xff), QColor(0x7e, 0x7c, 0xf0), trouble}},
        // What the pages themselves set.
        {"link of the e-mail group", {139, 129, 255}, {page, panel}},
        {"current step of the wizard", accent, {page, panel}},
    };
}

} // namespace

void tst_Theme::theSheetIsUnderstood()
{
    Theme::apply(); // what Qt cannot parse it says in a warning
    QVERIFY(!qApp->styleSheet().isEmpty());
    QPushButton button;
    button.show();
    button.ensurePolished();
    QCOMPARE(button.palette().color(QPalette::ButtonText), QColor(240, 240, 246));
}

void tst_Theme::everyImageCanBeDrawn()
{
    QRegularExpressionMatchIterator it = QRegularExpression(QStringLiteral("url\\((.*?)\\)")).globalMatch(sheet());
    int images = 0;
    while (it.hasNext()) {
        const QString path = it.next().captured(1);
        QVERIFY2(QSvgRenderer(path).isValid(), qPrintable(path));
        ++images;
    }
    QVERIFY(images >= 10);
    QVERIFY(QSvgRenderer(QStringLiteral(":/theme/orvel.svg")).isValid());
}

void tst_Theme::textHasContrast_data()
{
    QTest::addColumn<QColor>("text");
    QTest::addColumn<QColor>("ground");
    const QVector<Pair> tested = pairs();
    for (const Pair& pair : tested) {
        for (const QColor& ground : pair.grounds)
            QTest::addRow("%s on %s", pair.name, qPrintable(ground.name())) << pair.text << ground;
    }
}

void tst_Theme::textHasContrast()
{
    QFETCH(QColor, text);
    QFETCH(QColor, ground);
    const double ratio = contrast(text, ground);
    QVERIFY2(ratio >= 4.5, qPrintable(QString::number(ratio)));
}

// A colour that is new in the sheet has to be entered above.
void tst_Theme::everyTextColourOfTheSheetIsTested()
{
    const QRegularExpression color(QStringLiteral("(?:^|\\s)(?:selection-)?color: (?:rgb\\(([^)]*)\\)|(#\\w+));"));
    QRegularExpressionMatchIterator it = color.globalMatch(sheet());
    QVERIFY(it.hasNext());
    while (it.hasNext()) {
        const QRegularExpressionMatch match = it.next();
        QColor found(match.captured(2));
        const QStringList parts = match.captured(1).split(QLatin1Char(','));
        if (parts.size() == 3)
            found = QColor(parts.at(0).toInt(), parts.at(1).toInt(), parts.at(2).toInt());
        const QVector<Pair> tested = pairs();
        const bool known =
            std::any_of(tested.begin(), tested.end(), [&](const Pair& pair) { return pair.text == found; });
        QVERIFY2(known, qPrintable(match.captured()));
    }
}

void tst_Theme::theFontDrawsChinese()
{
    Theme::apply();
    const QFontMetrics metrics(QApplication::font());
    QVERIFY(metrics.inFontUcs4(0x7bb1)); // the first character of "cabinet"
}

void tst_Theme::buttonsOfDialogsHaveNoPictures()
{
    Theme::apply();
    QApplication::setStyle(new StyleWithPictures);
    QDialogButtonBox box(QDialogButtonBox::Open | QDialogButtonBox::Cancel);
    box.ensurePolished();
    QCOMPARE(box.buttons().size(), 2);
    const auto buttons = box.buttons();
    for (const QAbstractButton* button : buttons)
        QVERIFY2(button->icon().isNull(), qPrintable(button->text()));
}

SETTINGAREA_TEST_MAIN(tst_Theme, QApplication)
#include "tst_Theme.moc"
