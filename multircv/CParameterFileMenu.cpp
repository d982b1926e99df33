#include "multircv/CParameterFileMenu.h"

#include <QEvent>

#include <algorithm>

namespace {

using STreeNode = SSettings::TypeLibrary::STreeNode;

constexpr int narrowest = 313; // pixels
constexpr int longestText = 480;
// Types that one menu holds: more take longer to lay out than the user should wait for a menu.
constexpr std::size_t mostTypes = 1000;

bool isShown(const STreeNode& node)
{
    return node.nodeType == STreeNode::Group || node.nodeType == STreeNode::SingleRcv;
}

// What a menu shows for a file or folder name: no mnemonics, no shortcut column, and no wider than a screen.
QString menuText(const QMenu* menu, QString name)
{
    name.replace(QLatin1Char('\t'), QLatin1Char(' '));
    if (name.size() * menu->fontMetrics().maxWidth() > longestText)
        name = menu->fontMetrics().elidedText(name, Qt::ElideMiddle, longestText);
    return name.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

CParameterFileMenu::CParameterFileMenu(std::vector<STreeNode> tree, QWidget* parent)
    : QMenu(parent),
      m_tree(std::move(tree)),
      m_typeIcon(QStringLiteral(":/Image/SettingArea/TypeLibrary/product-single.svg")),
      m_pBrowse(addAction(QString()))
{
    setMinimumWidth(narrowest);
    // Styles that do not scroll long menus break them into columns, which leave the screen.
    setStyleSheet(QStringLiteral("QMenu{menu-scrollable:1;}"));
    addSeparator();
    addEntries(this, m_tree);
    setTexts();
}

QString CParameterFileMenu::pathOf(const QAction* action)
{
    return action->data().toString();
}

void CParameterFileMenu::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    QMenu::changeEvent(event);
}

void CParameterFileMenu::setTexts()
{
    m_pBrowse->setText(tr("Browse..."));
}

void CParameterFileMenu::addEntries(QMenu* menu, const std::vector<STreeNode>& nodes)
{
    Types types;
    for (const STreeNode& node : nodes) {
        if (node.nodeType == STreeNode::SingleRcv)
            types.push_back(&node);
    }
    if (types.size() <= mostTypes) {
        addTypes(menu, types);
    } else {
        for (auto first = types.cbegin(); first != types.cend();) {
            const auto last = first + std::min<std::ptrdiff_t>(mostTypes, types.cend() - first);
            const QString range = QStringLiteral("%1 \u2013 %2").arg((*first)->name, (*(last - 1))->name);
            addLazyMenu(menu, range, [this, part = Types(first, last)](QMenu* filled) { addTypes(filled, part); });
            first = last;
        }
    }
    for (const STreeNode& node : nodes) {
        if (node.nodeType != STreeNode::Group)
            continue;
        QMenu* const submenu = addLazyMenu(
            menu, node.name, [this, &children = node.children](QMenu* filled) { addEntries(filled, children); });
        submenu->setEnabled(std::any_of(node.children.begin(), node.children.end(), isShown));
    }
}

void CParameterFileMenu::addTypes(QMenu* menu, const Types& types)
{
    for (const STreeNode* type : types)
        menu->addAction(m_typeIcon, menuText(menu, type->name))->setData(type->path);
}

// Appends a submenu, which `fill` gets before it shows for the first time.
template<typename Fill>
QMenu* CParameterFileMenu::addLazyMenu(QMenu* menu, const QString& text, Fill fill)
{
    QMenu* const submenu = menu->addMenu(menuText(menu, text));
    submenu->setMinimumWidth(narrowest);
    connect(submenu, &QMenu::aboutToShow, this, [submenu, fill] {
        if (submenu->isEmpty())
            fill(submenu);
    });
    return submenu;
}
