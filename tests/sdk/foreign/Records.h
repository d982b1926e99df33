#pragma once

#include <SSettings.h>

// A record that differs from the default one in every kind of field.
SSettings distinctSettings();

// Whether what crossed the border is what was sent.
void checkSettings(const SSettings& got, const SSettings& expected);
void checkEmail(const SEmailSettings& got, const SEmailSettings& expected);

// Whether it is the tree of `folder` with a type of one receiver, Card, and in a group one of two, as RecordingHandler
// describes them.
void checkTree(const std::vector<SSettings::TypeLibrary::STreeNode>& tree, const QString& folder);
