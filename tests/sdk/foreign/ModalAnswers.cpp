#include "ModalAnswers.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

namespace {

constexpr int pollInterval = 10; // milliseconds

void goOn(const QWidget* wizard)
{
    wizard->findChild<QPushButton*>(QStringLiteral("NextButton"))->click();
}

void makeType(const QWidget* wizard)
{
    const auto* const files = wizard->findChild<QPushButton*>(QStringLiteral("ParameterFile"));
    const QList<QAction*> entries = files->menu()->actions();
    for (QAction* const entry : entries) {
        if (entry->text() == QLatin1String("Card"))
            entry->trigger();
    }
    goOn(wizard);
    goOn(wizard);
    wizard->findChild<QLineEdit*>(QStringLiteral("MultiRcvCabinet"))->setText(QStringLiteral("Made"));
    goOn(wizard);
}

} // namespace

ModalAnswers::ModalAnswers(QStringList paths)
    : m_paths(std::move(paths))
{
    connect(&m_watch, &QTimer::timeout, this, &ModalAnswers::answer);
    m_watch.start(pollInterval);
}

void ModalAnswers::answer()
{
    QWidget* const dialog = QApplication::activeModalWidget();
    if (!dialog || !dialog->isVisible())
        return;
    if (qobject_cast<QFileDialog*>(dialog)) {
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(m_paths.takeFirst());
        QMetaObject::invokeMethod(dialog, "accept");
        return;
    }
    if (dialog->findChild<QPushButton*>(QStringLiteral("ParameterFile"))) {
        makeType(dialog);
        return;
    }
    const auto buttons = dialog->findChildren<QPushButton*>();
    for (QPushButton* const button : buttons) {
        if (button->isDefault()) {
            button->click();
            return;
        }
    }
}
