#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

class QJsonObject;

// The document as a file is to hold it that is read with `limit` (bytes): indented for people, or compact where only
// that is short enough. Nothing, with the reason in `error`, for the user, when it is too long even so. Reentrant.
// [any thread]
std::optional<QByteArray> jsonText(const QJsonObject& document, qint64 limit, QString& error);
