#include "validator/random/Scene.h"

#include "validator/Report.h"
#include "validator/Trace.h"
#include "validator/TypeFiles.h"

#include <QDir>

namespace {

constexpr int typesAtFirst = 12;
constexpr int typesToImport = 20;

} // namespace

Scene::Scene(Stage& itsStage)
    : stage(itsStage),
      libraries{stage.folder(QStringLiteral("library")), stage.folder(QStringLiteral("other library"))},
      source(stage.folder(QStringLiteral("source"))),
      target(stage.folder(QStringLiteral("target")))
{
    Stage::fill(libraries[0], typesAtFirst);
    Stage::fill(libraries[1], typesAtFirst / 2, typesAtFirst);
    // Some of what is imported is in a library already.
    Stage::fill(source, typesToImport, typesAtFirst / 2);
    QDir().mkpath(source + QStringLiteral("/Deep/Deeper/Deepest/Too deep"));
    Stage::fill(source + QStringLiteral("/Deep/Deeper/Deepest"), 2, 100);
    QDir().mkpath(source + QStringLiteral("/Empty"));
    stage.host()->languageSwitch = [this](const QLocale& locale) { language.speak(locale); };
    setLibrary(libraries[0]);
}

Scene::~Scene()
{
    stage.host()->languageSwitch = nullptr;
    if (worker.joinable())
        worker.join();
}

void Scene::setLibrary(const QString& path)
{
    if (!isWorkerDone)
        return;
    if (worker.joinable())
        worker.join();
    library = path;
    isWorkerDone = false;
    worker = std::thread([this, path] {
        if (!stage.settings().setTypeLibraryPath(path))
            stage.report().fail(QStringLiteral("setTypeLibraryPath(\"%1\") is false").arg(path));
        isWorkerDone = true;
    });
}

bool Scene::isQuiet()
{
    if (!isWorkerDone)
        return false;
    if (worker.joinable())
        worker.join();
    return stage.isQuiet();
}

void Scene::say(const QString& words)
{
    // The folder has another name each time.
    const QString repeatable = QString(words).replace(stage.root(), QLatin1String("..."));
    stage.report().trace().add(repeatable);
    saidSoFar.addData(repeatable.toUtf8());
}

QString Scene::fileName(int serial)
{
    return QStringLiteral("Type %1.%2")
        .arg(serial, 6, 10, QLatin1Char('0'))
        .arg(QLatin1String(TypeFiles::numbered(serial).cabinet ? "rcvbp" : "rcvp"));
}
