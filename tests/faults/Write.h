#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

#include <functional>

// Where a write takes place.
struct WritePlace
{
    QString work;   // the folder that is written to, which faults befall
    QString source; // a folder that is only read, on a sound disk
    QString trash;  // what repeating a write has to get out of the way goes here, on the same disk as `work`

    QString inWork(const QString& name) const { return work + QLatin1Char('/') + name; }
    QString inSource(const QString& name) const { return source + QLatin1Char('/') + name; }
};

// One way in which the host or the plug-in writes files.
struct Write
{
    QByteArray name;

    // Fills the empty folders.
    std::function<void(const WritePlace&)> prepare;

    // The write itself, with another content in odd turns than in even ones. False when it was reported as failed.
    std::function<bool(const WritePlace&, int turn)> perform;

    // Makes the write possible again, if it can be done only once. It has the odd turns then.
    std::function<void(const WritePlace&)> undo;

    bool isWrite(int turn) const { return turn % 2 == 0 || !undo; }
    bool take(const WritePlace& place, int turn) const
    {
        if (isWrite(turn))
            return perform(place, turn);
        undo(place);
        return true;
    }

    // What a program that starts now finds wrong; empty if nothing.
    std::function<QString(const WritePlace&)> inspect = [](const WritePlace&) { return QString(); };

    // Whether a failure leaves everything as it was. Otherwise each file is as it was, or new and whole.
    bool isAtomic = true;

    // Whether it writes contents, which a full disk prevents.
    bool writesContent = true;

    // Whether its steps are done by path one after the other with a box of Qt's when the path changes in between.
    bool mayAsk = false;

    // Whether it removes what was there by path as the last step, which does nothing to a folder that has gone.
    bool mayLeaveOld = false;

    // Whole contents that are neither the old nor the new one, by path, which a write in two steps may stop at.
    std::function<QMap<QString, QByteArray>(const WritePlace&)> stages = [](const WritePlace&) {
        return QMap<QString, QByteArray>();
    };
};

// The size that the contents have at least.
constexpr int contentSize = 100'000;

QList<Write> hostWrites();
QList<Write> libraryWrites();
QList<Write> wizardWrites();
QList<Write> treeWrites();
