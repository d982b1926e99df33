#include "host/CPlacedTypesPanel.h"
#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"

#include <widgetry/CToolTip.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>

namespace {

// Types of the given names; each has the digest of its position in the alphabet.
QVector<Project::PlacedType> types(const char* names)
{
    QVector<Project::PlacedType> made;
    for (const char* name = names; *name != '\0'; ++name)
        made.append({QString(32, QLatin1Char(*name)), QString(QLatin1Char(*name)).toUpper(), {}});
    return made;
}

} // namespace

class tst_CPlacedTypesPanel : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void anEmptyListSaysSo();
    void theTypesAreListedInTheirOrder();
    void namesArePlainText();
    void ofANameWithoutEndTheBeginningIsShown();
    void aTypeWithoutNameShowsItsDigest();
    void theCurrentTypeStaysCurrent();
    void choosingATypeIsTold();
    void theButtonsAreTheCommands();
    void theDeleteKeyRemoves();

private:
    QListWidget* list() const { return m_panel->findChild<QListWidget*>(QStringLiteral("PlacedTypes")); }
    QLabel* empty() const { return m_panel->findChild<QLabel*>(QStringLiteral("NoPlacedTypes")); }
    QStringList names() const
    {
        QStringList names;
        for (int row = 0; row < list()->count(); ++row)
            names << list()->item(row)->text();
        return names;
    }

    std::unique_ptr<CPlacedTypesPanel> m_panel;
    std::unique_ptr<QAction> m_place;
    std::unique_ptr<QAction> m_remove;
};

void tst_CPlacedTypesPanel::init()
{
    TestObject::init();
    m_place = std::make_unique<QAction>(QStringLiteral("&Place"));
    m_remove = std::make_unique<QAction>(QStringLiteral("&Remove"));
    m_panel = std::make_unique<CPlacedTypesPanel>();
    m_panel->setCommands(m_place.get(), m_remove.get());
    m_panel->show();
}

void tst_CPlacedTypesPanel::anEmptyListSaysSo()
{
    QVERIFY(empty()->isVisible());
    QVERIFY(!list()->isVisible());
    QCOMPARE(empty()->text(),
             QStringLiteral("The layout has no types yet. Select a type in the type library and place it."));
    QVERIFY(empty()->wordWrap());
    m_panel->setTypes(types("a"));
    QVERIFY(!empty()->isVisible());
    QVERIFY(list()->isVisible());
    m_panel->setTypes({});
    QVERIFY(empty()->isVisible());

    const UpperCase upper;
    QCOMPARE(empty()->text(), empty()->text().toUpper());
    QCOMPARE(list()->accessibleName(), QStringLiteral("PLACED TYPES"));
}

void tst_CPlacedTypesPanel::theTypesAreListedInTheirOrder()
{
    m_panel->setTypes(types("cab"));
    QCOMPARE(names(), (QStringList{QStringLiteral("C"), QStringLiteral("A"), QStringLiteral("B")}));
    QCOMPARE(m_panel->currentRow(), -1);
    m_panel->setTypes(types("ab"));
    QCOMPARE(names(), (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
}

void tst_CPlacedTypesPanel::namesArePlainText()
{
    QVector<Project::PlacedType> placed = types("a");
    placed[0].name = QStringLiteral("<b>P4</b> & more");
    m_panel->setTypes(placed);
    QCOMPARE(names(), QStringList{QStringLiteral("<b>P4</b> & more")});
    QCOMPARE(list()->item(0)->toolTip(), CToolTip::fromPlainText(QStringLiteral("<b>P4</b> & more")));
}

// A project file may hold one of millions of characters, which take seconds with every paint.
void tst_CPlacedTypesPanel::ofANameWithoutEndTheBeginningIsShown()
{
    QVector<Project::PlacedType> placed = types("a");
    placed[0].name = QStringLiteral("P4-") + QString(2'000'000, QLatin1Char('x'));
    m_panel->setTypes(placed);
    QCOMPARE(names().constFirst(), placed[0].name.left(1000));
    QCOMPARE(list()->item(0)->toolTip(), CToolTip::fromPlainText(placed[0].name.left(1000)));
}

void tst_CPlacedTypesPanel::aTypeWithoutNameShowsItsDigest()
{
    QVector<Project::PlacedType> placed = types("a");
    placed[0].name.clear();
    m_panel->setTypes(placed);
    QCOMPARE(names(), QStringList{QStringLiteral("aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa")});
}

void tst_CPlacedTypesPanel::theCurrentTypeStaysCurrent()
{
    m_panel->setTypes(types("abc"));
    m_panel->setCurrentRow(2);
    m_panel->setTypes(types("bc"));
    QCOMPARE(m_panel->currentRow(), 1);
    m_panel->setTypes(types("b"));
    QCOMPARE(m_panel->currentRow(), -1);
    m_panel->setTypes({});
    QCOMPARE(m_panel->currentRow(), -1);
}

void tst_CPlacedTypesPanel::choosingATypeIsTold()
{
    m_panel->setTypes(types("abc"));
    QSignalSpy spy(m_panel.get(), &CPlacedTypesPanel::notifyCurrentChanged);
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, list()->visualItemRect(list()->item(1)).center());
    QCOMPARE(spy.size(), 1);
    QCOMPARE(m_panel->currentRow(), 1);
    m_panel->setCurrentRow(-1);
    QCOMPARE(spy.size(), 2);
    QCOMPARE(m_panel->currentRow(), -1);
}

void tst_CPlacedTypesPanel::theButtonsAreTheCommands()
{
    const auto buttons = m_panel->findChildren<QPushButton*>();
    QCOMPARE(buttons.size(), 2);
    QCOMPARE(buttons.at(0)->text(), QStringLiteral("Place in layout"));
    QCOMPARE(buttons.at(1)->text(), QStringLiteral("Remove from layout"));
    QSignalSpy placed(m_place.get(), &QAction::triggered);
    QSignalSpy removed(m_remove.get(), &QAction::triggered);
    QTest::mouseClick(buttons.at(0), Qt::LeftButton);
    QCOMPARE(placed.size(), 1);
    QTest::mouseClick(buttons.at(1), Qt::LeftButton);
    QCOMPARE(removed.size(), 1);
    m_place->setEnabled(false);
    QVERIFY(!buttons.at(0)->isEnabled());
    QVERIFY(buttons.at(1)->isEnabled());
    QCOMPARE(list()->actions(), QList<QAction*>{m_remove.get()});
    QCOMPARE(list()->contextMenuPolicy(), Qt::ActionsContextMenu);
}

void tst_CPlacedTypesPanel::theDeleteKeyRemoves()
{
    m_panel->setTypes(types("ab"));
    QApplication::setActiveWindow(m_panel.get());
    QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
    QSignalSpy removed(m_remove.get(), &QAction::triggered);
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_Delete);
    QCOMPARE(removed.size(), 1);
    m_remove->setEnabled(false);
    QTest::keyClick(list(), Qt::Key_Delete);
    QCOMPARE(removed.size(), 1);
}

SETTINGAREA_TEST_MAIN(tst_CPlacedTypesPanel, QApplication)
#include "tst_CPlacedTypesPanel.moc"
