#include "validator/random/InputEvents.h"

#include "validator/Random.h"
#include "validator/random/Scene.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QMenu>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest/qtestkeyboard.h>
#include <QtTest/qtestmouse.h>

#include <algorithm>

namespace {

// Milliseconds of the events' own clock, which has nothing to do with how fast they come.
constexpr int sinceLastClick = 1'000; // no double click
constexpr int withinClick = 1;

int eventClock = 0;

struct Key
{
    int key = 0;
    Qt::KeyboardModifiers modifiers;
    const char* text = "";
};

constexpr Key keys[] = {
    {Qt::Key_Tab, Qt::NoModifier, "\t"},       {Qt::Key_Backtab, Qt::ShiftModifier, ""},
    {Qt::Key_Left, Qt::NoModifier, ""},        {Qt::Key_Right, Qt::NoModifier, ""},
    {Qt::Key_Up, Qt::NoModifier, ""},          {Qt::Key_Down, Qt::NoModifier, ""},
    {Qt::Key_Down, Qt::NoModifier, ""},        {Qt::Key_Right, Qt::NoModifier, ""},
    {Qt::Key_Return, Qt::NoModifier, "\r"},    {Qt::Key_Enter, Qt::KeypadModifier, "\r"},
    {Qt::Key_Escape, Qt::NoModifier, "\x1b"},  {Qt::Key_Space, Qt::NoModifier, " "},
    {Qt::Key_F2, Qt::NoModifier, ""},          {Qt::Key_Delete, Qt::NoModifier, "\x7f"},
    {Qt::Key_Backspace, Qt::NoModifier, "\b"}, {Qt::Key_Home, Qt::NoModifier, ""},
    {Qt::Key_End, Qt::NoModifier, ""},         {Qt::Key_PageUp, Qt::NoModifier, ""},
    {Qt::Key_PageDown, Qt::NoModifier, ""},    {Qt::Key_Menu, Qt::NoModifier, ""},
    {Qt::Key_Asterisk, Qt::NoModifier, "*"},   {Qt::Key_Plus, Qt::NoModifier, "+"},
    {Qt::Key_Minus, Qt::NoModifier, "-"},      {Qt::Key_C, Qt::ControlModifier, "\x03"},
    {Qt::Key_V, Qt::ControlModifier, "\x16"},  {Qt::Key_Z, Qt::ControlModifier, "\x1a"},
    {Qt::Key_Down, Qt::AltModifier, ""},       {Qt::Key_Down, Qt::ShiftModifier, ""},
};

// Those that stand for buttons.
constexpr Key buttonKeys[] = {
    {Qt::Key_N, Qt::ControlModifier, "\x0e"}, {Qt::Key_I, Qt::ControlModifier, "\t"},
    {Qt::Key_A, Qt::ControlModifier, "\x01"}, {Qt::Key_Y, Qt::AltModifier, "y"},
    {Qt::Key_N, Qt::AltModifier, "n"},
};

constexpr const char* texts[] = {
    "a",  "Cabinet", "12",  "999999999", "user@example.com", ".", "..", "a/b", "name.rcvp", "\xe5\xb1\x8f", "3.14",
    "-1", " ",       "<b>", "%1",        "Group 1",
};

Qt::MouseButton anyButton(Random& random)
{
    switch (random.below(10)) {
    case 0:
    case 1:
        return Qt::RightButton;
    case 2:
        return Qt::MiddleButton;
    default:
        return Qt::LeftButton;
    }
}

bool canBeHit(const QWidget* widget)
{
    return widget->isVisible() && widget->isEnabled() && !widget->testAttribute(Qt::WA_TransparentForMouseEvents) &&
           !widget->isWindow() && !widget->visibleRegion().isEmpty();
}

// A widget in the window, often a button or the rows of a list: there is the most to do.
QWidget* anyWidgetIn(QWidget* window, Random& random)
{
    const int wish = random.below(6);
    QWidgetList found;
    QWidgetList buttons;
    QWidgetList rows;
    const auto widgets = window->findChildren<QWidget*>();
    for (QWidget* const widget : widgets) {
        if (widget->window() != window || !canBeHit(widget))
            continue;
        found.append(widget);
        if (qobject_cast<QAbstractButton*>(widget))
            buttons.append(widget);
        const auto* const view = qobject_cast<QAbstractItemView*>(widget->parentWidget());
        if (view && view->viewport() == widget)
            rows.append(widget);
    }
    const QWidgetList& wanted = wish < 2 ? buttons : wish < 4 ? rows : found;
    const QWidgetList& chosen = wanted.isEmpty() ? found : wanted;
    return chosen.isEmpty() ? window : random.of(chosen);
}

// A place in the widget; in a menu mostly an entry, in a list mostly a row.
QPoint anyPlaceIn(const QWidget* widget, Random& random)
{
    const QRect rect = widget->rect();
    const auto anywhere = [&] { return QPoint(random.below(rect.width()), random.below(rect.height())); };
    if (const auto* const menu = qobject_cast<const QMenu*>(widget)) {
        if (!menu->actions().isEmpty() && !random.oneIn(6))
            return menu->actionGeometry(random.of(menu->actions())).center();
        return anywhere() + QPoint(random.oneIn(2) ? rect.width() : 0, 0);
    }
    const auto* const view = qobject_cast<const QAbstractItemView*>(widget->parentWidget());
    QPoint place = anywhere();
    if (view && view->viewport() == widget) {
        for (int tries = 0; tries < 4 && !view->indexAt(place).isValid(); ++tries)
            place = anywhere();
    }
    return place;
}

// A button goes down or up, or the mouse moves, as the window system would tell.
void tell(const QPointer<QWindow>& window, QPoint place, Qt::MouseButtons down, Qt::MouseButton button,
          QEvent::Type type, Qt::KeyboardModifiers modifiers)
{
    eventClock += withinClick;
    if (window)
        qt_handleMouseEvent(window, place, window->mapToGlobal(place), down, button, type, modifiers, eventClock);
}

struct Place
{
    QPointer<QWindow> window;
    QPoint point; // in the window
};

// Somewhere in what the user can reach; the scene gets it in words.
Place anyPlace(Scene& scene, Random& random)
{
    QWidget* const window = InputEvents::reachable(scene);
    if (!window || !window->windowHandle())
        return {};
    QWidget* const widget = qobject_cast<QMenu*>(window) ? window : anyWidgetIn(window, random);
    const QPoint point = anyPlaceIn(widget, random);
    scene.say(QStringLiteral(" at %1, %2 of %3").arg(point.x()).arg(point.y()).arg(InputEvents::nameOf(*widget)));
    return {window->windowHandle(), widget == window ? point : widget->mapTo(window, point)};
}

Qt::KeyboardModifiers anyModifiers(Random& random)
{
    switch (random.below(20)) {
    case 0:
        return Qt::ControlModifier;
    case 1:
        return Qt::ShiftModifier;
    default:
        return Qt::NoModifier;
    }
}

// A key goes down or up, in the loop and the window that have the keys by then: what the one before did may have opened
// a box, or destroyed the window.
void tellLater(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    const auto deliver = [=] {
        if (QWindow* const window = QGuiApplication::focusWindow())
            qt_handleKeyEvent(window, type, key, modifiers, text);
    };
    QMetaObject::invokeMethod(qApp, deliver, Qt::QueuedConnection);
}

void tell(const Key& key)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        tellLater(type, key.key, key.modifiers, QString::fromUtf8(key.text));
}

} // namespace

