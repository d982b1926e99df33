#pragma once

#include <QCoreApplication>
#include <QStringList>

// The command line tool that makes, shows and checks type files.
class TypeFileTool
{
    Q_DECLARE_TR_FUNCTIONS(TypeFileTool)

public:
    // Runs the command that `arguments` (the program's name first) give. Results go to the standard output, reasons of
    // failures to the standard error. The exit code: 0 done, 1 a file could not be read, written or is broken,
    // 2 the arguments make no sense.
    static int run(const QStringList& arguments);
};
