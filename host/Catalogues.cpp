#include "host/Catalogues.h"

#include "host/Logging.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace {

QLocale english()
{
    return {QLocale::English, QLocale::UnitedStates};
}

QLocale chinese()
{
    return {QLocale::Chinese, QLocale::China};
}

} // namespace

Catalogues::Catalogues(const QString& folder)
    : m_folder(folder),
      m_locale(english())
{
}

Catalogues::~Catalogues()
{
    removeTranslators();
}

bool Catalogues::speaks(const QLocale& locale)
{
    return locale.language() == QLocale::English || locale.language() == QLocale::Chinese;
}

void Catalogues::setLocale(const QLocale& locale)
{
    m_locale = locale.language() == QLocale::Chinese ? chinese() : english();
    QLocale::setDefault(m_locale);
    removeTranslators();
    if (m_locale == english())
        return;
    // The first one installed is asked last: Qt's own, which also knows words like "Cancel".
    const QString qtFolder = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    for (const auto& [name, folder] :
         {std::pair(QStringLiteral("qtbase"), qtFolder), std::pair(QStringLiteral("settingarea"), m_folder),
          std::pair(QStringLiteral("orvel"), m_folder)}) {
        auto translator = std::make_unique<QTranslator>();
        if (!translator->load(m_locale, name, QStringLiteral("_"), folder)) {
            qCWarning(logLanguage, "no catalogue %ls for %ls in %ls", qUtf16Printable(name),
                      qUtf16Printable(m_locale.name()), qUtf16Printable(folder));
            continue;
        }
        QCoreApplication::installTranslator(translator.get());
        m_translators.push_back(std::move(translator));
    }
}

void Catalogues::removeTranslators()
{
    for (const auto& translator : m_translators)
        QCoreApplication::removeTranslator(translator.get());
    m_translators.clear();
}
