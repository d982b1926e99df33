#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <cstdint>

// Puts values into a JSON object and leaves its other keys alone. The counterpart of JsonReader.
class JsonWriter
{
public:
    explicit JsonWriter(const QJsonObject& object);

    void field(const char* key, bool value);
    void field(const char* key, double value);
    void field(const char* key, std::int32_t value, std::int32_t minimum, std::int32_t maximum);
    void field(const char* key, const QString& value);
    void field(const char* key, const QByteArray& value);
    void range(const char* lowerKey, double lower, const char* upperKey, double upper, double minimum, double maximum);

    const QJsonObject& object() const { return m_object; }

private:
    QJsonObject m_object;
};
