#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <optional>

class QFileDialog;
class QWidget;

// Answers the modal dialogs that open while it lives, as soon as they are there: a file dialog with the given files or
// folder, a message box with its default button.
class DialogAnswers : public QObject
{
    Q_OBJECT

public:
    // `files`: absolute paths; several must be all that there is in their folder.
    explicit DialogAnswers(QStringList files = {});

    // Time since the first dialog was closed by its answer. Ends the benchmark when there was none.
    double secondsSinceFirst() const;

private:
    void answer();
    void choose(QFileDialog* dialog) const;

    const QStringList m_files;
    QTimer m_watch;
    std::optional<std::chrono::steady_clock::time_point> m_first;
};
