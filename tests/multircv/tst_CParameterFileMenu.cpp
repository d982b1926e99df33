#include "multircv/CParameterFileMenu.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QScreen>
#include <QTranslator>

namespace {

using STreeNode = SSettings::TypeLibrary::STreeNode;
using Tree = std::vector<STreeNode>;

STreeNode node(STreeNode::NodeType type, const QString& name, Tree children = {})
{
    STreeNode made;
    made.nodeType = type;
    made.name = name;
    made.path = QStringLiteral("/library/") + name;
    made.children = std::move(children);
    return made;
}

Tree types(int count, const QString& prefix)
{
    Tree made;
    for (int i = 0; i < count; ++i)
        made.push_back(node(STreeNode::SingleRcv, QStringLiteral("%1%2").arg(prefix).arg(i, 5, 10, QLatin1Char('0'))));
    return made;
}

QStringList texts(const QMenu* menu)
{
    QStringList found;
    const QList<QAction*> actions = menu->actions();
    for (const QAction* action : actions)
        found.append(action->isSeparator() ? QStringLiteral("-") : action->text());
    return found;
}

QMenu* submenu(const QMenu* menu, int index)
{
    return menu->actions().at(index)->menu();
}

void open(QMenu* menu)
{
    menu->popup(QPoint(100, 100));
    QCoreApplication::processEvents();
}

class German : public QTranslator
{
public:
    QString translate(const char* context, const char* text, const char* /*comment*/, int /*n*/) const override
    {
        return qstrcmp(context, "CParameterFileMenu") == 0 && qstrcmp(text, "Browse...") == 0
                   ? QStringLiteral("Durchsuchen...")
                   : QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class tst_CParameterFileMenu : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyLibrary();
    void entriesInTreeOrder();
    void submenusAreFilledWhenTheyShow();
    void typesHaveTheIconAndThePath();
    void groupsWithoutEntriesStayShut();
    void namesAreShownAsTheyStand();
    void widths();
    void veryManyTypesAreDivided();
    void fillsWhatIsOpened_data();
    void fillsWhatIsOpened();
    void longMenuScrolls();
    void triggeredComesFromSubmenus();
    void followsTheLanguage();
};

void tst_CParameterFileMenu::emptyLibrary()
{
    const CParameterFileMenu menu({});
    QCOMPARE(texts(&menu), QStringList({QStringLiteral("Browse..."), QStringLiteral("-")}));
    QCOMPARE(menu.browseAction(), menu.actions().constFirst());
}

void tst_CParameterFileMenu::entriesInTreeOrder()
{
    const CParameterFileMenu menu(
        {node(STreeNode::SingleRcv, QStringLiteral("A")), node(STreeNode::MultiRcv, QStringLiteral("Multi")),
         node(STreeNode::None, QStringLiteral("notes")), node(STreeNode::SingleRcv, QStringLiteral("B")),
         node(STreeNode::Group, QStringLiteral("G"), types(1, QStringLiteral("X")))});
    QCOMPARE(texts(&menu), QStringList({QStringLiteral("Browse..."), QStringLiteral("-"), QStringLiteral("A"),
                                        QStringLiteral("B"), QStringLiteral("G")}));
    QVERIFY(submenu(&menu, 4));
    QVERIFY(!submenu(&menu, 2));
}

void tst_CParameterFileMenu::submenusAreFilledWhenTheyShow()
{
    const Tree inner{node(STreeNode::SingleRcv, QStringLiteral("C")), node(STreeNode::MultiRcv, QStringLiteral("M"))};
    const Tree outer{node(STreeNode::SingleRcv, QStringLiteral("B")),
                     node(STreeNode::Group, QStringLiteral("H"), inner)};
    const CParameterFileMenu menu({node(STreeNode::Group, QStringLiteral("G"), outer)});
    QMenu* const group = submenu(&menu, 2);
    QVERIFY(group->isEmpty());
    for (int i = 0; i < 2; ++i) { // filled once, however often it shows
        Q_EMIT group->aboutToShow();
        QCOMPARE(texts(group), QStringList({QStringLiteral("B"), QStringLiteral("H")}));
    }
    QVERIFY(submenu(group, 1)->isEmpty());
    Q_EMIT submenu(group, 1)->aboutToShow();
    QCOMPARE(texts(submenu(group, 1)), QStringList({QStringLiteral("C")}));
}

void tst_CParameterFileMenu::typesHaveTheIconAndThePath()
{
    const CParameterFileMenu menu({node(STreeNode::SingleRcv, QStringLiteral("A"))});
    const QAction* const type = menu.actions().at(2);
    QCOMPARE(type->icon().pixmap(16).toImage(),
             QIcon(QStringLiteral(":/Image/SettingArea/TypeLibrary/product-single.svg")).pixmap(16).toImage());
    QVERIFY(!type->icon().isNull());
    QCOMPARE(CParameterFileMenu::pathOf(type), QStringLiteral("/library/A"));
    QCOMPARE(CParameterFileMenu::pathOf(menu.browseAction()), QString());
    QVERIFY(menu.browseAction()->icon().isNull());
}

void tst_CParameterFileMenu::groupsWithoutEntriesStayShut()
{
    const CParameterFileMenu menu(
        {node(STreeNode::Group, QStringLiteral("Empty")),
         node(STreeNode::Group, QStringLiteral("Multi"), {node(STreeNode::MultiRcv, QStringLiteral("M"))}),
         node(STreeNode::Group, QStringLiteral("Full"), types(1, QStringLiteral("X")))});
    QCOMPARE(texts(&menu).mid(2),
             QStringList({QStringLiteral("Empty"), QStringLiteral("Multi"), QStringLiteral("Full")}));
    QVERIFY(!menu.actions().at(2)->isEnabled());
    QVERIFY(!menu.actions().at(3)->isEnabled());
    QVERIFY(menu.actions().at(4)->isEnabled());
}

void tst_CParameterFileMenu::namesAreShownAsTheyStand()
{
    const CParameterFileMenu menu(
        {node(STreeNode::SingleRcv, QStringLiteral("A&B &&")), node(STreeNode::SingleRcv, QStringLiteral("A\tB")),
         node(STreeNode::SingleRcv, QString(200, QLatin1Char('x'))), node(STreeNode::Group, QStringLiteral("&G"))});
    QCOMPARE(texts(&menu).at(2), QStringLiteral("A&&B &&&&"));
    QCOMPARE(texts(&menu).at(3), QStringLiteral("A B"));
    QVERIFY(texts(&menu).at(4).size() < 200);
    QVERIFY(texts(&menu).at(4).contains(QChar(0x2026)));
    QCOMPARE(texts(&menu).at(5), QStringLiteral("&&G"));
    QVERIFY(menu.sizeHint().width() < 600);
}

void tst_CParameterFileMenu::widths()
{
    const Tree inner{node(STreeNode::Group, QStringLiteral("H"), types(1, QStringLiteral("X")))};
    const CParameterFileMenu menu({node(STreeNode::Group, QStringLiteral("G"), inner)});
    QMenu* const group = submenu(&menu, 2);
    Q_EMIT group->aboutToShow();
    for (const QMenu* one : {static_cast<const QMenu*>(&menu), static_cast<const QMenu*>(group),
                             static_cast<const QMenu*>(submenu(group, 0))})
        QCOMPARE(one->minimumWidth(), 313);
}

void tst_CParameterFileMenu::veryManyTypesAreDivided()
{
    const CParameterFileMenu whole(types(1000, QStringLiteral("T")));
    QCOMPARE(whole.actions().size(), 1002);

    const CParameterFileMenu menu(types(2001, QStringLiteral("T")));
    QCOMPARE(texts(&menu).mid(2),
             QStringList({QStringLiteral("T00000 \u2013 T00999"), QStringLiteral("T01000 \u2013 T01999"),
                          QStringLiteral("T02000 \u2013 T02000")}));
    Q_EMIT submenu(&menu, 3)->aboutToShow();
    QCOMPARE(submenu(&menu, 3)->actions().size(), 1000);
    QCOMPARE(submenu(&menu, 3)->actions().constFirst()->text(), QStringLiteral("T01000"));
    QCOMPARE(CParameterFileMenu::pathOf(submenu(&menu, 3)->actions().constLast()), QStringLiteral("/library/T01999"));
}

void tst_CParameterFileMenu::fillsWhatIsOpened_data()
{
    QTest::addColumn<bool>("inGroups");
    QTest::addColumn<int>("submenus");
    QTest::addColumn<int>("entries");
    QTest::newRow("one folder") << false << 10 << 1000;
    QTest::newRow("a hundred groups") << true << 100 << 100;
}

// What a menu of 10,000 types takes to open is the work for the entries that it makes.
void tst_CParameterFileMenu::fillsWhatIsOpened()
{
    QFETCH(bool, inGroups);
    QFETCH(int, submenus);
    QFETCH(int, entries);
    Tree tree;
    if (inGroups) {
        for (int i = 0; i < 100; ++i)
            tree.push_back(node(STreeNode::Group, QStringLiteral("G%1").arg(i), types(100, QStringLiteral("T"))));
    } else {
        tree = types(10000, QStringLiteral("T"));
    }
    CParameterFileMenu menu(std::move(tree));
    open(&menu);
    QMenu* const first = submenu(&menu, 2);
    open(first);
    QCOMPARE(menu.actions().size(), 2 + submenus);
    QCOMPARE(first->actions().size(), entries);
    int filled = 0;
    for (int i = 0; i < submenus; ++i)
        filled += submenu(&menu, 2 + i)->actions().size();
    QCOMPARE(filled, entries);
    first->hide();
    menu.hide();
}

void tst_CParameterFileMenu::longMenuScrolls()
{
    CParameterFileMenu menu(types(500, QStringLiteral("T")));
    open(&menu);
    QVERIFY(menu.height() <= menu.screen()->geometry().height());
    QVERIFY(menu.width() < 2 * 313); // one column
    QTest::keyClick(&menu, Qt::Key_Down);
    QCOMPARE(menu.activeAction(), menu.browseAction());
    QTest::keyClick(&menu, Qt::Key_Up); // to the last entry
    QCOMPARE(menu.activeAction(), menu.actions().constLast());
    QVERIFY(menu.rect().contains(menu.actionGeometry(menu.activeAction())));
    menu.hide();
}

void tst_CParameterFileMenu::triggeredComesFromSubmenus()
{
    const Tree inner{node(STreeNode::Group, QStringLiteral("H"), types(1, QStringLiteral("X")))};
    CParameterFileMenu menu({node(STreeNode::Group, QStringLiteral("G"), inner)});
    QMenu* const group = submenu(&menu, 2);
    Q_EMIT group->aboutToShow();
    Q_EMIT submenu(group, 0)->aboutToShow();
    QStringList chosen;
    connect(&menu, &QMenu::triggered, this,
            [&](QAction* action) { chosen.append(CParameterFileMenu::pathOf(action)); });
    submenu(group, 0)->actions().constFirst()->trigger();
    QCOMPARE(chosen, QStringList({QStringLiteral("/library/X00000")}));
}

void tst_CParameterFileMenu::followsTheLanguage()
{
    CParameterFileMenu menu({});
    German german;
    QCoreApplication::installTranslator(&german);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(menu.browseAction()->text(), QStringLiteral("Durchsuchen..."));
    QCoreApplication::removeTranslator(&german);
}

SETTINGAREA_TEST_MAIN(tst_CParameterFileMenu, QApplication)

#include "tst_CParameterFileMenu.moc"
