#pragma once

#include <QTranslator>

class QLocale;

// A language for every text there is, whatever the build: each stands between brackets, and is longer than in English,
// as texts of other languages are. [GUI thread]
class OtherLanguage : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* sourceText, const char* disambiguation, int n) const override;

    // What a host does when it is told to speak a language: this one for Chinese, none for any other.
    void speak(const QLocale& locale);

private:
    bool m_bInstalled = false;
};
