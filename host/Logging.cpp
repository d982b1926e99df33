#include "host/Logging.h"

Q_LOGGING_CATEGORY(logHost, "orvel.host", QtWarningMsg)
Q_LOGGING_CATEGORY(logSettings, "orvel.settings", QtWarningMsg)
Q_LOGGING_CATEGORY(logLibrary, "orvel.library", QtWarningMsg)
Q_LOGGING_CATEGORY(logMail, "orvel.mail", QtWarningMsg)
Q_LOGGING_CATEGORY(logLanguage, "orvel.language", QtWarningMsg)
