#include "plugin/CSingleton.h"
#include "tests/support/TestObject.h"

#include <QCoreApplication>

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

namespace {

// Its first two constructions fail.
class Stubborn : public CSingleton<Stubborn>
{
public:
    static int attempts;

private:
    friend class CSingleton<Stubborn>;

    Stubborn()
    {
        if (++attempts < 3)
            throw std::runtime_error("not yet");
    }
};

int Stubborn::attempts = 0;

class Slow : public CSingleton<Slow>
{
public:
    static std::atomic_int made;

private:
    friend class CSingleton<Slow>;

    // Long enough for the other threads to arrive meanwhile.
    Slow()
    {
        for (int i = 0; i < 1'000; ++i)
            std::this_thread::yield();
        ++made;
    }
};

std::atomic_int Slow::made{0};

} // namespace

class tst_CSingleton : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void failedConstructionIsTriedAgain();
    void manyThreadsGetOneInstance();
};

void tst_CSingleton::failedConstructionIsTriedAgain()
{
    QCOMPARE(Stubborn::attempts, 0); // made on first use
    QVERIFY_EXCEPTION_THROWN(Stubborn::instance(), std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(Stubborn::instance(), std::runtime_error);
    const Stubborn* const made = &Stubborn::instance();
    QCOMPARE(&Stubborn::instance(), made);
    QCOMPARE(Stubborn::attempts, 3);
}

void tst_CSingleton::manyThreadsGetOneInstance()
{
    std::array<Slow*, 8> seen{};
    std::vector<std::thread> threads;
    threads.reserve(seen.size());
    for (Slow*& one : seen)
        threads.emplace_back([&one] { one = &Slow::instance(); });
    for (std::thread& thread : threads)
        thread.join();
    for (const Slow* one : seen)
        QCOMPARE(one, &Slow::instance());
    QCOMPARE(Slow::made.load(), 1);
}

SETTINGAREA_TEST_MAIN(tst_CSingleton, QCoreApplication)
#include "tst_CSingleton.moc"
