#pragma once

#include "host/typefile/TypeFileHeader.h"

#include <QByteArray>
#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QList>
#include <QString>

// What the tool's "create" command takes: the options, and the type file that they describe.
class CreateOptions
{
    Q_DECLARE_TR_FUNCTIONS(CreateOptions)

public:
    static QList<QCommandLineOption> list();

    // Takes over what is given. Empty, or the reason why an option's value cannot be used.
    QString read(const QCommandLineParser& parser);

    TypeFileHeader header; // with a record if one of the record's options is given
    QByteArray payload;
};
