#pragma once

#include <QByteArray>
#include <QString>

// A small type library to try the settings area with: groups three levels deep, single and multi-receiver types as
// the trade names them. Generated, so that nobody has to trust opaque files; the same bytes every time.
namespace SampleTypes {

// `size` bytes that depend on `seed` only.
QByteArray payload(quint32 size, quint32 seed);

// Writes the library into `folder`, which is made if need be. Files of the same name are replaced, others stay.
// On failure `error` gets the path and the reason.
bool write(const QString& folder, QString& error);

} // namespace SampleTypes
