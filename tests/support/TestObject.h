#pragma once

#include <QObject>
#include <QRegularExpression>
#include <QtTest>

// Base of every test class: a Qt warning that the running test function does not expect fails it.
class TestObject : public QObject
{
    Q_OBJECT

protected:
    // The running test function causes a warning that matches; it must appear before the function ends.
    void expectWarning(const QRegularExpression& pattern);

protected Q_SLOTS:
    // Before and after each test function. A class that has its own calls these.
    void init();
    void cleanup();
};

// The program's main(): runs the test class under an application object of the given class.
template<typename Test, typename Application>
int runTest(int argc, char** argv)
{
    const Application application(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

#define SETTINGAREA_TEST_MAIN(Test, Application)                                                                       \
    int main(int argc, char** argv)                                                                                    \
    {                                                                                                                  \
        return runTest<Test, Application>(argc, argv);                                                                 \
    }
