#pragma once

#include <QString>

#include <atomic>
#include <functional>

// Copies of the test's process, for what happens to a process as a whole.
namespace ChildProcess {

// Runs the function in a child; what it gives, or how the child ended otherwise.
QString run(const std::function<QString()>& function);

// Runs the function in a child and kills it after so many microseconds; false if it ended before that.
bool runAndKill(const std::function<void()>& function, unsigned microseconds);

// Gives the folder to a user without rights and makes the process that user's, if it is root's. In a child alone.
bool becomeNobody(const QString& folder);

} // namespace ChildProcess

// A number that a child process changes.
class SharedNumber
{
public:
    using Number = std::atomic<int>;
    static_assert(Number::is_always_lock_free);

    SharedNumber(); // 0
    ~SharedNumber();
    Q_DISABLE_COPY(SharedNumber)

    Number& operator*() const { return *static_cast<Number*>(m_memory); }

private:
    void* const m_memory;
};

// Mounts that only the child that makes them sees. To be used in a child alone.
namespace PrivateDisk {

// Whether this system lets the tests have such mounts.
bool isAvailable();

// Puts an empty disk of so many bytes in the place of the folder.
bool mount(const QString& folder, qint64 bytes);
bool makeReadOnly(const QString& folder);

// Takes /proc away, without which a file that has no name cannot get one.
bool hideProcesses();

} // namespace PrivateDisk
