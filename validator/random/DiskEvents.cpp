#include "validator/random/DiskEvents.h"

#include "validator/Random.h"
#include "validator/TypeFiles.h"
#include "validator/random/Scene.h"

#include <QDir>
#include <QDirIterator>

namespace {

constexpr int mostEntries = 50; // so that looking at all of them stays cheap
constexpr int mostLevels = 4;

QStringList entriesOf(const QString& library)
{
    QStringList found;
    QDirIterator entries(library, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (entries.hasNext())
        found.append(entries.next());
    found.sort(); // the disk has its own order
    return found;
}

// The library folder or one in it.
QString anyFolder(const QString& library, const QStringList& entries, Random& random)
{
    QStringList folders{library};
    for (const QString& entry : entries) {
        if (QFileInfo(entry).isDir())
            folders.append(entry);
    }
    return random.of(folders);
}

void remove(const QString& path)
{
    if (QFileInfo(path).isDir() && !QFileInfo(path).isSymLink())
        QDir(path).removeRecursively();
    else
        QFile::remove(path);
}

// A new name beside the old one.
QString renamed(const QString& path, Scene& scene)
{
    const QFileInfo entry(path);
    const int serial = scene.newSerial();
    const QString suffix = entry.isDir() || entry.suffix().isEmpty() ? QString() : QLatin1Char('.') + entry.suffix();
    return QStringLiteral("Renamed %1%2").arg(serial).arg(suffix);
}

void addType(const QString& folder, Scene& scene)
{
    const int serial = scene.newSerial();
    const QString path = folder + QLatin1Char('/') + Scene::fileName(serial);
    scene.say(QStringLiteral("another program adds %1").arg(path));
    TypeFiles::write(path, TypeFiles::textOf(TypeFiles::numbered(serial)));
}

} // namespace

void DiskEvents::change(Scene& scene, Random& random)
{
    const QString& library = scene.library;
    if (library.isEmpty() || !QFileInfo(library).isDir()) {
        scene.say(QStringLiteral("another program does nothing"));
        return;
    }
    const QStringList entries = entriesOf(library);
    const QString folder = anyFolder(library, entries, random);
    const QString entry = entries.isEmpty() ? QString() : random.of(entries);
    if (entries.size() > mostEntries) {
        scene.say(QStringLiteral("another program removes %1 of many").arg(entry));
        remove(entry);
        return;
    }
    const int kind = random.below(40);
    if (entry.isEmpty() || kind < 16) {
        addType(folder, scene);
    } else if (kind < 22) {
        scene.say(QStringLiteral("another program removes %1").arg(entry));
        remove(entry);
    } else if (kind < 28) {
        const QString name = renamed(entry, scene);
        scene.say(QStringLiteral("another program renames %1 to %2").arg(entry, name));
        QDir(QFileInfo(entry).path()).rename(QFileInfo(entry).fileName(), name);
    } else if (kind < 32) {
        const QString target = folder + QLatin1Char('/') + renamed(entry, scene);
        scene.say(QStringLiteral("another program moves %1 to %2").arg(entry, target));
        if (!folder.startsWith(entry))
            QDir().rename(entry, target);
    } else if (kind < 36) {
        const QString name = QStringLiteral("%1/Folder %2").arg(folder).arg(scene.newSerial());
        scene.say(QStringLiteral("another program makes %1").arg(name));
        if (folder.count(QLatin1Char('/')) - library.count(QLatin1Char('/')) < mostLevels)
            QDir().mkdir(name);
    } else if (kind < 39) {
        const QString path = QStringLiteral("%1/notes %2.txt").arg(folder).arg(scene.newSerial());
        scene.say(QStringLiteral("another program adds %1").arg(path));
        TypeFiles::write(path, "no type\n");
    } else {
        scene.say(QStringLiteral("another program removes the library"));
        QDir(library).removeRecursively();
    }
}
