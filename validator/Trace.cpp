#include "validator/Trace.h"

#include <QFile>

#include <algorithm>
#include <atomic>
#include <cstring>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

struct Trace::Shared
{
    static constexpr std::size_t room = 320; // bytes of an entry, with its terminating zero

    std::atomic<std::uint64_t> signs;
    std::atomic<std::uint64_t> noted; // steps so far
    char entries[kept][room];
};

Trace::Trace(const QString& file, bool isNew)
{
    const int descriptor = ::open(QFile::encodeName(file).constData(),
                                  O_RDWR | O_CLOEXEC | (isNew ? O_CREAT | O_TRUNC : 0), S_IRUSR | S_IWUSR);
    void* memory = MAP_FAILED;
    if (descriptor >= 0 && (!isNew || ::ftruncate(descriptor, sizeof(Shared)) == 0))
        memory = ::mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
    if (descriptor >= 0)
        ::close(descriptor);
    if (memory == MAP_FAILED)
        qFatal("%s: %s", qPrintable(file), std::strerror(errno));
    m_pShared = static_cast<Shared*>(memory); // all zero in a new file, which is a valid state of it
}

Trace::~Trace()
{
    ::munmap(m_pShared, sizeof(Shared));
}

void Trace::note(const QString& step)
{
    const QByteArray text = step.toUtf8().left(Shared::room - 1);
    char* const entry = m_pShared->entries[m_pShared->noted % kept];
    std::fill_n(entry, Shared::room, '\0');
    std::copy(text.begin(), text.end(), entry);
    ++m_pShared->noted;
    touch();
}

void Trace::add(const QString& words)
{
    if (m_pShared->noted == 0)
        return;
    char* const entry = m_pShared->entries[(m_pShared->noted - 1) % kept];
    const std::size_t used = ::strnlen(entry, Shared::room - 1);
    const QByteArray text = words.toUtf8().left(static_cast<int>(Shared::room - 1 - used));
    std::copy(text.begin(), text.end(), entry + used);
}

void Trace::touch()
{
    ++m_pShared->signs;
}

std::uint64_t Trace::signs() const
{
    return m_pShared->signs;
}

QStringList Trace::steps() const
{
    QStringList result;
    const std::uint64_t end = m_pShared->noted;
    for (std::uint64_t step = end - std::min<std::uint64_t>(end, kept); step < end; ++step) {
        const char* const entry = m_pShared->entries[step % kept];
        result.append(QString::fromUtf8(entry, static_cast<int>(::strnlen(entry, Shared::room))));
    }
    return result;
}
