#include "host/files/JsonText.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(JsonText)
};

} // namespace

std::optional<QByteArray> jsonText(const QJsonObject& document, qint64 limit, QString& error)
{
    const QJsonDocument json(document);
    for (const QJsonDocument::JsonFormat format : {QJsonDocument::Indented, QJsonDocument::Compact}) {
        const QByteArray text = json.toJson(format);
        if (text.size() <= limit)
            return text;
    }
    error = Text::tr("The file would be longer than %1 bytes and could not be read again.").arg(limit);
    return std::nullopt;
}
