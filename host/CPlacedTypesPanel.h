#pragma once

#include "host/project/Project.h"

#include <QWidget>

class QAction;
class QLabel;
class QListWidget;
class QPushButton;

// The types that the open project's layout places, as a list above the buttons for what can be done with them. Says in
// words when there is none. [GUI thread]
class CPlacedTypesPanel : public QWidget
{
    Q_OBJECT

public:
    explicit CPlacedTypesPanel(QWidget* parent = nullptr);

    // What the two buttons do; they are enabled as the commands are. `remove` is also in the list's context menu and
    // what its Delete key does. Owns neither.
    void setCommands(QAction* place, QAction* remove);

    // Shows the types in their order; the one that was current stays so.
    void setTypes(const QVector<Project::PlacedType>& types);

    // Position of the current type, -1 when there is none. An invalid position makes none current.
    int currentRow() const;
    void setCurrentRow(int row);

Q_SIGNALS:
    void notifyCurrentChanged();

protected:
    void changeEvent(QEvent* event) override;

private:
    void setTexts();

    QListWidget* const m_pList;
    QLabel* const m_pEmpty;
    QPushButton* const m_pPlace;
    QPushButton* const m_pRemove;
};
