#pragma once

#include "plugin/interface/SSettings.h"

#include <QFrame>
#include <QPointer>
#include <QVector>

class CShortCutTabBar;
class CShortcutLabel;
class CTranslatingAnimation;
class QGridLayout;
class QStackedLayout;
class QToolButton;
struct ShortcutAction;

// Reference card of the host's keyboard shortcuts, which slides in from the bottom edge of the overlay it lies on. The
// host is told when it has come in and when it has gone out. The keyboard goes to the panel when it slides in, and back
// to where it was when it has gone; Escape in the panel closes it. [GUI thread]
class CShortcutPanel : public QFrame
{
    Q_OBJECT

public:
    explicit CShortcutPanel(QWidget* parent); // hidden, without rows; owned by the overlay

    // The keys of both pages, by the index of the action. An action without an entry is shown without keys; entries
    // without an action are left alone.
    void setShortcuts(const SSettings::ShortcutMap& layout, const SSettings::ShortcutMap& softEdge);

    // Starts sliding in; nothing happens while the panel is in or on its way in.
    void moveIn();

    QSize sizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Page
    {
        const QVector<ShortcutAction>& actions;
        QGridLayout* pGrid;
        QMap<int, CShortcutLabel*> rows; // by the index of the action
    };

    QWidget* createHeader();
    void addPage(const QVector<ShortcutAction>& actions);
    static void setKeys(Page& page, const SSettings::ShortcutMap& keys);
    void setTexts();

    CTranslatingAnimation* m_pAnimation;
    CShortCutTabBar* m_pTabBar;
    QToolButton* m_pClose;
    QStackedLayout* m_pPages;
    QVector<Page> m_pages;            // in the order of the tabs
    QPointer<QWidget> m_pFocusBefore; // had the keyboard before the panel slid in
};
