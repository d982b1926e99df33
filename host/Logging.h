#pragma once

#include <QLoggingCategory>

// What only a developer can mend, and with QT_LOGGING_RULES="orvel.*=true" what the host is doing.
Q_DECLARE_LOGGING_CATEGORY(logHost)     // orvel.host: start, plug-in, end
Q_DECLARE_LOGGING_CATEGORY(logSettings) // orvel.settings
Q_DECLARE_LOGGING_CATEGORY(logLibrary)  // orvel.library: the worker that scans the type library
Q_DECLARE_LOGGING_CATEGORY(logLanguage) // orvel.language
Q_DECLARE_LOGGING_CATEGORY(logMail)     // orvel.mail: why a mail did not go out; never the password
