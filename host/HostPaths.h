#pragma once

#include <QString>
#include <QStringList>

// Where the host finds its files. Everything that comes with it lies beside the executable in the build tree and, once
// installed, at a place relative to it, so that an installation can be moved. Needs the application object.
namespace HostPaths {

// The files that may be the plug-in, in the order in which they are tried.
QStringList pluginCandidates();

QString translationsFolder();

// The type library that comes with the host; empty when there is none.
QString samplesFolder();

// Below the user's configuration and data folders.
QString settingsFile();
QString defaultLibraryFolder();

} // namespace HostPaths
