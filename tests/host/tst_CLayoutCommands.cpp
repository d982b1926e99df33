#include "host/CLayoutCommands.h"
#include "host/CMainWindow.h"
#include "host/CPlacedTypesPanel.h"
#include "host/project/Project.h"
#include "plugin/interface/SSettings.h"
#include "tests/support/TestObject.h"

#include <QAction>
#include <QApplication>
#include <QListWidget>
#include <QStandardItemModel>
#include <QTreeView>

using NodeType = SSettings::TypeLibrary::STreeNode::NodeType;

namespace {

SMD5 digestOf(char character)
{
    SMD5 md5;
    if (character != '\0')
        std::fill_n(md5.data, 32, character);
    return md5;
}

QStandardItem* entry(const QString& name, NodeType type, char digest = '\0')
{
    auto* const item = new QStandardItem(name);
    item->setData(int(type), 260);
    item->setData(QVariant::fromValue(digestOf(digest)), 262);
    item->setData(QStringLiteral("/types/") + name, 263);
    return item;
}

} // namespace

class tst_CLayoutCommands : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nothingIsPossibleAtFirst();
    void whatCanBePlaced_data();
    void whatCanBePlaced();
    void aTypeIsPlacedAndRemoved();
    void theListFollowsTheTree();
    void aTypeOfTheListIsRemoved();
    void anotherProjectIsShown();
    void aModelThatIsSetLaterIsFollowed();
    void onlyWhatIsBelowTheRootCanBePlaced();
    void aCurrentTypeThatIsNotSelectedIsNone();
    void aHiddenTreePlacesNothing();
    void anAreaWithoutATreePlacesNothing();
    void theTreeMayGoFirst();

private:
    QAction* place() const { return m_window->action(CMainWindow::PlaceInLayout); }
    QAction* remove() const { return m_window->action(CMainWindow::RemoveFromLayout); }
    void select(int row) { m_tree->setCurrentIndex(m_model.index(row, 0)); }

    enum Row
    {
        Group,
        Single,
        Multi,
        Unreadable,
        Other,
    };

    QStandardItemModel m_model;
    std::unique_ptr<Project> m_project;
    std::unique_ptr<CMainWindow> m_window;
    std::unique_ptr<QTreeView> m_tree;
    std::unique_ptr<CLayoutCommands> m_commands;
};

void tst_CLayoutCommands::init()
{
    TestObject::init();
    m_model.clear();
    m_model.appendRow(entry(QStringLiteral("Indoor"), NodeType::Group));
    m_model.appendRow(entry(QStringLiteral("P4.8.rcvp"), NodeType::SingleRcv, 'a'));
    m_model.appendRow(entry(QStringLiteral("P3-2x2.rcvbp"), NodeType::MultiRcv, 'b'));
    m_model.appendRow(entry(QStringLiteral("Locked.rcvp"), NodeType::SingleRcv));
    m_model.appendRow(entry(QStringLiteral("notes.txt"), NodeType::None, 'c'));
    m_project = std::make_unique<Project>();
    m_window = std::make_unique<CMainWindow>();
    m_tree = std::make_unique<QTreeView>();
    m_tree->setModel(&m_model);
    m_tree->show();
    m_commands = std::make_unique<CLayoutCommands>(*m_project, *m_window, m_tree.get());
}

void tst_CLayoutCommands::cleanup()
{
    m_commands.reset();
    m_window.reset();
    m_tree.reset();
    TestObject::cleanup();
}

void tst_CLayoutCommands::nothingIsPossibleAtFirst()
{
    QVERIFY(!place()->isEnabled());
    QVERIFY(!remove()->isEnabled());
}

void tst_CLayoutCommands::whatCanBePlaced_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("possible");
    QTest::newRow("group") << int{Group} << false;
    QTest::newRow("single-receiver type") << int{Single} << true;
    QTest::newRow("multi-receiver type") << int{Multi} << true;
    QTest::newRow("file without digest") << int{Unreadable} << false;
    QTest::newRow("file of another kind") << int{Other} << false;
}

void tst_CLayoutCommands::whatCanBePlaced()
{
    QFETCH(int, row);
    QFETCH(bool, possible);
    select(row);
    QCOMPARE(place()->isEnabled(), possible);
    QVERIFY(!remove()->isEnabled());
    m_tree->clearSelection();
    QVERIFY(!place()->isEnabled());
}

void tst_CLayoutCommands::aTypeIsPlacedAndRemoved()
{
    select(Single);
    place()->trigger();
    QCOMPARE(m_project->placedTypes().size(), 1);
    QCOMPARE(m_project->placedTypes().at(0).name, QStringLiteral("P4.8"));
    QCOMPARE(m_project->placedTypes().at(0).digest, QString(32, QLatin1Char('a')));
    QVERIFY(m_project->isModified());
    QVERIFY(!place()->isEnabled()); // once is enough
    QVERIFY(remove()->isEnabled());
    QCOMPARE(m_window->placedTypes()->currentRow(), 0);

    remove()->trigger();
    QCOMPARE(m_project->placedTypes().size(), 0);
    QVERIFY(place()->isEnabled());
    QVERIFY(!remove()->isEnabled());
}

