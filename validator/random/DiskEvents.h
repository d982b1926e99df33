#pragma once

class Random;
struct Scene;

// What another program does in the library folder meanwhile. A file that it brings has a new name: one that is changed
// in place the settings area may go on showing as it was. [GUI thread]
class DiskEvents
{
public:
    static void change(Scene& scene, Random& random);
};
