#include "tests/multircv/FirstPageFixture.h"

FirstPageFixture::Page::Page(const QString& folder, const SHwRcvInCabinetInfo& record)
    : page(folder, record),
      button(page.findChild<CMenuPushButton*>()),
      count(page.findChild<CComboBox*>())
{
    page.show();
}

QStringList FirstPageFixture::Page::entries() const
{
    QStringList texts;
    const QList<QAction*> actions = button->menu()->actions();
    for (const QAction* action : actions)
        texts.append(action->text());
    return texts;
}

void FirstPageFixture::Page::browse() const
{
    button->menu()->actions().constFirst()->trigger();
    QCoreApplication::sendPostedEvents(); // the dialog opens when the menu is done
}

void FirstPageFixture::init()
{
    TestObject::init();
    m_pLibrary = std::make_unique<WizardLibrary>();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void FirstPageFixture::cleanup()
{
    m_pLibrary.reset();
    TestObject::cleanup();
}
