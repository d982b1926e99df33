#include "tests/typelibrary/ViewFixture.h"

#include "typelibrary/store/LibraryScan.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <utilbase/Utils.h>

#include <QApplication>
#include <QCryptographicHash>
#include <QDirIterator>

namespace {

// The tree with paths and digests.
QStringList nodesAsText(const std::vector<SSettings::TypeLibrary::STreeNode>& nodes)
{
    QStringList lines;
    for (const auto& node : nodes) {
        lines.append(QStringLiteral("%1 %2 %3").arg(node.nodeType).arg(node.path, QLatin1String(node.md5.data)));
        lines.append(nodesAsText(node.children));
    }
    return lines;
}

// On the display stand-in a menu takes the window's activation and does not give it back. While this lives, nothing
// loses its focus by that.
class MenuWithoutActivation : public QObject
{
public:
    MenuWithoutActivation() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        return event->type() == QEvent::FocusOut &&
               static_cast<QFocusEvent*>(event)->reason() == Qt::ActiveWindowFocusReason;
    }
};

} // namespace

void ViewFixture::init()
{
    StoreFixture::init();
    outside = std::make_unique<QTemporaryDir>();
    m_placed.clear();
    m_paths.clear();
    handler->isMulti = [](const QString& path) { return readFile(path).startsWith("multi"); };
    handler->isUsed = [this](const SMD5& md5) {
        return std::any_of(m_placed.cbegin(), m_placed.cend(), [&md5](const QByteArray& content) {
            return QCryptographicHash::hash(content, QCryptographicHash::Md5).toHex() == md5.data;
        });
    };
    view = std::make_unique<CProductTreeView>();
    view->resize(1000, 600);
}

void ViewFixture::cleanup()
{
    view.reset();
    CTypeLibrary::instance().setRootPath({}); // waits for a scan that is under way
    outside.reset();
    StoreFixture::cleanup();
}

void ViewFixture::load()
{
    remember();
    CTypeLibrary::instance().setRootPath(library->path());
    view->setRootPath(library->path());
    view->show();
    QVERIFY(QTest::qWaitForWindowActive(view.get()));
    view->setFocus();
}

void ViewFixture::remember()
{
    QDirIterator files(library->path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        m_paths.insert(files.next());
}

QString ViewFixture::put(const QString& relativePath, const QByteArray& content) const
{
    const QString path = outside->filePath(relativePath);
    if (!writeFile(path, content))
        qFatal("Cannot write %s", qPrintable(path));
    return path;
}

QModelIndex ViewFixture::indexOf(const QString& relativePath)
{
    QModelIndex index = view->rootIndex();
    const QStringList names = relativePath.split(QLatin1Char('/'));
    for (const QString& name : names) {
        if (index != view->rootIndex())
            view->expand(index);
        const QPersistentModelIndex parent = index;
        const auto find = [&] {
            for (int row = 0; row < view->model()->rowCount(parent); ++row) {
                index = view->model()->index(row, 0, parent);
                if (index.data().toString() == name)
                    return true;
            }
            return false;
        };
        if (!QTest::qWaitFor(find)) {
            QTest::qFail(qPrintable(QStringLiteral("The tree does not show ") + relativePath), __FILE__, __LINE__);
            return {};
        }
    }
    return index;
}

QStringList ViewFixture::contentOf(const QString& folder)
{
    QStringList found;
    QDirIterator it(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QFileInfo entry(it.next());
        const QString name = entry.filePath().mid(folder.size() + 1);
        found.append(entry.isDir() ? name + QLatin1Char('/')
                                   : name + QLatin1Char('=') + QString::fromUtf8(readFile(entry.filePath())));
    }
    found.sort();
    return found;
}

QStringList ViewFixture::rows() const
{
    QStringList lines;
    for (QModelIndex index = view->indexAt(QPoint(1, 1)); index.isValid(); index = view->indexBelow(index)) {
        int level = 0;
        for (QModelIndex above = index.parent(); above != view->rootIndex(); above = above.parent())
            ++level;
        lines.append(QString(level, QLatin1Char(' ')) + index.data().toString());
    }
    return lines;
}

QMenu* ViewFixture::openMenu(const QString& relativePath)
{
    const QModelIndex index = indexOf(relativePath);
    view->scrollTo(index);
    const QPoint position = view->visualRect(index).center();
    QTest::mouseClick(view->viewport(), Qt::RightButton, {}, position);
    QContextMenuEvent event(QContextMenuEvent::Mouse, position, view->viewport()->mapToGlobal(position));
    QCoreApplication::sendEvent(view->viewport(), &event);
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

void ViewFixture::choose(const QString& relativePath, const QString& text)
{
    QMenu* const menu = openMenu(relativePath);
    QVERIFY2(menu, qPrintable(QStringLiteral("No menu for ") + relativePath));
    const QList<QAction*> actions = menu->actions();
    const auto entry = std::find_if(actions.cbegin(), actions.cend(),
                                    [&text](const QAction* action) { return action->text() == text; });
    QVERIFY2(entry != actions.cend(), qPrintable(QStringLiteral("The menu lacks ") + text));
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(*entry).center());
    const MenuWithoutActivation keepFocus;
    QCoreApplication::processEvents(); // the operation begins when the menu is done
    view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(view.get()));
}

bool ViewFixture::agree()
{
    remember();
    QString difference;
    const bool agreed = QTest::qWaitFor([&] {
        difference = disagreement();
        return difference.isEmpty();
    });
    if (!agreed)
        qWarning("%s", qPrintable(difference));
    return agreed;
}

QString ViewFixture::disagreement() const
{
    const auto nodes = CTypeLibrary::instance().nodes();
    const QStringList known = nodesAsText(nodes);
    const QStringList found = nodesAsText(scanLibrary(library->path()));
    if (known != found)
        return QStringLiteral("The tree is\n%1\ninstead of\n%2")
            .arg(known.join(QLatin1Char('\n')), found.join(QLatin1Char('\n')));
    for (const QString& path : m_paths) {
        const bool exists = QFileInfo::exists(path);
        if (!exists && TypeFileInfoCache::instance().find(path).known)
            return QStringLiteral("The cache knows ") + path;
        if (exists && isTypeFile(QFileInfo(path)) && md5OfFile(path) != Utils::getFileMD5(path))
            return QStringLiteral("The cache has another digest for ") + path;
    }
    return staleRows(view->rootIndex());
}

// What the tree shows below the folder that is not there, or the other way round; empty if nothing.
QString ViewFixture::staleRows(const QModelIndex& folder) const
{
    const QString path = folder.data(CProductTreeModel::PathRole).toString();
    QStringList shown;
    for (int row = 0; row < view->model()->rowCount(folder); ++row) {
        const QModelIndex index = view->model()->index(row, 0, folder);
        shown.append(index.data().toString());
        if (view->isExpanded(index)) {
            const QString below = staleRows(index);
            if (!below.isEmpty())
                return below;
        }
    }
    QStringList there = QDir(path).entryList({QStringLiteral("*.rcvp"), QStringLiteral("*.rcvbp")},
                                             QDir::AllDirs | QDir::Files | QDir::NoDotAndDotDot);
    shown.sort();
    there.sort();
    return shown == there ? QString()
                          : QStringLiteral("%1 shows %2 instead of %3")
                                .arg(path, shown.join(QLatin1Char(',')), there.join(QLatin1Char(',')));
}
