#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

// What a child has done last, in a file that it shares with its parent: still there when the child has crashed or
// hangs. One writer; a reader meanwhile may see an entry half written.
class Trace
{
public:
    static constexpr int kept = 20; // entries

    // Shares the file, which is made or emptied if `isNew`. Ends the program when that is not possible.
    Trace(const QString& file, bool isNew);
    ~Trace();
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;

    // Notes a step in words; only the last are kept.
    void note(const QString& step);

    // Adds words to the last step: what it turned out to be.
    void add(const QString& words);

    // A sign of life without words.
    void touch();

    // Grows with every sign of life.
    std::uint64_t signs() const;

    // The last steps, oldest first.
    QStringList steps() const;

private:
    struct Shared;

    Shared* m_pShared;
};
