#include "tests/support/FileFixture.h"
#include "tests/typelibrary/ModelFixture.h"
#include "typelibrary/CProductFileIconProvider.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QApplication>
#include <QTreeView>

using NodeType = SSettings::TypeLibrary::STreeNode::NodeType;

// What the model shows, and how it follows the disk.
class tst_CProductTreeModel : public ModelFixture
{
    Q_OBJECT

private Q_SLOTS:
    void columnsAndHeaders();
    void onlyTypeFilesAndFoldersAreShown();
    void texts();
    void resolutionFollowsTheFile();
    void roles();
    void capitalSuffixIsNoType();
    void alignment();
    void flagsOfEachColumn();
    void expanders_data();
    void expanders();
    void icons();
    void iconsAreNeverOutOfDate();
    void followsTheDisk();
    void knownAttributesAreNotAskedForAgain();
    void linksKeepTheirOwnPath();
};

void tst_CProductTreeModel::columnsAndHeaders()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    QCOMPARE(model->columnCount(), 3);
    QCOMPARE(model->columnCount(indexOf(QStringLiteral("G"))), 3);
    for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
        QCOMPARE(model->headerData(0, orientation).toString(), QStringLiteral("Type"));
        QCOMPARE(model->headerData(1, orientation).toString(), QStringLiteral("Resolution"));
        QCOMPARE(model->headerData(2, orientation).toString(), QStringLiteral("Operate"));
    }
    const QFileSystemModel base;
    QCOMPARE(model->headerData(3, Qt::Horizontal), base.headerData(3, Qt::Horizontal));
    QCOMPARE(model->headerData(0, Qt::Horizontal, Qt::TextAlignmentRole),
             base.headerData(0, Qt::Horizontal, Qt::TextAlignmentRole));
}

void tst_CProductTreeModel::onlyTypeFilesAndFoldersAreShown()
{
    write(QStringLiteral("a.rcvp"), "a");
    write(QStringLiteral("b.rcvbp"), "b");
    write(QStringLiteral("c.txt"), "c");
    write(QStringLiteral("G/d.rcvp"), "d");
    QVERIFY(indexOf(QStringLiteral("b.rcvbp")).isValid());
    QTRY_COMPARE(model->rowCount(root), 3);
    QVERIFY(!model->nameFilterDisables());
    QCOMPARE(model->nameFilters(), QStringList({QStringLiteral("*.rcvp"), QStringLiteral("*.rcvbp")}));
}

void tst_CProductTreeModel::texts()
{
    write(QStringLiteral("North.A/P2.5 indoor.rcvp"), "a");
    const QModelIndex file = indexOf(QStringLiteral("North.A/P2.5 indoor.rcvp"));
    const QModelIndex group = file.parent();
    QCOMPARE(file.data().toString(), QStringLiteral("P2.5 indoor.rcvp"));
    QCOMPARE(file.data(Qt::EditRole).toString(), QStringLiteral("P2.5 indoor"));
    QCOMPARE(file.data(QFileSystemModel::FileNameRole).toString(), QStringLiteral("P2.5 indoor"));
    QCOMPARE(file.siblingAtColumn(1).data().toString(), QStringLiteral("128x64"));
    QCOMPARE(group.data().toString(), QStringLiteral("North.A"));
    QCOMPARE(group.data(Qt::EditRole).toString(), QStringLiteral("North.A"));
    QCOMPARE(group.data(QFileSystemModel::FileNameRole).toString(), QStringLiteral("North"));
    QCOMPARE(group.siblingAtColumn(1).data().toString(), QString());
    QVERIFY(!QModelIndex().data().isValid());
}

void tst_CProductTreeModel::resolutionFollowsTheFile()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    handler->resolution = [](const QString&) { return QSize(-1, -1); };
    const QModelIndex index = indexOf(QStringLiteral("a.rcvp")).siblingAtColumn(1);
    QCOMPARE(index.data().toString(), QStringLiteral("-1x-1"));
    removeFromCache(path);
    handler->resolution = [](const QString&) { return QSize(1920, 1080); };
    QCOMPARE(index.data().toString(), QStringLiteral("1920x1080"));
}

void tst_CProductTreeModel::roles()
{
    const QString path = write(QStringLiteral("G/a.rcvbp"), "content");
    handler->isMulti = [](const QString&) { return true; };
    const QModelIndex file = indexOf(QStringLiteral("G/a.rcvbp"));
    const QModelIndex group = file.parent();
    QCOMPARE(int(QFileSystemModel::FileNameRole), 258);
    QCOMPARE(file.data(260).toInt(), 2);
    QCOMPARE(file.data(261).toSize(), QSize(128, 64));
    QCOMPARE(QByteArray(file.data(262).typeName()), QByteArray("SMD5"));
    QCOMPARE(QByteArray(file.data(262).value<SMD5>().data), QByteArray("9a0364b9e99bb480dd25e1f0284c8555"));
    QCOMPARE(file.data(263).toString(), path);
    QCOMPARE(group.data(260).toInt(), 1);
    QCOMPARE(group.data(261).type(), QVariant::Size);
    QCOMPARE(group.data(261).toSize(), QSize(-1, -1));
    QVERIFY(!group.data(262).isValid());
    QCOMPARE(group.data(263).toString(), pathOf(QStringLiteral("G")));
    QCOMPARE(file.data(QFileSystemModel::FilePathRole).toString(), path);

    write(QStringLiteral("b.rcvp"), "b");
    handler->isMulti = [](const QString&) { return false; };
    QCOMPARE(indexOf(QStringLiteral("b.rcvp")).data(260).toInt(), 3);
}

