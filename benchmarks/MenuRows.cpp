#include "benchmarks/Rows.h"
#include "multircv/CParameterFileMenu.h"

#include <QAction>

namespace {

std::vector<SSettings::TypeLibrary::STreeNode> singleTypes(int count)
{
    std::vector<SSettings::TypeLibrary::STreeNode> types(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        SSettings::TypeLibrary::STreeNode& type = types[static_cast<std::size_t>(i)];
        type.nodeType = SSettings::TypeLibrary::STreeNode::SingleRcv;
        type.name = QStringLiteral("Type %1").arg(i, 6, 10, QLatin1Char('0'));
        type.path = QStringLiteral("/library/%1.rcvp").arg(type.name);
    }
    return types;
}

// Opens the menu as a mouse does, until it is painted.
void open(QMenu* menu)
{
    menu->popup({});
    menu->repaint();
}

} // namespace

std::vector<Measurement> measureWizardMenu(const BenchOptions& options)
{
    const auto types = singleTypes(options.types(10'000));
    Measurement line(QStringLiteral("the wizard's menu of 10,000 types in one folder opens, beside a plain menu"),
                     Measurement::Value, 0.1);
    const auto ours = [&] {
        auto tree = types;
        return secondsOf([&] {
            CParameterFileMenu menu(std::move(tree));
            open(&menu);
            const QList<QAction*> entries = menu.actions();
            for (const QAction* const entry : entries) {
                if (QMenu* const part = entry->menu()) {
                    open(part);
                    break;
                }
            }
        });
    };
    const auto plain = [&] {
        return secondsOf([&] {
            QMenu menu;
            for (const auto& type : types)
                menu.addAction(type.name);
            open(&menu);
        });
    };
    measureByTurns(options.repeat, line, ours, plain);
    return {line};
}
