#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

// What the command line asks for.
struct Options
{
    enum class Action
    {
        Say,    // print `message` and end
        Refuse, // print `message` as an error and end with code 2
        Run,    // run the checks
        Child,  // run one check in this process, for the program that started it
    };

    static constexpr int gentlest = 1;
    static constexpr int strictest = 10;

    Action action = Action::Run;
    QString message;
    QString plugin; // absolute path
    int strictness = 5;
    std::uint64_t seed = 1;
    int events = 0;    // of random use
    int patience = 60; // seconds without progress after which a check counts as hanging

    int check = -1; // in a child: the position of the check in the list
    QString trace;  // in a child: the file that it notes its progress in

    // `arguments` begins with the program's name.
    static Options parse(const QStringList& arguments);

    // The events of random use that a level of strictness asks for; 0 below the levels that have it.
    static int eventsOf(int strictness);

    // Milliseconds after which a child gives up by itself, and can say what it has waited for.
    int halfPatience() const { return 500 * patience; }

    // The arguments that make a child with these options run one check.
    QStringList childArguments(int position, const QString& traceFile) const;
};
