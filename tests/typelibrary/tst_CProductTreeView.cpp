#include "cellbuttons/CCellButtonDelegate.h"
#include "tests/typelibrary/ViewFixture.h"
#include "typelibrary/CProductNameDelegate.h"
#include "typelibrary/CProductTreeDelegate.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QShortcut>
#include <QSignalSpy>

// The view itself: what it shows, keys, mouse and menu, and the switch.
class tst_CProductTreeView : public ViewFixture
{
    Q_OBJECT

private Q_SLOTS:
    void setup();
    void columns();
    void anotherLibrary();
    void vanishedLibrary();
    void rowsAreTold();
    void targetDirectory_();

    void renameKey();
    void deleteKey();
    void keysInTheEditor();
    void renameButton();
    void deleteButton();
    void clickOnEmptySpace();

    void menuMakesItsEntryCurrent();
    void menuOnEmptySpace();
    void menuByKey();
    void menuKeepsNoKeys();
    void deleteKeyWhileTheMenuIsOpen();
    void entryVanishesWhileTheMenuIsOpen();
    void viewDestroyedWhileTheMenuIsOpen();
    void triggeredEntry();

    void editableSwitch();
    void editableSwitchDuringAnOperation();

private:
    QLineEdit* editor() const { return qobject_cast<QLineEdit*>(view->indexWidget(view->currentIndex())); }
    void clickButton(const QString& entry, int button)
    {
        const QRect cell = view->visualRect(indexOf(entry).siblingAtColumn(CProductTreeModel::OperateColumn));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, CCellButtonDelegate::buttonRect(cell, button).center());
    }
    QPoint emptySpace() const { return view->viewport()->rect().bottomLeft() + QPoint(5, -5); }
    bool sendContextMenu(QContextMenuEvent::Reason reason, const QPoint& position)
    {
        QContextMenuEvent event(reason, position, view->viewport()->mapToGlobal(position));
        QWidget* const receiver = reason == QContextMenuEvent::Mouse ? view->viewport() : view.get();
        QCoreApplication::sendEvent(receiver, &event);
        return QApplication::activePopupWidget();
    }
};

void tst_CProductTreeView::setup()
{
    QCOMPARE(view->objectName(), QStringLiteral("TypeLibrary"));
    QCOMPARE(view->selectionMode(), QAbstractItemView::SingleSelection);
    QCOMPARE(view->selectionBehavior(), QAbstractItemView::SelectRows);
    QVERIFY(!view->isHeaderHidden());
    QCOMPARE(view->dragDropMode(), QAbstractItemView::NoDragDrop);
    QVERIFY(!view->dragEnabled());
    QVERIFY(!view->viewport()->acceptDrops());
    QCOMPARE(view->editTriggers(), QAbstractItemView::NoEditTriggers);
    QVERIFY(qobject_cast<CProductNameDelegate*>(view->itemDelegateForColumn(0)));
    QVERIFY(!view->itemDelegateForColumn(1));
    QVERIFY(qobject_cast<CProductTreeDelegate*>(view->itemDelegateForColumn(2)));
    QVERIFY(!view->model());
    QVERIFY(!view->hasRows());
    QVERIFY(!view->targetDirectory().isValid());
}

void tst_CProductTreeView::columns()
{
    write(QStringLiteral("a.rcvp"), "a");
    view->resize(1100, 600);
    load();
    QCOMPARE(view->header()->count(), 3);
    QCOMPARE(view->header()->sectionSize(0), 511);
    QCOMPARE(view->header()->sectionSize(1), 200);
    for (int column = 0; column < 3; ++column)
        QVERIFY(!view->isColumnHidden(column));
    QCOMPARE(view->visualRect(indexOf(QStringLiteral("a.rcvp"))).height(), 28);
    QCOMPARE(static_cast<CProductTreeModel*>(view->model())->rootPath(), library->path());
    QCOMPARE(view->rootIndex().data(CProductTreeModel::PathRole).toString(), library->path());
}

void tst_CProductTreeView::anotherLibrary()
{
    write(QStringLiteral("a.rcvp"), "a");
    put(QStringLiteral("b.rcvp"), "b");
    load();
    makeCurrent(QStringLiteral("a.rcvp"));
    view->setRootPath(library->path()); // again: nothing changes
    QCOMPARE(currentName(), QStringLiteral("a.rcvp"));
    view->setRootPath(outside->path());
    QTRY_COMPARE(rows(), QStringList({QStringLiteral("b.rcvp")}));
    QVERIFY(!view->currentIndex().isValid());
    QCOMPARE(view->targetDirectory(), view->rootIndex());
    view->setRootPath({});
    QVERIFY(!view->model());
    QVERIFY(!view->hasRows());
}

