#pragma once

#include <QObject>
#include <QVector>

class ISettingInterfaceHandler;
class QRadioButton;

// The radio buttons of the connection priority. One that the user checks reaches the host at once; if the host's
// project has changes, the user is asked about them first and may take the choice back. [GUI thread]
class CPriorityChoice : public QObject
{
    Q_OBJECT

public:
    // `buttons`, by priority and exclusive, belong to `page`, which owns this object. The question lies over the page's
    // parent, and both may be destroyed while it is open.
    CPriorityChoice(const QVector<QRadioButton*>& buttons, QWidget* page);

    // The priority that is checked; 0 when none is.
    int priority() const;

    // Checks a priority, or the nearest one that there is, without telling the host.
    void setPriority(int priority);

private:
    void choose(int priority);
    void offerToSaveAndTell(int chosen, ISettingInterfaceHandler& handler);

    QWidget* const m_pPage;
    const QVector<QRadioButton*> m_buttons;
    int m_nKnown = 0; // to the host: set or told last
};
