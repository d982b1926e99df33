#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include <mutex>

// Counts the operations that are called, in either direction. [any thread]
class Calls
{
public:
    void note(const char* operation);
    int count(const char* operation) const;

    // Prints how often each operation of the interfaces in the file contract.txt was called, and returns what is wrong
    // with that: an operation that was not called, or a reserved one that was.
    QStringList report(const QString& contractFile) const;

private:
    mutable std::mutex m_mutex; // guards the member below
    QMap<QString, int> m_counts;
};
