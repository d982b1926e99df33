#include "tests/multircv/WizardFixture.h"

QString WizardFixture::addType(const QString& relative, const QString& parameterFile, const SHwRcvInCabinetInfo& label)
{
    const QString type = m_pLibrary->addMulti(relative, parameterFile, label);
    m_pLibrary->rescan();
    m_pLibrary->handler->forgetCalls();
    return type;
}

SHwRcvInCabinetInfo WizardFixture::label()
{
    SHwRcvInCabinetInfo record;
    record.columns = 2;
    record.rows = 2;
    record.wiringOrder = {2, 0, 1, 3};
    record.specifyOrientation = true;
    record.weight = 0.1F;
    record.power = 250;
    record.voltageMin = 110;
    record.voltageMax = 240.5F;
    return record;
}

QStringList WizardFixture::writes() const
{
    return m_pLibrary->handler->calls().filter(QStringLiteral("writeCabinetInfo"));
}

bool WizardFixture::libraryHas(const QString& name)
{
    return !CTypeLibrary::instance().searchSameName(name).isEmpty();
}

void WizardFixture::init()
{
    TestObject::init();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    m_pLibrary = std::make_unique<WizardLibrary>();
    m_card = m_pLibrary->add(QStringLiteral("Card.rcvp"), "card");
    m_pLibrary->rescan();
}

void WizardFixture::cleanup()
{
    m_pLibrary.reset();
    TestObject::cleanup();
}
