#pragma once

#include "plugin/interface/SettingArea_Init.h"

#include <QString>
#include <QStringList>

// The settings plug-in, found and loaded at run time. Once loaded it stays until the process ends: threads of its own
// may be running in it. [GUI thread]
class PluginLibrary
{
public:
    // Loads the first of `candidates` that exists. On failure `error` says which files were tried and why that did not
    // do, in the words of the system's loader.
    bool load(const QStringList& candidates, QString& error);

    // The file that was loaded; empty before.
    QString path() const { return m_path; }

    // The plug-in's exported function; null before load() has succeeded.
    SettingArea_InitFunction initFunction() const { return m_init; }

private:
    QString m_path;
    SettingArea_InitFunction m_init = nullptr;
};
