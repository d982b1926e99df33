#pragma once

#include <QByteArray>

#include <array>

// The CRC-32 of Ethernet, zip and PNG (reflected polynomial 0xEDB88320), taken over any number of blocks.
class Crc32
{
public:
    void add(const QByteArray& bytes)
    {
        for (const char byte : bytes)
            m_rest = table[(m_rest ^ static_cast<quint8>(byte)) & 0xFF] ^ (m_rest >> 8);
    }

    quint32 value() const { return ~m_rest; }

    static quint32 of(const QByteArray& bytes)
    {
        Crc32 crc;
        crc.add(bytes);
        return crc.value();
    }

private:
    static constexpr std::array<quint32, 256> makeTable()
    {
        std::array<quint32, 256> entries{};
        for (quint32 byte = 0; byte < entries.size(); ++byte) {
            quint32 rest = byte;
            for (int bit = 0; bit < 8; ++bit)
                rest = (rest >> 1) ^ (rest & 1 ? 0xEDB88320U : 0);
            entries[byte] = rest;
        }
        return entries;
    }

    static const std::array<quint32, 256> table;

    quint32 m_rest = ~quint32{0};
};

inline constexpr std::array<quint32, 256> Crc32::table = Crc32::makeTable();