QWidget* InputEvents::reachable(const Scene& scene)
{
    if (QWidget* const popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget* const modal = QApplication::activeModalWidget())
        return modal;
    return scene.stage.window();
}

void InputEvents::focus(const Scene& scene, Random& random)
{
    QWidget* const window = reachable(scene);
    if (!window || QApplication::activePopupWidget())
        return;
    // As window managers do, and as a user does who wants to use the keys.
    if (!window->isActiveWindow())
        window->activateWindow();
    if (QApplication::focusWidget())
        return;
    QWidgetList found;
    const auto widgets = window->findChildren<QWidget*>();
    for (QWidget* const widget : widgets) {
        if (canBeHit(widget) && widget->window() == window && widget->focusPolicy() != Qt::NoFocus)
            found.append(widget);
    }
    if (!found.isEmpty())
        random.of(found)->setFocus(Qt::TabFocusReason);
}

bool InputEvents::isButtonDown(const Scene& scene)
{
    const QWidget* const window = reachable(scene);
    const auto buttons = window ? window->findChildren<QAbstractButton*>() : QList<QAbstractButton*>();
    return std::any_of(buttons.begin(), buttons.end(), [](const QAbstractButton* button) { return button->isDown(); });
}

QString InputEvents::nameOf(const QWidget& widget)
{
    QString name = QString::fromLatin1(widget.metaObject()->className());
    if (!widget.objectName().isEmpty())
        name += QStringLiteral(" \"%1\"").arg(widget.objectName());
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
        name += QStringLiteral(" [%1]").arg(button->text().left(30));
    else if (widget.isWindow() && !widget.windowTitle().isEmpty())
        name += QStringLiteral(" [%1]").arg(widget.windowTitle().left(30));
    return name;
}

