#pragma once

#include "tests/faults/FolderState.h"
#include "tests/faults/Write.h"

#include <optional>

// A folder in which a write takes place again and again, and what the write does there when nothing happens to it.
class Stage
{
public:
    // Performs the write in `folder`, which is empty, and leaves what it has done there. The write has to outlive this.
    Stage(const Write& write, const QString& folder);

    const WritePlace place;

    // Makes everything as it is before the write.
    void reset() const;

    // What the working folder is called when it has gone.
    const QString& gone() const { return m_gone; }

    // The size of the longest file that the write leaves.
    int largest() const;

    // What is wrong after a write that was reported as failed.
    QString problemOfFailure() const;

    // What is wrong in a folder that went, after a write that was reported as done.
    QString problemOfSuccess(FolderState gone) const;

    const Write& write() const { return m_write; }
    const AllowedStates& allowed() const { return m_allowed; }

    // What the write makes of nothing, when all that it works on has gone. Nothing if it is reported as failed then.
    const std::optional<FolderState>& anew() const { return m_anew; }

private:
    void performAnew();

    const Write& m_write;
    const QString m_gone;
    FolderState m_before;
    FolderState m_after;
    std::optional<FolderState> m_anew;
    AllowedStates m_allowed;
};
