#include "shortcut/CShortcutPanel.h"

#include "plugin/SettingHandler.h"
#include "plugin/interface/ISettingInterfaceHandler.h"

#include <widgetry/CTranslatingAnimation.h>

namespace {

void tellHost(bool visible)
{
    if (const auto handler = settingHandler())
        handler->notifyShortcutPanelVisible(visible);
}

} // namespace

CShortcutPanel::CShortcutPanel(QWidget* parent)
    : QFrame(parent),
      m_pAnimation(new CTranslatingAnimation(Qt::BottomEdge, this))
{
    setObjectName(QStringLiteral("ShortcutPanel"));
    setStyleSheet(QStringLiteral("#ShortcutPanel{background:rgb(41,41,45);}"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAttribute(Qt::WA_TransparentForMouseEvents, false);
    hide();

    m_pAnimation->setMoveInCompleteCallback([] { tellHost(true); });
    m_pAnimation->setMoveOutCompleteCallback([] { tellHost(false); });
}

void CShortcutPanel::setShortcuts(const SSettings::ShortcutMap& layout, const SSettings::ShortcutMap& softEdge)
{
    m_layoutShortcuts = layout;
    m_softEdgeShortcuts = softEdge;
}

void CShortcutPanel::moveIn()
{
    m_pAnimation->moveIn();
}

QSize CShortcutPanel::sizeHint() const
{
    return {1600, 245};
}
