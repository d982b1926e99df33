#pragma once

#include <QtGlobal>

#if defined(WIDGETRY_LIBRARY)
#define WIDGETRY_EXPORT Q_DECL_EXPORT
#else
#define WIDGETRY_EXPORT Q_DECL_IMPORT
#endif
