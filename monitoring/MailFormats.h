#pragma once

#include <QStringView>

// Formats of what is entered about mail accounts. Each verdict takes time linear in the length of the text.

// An address: digits, letters, '-', '_' and '.' before the only '@'; after it a domain of one label, a top level of two
// or three letters and perhaps a country of two, all in lower case. That is
// ([0-9A-Za-z\-_\.]+)@([0-9a-z]+\.[a-z]{2,3}(\.[a-z]{2})?)
bool isMailAddress(QStringView text);

// A port: one to eight digits, the first of them not 0.
bool isMailPort(QStringView text);

// What can be typed where an address or the name of a server is wanted, as a pattern.
QString mailCharacters();
