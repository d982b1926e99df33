#include "host/settings/JsonReader.h"

#include <QJsonValue>

#include <cmath>

JsonReader::JsonReader(const QJsonObject& object)
    : m_object(object)
{
}

void JsonReader::field(const char* key, bool& value) const
{
    value = m_object.value(QLatin1String(key)).toBool(value);
}

void JsonReader::field(const char* key, double& value) const
{
    value = m_object.value(QLatin1String(key)).toDouble(value);
}

void JsonReader::field(const char* key, std::int32_t& value, std::int32_t minimum, std::int32_t maximum) const
{
    const double number = m_object.value(QLatin1String(key)).toDouble(std::nan(""));
    if (number >= minimum && number <= maximum && number == std::floor(number))
        value = static_cast<std::int32_t>(number);
}

void JsonReader::field(const char* key, QString& value) const
{
    value = m_object.value(QLatin1String(key)).toString(value);
}

void JsonReader::field(const char* key, QByteArray& value) const
{
    const QJsonValue text = m_object.value(QLatin1String(key));
    if (!text.isString())
        return;
    const auto decoded =
        QByteArray::fromBase64Encoding(text.toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    if (decoded)
        value = *decoded;
}

void JsonReader::range(const char* lowerKey, double& lower, const char* upperKey, double& upper, double minimum,
                       double maximum) const
{
    double newLower = lower;
    double newUpper = upper;
    field(lowerKey, newLower);
    field(upperKey, newUpper);
    if (newLower < minimum || newLower > newUpper || newUpper > maximum)
        return;
    lower = newLower;
    upper = newUpper;
}