void tst_CLayoutCommands::theListFollowsTheTree()
{
    for (const int row : {Multi, Single}) {
        select(row);
        place()->trigger();
    }
    QCOMPARE(m_window->placedTypes()->currentRow(), 1);
    select(Multi);
    QCOMPARE(m_window->placedTypes()->currentRow(), 0);
    QVERIFY(remove()->isEnabled());
    select(Group);
    QCOMPARE(m_window->placedTypes()->currentRow(), -1);
    QVERIFY(!remove()->isEnabled());
    // What another entry has copied is the same type.
    m_model.item(Unreadable)->setData(QVariant::fromValue(digestOf('a')), 262);
    select(Unreadable);
    QCOMPARE(m_window->placedTypes()->currentRow(), 1);
    QVERIFY(!place()->isEnabled());
}

void tst_CLayoutCommands::aTypeOfTheListIsRemoved()
{
    for (const int row : {Multi, Single}) {
        select(row);
        place()->trigger();
    }
    auto* const list = m_window->findChild<QListWidget*>(QStringLiteral("PlacedTypes"));
    m_window->show();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
    remove()->trigger();
    QCOMPARE(m_project->placedTypes().size(), 1);
    QVERIFY(!m_project->places(digestOf('b')));
    QVERIFY(m_project->places(digestOf('a')));
    QVERIFY(!remove()->isEnabled());
}

void tst_CLayoutCommands::anotherProjectIsShown()
{
    select(Single);
    place()->trigger();
    m_project->clear();
    QCOMPARE(m_window->findChild<QListWidget*>(QStringLiteral("PlacedTypes"))->count(), 0);
    QVERIFY(place()->isEnabled());
    QVERIFY(!remove()->isEnabled());
}

void tst_CLayoutCommands::aModelThatIsSetLaterIsFollowed()
{
    m_commands.reset();
    m_tree->setModel(nullptr);
    m_commands = std::make_unique<CLayoutCommands>(*m_project, *m_window, m_tree.get());
    QVERIFY(!place()->isEnabled());
    m_tree->setModel(&m_model);
    m_commands->followLibrary();
    m_commands->followLibrary();
    select(Single);
    QVERIFY(place()->isEnabled());
    m_tree->setModel(nullptr);
    m_commands->followLibrary();
    QVERIFY(!place()->isEnabled());
}

void tst_CLayoutCommands::onlyWhatIsBelowTheRootCanBePlaced()
{
    m_model.item(Group)->appendRow(entry(QStringLiteral("P2.rcvp"), NodeType::SingleRcv, 'd'));
    select(Single);
    m_tree->setRootIndex(m_model.index(Group, 0));
    m_commands->followLibrary();
    QVERIFY(!place()->isEnabled());
    m_tree->setCurrentIndex(m_model.index(0, 0, m_tree->rootIndex()));
    QVERIFY(place()->isEnabled());
}

// As a tree that gets the focus makes its first entry current.
void tst_CLayoutCommands::aCurrentTypeThatIsNotSelectedIsNone()
{
    m_tree->selectionModel()->setCurrentIndex(m_model.index(Single, 0), QItemSelectionModel::NoUpdate);
    QVERIFY(!place()->isEnabled());
}

// The tab with the tree may not be the one that is shown: nobody sees then what would be placed.
void tst_CLayoutCommands::aHiddenTreePlacesNothing()
{
    select(Single);
    QVERIFY(place()->isEnabled());
    m_tree->hide();
    place()->trigger();
    QCOMPARE(m_project->placedTypes().size(), 0);
    QTRY_VERIFY(!place()->isEnabled());
    m_tree->show();
    QTRY_VERIFY(place()->isEnabled());
}

void tst_CLayoutCommands::anAreaWithoutATreePlacesNothing()
{
    m_commands.reset();
    m_commands = std::make_unique<CLayoutCommands>(*m_project, *m_window, nullptr);
    QVERIFY(!place()->isEnabled());
    QVERIFY(m_project->place(digestOf('a'), QStringLiteral("P4")));
    m_window->placedTypes()->setCurrentRow(0);
    QVERIFY(remove()->isEnabled());
    remove()->trigger();
    QCOMPARE(m_project->placedTypes().size(), 0);
}

void tst_CLayoutCommands::theTreeMayGoFirst()
{
    select(Single);
    place()->trigger();
    m_tree.reset();
    QCoreApplication::processEvents();
    QVERIFY(remove()->isEnabled());
    QVERIFY(!place()->isEnabled());
    m_project->clear();
    QVERIFY(!place()->isEnabled());
}

SETTINGAREA_TEST_MAIN(tst_CLayoutCommands, QApplication)
#include "tst_CLayoutCommands.moc"
