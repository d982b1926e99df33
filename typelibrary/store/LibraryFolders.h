#pragma once

#include <QString>
#include <QStringList>

// The folders of the type library: how deep they may be nested, what they are called, and what they lead to.
// [any thread]

// Groups may be nested this deep. The library folder itself is level 0.
constexpr int deepestGroupLevel = 3;

// Wildcards of the type files' names. The more frequent one comes first: QFileSystemModel compiles one after the other
// for each file until one matches.
QStringList typeFileFilters();

// Level of `folder`, which lies in the library folder `root` or is that folder. Both are clean absolute paths.
int groupLevel(const QString& folder, const QString& root);

// How many levels of groups a copy of the type files below `folder` has: 1 if all of them lie in the folder itself,
// 0 if there is no type file. Sub-folders that lead to no type file do not count, since nothing of them is copied, and
// neither does what is hidden or reached by a link out of the folder.
int groupLevelsIn(const QString& folder);

// `name`, or "name(1)", "name(2)" and so on: the first one that is no entry of `folder` yet.
QString freeName(const QString& folder, const QString& name);

// How the library in the folder `root` spells the path of what lies at `path`, whatever links that path takes; empty
// when it lies elsewhere or does not exist.
QString pathInLibrary(const QString& path, const QString& root);
