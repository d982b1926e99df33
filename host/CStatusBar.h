#pragma once

#include <QStatusBar>

class CProgressDisplay;
class QLabel;

// The window's bottom line: what the type library is doing, how many types it holds, what else is going on, the
// library's folder, and the plug-in.
// [GUI thread]
class CStatusBar : public QStatusBar
{
    Q_OBJECT

public:
    explicit CStatusBar(QWidget* parent = nullptr);

    void setPlugin(const QString& path);
    // Looks once whether the folder is there; the other texts change often, and its disk may be slow.
    void setLibraryFolder(const QString& folder);
    void setScanning(bool scanning);
    void setTypeCount(int types);

    CProgressDisplay* progress() const { return m_pProgress; }

protected:
    void changeEvent(QEvent* event) override;

private:
    QLabel* addLabel(const char* name);
    void setTexts();
    QString folderText() const;

    QLabel* m_pState;
    CProgressDisplay* m_pProgress;
    QLabel* m_pFolder;
    QLabel* m_pPlugin;
    QString m_plugin;
    QString m_folder;
    bool m_bFound = false; // the folder, when it was set
    bool m_bScanning = false;
    int m_nTypes = 0;
};