void InputEvents::click(Scene& scene, Random& random)
{
    const Qt::MouseButton button = anyButton(random);
    const Qt::KeyboardModifiers modifiers = anyModifiers(random);
    const int times = random.oneIn(10) ? 2 : 1;
    scene.say(
        QStringLiteral("%1 with button %2").arg(QLatin1String(times == 2 ? "double click" : "click")).arg(button));
    const Place place = anyPlace(scene, random);
    eventClock += sinceLastClick;
    tell(place.window, place.point, Qt::NoButton, Qt::NoButton, QEvent::MouseMove, modifiers);
    for (int i = 0; i < times; ++i) {
        tell(place.window, place.point, button, button, QEvent::MouseButtonPress, modifiers);
        tell(place.window, place.point, Qt::NoButton, button, QEvent::MouseButtonRelease, modifiers);
    }
}

void InputEvents::drag(Scene& scene, Random& random)
{
    scene.say(QStringLiteral("drag"));
    const Place place = anyPlace(scene, random);
    const QPoint way(random.below(400) - 200, random.below(400) - 200);
    scene.say(QStringLiteral(" by %1, %2").arg(way.x()).arg(way.y()));
    eventClock += sinceLastClick;
    tell(place.window, place.point, Qt::NoButton, Qt::NoButton, QEvent::MouseMove, {});
    tell(place.window, place.point, Qt::LeftButton, Qt::LeftButton, QEvent::MouseButtonPress, {});
    for (int step = 1; step <= 3; ++step)
        tell(place.window, place.point + way * step / 3, Qt::LeftButton, Qt::NoButton, QEvent::MouseMove, {});
    tell(place.window, place.point + way, Qt::NoButton, Qt::LeftButton, QEvent::MouseButtonRelease, {});
}

void InputEvents::turnWheel(Scene& scene, Random& random)
{
    const int turn = 120 * (random.below(9) - 4);
    scene.say(QStringLiteral("wheel by %1").arg(turn));
    const Place place = anyPlace(scene, random);
    if (!place.window)
        return;
    const QPoint angle = random.oneIn(8) ? QPoint(turn, 0) : QPoint(0, turn);
    QCoreApplication::postEvent(place.window,
                                new QWheelEvent(place.point, place.window->mapToGlobal(place.point), QPoint(), angle,
                                                Qt::NoButton, anyModifiers(random), Qt::NoScrollPhase, false));
}

void InputEvents::pressKey(Scene& scene, Random& random)
{
    focus(scene, random);
    const bool isButtonKey = random.oneIn(16); // they take time
    const Key& key = isButtonKey ? random.of(buttonKeys) : random.of(keys);
    scene.isButtonKeyPressed = isButtonKey;
    const int times = random.oneIn(8) ? 5 : 1;
    const QWidget* const target = QApplication::focusWidget();
    scene.say(QStringLiteral("%1 times key %2 in %3")
                  .arg(times)
                  .arg(QKeySequence(key.key | static_cast<int>(key.modifiers)).toString(),
                       target ? nameOf(*target) : QStringLiteral("nothing")));
    for (int i = 0; i < times; ++i)
        tell(key);
}

void InputEvents::type(Scene& scene, Random& random)
{
    focus(scene, random);
    const QString text = QString::fromUtf8(random.of(texts));
    const QWidget* const target = QApplication::focusWidget();
    scene.say(QStringLiteral("type \"%1\" in %2").arg(text, target ? nameOf(*target) : QStringLiteral("nothing")));
    for (const QChar character : text)
        tell({character.toUpper().unicode(), Qt::NoModifier, QString(character).toUtf8().constData()});
}
