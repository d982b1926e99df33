#pragma once

#include <QLocale>
#include <QString>
#include <QTranslator>

#include <memory>
#include <vector>

// The language of the whole application: the default locale, and the catalogues of the host, the plug-in and Qt.
// The sources are English, which needs no catalogue. [GUI thread]
class Catalogues
{
public:
    // `folder`: where the host's and the plug-in's catalogues lie.
    explicit Catalogues(const QString& folder);
    ~Catalogues(); // back to English

    // Whether the application speaks the locale's language.
    static bool speaks(const QLocale& locale);

    // Switches to the locale's language, or to English when the application does not speak it. Every widget gets
    // QEvent::LanguageChange, after the default locale has been set.
    void setLocale(const QLocale& locale);

    // The locale in use.
    QLocale locale() const { return m_locale; }

private:
    void removeTranslators();

    const QString m_folder;
    QLocale m_locale;
    std::vector<std::unique_ptr<QTranslator>> m_translators; // installed
};
