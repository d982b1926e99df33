#pragma once

#include <QStringList>
#include <QTimer>

class QWidget;

// Answers each modal dialog that opens while it lives: a file dialog with the next of `paths`, the wizard by making the
// type "Made" from the parameter file "Card", everything else with its default button.
class ModalAnswers : public QObject
{
public:
    explicit ModalAnswers(QStringList paths = {});

private:
    void answer();

    QStringList m_paths;
    QTimer m_watch;
};
