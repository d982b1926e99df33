#include "host/Catalogues.h"
#include "host/HostPaths.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QWidget>

class tst_Catalogues : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void itSpeaksEnglishAndChinese();
    void chineseTranslatesHostPlugInAndQt();
    void englishIsTheSource();
    void otherLanguagesGetEnglish();
    void widgetsAreToldOnceTheLocaleIsSet();
    void theEndBringsTheSourcesBack();
    void aMissingCatalogueIsLogged();
};

namespace {

class Listener : public QWidget
{
public:
    QStringList locales; // the default locale at each LanguageChange

protected:
    void changeEvent(QEvent* event) override
    {
        if (event->type() == QEvent::LanguageChange)
            locales << QLocale().name();
        QWidget::changeEvent(event);
    }
};

QString hostText()
{
    return QCoreApplication::translate("CMainWindow", "&File");
}

QString plugInText()
{
    return QCoreApplication::translate("CPreferencesSettings", "Show grid");
}

QString qtText()
{
    return QCoreApplication::translate("QPlatformTheme", "Cancel");
}

} // namespace

void tst_Catalogues::init()
{
    TestObject::init();
    QLocale::setDefault(QLocale::c());
}

void tst_Catalogues::cleanup()
{
    TestObject::cleanup();
}

void tst_Catalogues::itSpeaksEnglishAndChinese()
{
    for (const char* name : {"en", "en_GB", "zh_CN", "zh_TW", "zh"})
        QVERIFY2(Catalogues::speaks(QLocale(QLatin1String(name))), name);
    for (const char* name : {"fr", "C", "", "xx", "ja_JP"})
        QVERIFY2(!Catalogues::speaks(QLocale(QLatin1String(name))), name);
}

void tst_Catalogues::chineseTranslatesHostPlugInAndQt()
{
    Catalogues catalogues(HostPaths::translationsFolder());
    catalogues.setLocale(QLocale(QLocale::Chinese));
    QCOMPARE(catalogues.locale().name(), QStringLiteral("zh_CN"));
    QCOMPARE(QLocale().name(), QStringLiteral("zh_CN"));
    QCOMPARE(hostText(), QStringLiteral("\u6587\u4ef6(&F)"));
    QCOMPARE(plugInText(), QStringLiteral("\u663e\u793a\u7f51\u683c"));
    QCOMPARE(qtText(), QStringLiteral("\u53d6\u6d88"));
}

void tst_Catalogues::englishIsTheSource()
{
    Catalogues catalogues(HostPaths::translationsFolder());
    catalogues.setLocale(QLocale(QLocale::Chinese));
    catalogues.setLocale(QLocale(QLocale::English, QLocale::UnitedKingdom));
    QCOMPARE(QLocale().name(), QStringLiteral("en_US"));
    QCOMPARE(hostText(), QStringLiteral("&File"));
    QCOMPARE(plugInText(), QStringLiteral("Show grid"));
    QCOMPARE(qtText(), QStringLiteral("Cancel"));
}

void tst_Catalogues::otherLanguagesGetEnglish()
{
    Catalogues catalogues(HostPaths::translationsFolder());
    catalogues.setLocale(QLocale(QLocale::French));
    QCOMPARE(catalogues.locale().name(), QStringLiteral("en_US"));
    QCOMPARE(QLocale().name(), QStringLiteral("en_US"));
}

void tst_Catalogues::widgetsAreToldOnceTheLocaleIsSet()
{
    Listener listener;
    Catalogues catalogues(HostPaths::translationsFolder());
    catalogues.setLocale(QLocale(QLocale::Chinese));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(listener.locales, QStringList{QStringLiteral("zh_CN")});
    catalogues.setLocale(QLocale(QLocale::English));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(listener.locales, (QStringList{QStringLiteral("zh_CN"), QStringLiteral("en_US")}));
}

void tst_Catalogues::theEndBringsTheSourcesBack()
{
    {
        Catalogues catalogues(HostPaths::translationsFolder());
        catalogues.setLocale(QLocale(QLocale::Chinese));
    }
    QCOMPARE(hostText(), QStringLiteral("&File"));
}

void tst_Catalogues::aMissingCatalogueIsLogged()
{
    const QTemporaryDir empty;
    Catalogues catalogues(empty.path());
    expectWarning(QRegularExpression(QStringLiteral("^no catalogue settingarea for zh_CN in ")));
    expectWarning(QRegularExpression(QStringLiteral("^no catalogue orvel for zh_CN in ")));
    catalogues.setLocale(QLocale(QLocale::Chinese));
    QCOMPARE(hostText(), QStringLiteral("&File"));
    QCOMPARE(qtText(), QStringLiteral("\u53d6\u6d88"));
}

SETTINGAREA_TEST_MAIN(tst_Catalogues, QApplication)
#include "tst_Catalogues.moc"
