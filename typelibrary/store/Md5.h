#pragma once

#include <utilbase/SMD5.h>

#include <cstddef>
#include <cstring>
#include <functional>
#include <string_view>

// What the plug-in needs to know about digests beyond their bytes.

// Number of hexadecimal characters, which alone count when digests are compared.
constexpr std::size_t md5Length = 32;

inline bool operator==(const SMD5& a, const SMD5& b)
{
    return std::memcmp(a.data, b.data, md5Length) == 0;
}

inline bool operator!=(const SMD5& a, const SMD5& b)
{
    return !(a == b);
}

inline bool isEmpty(const SMD5& md5)
{
    return md5 == SMD5{};
}

struct Md5Hash
{
    std::size_t operator()(const SMD5& md5) const noexcept
    {
        return std::hash<std::string_view>()(std::string_view(md5.data, md5Length));
    }
};
