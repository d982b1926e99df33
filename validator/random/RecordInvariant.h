#pragma once

#include "plugin/interface/SSettings.h"

#include <QString>
#include <QVariant>

#include <functional>
#include <vector>

class Report;
class QWidget;

// The controls of the settings area by the fields of the record that they show. Found by what a user knows them by, in
// English, when this object is made; the language may change afterwards. [GUI thread]
class RecordInvariant
{
public:
    // Reports the controls that `area` does not have.
    RecordInvariant(const QWidget& area, Report& report);

    // Reports each field that is not what its control shows.
    void check(const SSettings& read) const;

    // Reports what was pushed and not kept: what no control shows, and what was in its control's range.
    void checkKept(const SSettings& pushed, const SSettings& read) const;

    // Reports a difference between two records.
    void checkSame(const SSettings& first, const SSettings& second) const;

private:
    struct Field
    {
        QString name;
        std::function<QVariant()> shown;
        std::function<QVariant(const SSettings&)> recorded;
    };

    void add(const QString& name, std::function<QVariant()> shown, std::function<QVariant(const SSettings&)> recorded);
    void addFlags(const QWidget& area);
    void addChoices(const QWidget& area);
    void addNumbers(const QWidget& area);
    void addMail(const QWidget& area);
    void expectSame(const char* what, const QVariant& first, const QVariant& second) const;

    Report& m_report;
    std::vector<Field> m_fields;
};
