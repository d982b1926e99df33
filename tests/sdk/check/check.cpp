// Runs inside the example host, which knows nothing of it: ends it with 0 once everything is there, else with 1.

#include <QApplication>
#include <QDebug>
#include <QTabBar>
#include <QTimer>
#include <QTreeView>

namespace {

constexpr int pollInterval = 20;    // milliseconds
constexpr int patience = 10 * 1000; // milliseconds

// The first visible widget of the class and with the name, among all of the process.
template<typename Widget>
Widget* visibleWidget(const QString& name = QString())
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget* widget : widgets) {
        auto* const found = qobject_cast<Widget*>(widget);
        if (found && found->isVisible() && (name.isEmpty() || found->objectName() == name))
            return found;
    }
    return nullptr;
}

// What is still missing; empty when nothing is.
QString missing()
{
    auto* const tabs = visibleWidget<QTabBar>(QStringLiteral("SettingAreaTabBar"));
    if (!tabs)
        return QStringLiteral("no settings area is shown");
    tabs->setCurrentIndex(1);
    const auto* const tree = visibleWidget<QTreeView>();
    if (!tree)
        return QStringLiteral("the second tab shows no tree");
    if (!tree->model())
        return QStringLiteral("the tree shows no library"); // yet: the scan is under way
    const QModelIndex first = tree->model()->index(0, 0, tree->rootIndex());
    return first.data().toString().startsWith(QStringLiteral("Cabinet")) ? QString()
                                                                         : QStringLiteral("the tree shows no type");
}

void check()
{
    auto* const timer = new QTimer(QCoreApplication::instance());
    QObject::connect(timer, &QTimer::timeout, timer, [timer, left = patience]() mutable {
        const QString reason = missing();
        left -= pollInterval;
        if (!reason.isEmpty() && left > 0)
            return;
        timer->stop();
        if (!reason.isEmpty())
            qWarning() << reason;
        QCoreApplication::exit(reason.isEmpty() ? 0 : 1);
    });
    timer->start(pollInterval);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(check)
