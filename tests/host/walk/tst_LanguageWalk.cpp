#include "host/CHost.h"
#include "host/CommandLine.h"
#include "host/HostPaths.h"
#include "host/PluginLibrary.h"
#include "host/theme/Theme.h"
#include "host/tour/TakeTour.h"
#include "tests/host/walk/LayoutFaults.h"
#include "tests/host/walk/ShownTexts.h"
#include "tests/support/TestObject.h"

#include <QApplication>

// Takes the steps of the tour on the smallest screen and looks at every text, in both languages.
class tst_LanguageWalk : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void everyTextFollowsTheLanguage();
};

namespace {

constexpr QSize smallestWindow(1024, 600);

PluginLibrary& plugin()
{
    static PluginLibrary library;
    return library;
}

QString walk(const char* language, const TourStage::Shutter& shutter)
{
    CommandLine commandLine;
    commandLine.language = QLatin1String(language);
    return takeTour(commandLine, plugin(), smallestWindow, shutter);
}

void switchTo(TourStage& stage, const char* language)
{
    stage.host().setLanguage(QLocale(QLatin1String(language)));
    for (int i = 0; i < 3; ++i) { // a new text changes a size, which changes a layout
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

// What can be read, without the temporary folder's name, which is another in each run.
ShownTexts textsOf(const TourStage& stage)
{
    ShownTexts texts = shownTexts();
    for (auto& [place, text] : texts)
        text.remove(QChar(0x200b)).replace(stage.path({}), QStringLiteral("own/"));
    return texts;
}

// What has been said stays as it was said: a box that asks or tells something and a progress bar keep their words, and
// Qt's file dialog what it was opened with. The boxes' buttons are compared all the same.
bool wasSaid(const QString& place)
{
    static const QRegularExpression said(
        QStringLiteral("^(CMessageBox (title|accessible description)|CMessageBox/.*QTextEdit|QMessageBox|QFileDialog)|"
                       "CProgressDisplay"));
    return said.match(place).hasMatch();
}

QStringList differences(const ShownTexts& found, const ShownTexts& wanted)
{
    QStringList lines;
    for (const auto& [place, text] : found) {
        if (wasSaid(place))
            continue;
        const auto same = wanted.find(place);
        if (same == wanted.end())
            lines << QStringLiteral("%1: \"%2\" is not there").arg(place, text);
        else if (same->second != text)
            lines << QStringLiteral("%1: \"%2\", not \"%3\"").arg(place, text, same->second);
    }
    for (const auto& [place, text] : wanted) {
        if (found.count(place) == 0 && !wasSaid(place))
            lines << QStringLiteral("%1: no \"%2\"").arg(place, text);
    }
    return lines;
}

// What the user or the system wrote: names of types and folders, addresses, paths, keys, and what Qt says of itself.
bool isData(const QString& place, const QString& text)
{
    static const QRegularExpression data(
        QStringLiteral(" cell [0-9]+ of |LineEdit[0-9]+ text$|CStatusBar0/QLabel[0-9]+ tooltip$|"
                       "CMenuPushButton[0-9]+ (text|accessible description)$|CShortcutLabel[0-9]+/QLabel[1-9] text$|"
                       "^QMessageBox|^QFileDialog"));
    return text == QLatin1String("Orvel") || text == QLatin1String("English") || data.match(place).hasMatch();
}

// Words that are the same in both languages.
QStringList untranslated(const ShownTexts& english, const ShownTexts& chinese)
{
    static const QRegularExpression word(QStringLiteral("[A-Za-z]{2}"));
    QStringList lines;
    for (const auto& [place, text] : english) {
        const auto same = chinese.find(place);
        if (same != chinese.end() && same->second == text && text.contains(word) && !isData(place, text))
            lines << QStringLiteral("%1: \"%2\"").arg(place, text);
    }
    return lines;
}

} // namespace

void tst_LanguageWalk::initTestCase()
{
    Theme::apply();
    QString error;
    QVERIFY2(plugin().load(HostPaths::pluginCandidates(), error), qPrintable(error));
}

void tst_LanguageWalk::everyTextFollowsTheLanguage()
{
    std::map<QString, ShownTexts> chinese; // of each picture, in a host that was opened in Chinese
    QCOMPARE(walk("zh_CN",
                  [&](TourStage& stage) {
                      chinese[stage.picture()] = textsOf(stage);
                      return true;
                  }),
             QString());

    QStringList faults;
    const auto note = [&faults](const TourStage& stage, const char* what, const QStringList& lines) {
        for (const QString& line : lines)
            faults << QStringLiteral("%1, %2: %3").arg(stage.picture(), QLatin1String(what), line);
    };
    QCOMPARE(walk("en",
                  [&](TourStage& stage) {
                      if (stage.picture().endsWith(QLatin1String("quit-question"))) { // whose settings cannot be saved
                          for (int i = 0; i < 2; ++i)
                              expectWarning(QRegularExpression(QStringLiteral("^not saved: ")));
                      }
                      const ShownTexts english = textsOf(stage);
                      note(stage, "untranslated", untranslated(english, chinese[stage.picture()]));
                      note(stage, "English", layoutFaults());
                      switchTo(stage, "zh_CN");
                      note(stage, "to Chinese", differences(textsOf(stage), chinese[stage.picture()]));
                      note(stage, "Chinese", layoutFaults());
                      switchTo(stage, "en");
                      note(stage, "back to English", differences(textsOf(stage), english));
                      return true;
                  }),
             QString());
    for (const QString& fault : qAsConst(faults))
        qInfo("%s", qPrintable(fault));
    QVERIFY(faults.isEmpty());
}

SETTINGAREA_TEST_MAIN(tst_LanguageWalk, QApplication)
#include "tst_LanguageWalk.moc"
