#include "validator/random/DialogEvents.h"

#include "validator/Random.h"
#include "validator/random/Scene.h"

#include <QApplication>
#include <QDirIterator>
#include <QFileDialog>
#include <QLineEdit>

namespace {

QStringList below(const QString& folder, QDir::Filters filters)
{
    QStringList found;
    QDirIterator entries(folder, filters | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (entries.hasNext())
        found.append(entries.next());
    found.sort(); // the disk has its own order
    return found;
}

QString folderToImport(const Scene& scene, Random& random)
{
    const QStringList folders = below(scene.source, QDir::Dirs);
    switch (random.below(8)) {
    case 0:
        return scene.library.isEmpty() ? scene.source : scene.library;
    case 1:
        return scene.source + QStringLiteral("/none");
    case 2:
        return scene.source;
    default:
        return random.of(folders);
    }
}

QString filesToImport(const Scene& scene, Random& random)
{
    const QStringList types = below(scene.source, QDir::Files);
    const QString first = random.of(types);
    if (random.oneIn(2))
        return first;
    // Several names stand in quotes.
    return QStringLiteral("\"%1\" \"%2\" \"%3\"").arg(first, random.of(types), random.of(types));
}

QString fileToExport(const Scene& scene, Random& random)
{
    const bool intoLibrary = random.oneIn(8) && QFileInfo(scene.library).isDir();
    const QString suffix = random.oneIn(3) ? QString() : QStringLiteral(".rcvbp");
    return QStringLiteral("%1/Export %2%3")
        .arg(intoLibrary ? scene.library : scene.target)
        .arg(random.below(6))
        .arg(suffix);
}

QString anyChoice(const QFileDialog& dialog, const Scene& scene, Random& random)
{
    if (dialog.acceptMode() == QFileDialog::AcceptSave)
        return fileToExport(scene, random);
    if (dialog.fileMode() != QFileDialog::Directory)
        return filesToImport(scene, random);
    return dialog.directory().path() == scene.target || random.oneIn(3) ? scene.target : folderToImport(scene, random);
}

} // namespace

bool DialogEvents::isWanted()
{
    return !QApplication::activePopupWidget() && qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
}

void DialogEvents::answer(Scene& scene, Random& random)
{
    auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (random.oneIn(4)) {
        scene.say(QStringLiteral("cancel the file dialog"));
        QMetaObject::invokeMethod(dialog, "reject", Qt::QueuedConnection);
        return;
    }
    const QString choice = anyChoice(*dialog, scene, random);
    scene.say(QStringLiteral("choose %1").arg(choice));
    choose(*dialog, choice);
}

void DialogEvents::choose(QFileDialog& dialog, const QString& choice)
{
    auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (name)
        name->setText(choice);
    QMetaObject::invokeMethod(&dialog, name ? "accept" : "reject", Qt::QueuedConnection);
}
