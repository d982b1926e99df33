#include "host/settings/JsonWriter.h"

JsonWriter::JsonWriter(const QJsonObject& object)
    : m_object(object)
{
}

void JsonWriter::field(const char* key, bool value)
{
    m_object.insert(QLatin1String(key), value);
}

void JsonWriter::field(const char* key, double value)
{
    m_object.insert(QLatin1String(key), value);
}

void JsonWriter::field(const char* key, std::int32_t value, std::int32_t /*minimum*/, std::int32_t /*maximum*/)
{
    m_object.insert(QLatin1String(key), value);
}

void JsonWriter::field(const char* key, const QString& value)
{
    m_object.insert(QLatin1String(key), value);
}

void JsonWriter::field(const char* key, const QByteArray& value)
{
    m_object.insert(QLatin1String(key), QString::fromLatin1(value.toBase64()));
}

void JsonWriter::range(const char* lowerKey, double lower, const char* upperKey, double upper, double /*minimum*/,
                       double /*maximum*/)
{
    field(lowerKey, lower);
    field(upperKey, upper);
}
