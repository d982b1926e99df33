#pragma once

#include <QtGlobal>

#if defined(UTILBASE_LIBRARY)
#define UTILBASE_EXPORT Q_DECL_EXPORT
#else
#define UTILBASE_EXPORT Q_DECL_IMPORT
#endif
