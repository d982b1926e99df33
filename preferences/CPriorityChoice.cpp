#include "preferences/CPriorityChoice.h"

#include "plugin/SettingHandler.h"
#include "plugin/interface/ISettingInterfaceHandler.h"
#include "preferences/SaveProjectOffer.h"

#include <QPointer>
#include <QRadioButton>
#include <QSignalBlocker>

#include <algorithm>

CPriorityChoice::CPriorityChoice(const QVector<QRadioButton*>& buttons, QWidget* page)
    : QObject(page),
      m_pPage(page),
      m_buttons(buttons)
{
    for (int priority = 0; priority < m_buttons.size(); ++priority) {
        connect(m_buttons[priority], &QRadioButton::toggled, this, [this, priority](bool isChecked) {
            if (isChecked)
                choose(priority);
        });
    }
}

int CPriorityChoice::priority() const
{
    const auto checked = std::find_if(m_buttons.begin(), m_buttons.end(), [](auto* one) { return one->isChecked(); });
    return checked == m_buttons.end() ? 0 : static_cast<int>(checked - m_buttons.begin());
}

void CPriorityChoice::setPriority(int priority)
{
    m_nKnown = std::clamp(priority, 0, m_buttons.size() - 1);
    const QSignalBlocker silence(m_buttons[m_nKnown]);
    m_buttons[m_nKnown]->setChecked(true);
}

void CPriorityChoice::choose(int priority)
{
    const auto handler = settingHandler(); // the one to the end, whichever is installed while the user is asked
    if (!handler)
        return;
    QRadioButton* const chosen = m_buttons[priority];
    // Qt goes on with a button after its toggled(): a page that is destroyed meanwhile leaves it behind.
    const auto whenDestroyed =
        connect(chosen->parentWidget(), &QObject::destroyed, chosen, [chosen] { chosen->setParent(nullptr); });
    const QPointer<CPriorityChoice> self(this);
    offerToSaveAndTell(priority, *handler);
    if (self)
        disconnect(whenDestroyed);
    else
        chosen->deleteLater();
}

void CPriorityChoice::offerToSaveAndTell(int chosen, ISettingInterfaceHandler& handler)
{
    const QPointer<CPriorityChoice> self(this);
    const SaveProjectOffer answer = offerToSaveProject(m_pPage->parentWidget(), handler);
    if (!self)
        return;
    if (answer == SaveProjectOffer::Cancelled) {
        setPriority(m_nKnown);
    } else if (answer == SaveProjectOffer::GoOn && priority() == chosen) { // no other was set meanwhile
        m_nKnown = chosen;
        handler.setConnectionPriority(chosen);
    }
}
