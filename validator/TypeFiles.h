#pragma once

#include "plugin/interface/SHwRcvInCabinetInfo.h"
#include "plugin/interface/SSettings.h"

#include <QByteArray>
#include <QString>

#include <optional>

// The type files of this host: a line of text with what the queries of the handler answer, and a number that makes
// each file's content its own. What a file says depends on its content only. [any thread]
namespace TypeFiles {

// What a file holds.
struct Content
{
    int width = 0;
    int height = 0;
    int serial = 0;
    std::optional<SHwRcvInCabinetInfo> cabinet; // of a multi-receiver type
};

QByteArray textOf(const Content& content);

// Made from the number alone: some of one receiver, some of several.
Content numbered(int serial);

// Nothing for a file that cannot be read or is none of ours.
std::optional<Content> read(const QString& path);

// Writes a whole file in one step, as others see it.
bool write(const QString& path, const QByteArray& text);

// The digest of the file's content as the settings area must report it; empty when it cannot be read.
QByteArray digestOf(const QString& path);

// Whether the settings area is to regard the file as a type, by its name.
bool isTypeName(const QString& path);

} // namespace TypeFiles
