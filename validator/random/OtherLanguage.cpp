#include "validator/random/OtherLanguage.h"

#include <QCoreApplication>
#include <QLocale>

QString OtherLanguage::translate(const char* /*context*/, const char* sourceText, const char* /*disambiguation*/,
                                 int /*n*/) const
{
    return QStringLiteral("\u00ab%1 \u5c4f\u00bb").arg(QString::fromUtf8(sourceText));
}

void OtherLanguage::speak(const QLocale& locale)
{
    QLocale::setDefault(locale);
    const bool isOther = locale.language() == QLocale::Chinese;
    if (isOther == m_bInstalled)
        return;
    m_bInstalled = isOther;
    if (isOther)
        QCoreApplication::installTranslator(this);
    else
        QCoreApplication::removeTranslator(this);
}
