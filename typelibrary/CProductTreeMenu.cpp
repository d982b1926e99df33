#include "typelibrary/CProductTreeMenu.h"

#include <QEvent>

CProductTreeMenu::CProductTreeMenu(SSettings::TypeLibrary::STreeNode::NodeType kind, QWidget* parent)
    : QMenu(parent)
{
    using NodeType = SSettings::TypeLibrary::STreeNode::NodeType;
    const bool isGroup = kind == NodeType::Group;

    if (isGroup)
        addEntry(NewTypeFolder, QStringLiteral("SettingArea/TypeLibrary/new-type-folder"),
                 QKeySequence(QStringLiteral("Ctrl+N")));
    addEntry(ImportAsFolder, QStringLiteral("SettingArea/TypeLibrary/import-folder"),
             QKeySequence(QStringLiteral("Ctrl+I")));
    addEntry(ImportCabinetFiles, QStringLiteral("SettingArea/TypeLibrary/import-cabinet"));
    addSeparator();
    addEntry(Rename, QStringLiteral("OperateButton/edit"));
    addEntry(Delete, QStringLiteral("OperateButton/delete"), QKeySequence(QKeySequence::Delete));
    if (kind == NodeType::MultiRcv) {
        addEntry(Edit);
        addSeparator();
    }
    addEntry(isGroup ? ExportByGroup : ExportCurrent);
    addEntry(ExportAll);
    setTexts();
}

void CProductTreeMenu::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    QMenu::changeEvent(event);
}

void CProductTreeMenu::addEntry(Entry entry, const QString& icon, const QKeySequence& shownKey)
{
    QAction* const action = addAction(QString());
    if (!icon.isEmpty()) {
        const QString file = QStringLiteral(":/Image/%1_%2.svg");
        QIcon pictures(file.arg(icon, QStringLiteral("normal")));
        pictures.addFile(file.arg(icon, QStringLiteral("hover")), {}, QIcon::Active);
        action->setIcon(pictures);
    }
    action->setShortcut(shownKey);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setShortcutVisibleInContextMenu(true);
    connect(action, &QAction::triggered, this, [this, entry] { Q_EMIT notifyChosen(entry); });
    m_actions.insert(entry, action);
}

QString CProductTreeMenu::textOf(int entry)
{
    switch (entry) {
    case NewTypeFolder:
        return tr("New type folder");
    case ImportAsFolder:
        return tr("Import as folder");
    case ImportCabinetFiles:
        return tr("Import cabinet type file(Suffix rcvbp)");
    case Rename:
        return tr("Rename");
    case Delete:
        return tr("Delete");
    case Edit:
        return tr("Edit");
    case ExportByGroup:
        return tr("Export cabinet parameters by group");
    case ExportCurrent:
        return tr("Export current cabinet parameters");
    case ExportAll:
        return tr("Export all cabinet parameters");
    default:
        return {};
    }
}

void CProductTreeMenu::setTexts()
{
    for (auto it = m_actions.cbegin(); it != m_actions.cend(); ++it)
        it.value()->setText(textOf(it.key()));
}
