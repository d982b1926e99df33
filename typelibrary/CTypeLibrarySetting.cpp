#include "typelibrary/CTypeLibrarySetting.h"

#include "multircv/CMultiRcvCabinetSetDlg.h"
#include "typelibrary/CProductTreeModel.h"
#include "typelibrary/CProductTreeView.h"
#include "typelibrary/store/CTypeLibrary.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPointer>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int buttonSpacing = 16;

} // namespace

CTypeLibrarySetting::CTypeLibrarySetting(QWidget* parent)
    : QWidget(parent),
      m_pView(new CProductTreeView(this)),
      m_pMultiRcvCabinet(new QToolButton(this))
{
    QIcon icon(QStringLiteral(":/Image/SettingArea/TypeLibrary/multi-receiver_normal.svg"));
    icon.addFile(QStringLiteral(":/Image/SettingArea/TypeLibrary/multi-receiver_hover.svg"), {}, QIcon::Active);
    m_pMultiRcvCabinet->setObjectName(QStringLiteral("MultiRcvCabinet"));
    m_pMultiRcvCabinet->setIcon(icon);
    m_pMultiRcvCabinet->setAutoRaise(true);
    m_pMultiRcvCabinet->setFocusPolicy(Qt::StrongFocus);
    connect(m_pMultiRcvCabinet, &QToolButton::clicked, this, &CTypeLibrarySetting::createMultiRcvCabinet);

    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(buttonSpacing);
    buttons->addWidget(m_pMultiRcvCabinet);
    buttons->addStretch();

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(buttons);
    layout->addWidget(m_pView);
    setTabOrder(m_pMultiRcvCabinet, m_pView);
    setTexts();
}

void CTypeLibrarySetting::setData(const QString& rootPath)
{
    m_pView->setRootPath(rootPath);
}

void CTypeLibrarySetting::setEditable(bool editable)
{
    m_pMultiRcvCabinet->setEnabled(editable);
    m_pView->setEditable(editable);
}

void CTypeLibrarySetting::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    QWidget::changeEvent(event);
}

void CTypeLibrarySetting::setTexts()
{
    m_pMultiRcvCabinet->setToolTip(tr("Create multi-receiver cabinet type"));
    m_pMultiRcvCabinet->setAccessibleName(m_pMultiRcvCabinet->toolTip());
}

// Runs the wizard; the new type goes into the current folder, or the one that the current type lies in.
void CTypeLibrarySetting::createMultiRcvCabinet()
{
    CTypeLibrary::instance().updateLibrary(); // the wizard's searches see the folder as it is now

    QModelIndex current = m_pView->currentIndex().siblingAtColumn(CProductTreeModel::NameColumn);
    if (current.isValid() &&
        current.data(CProductTreeModel::NodeTypeRole).toInt() != SSettings::TypeLibrary::STreeNode::Group)
        current = current.parent();
    const QPersistentModelIndex target = current;
    const QString folder =
        target.isValid() ? target.data(CProductTreeModel::PathRole).toString() : CTypeLibrary::instance().rootPath();

    // On the heap: the host may destroy the page while the wizard is open.
    const QPointer<CMultiRcvCabinetSetDlg> wizard = new CMultiRcvCabinetSetDlg(folder, {}, this);
    const bool accepted = wizard->exec() == QDialog::Accepted;
    if (!wizard)
        return;
    if (accepted && target.isValid())
        m_pView->expand(target);
    delete wizard;
}
