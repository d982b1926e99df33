#include "plugin/interface/IAbstractControlInterface.h"
#include "tests/support/TestObject.h"

#include <QCoreApplication>

#include <cstdlib>
#include <new>

namespace {

bool memoryIsOut = false;

class Control : public IAbstractControlInterface
{
public:
    QWidget* widget() override { return nullptr; }
    bool initialize() override { return true; }
    bool isValid() override { return true; }
};

class Handler : public IAbstractInterfaceHandler
{
public:
    explicit Handler(int& deleted)
        : m_deleted(deleted)
    {
    }
    ~Handler() override { ++m_deleted; }

private:
    int& m_deleted;
};

} // namespace

void* operator new(std::size_t size)
{
    void* const memory = memoryIsOut ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}

class tst_IAbstractControlInterface : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithoutAHandler();
    void ownsItsHandler();
    void withoutMemoryTheHandlerIsDeleted();
};

void tst_IAbstractControlInterface::startsWithoutAHandler()
{
    Control control;
    QVERIFY(!control.getHandler());
}

void tst_IAbstractControlInterface::ownsItsHandler()
{
    int first = 0;
    int second = 0;
    {
        Control control;
        control.setHandler(new Handler(first));
        auto held = control.getHandler();
        control.setHandler(new Handler(second));
        QCOMPARE(first, 0); // as long as a copy lives
        held.reset();
        QCOMPARE(first, 1);
        QCOMPARE(second, 0);
    }
    QCOMPARE(second, 1);
}

void tst_IAbstractControlInterface::withoutMemoryTheHandlerIsDeleted()
{
    int kept = 0;
    int deleted = 0;
    Control control;
    control.setHandler(new Handler(kept));
    auto* const handler = new Handler(deleted);
    bool failed = false;
    memoryIsOut = true;
    try {
        control.setHandler(handler);
    } catch (const std::bad_alloc&) {
        failed = true;
    }
    memoryIsOut = false;
    QVERIFY(failed);
    QCOMPARE(deleted, 1);
    QCOMPARE(kept, 0); // the one before stays installed
    QVERIFY(control.getHandler());
}

SETTINGAREA_TEST_MAIN(tst_IAbstractControlInterface, QCoreApplication)
#include "tst_IAbstractControlInterface.moc"