void tst_CProductTreeView::vanishedLibrary()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    makeCurrent(QStringLiteral("G/a.rcvp"));
    QVERIFY(QDir(library->path()).removeRecursively());
    QTRY_VERIFY(!view->model());
    QVERIFY(!view->targetDirectory().isValid());
    ModalScript script;
    view->newTypeFolder();
    view->importAsFolder();
    view->importCabinetFiles();
    view->clear();
    view->exportAll();
    view->exportCurrent();
    view->editIndex(view->currentIndex());
    QCOMPARE(script.seen(), QStringList());
    QVERIFY(!QFile::exists(library->path()));
}

void tst_CProductTreeView::rowsAreTold()
{
    load();
    QVERIFY(!view->hasRows());
    const auto told = std::make_shared<QList<bool>>();
    told->append(false);
    connect(view.get(), &CProductTreeView::notifyRowsChanged, this, [this, told] {
        if (told->last() != view->hasRows())
            told->append(view->hasRows());
    });
    write(QStringLiteral("a.rcvp"), "a");
    QTRY_COMPARE(*told, QList<bool>({false, true}));
    QFile::remove(pathOf(QStringLiteral("a.rcvp")));
    QTRY_COMPARE(*told, QList<bool>({false, true, false}));
    put(QStringLiteral("b.rcvp"), "b");
    view->setRootPath(outside->path());
    QTRY_COMPARE(*told, QList<bool>({false, true, false, true}));
    view->setRootPath({});
    QCOMPARE(*told, QList<bool>({false, true, false, true, false}));
}

void tst_CProductTreeView::targetDirectory_()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    write(QStringLiteral("b.rcvp"), "b");
    load();
    QCOMPARE(view->targetDirectory(), view->rootIndex());
    const QModelIndex group = indexOf(QStringLiteral("G"));
    makeCurrent(QStringLiteral("G"));
    QCOMPARE(view->targetDirectory(), group);
    makeCurrent(QStringLiteral("G/a.rcvp"));
    QCOMPARE(view->targetDirectory(), group);
    view->setCurrentIndex(view->currentIndex().siblingAtColumn(2));
    QCOMPARE(view->targetDirectory(), group);
    makeCurrent(QStringLiteral("b.rcvp"));
    QCOMPARE(view->targetDirectory(), view->rootIndex());
}

void tst_CProductTreeView::renameKey()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    QTest::keyClick(view.get(), Qt::Key_F2); // nothing is current
    QVERIFY(!editor());
    view->setCurrentIndex(indexOf(QStringLiteral("a.rcvp")).siblingAtColumn(1)); // whatever column
    QTest::keyClick(view.get(), Qt::Key_F2);
    QVERIFY(editor());
    QCOMPARE(editor()->text(), QStringLiteral("a"));
}

void tst_CProductTreeView::deleteKey()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    ModalScript script;
    script.press(CDialog::Yes);
    QTest::keyClick(view.get(), Qt::Key_Delete);
    QCOMPARE(script.seen(), QStringList());
    makeCurrent(QStringLiteral("a.rcvp"));
    QTest::keyClick(view.get(), Qt::Key_Delete);
    QCOMPARE(script.seen(), QStringList({question("Are you sure want to delete type(a)?")}));
    QCOMPARE(libraryContent(), QStringList());
    QVERIFY(agree());
}

void tst_CProductTreeView::keysInTheEditor()
{
    write(QStringLiteral("abc.rcvp"), "a");
    load();
    makeCurrent(QStringLiteral("abc.rcvp"));
    QTest::keyClick(view.get(), Qt::Key_F2);
    ModalScript script;
    QTest::keyClick(editor(), Qt::Key_Home);
    QTest::keyClick(editor(), Qt::Key_Delete);
    QCOMPARE(editor()->text(), QStringLiteral("bc"));
    QTest::keyClick(editor(), Qt::Key_F2); // is open already
    QCOMPARE(editor()->text(), QStringLiteral("bc"));
    QCOMPARE(script.seen(), QStringList());
}

void tst_CProductTreeView::renameButton()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    clickButton(QStringLiteral("a.rcvp"), 0);
    QVERIFY(editor());
    QCOMPARE(editor()->text(), QStringLiteral("a"));
}

void tst_CProductTreeView::deleteButton()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    ModalScript script;
    script.press(CDialog::Yes);
    clickButton(QStringLiteral("G"), 1);
    QCOMPARE(script.seen(), QStringList({question("Are you sure want to delete type group(G)?")}));
    QCOMPARE(libraryContent(), QStringList());
    QVERIFY(agree());
}

