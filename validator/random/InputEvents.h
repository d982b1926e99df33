#pragma once

#include <QString>

class QWidget;
class Random;
struct Scene;

// What a user's hands do: mouse, wheel and keys, where they reach. The events go through the window system's door, so
// that popups, modal boxes, focus and shortcuts take part as they do for a user. They are queued, not waited for.
// [GUI thread]
class InputEvents
{
public:
    static void click(Scene& scene, Random& random);
    static void drag(Scene& scene, Random& random);
    static void turnWheel(Scene& scene, Random& random);
    static void pressKey(Scene& scene, Random& random);
    static void type(Scene& scene, Random& random);

    // The window that the user can reach: the open menu, the modal box, or the window of the host; null without any.
    static QWidget* reachable(const Scene& scene);

    // Gives the keys somewhere to go, when they have nowhere.
    static void focus(const Scene& scene, Random& random);

    // Whether a button that the user can reach is held down.
    static bool isButtonDown(const Scene& scene);

    // The widget in words.
    static QString nameOf(const QWidget& widget);
};
