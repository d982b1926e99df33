#pragma once

#include <QStringList>

class QKeySequence;

// What is written on the caps of the keys, from left to right: one text for each entry of the sequence, the last entry,
// which is the modifier of a combination, first. The texts are those that QKeySequence has for portable use and are the
// same in every language. None for an empty sequence. [any thread]
QStringList keyCaps(const QKeySequence& keys);
