#pragma once

#include <QApplication>
#include <QTimer>
#include <QTranslator>

// Calls `answer` with the modal widget that the next statement opens.
template<typename Answer>
void whenModal(Answer answer)
{
    QTimer::singleShot(0, qApp, [answer] {
        QWidget* const modal = QApplication::activeModalWidget();
        if (!modal)
            qFatal("No modal widget is open");
        answer(modal);
    });
}

// While it lives, the texts of the library appear in a made-up language: "Next" as "<Next: a longer translation>".
class OtherLanguage : public QTranslator
{
    Q_OBJECT

public:
    OtherLanguage() { QCoreApplication::installTranslator(this); }
    ~OtherLanguage() override { QCoreApplication::removeTranslator(this); }

    static QString translated(const QString& text) { return QStringLiteral("<%1: a longer translation>").arg(text); }

    bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* sourceText, const char* /*disambiguation*/,
                      int /*n*/) const override
    {
        return qstrcmp(context, "Widgetry") == 0 ? translated(QString::fromUtf8(sourceText)) : QString();
    }
};
