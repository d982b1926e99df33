#pragma once

#include "Calls.h"
#include "RecordingHandler.h"

#include <ISettingInterface.h>

#include <QTemporaryDir>

class QAbstractItemView;

// The settings area in a window of this host, with every step that the contract allows.
class Tour
{
public:
    Tour(Calls& calls, QWidget* overlay, IAbstractControlInterface* control);

    // In this order.
    void control();
    void settings();
    void library();
    void preferences();
    void shortcuts();
    void mail();
    void importFolder();
    void makeType();
    void deleteUsedType();
    void replaceHandler();

private:
    // The operation as a function that counts its calls.
    template<typename Operation>
    auto counted(const char* name, Operation operation)
    {
        return [=](const auto&... arguments) {
            m_calls.note(name);
            return (m_pArea->*operation)(arguments...);
        };
    }
    QAbstractItemView* tree() const;
    void click(const char* toolButton) const;

    Calls& m_calls;
    QWidget* m_pOverlay;
    ISettingInterface* m_pArea;
    RecordingHandler* m_pHandler; // the settings area's
    QTemporaryDir m_files;
    QString m_folder = m_files.filePath(QStringLiteral("library"));
};