void tst_CProductTreeModel::capitalSuffixIsNoType()
{
    const QString path = write(QStringLiteral("a.RCVP"), "a");
    const QModelIndex index = indexOf(QStringLiteral("a.RCVP"));
    QVERIFY(index.isValid());
    QCOMPARE(index.data(CProductTreeModel::NodeTypeRole).toInt(), int(NodeType::None));
    QCOMPARE(index.data(CProductTreeModel::ResolutionRole).toSize(), QSize(-1, -1));
    QVERIFY(isEmpty(index.data(CProductTreeModel::Md5Role).value<SMD5>()));
    QCOMPARE(index.siblingAtColumn(1).data().toString(), QStringLiteral("-1x-1"));
    QVERIFY(questionsAbout(path).isEmpty());
}

void tst_CProductTreeModel::alignment()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    const QModelIndex file = indexOf(QStringLiteral("G/a.rcvp"));
    for (int column = 0; column < 3; ++column) {
        QCOMPARE(file.siblingAtColumn(column).data(Qt::TextAlignmentRole).toInt(), 129);
        QCOMPARE(file.parent().siblingAtColumn(column).data(Qt::TextAlignmentRole).toInt(), 129);
    }
}

void tst_CProductTreeModel::flagsOfEachColumn()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    const QModelIndex file = indexOf(QStringLiteral("G/a.rcvp"));
    QCOMPARE(model->flags({}), Qt::ItemFlags());
    for (const QModelIndex& index : {file, file.parent()}) {
        QCOMPARE(model->flags(index), Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable);
        QCOMPARE(model->flags(index.siblingAtColumn(1)), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        QCOMPARE(model->flags(index.siblingAtColumn(2)), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    }
}

void tst_CProductTreeModel::expanders_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("hasChildren");
    QTest::newRow("empty folder") << QStringLiteral("empty") << false;
    QTest::newRow("folder with a text file only") << QStringLiteral("texts") << false;
    QTest::newRow("folder with an empty folder") << QStringLiteral("outer") << true;
    QTest::newRow("folder with a single type") << QStringLiteral("single") << true;
    QTest::newRow("folder with a multi type") << QStringLiteral("multi") << true;
    QTest::newRow("folder with a suffix in capitals") << QStringLiteral("capitals") << false;
    QTest::newRow("file") << QStringLiteral("a.rcvp") << false;
}

void tst_CProductTreeModel::expanders()
{
    makeFolder(QStringLiteral("empty"));
    write(QStringLiteral("texts/t.txt"), "t");
    makeFolder(QStringLiteral("outer/inner"));
    write(QStringLiteral("single/t.txt"), "t");
    write(QStringLiteral("single/x.rcvp"), "x");
    write(QStringLiteral("multi/x.rcvbp"), "x");
    write(QStringLiteral("capitals/x.RCVP"), "x");
    write(QStringLiteral("a.rcvp"), "a");

    QFETCH(QString, entry);
    QFETCH(bool, hasChildren);
    const QModelIndex index = indexOf(entry);
    QVERIFY(index.isValid());
    QCOMPARE(model->hasChildren(index), hasChildren);
    QCOMPARE(model->canFetchMore(index), hasChildren);
    QCOMPARE(model->hasChildren(index.siblingAtColumn(1)), false);
    QCOMPARE(model->canFetchMore(index.siblingAtColumn(2)), false);
    QCOMPARE(model->hasChildren({}), true);
    QCOMPARE(model->canFetchMore({}), true);
}

