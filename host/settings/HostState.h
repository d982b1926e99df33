#pragma once

#include <QByteArray>
#include <QString>

// What the host itself remembers between sessions, beside the settings record.
struct HostState
{
    QString language;          // name of a locale; empty: the system's
    QString libraryFolder;     // absolute; empty: the folder in the user's data location
    QByteArray windowGeometry; // as QWidget::saveGeometry() gives it; empty: none yet
    QByteArray windowState;    // as QMainWindow::saveState() gives it; empty: none yet
};
