#pragma once

#include <QObject>
#include <QString>

#include <memory>

class ISettingInterface;

// Hands the library folder to the plug-in from a worker thread, since that call hashes files and then waits for the GUI
// thread. The GUI thread in turn never waits for the worker: it is told when the call has returned, and the worker is
// detached, so that a loader may be destroyed while its call is under way. [GUI thread]
class CLibraryLoader : public QObject
{
    Q_OBJECT

public:
    // `area` stays valid until the process ends.
    explicit CLibraryLoader(ISettingInterface* area, QObject* parent = nullptr);
    ~CLibraryLoader() override;

    // Makes `folder` the library. While another folder is being loaded this one waits for its turn; of several that
    // wait the last one counts.
    void load(const QString& folder);

    // Counts the types again, after changes that the user may have made. Nothing happens during a load.
    void count();

    // Whether a call of the plug-in is under way. A process that ends now must leave the worker alone.
    bool isBusy() const { return m_bLoading || m_nCounting > 0; }

    // Whether a folder is being loaded.
    bool isLoading() const { return m_bLoading; }

Q_SIGNALS:
    void notifyLoading(const QString& folder);

    // The folder is loaded and shown; `shown` is false when the plug-in could not show it, or no thread was to be had.
    void notifyLoaded(const QString& folder, bool shown);

    // The folder could not be loaded, for the `reason`; notifyLoaded() follows.
    void notifyFailed(const QString& folder, const QString& reason);

    // The library holds this many types.
    void notifyCounted(int types);

    // From a worker to this thread.
    void notifyLoadDone(bool shown, QPrivateSignal);
    void notifyCountDone(int types, QPrivateSignal);

private:
    struct Link;

    template<typename Work, typename Signal>
    bool run(Work work, Signal done, QString& error);
    void start();
    void finishLoad(bool shown);
    void finishCount(int types);

    ISettingInterface* const m_pArea;
    const std::shared_ptr<Link> m_pLink; // shared with the workers
    QString m_folder;                    // that is being loaded, or was last
    QString m_next;
    bool m_bHasNext = false;
    bool m_bLoading = false;
    int m_nCounting = 0;
};
