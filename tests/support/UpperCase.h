#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QTranslator>

// While it lives, every text appears in capitals: a language that tells a translated text from one that is not.
class UpperCase : public QTranslator
{
public:
    UpperCase()
    {
        QCoreApplication::installTranslator(this);
        tellWidgets();
    }
    ~UpperCase() override
    {
        QCoreApplication::removeTranslator(this);
        tellWidgets();
    }

    bool isEmpty() const override { return false; }

    QString translate(const char* /*context*/, const char* sourceText, const char* /*disambiguation*/,
                      int /*n*/) const override
    {
        return QString::fromUtf8(sourceText).toUpper();
    }

private:
    // The application only posts the change to its windows.
    static void tellWidgets() { QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange); }
};
