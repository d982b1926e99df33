#pragma once

#include "host/CommandLine.h"
#include "host/tour/TourStage.h"

#include <QSize>

class PluginLibrary;

// Opens the host with settings and a copy of the type library of its own in a temporary folder, in the language of the
// command line and with a window of this size, and takes the steps of the tour. What went wrong, or nothing. Needs the
// QApplication. [GUI thread]
QString takeTour(const CommandLine& commandLine, const PluginLibrary& plugin, QSize windowSize,
                 const TourStage::Shutter& shutter);
