#pragma once

// Content digest of a file: the 32 hexadecimal characters of its MD5 digest and a terminating zero.
// All zero: there is no digest (the file could not be read, or nobody asked for one). Copied by value.
struct SMD5
{
    char data[33] = {};
};