void tst_CProductTreeView::clickOnEmptySpace()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        makeCurrent(QStringLiteral("G"));
        QTest::mouseClick(view->viewport(), button, {}, emptySpace());
        QVERIFY(!view->currentIndex().isValid());
        QVERIFY(!view->selectionModel()->hasSelection());
    }
    view->newTypeFolder();
    QVERIFY(QFile::exists(pathOf(QStringLiteral("New type folder"))));
    CProductTreeView none;
    none.show();
    QTest::mouseClick(none.viewport(), Qt::LeftButton);
}

void tst_CProductTreeView::menuMakesItsEntryCurrent()
{
    write(QStringLiteral("a.rcvp"), "a");
    write(QStringLiteral("b.rcvp"), "b");
    load();
    makeCurrent(QStringLiteral("a.rcvp"));
    const QPoint position = view->visualRect(indexOf(QStringLiteral("b.rcvp"))).center();
    QVERIFY(sendContextMenu(QContextMenuEvent::Mouse, position));
    QCOMPARE(currentName(), QStringLiteral("b.rcvp"));
    QCOMPARE(QApplication::activePopupWidget()->pos(), view->viewport()->mapToGlobal(position));
    const QPointer<QWidget> menu = QApplication::activePopupWidget();
    menu->close();
    QTRY_VERIFY(!menu);
}

void tst_CProductTreeView::menuOnEmptySpace()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    indexOf(QStringLiteral("a.rcvp"));
    QVERIFY(!sendContextMenu(QContextMenuEvent::Mouse, emptySpace()));
    QVERIFY(!sendContextMenu(QContextMenuEvent::Keyboard, QPoint(5, 5))); // nothing is current
    CProductTreeView none;
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5});
    QCoreApplication::sendEvent(none.viewport(), &event);
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_CProductTreeView::menuByKey()
{
    for (int i = 0; i < 50; ++i)
        write(QStringLiteral("%1.rcvp").arg(i, 2, 10, QLatin1Char('0')), QByteArray::number(i));
    load();
    makeCurrent(QStringLiteral("40.rcvp"));
    view->scrollToTop();
    QVERIFY(sendContextMenu(QContextMenuEvent::Keyboard, QPoint(5, 5)));
    const QRect row = view->visualRect(view->currentIndex());
    QVERIFY(view->viewport()->rect().contains(row.center()));
    QCOMPARE(currentName(), QStringLiteral("40.rcvp"));
    QWidget* const menu = QApplication::activePopupWidget();
    QTest::keyClick(menu, Qt::Key_Down);
    QCOMPARE(static_cast<QMenu*>(menu)->activeAction()->text(), QStringLiteral("Import as folder"));
    QTest::keyClick(menu, Qt::Key_Escape);
    QVERIFY(!QApplication::activePopupWidget());
}

// Ctrl+N and Ctrl+I are the page's: beside a menu there is no second one to answer to them.
void tst_CProductTreeView::menuKeepsNoKeys()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    load();
    std::vector<std::unique_ptr<QSignalSpy>> pressed;
    for (const char* const key : {"Ctrl+N", "Ctrl+I"}) {
        auto* const shortcut = new QShortcut(QKeySequence(QLatin1String(key)), view.get());
        pressed.push_back(std::make_unique<QSignalSpy>(shortcut, &QShortcut::activated));
        connect(shortcut, &QShortcut::activatedAmbiguously, this, [] { QFAIL("The key is ambiguous"); });
    }
    ModalScript script;
    const QPointer<QMenu> menu = openMenu(QStringLiteral("G"));
    for (QWidget* const receiver : {static_cast<QWidget*>(menu), static_cast<QWidget*>(view.get())}) {
        QTest::keyClick(receiver, Qt::Key_N, Qt::ControlModifier);
        QTest::keyClick(receiver, Qt::Key_I, Qt::ControlModifier);
    }
    menu->close();
    QTRY_VERIFY(!menu);
    view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(view.get()));
    for (const auto& spy : pressed)
        spy->clear();
    QTest::keyClick(view.get(), Qt::Key_N, Qt::ControlModifier);
    QTest::keyClick(view.get(), Qt::Key_I, Qt::ControlModifier);
    for (const auto& spy : pressed)
        QCOMPARE(spy->count(), 1);
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("G/"), QStringLiteral("G/a.rcvp=a")}));
    QCOMPARE(script.seen(), QStringList());
}

