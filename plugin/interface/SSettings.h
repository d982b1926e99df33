#pragma once

#include "SEmailSettings.h"
#include "SMonitorSettings.h"

#include <utilbase/SMD5.h>

#include <QKeySequence>
#include <QList>
#include <QMap>
#include <QMetaType>
#include <QSize>
#include <QString>

#include <array>
#include <cstdint>
#include <vector>

// Every value that the settings area shows. A plain value: copy it freely. The host keeps it between sessions.
struct SSettings
{
    // The Preferences page. The language is not part of it: the page takes it from the default QLocale.
    struct Preferences
    {
        std::int32_t connectionPriority = 0; // 0 USB first, 1 USB and LAN, 2 designated IP addresses
        bool fahrenheit = false;             // temperatures are shown in Fahrenheit instead of Celsius
        bool showProgrammingPane = true;
        bool showLayoutPane = true;
        bool showSoftEdgePane = false; // off although its neighbours are on: most walls have no soft edge
        std::int32_t softEdgeMode = 1; // 1 advanced (needs the receiving cards' support), 0 plain
        bool showColorAdjustmentPane = false;
        bool showHealthMonitoringPane = false;
        bool showGrid = true;
        bool showStringPosition = false;
        bool snapToCabinets = true;
        std::int32_t snapSpace = 20; // pixels, 8 .. 30
    };

    // Keys by the index of the action, 0 .. 9, in the order of the shortcut panel's rows. A combination is stored as
    // a sequence of two entries: the plain key first, its modifier second.
    using ShortcutMap = QMap<int, QKeySequence>;

    struct TypeLibrary
    {
        // An entry of the library folder.
        struct STreeNode
        {
            enum NodeType : int
            {
                None,      // neither a folder nor a type file
                Group,     // a folder
                MultiRcv,  // a type file of a multi-receiver cabinet
                SingleRcv, // any other type file
            };

            QString name; // file name without its last suffix
            QString path; // absolute, with forward slashes
            NodeType nodeType = None;
            SMD5 md5;                                   // digest of a type file
            QSize resolution;                           // pixels, of a type file's cabinet; (-1, -1) when unknown
            QList<int> cabinetList;                     // cell ids of the receivers in signal order
            bool cabinetFlag = false;                   // the wiring was made with orientation
            std::array<std::int64_t, 4> cabinetBlock{}; // what the host's queryCabinetBlock() gave
            std::vector<STreeNode> children;            // entries of a group, files first, in name order
        };
    };

    SSettings();

    Preferences preferences;
    ShortcutMap layoutShortcuts;
    ShortcutMap softEdgeShortcuts;
    // Filled by every getSettings(); ignored by setSettings().
    std::vector<TypeLibrary::STreeNode> typeLibraryTree;
    SMonitorSettings monitoring;
    SEmailSettings email;
};

Q_DECLARE_METATYPE(SSettings::TypeLibrary::STreeNode::NodeType)
Q_DECLARE_METATYPE(SMD5)

inline SSettings::SSettings()
    : layoutShortcuts{{0, QKeySequence(Qt::Key_A, Qt::CTRL)}, {1, QKeySequence(Qt::Key_C, Qt::CTRL)},
                      {2, QKeySequence(Qt::Key_V, Qt::CTRL)}, {3, QKeySequence(Qt::Key_X, Qt::CTRL)},
                      {4, QKeySequence(Qt::Key_Delete)},      {5, QKeySequence(Qt::Key_Up)},
                      {6, QKeySequence(Qt::Key_Down)},        {7, QKeySequence(Qt::Key_Left)},
                      {8, QKeySequence(Qt::Key_Right)},       {9, QKeySequence(Qt::Key_Escape)}},
      softEdgeShortcuts{{0, QKeySequence(Qt::Key_Plus)},   {1, QKeySequence(Qt::Key_Minus)},
                        {2, QKeySequence(Qt::Key_A)},      {3, QKeySequence(Qt::Key_D)},
                        {4, QKeySequence(Qt::Key_Up)},     {5, QKeySequence(Qt::Key_Down)},
                        {6, QKeySequence(Qt::Key_Left)},   {7, QKeySequence(Qt::Key_Right)},
                        {8, QKeySequence(Qt::Key_PageUp)}, {9, QKeySequence(Qt::Key_PageDown)}}
{
}
