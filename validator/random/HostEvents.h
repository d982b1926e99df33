#pragma once

class Random;
struct Scene;

// What the host does: operations of the contract, its windows, its languages. [GUI thread]
class HostEvents
{
public:
    // One of the operations that change little.
    static void call(Scene& scene, Random& random);

    // A record, sound or wild.
    static void pushRecord(Scene& scene, Random& random);

    // Another library folder, the same anew, one that is not there, or none.
    static void setLibrary(Scene& scene, Random& random);

    static void switchLanguage(Scene& scene, Random& random);

    // Destroys the window with the area in it, docks it in a new one, or changes the window's size.
    static void changeWindow(Scene& scene, Random& random);
};
