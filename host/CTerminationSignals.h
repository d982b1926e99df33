#pragma once

#include <QObject>

// Turns SIGINT, SIGTERM and SIGHUP into a Qt signal, so that a program that is asked to end saves what it has. One
// object per process. [GUI thread]
class CTerminationSignals : public QObject
{
    Q_OBJECT

public:
    explicit CTerminationSignals(QObject* parent = nullptr);
    ~CTerminationSignals() override; // the signals end the process again

Q_SIGNALS:
    void notifyTerminate();
};