void tst_CProductTreeModel::icons()
{
    const QString multi = write(QStringLiteral("multi.rcvbp"), "m");
    write(QStringLiteral("single.rcvp"), "s");
    write(QStringLiteral("capitals.RCVP"), "c");
    makeFolder(QStringLiteral("G.rcvp"));
    handler->isMulti = [multi](const QString& path) { return path == multi; };

    const auto pixels = [](const QIcon& icon) { return icon.pixmap(16, 16).toImage(); };
    const auto resource = [&](const char* name) {
        return pixels(QIcon(QStringLiteral(":/Image/SettingArea/TypeLibrary/") + QLatin1String(name)));
    };
    const QImage groupIcon = resource("group-folder.svg");
    const QImage multiIcon = resource("product-multi.svg");
    const QImage singleIcon = resource("product-single.svg");
    QVERIFY(!groupIcon.isNull() && !multiIcon.isNull() && !singleIcon.isNull());
    QVERIFY(groupIcon != multiIcon && multiIcon != singleIcon && groupIcon != singleIcon);

    const CProductFileIconProvider provider;
    QCOMPARE(pixels(provider.icon(QFileIconProvider::Folder)), groupIcon);
    QCOMPARE(pixels(provider.icon(QFileIconProvider::Computer)),
             pixels(QFileIconProvider().icon(QFileIconProvider::Computer)));
    QCOMPARE(pixels(provider.icon(QFileInfo(pathOf(QStringLiteral("G.rcvp"))))), groupIcon);
    QCOMPARE(pixels(provider.icon(QFileInfo(multi))), multiIcon);
    QCOMPARE(pixels(provider.icon(QFileInfo(pathOf(QStringLiteral("single.rcvp"))))), singleIcon);
    QCOMPARE(pixels(provider.icon(QFileInfo(pathOf(QStringLiteral("capitals.RCVP"))))), singleIcon);
    QCOMPARE(pixels(provider.icon(QFileInfo(pathOf(QStringLiteral("gone.rcvp"))))), singleIcon);

    const QModelIndex index = indexOf(QStringLiteral("multi.rcvbp"));
    QTRY_COMPARE(pixels(index.data(Qt::DecorationRole).value<QIcon>()), multiIcon);
    QTRY_COMPARE(pixels(indexOf(QStringLiteral("G.rcvp")).data(Qt::DecorationRole).value<QIcon>()), groupIcon);
}

void tst_CProductTreeModel::iconsAreNeverOutOfDate()
{
    const QString path = write(QStringLiteral("a.rcvbp"), "multi");
    setStoreHandler(nullptr);
    const QModelIndex index = indexOf(QStringLiteral("a.rcvbp"));
    const CProductFileIconProvider provider;
    const auto shown = [&] { return index.data(Qt::DecorationRole).value<QIcon>().pixmap(16, 16).toImage(); };
    const QImage single = provider.iconOf(NodeType::SingleRcv).pixmap(16, 16).toImage();
    const QImage multi = provider.iconOf(NodeType::MultiRcv).pixmap(16, 16).toImage();
    QCOMPARE(shown(), single); // there is no host to ask

    bool isMulti = true;
    handler->isMulti = [&isMulti](const QString&) { return isMulti; };
    setStoreHandler(handler);
    QCOMPARE(shown(), multi);
    isMulti = false; // as if the file had been written anew
    QCOMPARE(shown(), multi);
    removeFromCache(path);
    QCOMPARE(shown(), single);
    QVERIFY(!index.siblingAtColumn(1).data(Qt::DecorationRole).isValid());
}

void tst_CProductTreeModel::followsTheDisk()
{
    write(QStringLiteral("a.rcvp"), "a");
    QVERIFY(indexOf(QStringLiteral("a.rcvp")).isValid());
    write(QStringLiteral("b.rcvp"), "b");
    QTRY_COMPARE(model->rowCount(root), 2);
    QVERIFY(QFile::remove(pathOf(QStringLiteral("a.rcvp"))));
    QTRY_COMPARE(model->rowCount(root), 1);
    QCOMPARE(model->index(0, 0, root).data().toString(), QStringLiteral("b.rcvp"));
}

void tst_CProductTreeModel::knownAttributesAreNotAskedForAgain()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    QTreeView view;
    view.setModel(model.get());
    const QModelIndex index = indexOf(QStringLiteral("G/a.rcvp"));
    view.setRootIndex(root);
    view.resize(600, 200);
    view.show();
    view.expandAll();
    view.grab();
    const auto known = index.data(CProductTreeModel::Md5Role).value<SMD5>();
    handler->forgetCalls();
    write(QStringLiteral("G/a.rcvp"), "other content, which hashing would see");
    for (int i = 0; i < 5; ++i)
        view.grab();
    for (int role = Qt::DisplayRole; role <= CProductTreeModel::PathRole; ++role)
        index.siblingAtColumn(role % 3).data(role);
    QCOMPARE(handler->calls(), QStringList());
    QVERIFY(index.data(CProductTreeModel::Md5Role).value<SMD5>() == known);
}

void tst_CProductTreeModel::linksKeepTheirOwnPath()
{
    QTemporaryDir elsewhere;
    const QString file = elsewhere.filePath(QStringLiteral("other.rcvp"));
    QVERIFY(writeFile(file, {}));
    QVERIFY(QFile::link(file, pathOf(QStringLiteral("link.rcvp"))));
    const QModelIndex index = indexOf(QStringLiteral("link.rcvp"));
    QCOMPARE(index.data(CProductTreeModel::PathRole).toString(), pathOf(QStringLiteral("link.rcvp")));
}

SETTINGAREA_TEST_MAIN(tst_CProductTreeModel, QApplication)

#include "tst_CProductTreeModel.moc"
