#pragma once

#include <QString>
#include <QStringList>

// The symbols that a shared library of this machine's kind (ELF) defines for others, sorted; `error` says why they
// cannot be read.
QStringList exportedSymbols(const QString& file, QString& error);
