#pragma once

#include <QString>
#include <QStringList>

// What the host was asked for on its command line.
struct CommandLine
{
    enum class Action
    {
        Open,     // the window
        Tour,     // pictures of every page and dialog
        TourPass, // one language and scale of a tour, in a process of its own
        Say,      // `message` on the standard output, and end
        Refuse,   // `message` on the standard error, and end with exit code 2
    };

    // Parses the arguments, the program's name included. Needs no application object: help and errors must not need a
    // display.
    static CommandLine parse(const QStringList& arguments);

    Action action = Action::Open;
    QString message;
    QString plugin;   // empty: found by itself
    QString library;  // absolute; empty: the one in the settings
    QString settings; // absolute; empty: in the user's configuration folder
    QString language; // name of a locale; empty: the one in the settings
    QString smtpCa;   // absolute; empty: mail servers need a certificate that the system trusts
    QString tour;     // absolute folder for the pictures
    QString tourPass; // name of the pass
    bool hidePriorityConnection = false;
};
