#include "host/PluginLibrary.h"

#include "host/Logging.h"

#include <QFileInfo>
#include <QLibrary>

#include <algorithm>

#include <dlfcn.h>

bool PluginLibrary::load(const QStringList& candidates, QString& error)
{
    const auto found = std::find_if(candidates.begin(), candidates.end(),
                                    [](const QString& candidate) { return QFileInfo::exists(candidate); });
    if (found == candidates.end()) {
        error = QStringLiteral("no such file: %1").arg(candidates.join(QStringLiteral(", ")));
        return false;
    }
    QLibrary library(*found);
    // Every symbol is resolved now, so that a plug-in that does not fit fails here and not in the middle of the work.
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    if (!library.load()) {
        error = QStringLiteral("%1: %2").arg(*found, library.errorString());
        return false;
    }
    m_init = reinterpret_cast<SettingArea_InitFunction>(library.resolve(SettingArea_InitSymbol));
    if (!m_init) {
        error = QString::fromLocal8Bit(::dlerror()); // QLibrary knows no reason; this one begins with the path
        return false;
    }
    m_path = QFileInfo(*found).absoluteFilePath();
    qCInfo(logHost, "plug-in: %ls", qUtf16Printable(m_path));
    return true;
}
