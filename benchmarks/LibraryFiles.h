#pragma once

#include <QString>

// A library of type files that a row is measured on: always the same names, sizes and contents.
struct LibraryFiles
{
    int types = 0;
    int groups = 0;
    int smallest = 0; // bytes in a file
    int largest = 0;
    const char* prefix = "Type"; // of the names; other names come with other contents

    // The absolute path of the library below the folder `files`; it is made there unless it is there already.
    QString path(const QString& files) const;
};
