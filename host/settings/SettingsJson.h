#pragma once

#include "host/settings/StoredSettings.h"

#include <QJsonObject>

// The settings as the JSON object that the settings file holds. What a file lacks, and what has a wrong type or is out
// of range in it, gets its default; the rest is taken.
namespace SettingsJson {

// The format version that write() gives. A reader of an older version must be able to read on: a key never changes its
// meaning or unit, it gets a new name.
constexpr int currentVersion = 1;

// The version that `document` was written with; one without a number counts as the first.
int version(const QJsonObject& document);

StoredSettings read(const QJsonObject& document);

// `document` with the settings put in; keys of other programs and versions stay, also those inside the sections.
QJsonObject write(const StoredSettings& settings, QJsonObject document);

} // namespace SettingsJson
