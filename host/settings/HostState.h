#pragma once

#include <QByteArray>
#include <QString>

// What the host itself remembers between sessions, beside the settings record.
struct HostState
{
    QString language;                // name of a locale; empty: the system's
    QString libraryFolder;           // absolute; empty: the folder in the user's data location
    bool passwordInKeychain = false; // the record's password is empty here, and kept by the desktop
    QByteArray windowGeometry;       // as QWidget::saveGeometry() gives it; empty: none yet
    QByteArray windowState;          // as QMainWindow::saveState() gives it; empty: none yet
};
