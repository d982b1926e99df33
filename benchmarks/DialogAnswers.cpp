#include "benchmarks/DialogAnswers.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>

#include <algorithm>
#include <utility>

DialogAnswers::DialogAnswers(QStringList files)
    : m_files(std::move(files))
{
    connect(&m_watch, &QTimer::timeout, this, &DialogAnswers::answer);
    m_watch.start(0);
}

double DialogAnswers::secondsSinceFirst() const
{
    if (!m_first)
        qFatal("The operation did not ask anything");
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - *m_first).count();
}

void DialogAnswers::answer()
{
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || !dialog->isVisible())
        return;
    if (!m_first) {
        connect(dialog, &QDialog::finished, this, [this] { m_first = std::chrono::steady_clock::now(); });
    }
    if (auto* const files = qobject_cast<QFileDialog*>(dialog)) {
        choose(files);
        return;
    }
    const auto buttons = dialog->findChildren<QPushButton*>();
    const auto preferred =
        std::find_if(buttons.begin(), buttons.end(), [](const QPushButton* button) { return button->isDefault(); });
    if (preferred == buttons.end())
        qFatal("A dialog without a default button");
    (*preferred)->click();
}

void DialogAnswers::choose(QFileDialog* dialog) const
{
    const QString first = m_files.value(0);
    if (m_files.size() == 1) {
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(first);
    } else {
        // As a user marks all: a line of so many names keeps the dialog busy for minutes.
        dialog->setDirectory(QFileInfo(first).path());
        auto* const list = dialog->findChild<QListView*>(QStringLiteral("listView"));
        if (list->model()->rowCount(list->rootIndex()) < m_files.size())
            return; // still being read
        list->selectAll();
    }
    QMetaObject::invokeMethod(dialog, "accept");
    if (dialog->isVisible())
        qFatal("The file dialog did not take %s", qPrintable(first));
}
