#include "validator/random/HostEvents.h"

#include "validator/Random.h"
#include "validator/random/Scene.h"
#include "validator/random/WildRecord.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>

#include <functional>

namespace {

struct Operation
{
    const char* words;
    void (*run)(Scene& scene, Random& random);
};

constexpr Operation operations[] = {
    {"setCurrentTab", [](Scene& scene, Random& random) { scene.stage.settings().setCurrentTab(random.below(5) - 1); }},
    {"setCurrentTab(1)", [](Scene& scene, Random& /*random*/) { scene.stage.settings().setCurrentTab(1); }},
    {"setCurrentTab(2)", [](Scene& scene, Random& /*random*/) { scene.stage.settings().setCurrentTab(2); }},
    {"getSettings", [](Scene& scene, Random& /*random*/) { scene.stage.settings().getSettings(); }},
    {"getTypeLibrary", [](Scene& scene, Random& /*random*/) { scene.stage.settings().getTypeLibrary(); }},
    {"setControlsEnabled",
     [](Scene& scene, Random& random) { scene.stage.settings().setControlsEnabled(!random.oneIn(4)); }},
    {"refreshPreferences",
     [](Scene& scene, Random& random) {
         scene.stage.host()->isPriorityHidden = random.oneIn(3);
         scene.stage.settings().refreshPreferences();
     }},
    {"syncLanguageWithLocale",
     [](Scene& scene, Random& /*random*/) { scene.stage.settings().syncLanguageWithLocale(); }},
    {"closeShortcutPanel", [](Scene& scene, Random& /*random*/) { scene.stage.settings().closeShortcutPanel(); }},
    {"setHandler",
     [](Scene& scene, Random& /*random*/) {
         scene.stage.settings().setHandler(new CheckingHandler(scene.stage.host()));
     }},
    {"the project changes",
     [](Scene& scene, Random& random) {
         HostState& host = *scene.stage.host();
         host.isProjectModified = random.oneIn(2);
         host.hasProjectPath = random.oneIn(2);
         host.areTypesUsed = random.oneIn(4);
         host.sendsMail = random.oneIn(2);
     }},
    {"the clipboard changes",
     [](Scene& /*scene*/, Random& random) {
         static constexpr const char* texts[] = {"text", "user@example.com", "a\nb\tc", "../..", "x/y", ""};
         QApplication::clipboard()->setText(QLatin1String(random.of(texts)));
     }},
};

} // namespace

void HostEvents::call(Scene& scene, Random& random)
{
    const Operation& operation = random.of(operations);
    scene.say(QLatin1String(operation.words));
    operation.run(scene, random);
}

void HostEvents::pushRecord(Scene& scene, Random& random)
{
    scene.say(QStringLiteral("setSettings"));
    scene.stage.settings().setSettings(wildRecord(random));
}

void HostEvents::setLibrary(Scene& scene, Random& random)
{
    const QString paths[] = {scene.libraries[0], scene.libraries[0], scene.libraries[1], QString(),
                             scene.libraries[0] + QStringLiteral("/none")};
    const int choice = random.below(12);
    const QString path = choice < 5 ? paths[choice] : scene.libraries[0];
    if (choice != 4 && !path.isEmpty())
        QDir().mkpath(path); // it may have been removed
    scene.say(QStringLiteral("setTypeLibraryPath(\"%1\")").arg(path));
    if (!random.oneIn(4)) {
        scene.setLibrary(path);
        return;
    }
    scene.say(QStringLiteral(" on the GUI thread"));
    scene.library = path;
    scene.stage.settings().setTypeLibraryPath(path);
}

void HostEvents::switchLanguage(Scene& scene, Random& random)
{
    const bool isOther = random.oneIn(2);
    scene.say(QStringLiteral("the language becomes %1").arg(QLatin1String(isOther ? "another" : "English")));
    scene.language.speak(isOther ? QLocale(QLocale::Chinese, QLocale::China)
                                 : QLocale(QLocale::English, QLocale::UnitedStates));
}

void HostEvents::changeWindow(Scene& scene, Random& random)
{
    QMainWindow* const window = scene.stage.window();
    if (!window) {
        scene.say(QStringLiteral("the area is docked in a new window"));
        scene.stage.dock();
    } else if (random.oneIn(3)) {
        scene.say(QStringLiteral("the window changes its size"));
        window->resize(200 + random.below(1'400), 150 + random.below(900));
    } else if (random.oneIn(2)) {
        scene.say(QStringLiteral("the window is destroyed"));
        scene.stage.undock();
    } else {
        scene.say(QStringLiteral("the area is docked in a second window, and the first destroyed"));
        scene.stage.dock();
        delete window;
    }
}
