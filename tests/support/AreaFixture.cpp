#include "tests/support/AreaFixture.h"

void AreaFixture::init()
{
    TestObject::init();
    area().setHandler(nullptr);
    area().setSettings(SSettings());
    area().setCurrentTab(0);
}

void AreaFixture::cleanup()
{
    area().setParent(nullptr);
    area().setTypeLibraryPath(QString());
    area().setStyleSheet(QString());
    area().resize(1000, 700);
    TestObject::cleanup();
}
