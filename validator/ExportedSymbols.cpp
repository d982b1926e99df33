#include "validator/ExportedSymbols.h"

#include <QFile>

#include <algorithm>
#include <cstring>

#include <link.h>

namespace {

// The items of a table in the file; none when it reaches out of it.
template<typename Item>
class Table
{
public:
    Table(const QByteArray& bytes, std::uint64_t offset, std::uint64_t count)
        : m_bytes(bytes),
          m_offset(offset),
          m_count(offset <= size(bytes) && count <= (size(bytes) - offset) / sizeof(Item) ? count : 0)
    {
    }

    std::uint64_t count() const { return m_count; }

    // Copied: the file does not align what it holds.
    Item at(std::uint64_t position) const
    {
        Item item = {};
        std::memcpy(&item, m_bytes.constData() + m_offset + position * sizeof(Item), sizeof(Item));
        return item;
    }

private:
    static std::uint64_t size(const QByteArray& bytes) { return static_cast<std::uint64_t>(bytes.size()); }

    const QByteArray& m_bytes;
    const std::uint64_t m_offset;
    const std::uint64_t m_count;
};

// Where a symbol is given its meaning, and that others see it.
bool isExported(const ElfW(Sym) & symbol)
{
    const int binding = ELF64_ST_BIND(symbol.st_info); // the same in files of 32 bits
    const int visibility = ELF64_ST_VISIBILITY(symbol.st_other);
    return symbol.st_shndx != SHN_UNDEF && symbol.st_shndx != SHN_ABS && binding != STB_LOCAL &&
           (visibility == STV_DEFAULT || visibility == STV_PROTECTED);
}

} // namespace

QStringList exportedSymbols(const QString& file, QString& error)
{
    QFile library(file);
    if (!library.open(QIODevice::ReadOnly)) {
        error = library.errorString();
        return {};
    }
    const QByteArray bytes = library.readAll();
    const Table<ElfW(Ehdr)> headers(bytes, 0, 1);
    if (headers.count() == 0 || !bytes.startsWith(ELFMAG)) {
        error = QStringLiteral("not a shared library");
        return {};
    }
    const ElfW(Ehdr) header = headers.at(0);
    const Table<ElfW(Shdr)> sections(bytes, header.e_shoff, header.e_shnum);

    QStringList result;
    bool isListed = false;
    for (std::uint64_t i = 0; i < sections.count(); ++i) {
        const ElfW(Shdr) section = sections.at(i);
        if (section.sh_type != SHT_DYNSYM || section.sh_link >= sections.count())
            continue;
        isListed = true;
        const ElfW(Shdr) names = sections.at(section.sh_link);
        const Table<ElfW(Sym)> symbols(bytes, section.sh_offset, section.sh_size / sizeof(ElfW(Sym)));
        const Table<char> text(bytes, names.sh_offset, names.sh_size);
        for (std::uint64_t k = 0; k < symbols.count(); ++k) {
            const ElfW(Sym) symbol = symbols.at(k);
            if (isExported(symbol) && symbol.st_name < text.count())
                result.append(QString::fromLatin1(bytes.constData() + names.sh_offset + symbol.st_name));
        }
    }
    if (!isListed)
        error = QStringLiteral("it has no table of symbols");
    std::sort(result.begin(), result.end());
    return result;
}
