#pragma once

#include "plugin/interface/SSettings.h"

#include <QFrame>

class CTranslatingAnimation;

// Reference card of the host's keyboard shortcuts, which slides in from the bottom edge of the overlay it lies on.
// [GUI thread]
class CShortcutPanel : public QFrame
{
    Q_OBJECT

public:
    explicit CShortcutPanel(QWidget* parent); // hidden; owned by the overlay

    // The keys of both pages, by the index of the action.
    void setShortcuts(const SSettings::ShortcutMap& layout, const SSettings::ShortcutMap& softEdge);

    // Slides the panel in; the host is told when it has arrived.
    void moveIn();

    QSize sizeHint() const override;

private:
    CTranslatingAnimation* m_pAnimation;
    SSettings::ShortcutMap m_layoutShortcuts;
    SSettings::ShortcutMap m_softEdgeShortcuts;
};
