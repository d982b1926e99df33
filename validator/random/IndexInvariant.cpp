#include "validator/random/IndexInvariant.h"

#include "validator/Report.h"
#include "validator/Trace.h"
#include "validator/TypeFiles.h"
#include "validator/random/DialogEvents.h"
#include "validator/random/Scene.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDirIterator>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QSet>
#include <QTreeView>

namespace {

const QLatin1String contentTwin("Same content ");

QSet<QString> filesBelow(const QString& folder)
{
    QSet<QString> found;
    QDirIterator entries(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (entries.hasNext())
        found.insert(entries.next());
    return found;
}

const QTreeView* treeOf(Scene& scene)
{
    return scene.stage.settings().widget()->findChild<QTreeView*>(QStringLiteral("TypeLibrary"));
}

// Paths of the types, in tree order.
QStringList typesAmong(const LibraryInvariant::Nodes& nodes)
{
    QStringList types;
    for (const auto& node : nodes) {
        if (node.nodeType == SSettings::TypeLibrary::STreeNode::Group)
            types += typesAmong(node.children);
        else if (TypeFiles::isTypeName(node.path))
            types.append(node.path);
    }
    return types;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString nameWithOtherSuffix(const QFileInfo& type)
{
    const bool isSingle = type.suffix() == QLatin1String("rcvp");
    return type.completeBaseName() + QLatin1String(isSingle ? ".rcvbp" : ".rcvp");
}

} // namespace

IndexInvariant::IndexInvariant(Scene& scene)
    : m_scene(scene),
      m_folder(scene.stage.folder(QStringLiteral("twins")))
{
}

bool IndexInvariant::canBeAsked() const
{
    if (!m_scene.stage.window() || m_scene.library.isEmpty() || !QFileInfo(m_scene.library).isDir() ||
        QApplication::activePopupWidget() || QApplication::activeModalWidget())
        return false;
    const QAbstractButton* const import = button();
    const QTreeView* const tree = treeOf(m_scene);
    if (!import || !import->isEnabled() || !tree || tree->viewport()->findChild<QLineEdit*>())
        return false;
    const QModelIndex current = tree->currentIndex();
    return !current.isValid() || QFileInfo::exists(current.data(QFileSystemModel::FilePathRole).toString());
}

QString IndexInvariant::difference(const LibraryInvariant::Nodes& nodes)
{
    const int serial = m_scene.newSerial();
    const QString newcomer = Scene::fileName(serial);
    m_files.clear();
    add(newcomer, TypeFiles::textOf(TypeFiles::numbered(serial)));
    writeTwins(nodes);
    m_scene.stage.report().trace().note(
        QStringLiteral("%1 and %2 twins of known types are imported").arg(newcomer).arg(m_files.size() - 1));
    const QSet<QString> before = filesBelow(m_scene.library);
    m_bChosen = false;
    m_bAsking = true;
    button()->click();
    m_bAsking = false;

    QString difference;
    bool isTaken = false;
    const QSet<QString> added = filesBelow(m_scene.library) - before;
    for (const QString& path : added) {
        const QString name = QFileInfo(path).fileName();
        if (name == newcomer)
            isTaken = true;
        else
            difference = QStringLiteral("%1 was imported, and a type of the same %2 was there")
                             .arg(path, QLatin1String(name.startsWith(contentTwin) ? "content" : "name"));
    }
    if (!isTaken)
        difference = QStringLiteral("%1, new by content and name, was not imported").arg(newcomer);
    for (const QString& file : qAsConst(m_files))
        QFile::remove(file);
    return difference;
}

void IndexInvariant::answer()
{
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    auto* const files = qobject_cast<QFileDialog*>(dialog);
    if (files && !m_bChosen) {
        m_bChosen = true;
        DialogEvents::choose(*files, QLatin1Char('"') + m_files.join(QStringLiteral("\" \"")) + QLatin1Char('"'));
    } else if (dialog && !files) {
        dialog->reject();
    }
}

QAbstractButton* IndexInvariant::button() const
{
    return m_scene.stage.settings().widget()->findChild<QAbstractButton*>(QStringLiteral("ImportCabinet"));
}

// For each type a file with its content and another name, and one with its name and another content. The latter has the
// other suffix, so that it is the index that refuses it and not the file that is there; not where both are there.
void IndexInvariant::writeTwins(const LibraryInvariant::Nodes& nodes)
{
    const QStringList types = typesAmong(nodes);
    QSet<QString> taken;
    for (const QString& type : types)
        taken.insert(QFileInfo(type).fileName());
    for (int i = 0; i < types.size(); ++i) {
        const QFileInfo type(types[i]);
        add(QStringLiteral("%1%2.%3").arg(contentTwin).arg(i).arg(type.suffix()), contentOf(types[i]));
        const QString name = nameWithOtherSuffix(type);
        if (taken.contains(name) || name.contains(QLatin1Char('"'))) // which the file dialog could not be told
            continue;
        taken.insert(name);
        add(name, TypeFiles::textOf(TypeFiles::numbered(m_scene.newSerial())));
    }
}

void IndexInvariant::add(const QString& name, const QByteArray& text)
{
    const QString path = m_folder + QLatin1Char('/') + name;
    TypeFiles::write(path, text);
    m_files.append(path);
}
