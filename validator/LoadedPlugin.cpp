#include "validator/LoadedPlugin.h"

#include <QFile>

#include <dlfcn.h>

SettingArea_InitFunction loadPlugin(const QString& file, QString& error)
{
    // Every symbol at once, so that what does not fit is found here and not in the middle of the work.
    void* const library = ::dlopen(QFile::encodeName(file).constData(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    void* const symbol = library ? ::dlsym(library, SettingArea_InitSymbol) : nullptr;
    if (!symbol)
        error = QString::fromLocal8Bit(::dlerror());
    return reinterpret_cast<SettingArea_InitFunction>(symbol);
}