void tst_CProductTreeView::deleteKeyWhileTheMenuIsOpen()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    const QPointer<QMenu> menu = openMenu(QStringLiteral("a.rcvp"));
    ModalScript script;
    script.press(CDialog::No);
    QTest::keyClick(menu, Qt::Key_Delete);
    QCOMPARE(script.seen(), QStringList({question("Are you sure want to delete type(a)?")}));
    QVERIFY(!QApplication::activePopupWidget());
    QTRY_VERIFY(!menu);
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("a.rcvp=a")}));
}

void tst_CProductTreeView::entryVanishesWhileTheMenuIsOpen()
{
    write(QStringLiteral("a.rcvp"), "a");
    write(QStringLiteral("b.rcvp"), "b");
    load();
    for (const char* text : {"Delete", "Rename", "Export current cabinet parameters", "Import as folder"}) {
        write(QStringLiteral("a.rcvp"), "a");
        QMenu* const menu = openMenu(QStringLiteral("a.rcvp"));
        QFile::remove(pathOf(QStringLiteral("a.rcvp")));
        QTRY_COMPARE(rows(), QStringList({QStringLiteral("b.rcvp")}));
        ModalScript script;
        const QList<QAction*> actions = menu->actions();
        for (QAction* action : actions) {
            if (action->text() == QLatin1String(text))
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        }
        QCoreApplication::processEvents();
        QCOMPARE(script.seen(), QStringList());
        QVERIFY(!editor());
    }
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("b.rcvp=b")}));
}

void tst_CProductTreeView::viewDestroyedWhileTheMenuIsOpen()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    const QPointer<QMenu> menu = openMenu(QStringLiteral("a.rcvp"));
    QVERIFY(menu);
    view.reset();
    QVERIFY(!menu);
}

void tst_CProductTreeView::triggeredEntry()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    const QPointer<QMenu> menu = openMenu(QStringLiteral("a.rcvp"));
    ModalScript script;
    script.press(CDialog::Yes);
    menu->actions().at(4)->trigger(); // by an assistive tool, say
    QVERIFY(!menu->isVisible());
    QTRY_COMPARE(libraryContent(), QStringList());
    QTRY_VERIFY(!menu);
}

void tst_CProductTreeView::editableSwitch()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    makeCurrent(QStringLiteral("a.rcvp"));
    const auto* const buttons = view->findChild<CProductTreeDelegate*>();
    ModalScript script;
    view->setEditable(false);
    QVERIFY(!buttons->isEnabled());
    QTest::keyClick(view.get(), Qt::Key_F2);
    QTest::keyClick(view.get(), Qt::Key_Delete);
    clickButton(QStringLiteral("a.rcvp"), 0);
    clickButton(QStringLiteral("a.rcvp"), 1);
    QVERIFY(!editor());
    QVERIFY(!sendContextMenu(QContextMenuEvent::Mouse, view->visualRect(view->currentIndex()).center()));
    QVERIFY(!sendContextMenu(QContextMenuEvent::Keyboard, {}));
    QCOMPARE(script.seen(), QStringList());
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("a.rcvp=a")}));

    view->setEditable(true);
    QVERIFY(buttons->isEnabled());
    QTest::keyClick(view.get(), Qt::Key_F2);
    QVERIFY(editor());
    QTest::keyClick(editor(), Qt::Key_Escape);
    QTRY_VERIFY(!editor());
    QVERIFY(openMenu(QStringLiteral("a.rcvp")));
}

void tst_CProductTreeView::editableSwitchDuringAnOperation()
{
    write(QStringLiteral("a.rcvp"), "a");
    load();
    view->editIndex(indexOf(QStringLiteral("a.rcvp")));
    QTest::keyClicks(editor(), QStringLiteral("b"));
    view->setEditable(false);
    QTRY_VERIFY(!editor());
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("a.rcvp=a")}));
    view->setEditable(true);
    QPointer<QMenu> menu = openMenu(QStringLiteral("a.rcvp"));
    view->setEditable(false);
    QVERIFY(!menu->isVisible());
    view->setEditable(true);
    menu = openMenu(QStringLiteral("a.rcvp"));
    menu->actions().at(4)->trigger(); // "Delete", which has not begun yet
    view->setEditable(false);
    ModalScript script;
    QTRY_VERIFY(!menu);
    QCOMPARE(script.seen(), QStringList());
    QCOMPARE(libraryContent(), QStringList({QStringLiteral("a.rcvp=a")}));
}

SETTINGAREA_TEST_MAIN(tst_CProductTreeView, QApplication)

#include "tst_CProductTreeView.moc"
