#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <utility>

// Owns an open file. Reading and writing go on after an interrupting signal.
class CFileDescriptor
{
public:
    explicit CFileDescriptor(int fd = -1)
        : m_fd(fd)
    {
    }
    CFileDescriptor(CFileDescriptor&& other) noexcept
        : m_fd(other.release())
    {
    }
    CFileDescriptor& operator=(CFileDescriptor&& other) noexcept
    {
        std::swap(m_fd, other.m_fd);
        return *this;
    }
    ~CFileDescriptor() { close(); }

    int get() const { return m_fd; }
    bool isOpen() const { return m_fd >= 0; }
    int release() { return std::exchange(m_fd, -1); }

    // False when the system has kept a write error for this moment.
    bool close() { return m_fd < 0 || ::close(release()) == 0; }

    // Bytes read, 0 at the end of the file, -1 on error.
    ssize_t read(char* buffer, std::size_t size) const
    {
        ssize_t count = 0;
        do
            count = ::read(m_fd, buffer, size);
        while (count < 0 && errno == EINTR);
        return count;
    }

    bool writeAll(const char* data, std::size_t size) const
    {
        while (size > 0) {
            const ssize_t count = ::write(m_fd, data, size);
            if (count < 0 && errno != EINTR)
                return false;
            if (count > 0) {
                data += count;
                size -= static_cast<std::size_t>(count);
            }
        }
        return true;
    }

private:
    int m_fd;
};
