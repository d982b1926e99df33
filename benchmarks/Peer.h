#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

// A program that does the same work, started without a shell.
class Peer
{
public:
    // `arguments`: the program's name first. `folder`: its working directory.
    Peer(std::vector<QByteArray> arguments, const QString& folder);

    // Runs the program to its end with its output thrown away; wall time from start to end in seconds. Ends the
    // benchmark when the program fails.
    double run() const;

private:
    const std::vector<QByteArray> m_arguments;
    const QByteArray m_folder;
};

// find prints the size of every file below the folder: one stat a file.
Peer findSizes(const QString& folder);

// md5sum reads every file below the folder: one process, on one core.
Peer md5sumOfAll(const QString& folder);
