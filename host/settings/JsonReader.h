#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <cstdint>

// Takes values out of a JSON object. A value that is missing, of another type or out of its range leaves the variable
// as it is: the caller has put the default there. JsonWriter has the same operations, so that one list of fields
// serves both ways.
class JsonReader
{
public:
    explicit JsonReader(const QJsonObject& object);

    void field(const char* key, bool& value) const;
    void field(const char* key, double& value) const;
    void field(const char* key, std::int32_t& value, std::int32_t minimum, std::int32_t maximum) const;
    void field(const char* key, QString& value) const;
    void field(const char* key, QByteArray& value) const; // Base64 in the file

    // A lower and an upper limit within [minimum, maximum]; taken only together and in order.
    void range(const char* lowerKey, double& lower, const char* upperKey, double& upper, double minimum,
               double maximum) const;

private:
    QJsonObject m_object;
};
