#pragma once

#include "validator/Stage.h"
#include "validator/random/OtherLanguage.h"

#include <QCryptographicHash>
#include <QString>

#include <atomic>
#include <thread>

// What the events of one run of random use share: the stage, the folders they work in, and how the host feels.
// [GUI thread]
struct Scene
{
    explicit Scene(Stage& itsStage);
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    // Sets the library on a thread of its own, which ends by itself; nothing while another is under way.
    void setLibrary(const QString& path);

    // Whether no thread of this scene or of the plug-in is at work.
    bool isQuiet();

    // Tells what the current event does, before it does so: the process may end with it. What is said is added to what
    // the event has said before.
    void say(const QString& words);

    // All that has been said.
    QByteArray said() const { return saidSoFar.result(); }

    // A number that no type file of this scene has had, so that every content and every name is new.
    int newSerial() { return nextSerial++; }

    // A name for a type file of that number.
    static QString fileName(int serial);

    Stage& stage;
    OtherLanguage language;
    QString library;                 // as it was set last; may be empty, or not be there
    const QString libraries[2];      // folders to choose from
    const QString source;            // what is imported lies here
    const QString target;            // exports go here
    bool isButtonKeyPressed = false; // by the last event

    // For the functions above.
    QCryptographicHash saidSoFar{QCryptographicHash::Md5};
    std::thread worker;
    std::atomic<bool> isWorkerDone{true};
    int nextSerial = 1'000;
};
