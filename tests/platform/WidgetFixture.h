#pragma once

#include <QApplication>
#include <QTimer>
#include <QTranslator>
#include <QWheelEvent>
#include <QWidget>

#include <functional>

// Calls `call` from the event loop that the next statement runs.
inline void soon(const std::function<void()>& call)
{
    auto* const timer = new QTimer(QCoreApplication::instance());
    QObject::connect(timer, &QTimer::timeout, timer, [timer, call] {
        timer->stop();
        timer->deleteLater();
        call();
    });
    timer->start(0);
}

// Calls `answer` with the modal widget that the next statement opens.
inline void whenModal(const std::function<void(QWidget*)>& answer)
{
    soon([answer] {
        QWidget* const modal = QApplication::activeModalWidget();
        if (!modal)
            qFatal("No modal widget is open");
        answer(modal);
    });
}

// Turns the wheel over the middle of `widget`, in eighths of a degree. True when the widget took the event.
inline bool sendWheel(QWidget* widget, int angle)
{
    const QPoint center = widget->rect().center();
    QWheelEvent event(center, widget->mapToGlobal(center), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

// While it lives, the texts of the library appear in a made-up language: "Next" as "<Next: a longer translation>".
class OtherLanguage : public QTranslator
{
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
