#include "tests/typelibrary/ModelFixture.h"

#include <widgetry/CMessageBox.h>

#include <QApplication>
#include <QPushButton>
#include <QTimer>

namespace {

// Where a type group must not get to.
QString movedAway()
{
    return QDir::tempPath() + QStringLiteral("/moved away");
}

} // namespace

// New names that are written into the model.
class tst_ProductTreeModelNames : public ModelFixture
{
    Q_OBJECT

private Q_SLOTS:
    void renamesAFile();
    void renamesAFolder();
    void followsTheDiskInARenamedFolder();
    void sameNameChangesNothing();
    void refusedEdits();
    void refusedNames_data();
    void refusedNames();
};

void tst_ProductTreeModelNames::renamesAFile()
{
    write(QStringLiteral("Cab 1.rcvp"), "content");
    const QPersistentModelIndex index = indexOf(QStringLiteral("Cab 1.rcvp"));
    QCOMPARE(index.data(Qt::EditRole).toString(), QStringLiteral("Cab 1"));
    QVERIFY(model->setData(index, QStringLiteral("Cab 2")));
    QCOMPARE(QDir(library->path()).entryList(QDir::Files), QStringList({QStringLiteral("Cab 2.rcvp")}));
    QVERIFY(index.isValid());
    QCOMPARE(index.data().toString(), QStringLiteral("Cab 2.rcvp"));
    QCOMPARE(index.data(CProductTreeModel::PathRole).toString(), pathOf(QStringLiteral("Cab 2.rcvp")));
}

void tst_ProductTreeModelNames::renamesAFolder()
{
    write(QStringLiteral("North.A/a.rcvp"), "a");
    const QPersistentModelIndex index = indexOf(QStringLiteral("North.A"));
    QVERIFY(model->setData(index, QStringLiteral("South")));
    QCOMPARE(QDir(library->path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList({QStringLiteral("South")}));
    QVERIFY(QFile::exists(pathOf(QStringLiteral("South/a.rcvp"))));
    QCOMPARE(index.data().toString(), QStringLiteral("South"));
}

void tst_ProductTreeModelNames::followsTheDiskInARenamedFolder()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    write(QStringLiteral("G/Sub/b.rcvp"), "b");
    QVERIFY(indexOf(QStringLiteral("G/Sub/b.rcvp")).isValid()); // which loads the folders
    QVERIFY(model->setData(indexOf(QStringLiteral("G")), QStringLiteral("H")));
    write(QStringLiteral("H/late.rcvp"), "late");
    write(QStringLiteral("H/Sub/late.rcvp"), "late");
    write(QStringLiteral("late.rcvp"), "late");
    QFile::remove(pathOf(QStringLiteral("H/a.rcvp")));
    const QModelIndex group = model->index(pathOf(QStringLiteral("H")));
    QTRY_COMPARE(model->rowCount(root), 2);
    QTRY_COMPARE(model->rowCount(group), 2);
    QTRY_COMPARE(model->rowCount(model->index(pathOf(QStringLiteral("H/Sub")))), 2);
    QTRY_COMPARE(model->index(1, 0, group).data().toString(), QStringLiteral("late.rcvp"));
    QCOMPARE(model->rootPath(), library->path());
}

void tst_ProductTreeModelNames::sameNameChangesNothing()
{
    write(QStringLiteral("G.x/Cab 1.rcvp"), "content");
    const QModelIndex file = indexOf(QStringLiteral("G.x/Cab 1.rcvp"));
    QVERIFY(model->setData(file, QStringLiteral("Cab 1")));
    QVERIFY(model->setData(file.parent(), QStringLiteral("G.x")));
    QVERIFY(QFile::exists(pathOf(QStringLiteral("G.x/Cab 1.rcvp"))));
}

void tst_ProductTreeModelNames::refusedEdits()
{
    write(QStringLiteral("a.rcvp"), "a");
    const QModelIndex index = indexOf(QStringLiteral("a.rcvp"));
    QVERIFY(!model->setData({}, QStringLiteral("b")));
    QVERIFY(!model->setData(index.siblingAtColumn(1), QStringLiteral("b")));
    QVERIFY(!model->setData(index, QStringLiteral("b"), Qt::DisplayRole));
    QVERIFY(QFile::exists(pathOf(QStringLiteral("a.rcvp"))));
}

void tst_ProductTreeModelNames::refusedNames_data()
{
    const QString type = QStringLiteral("a.rcvp");
    const QString group = QStringLiteral("G");
    const QString typeTaken = QStringLiteral("There is already a type with the same name.");
    const QString groupTaken = QStringLiteral("There is already a type group with the same name.");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("newName");
    QTest::addColumn<QString>("message");
    QTest::newRow("type") << type << QStringLiteral("b") << typeTaken;
    QTest::newRow("type, by a folder") << type << QStringLiteral("folder") << typeTaken;
    QTest::newRow("group") << group << QStringLiteral("H") << groupTaken;
    QTest::newRow("group, by a hidden file") << group << QStringLiteral("note.txt") << groupTaken;
    // Names that lead elsewhere.
    QTest::newRow("type into a group") << type << QStringLiteral("G/a") << typeTaken;
    QTest::newRow("type out of the library") << type << QStringLiteral("../a") << typeTaken;
    QTest::newRow("type without a name") << type << QString() << typeTaken;
    QTest::newRow("group without a name") << group << QString() << groupTaken;
    QTest::newRow("group itself") << group << QStringLiteral(".") << groupTaken;
    QTest::newRow("group above") << group << QStringLiteral("..") << groupTaken;
    QTest::newRow("absolute path") << group << movedAway() << groupTaken;
}

void tst_ProductTreeModelNames::refusedNames()
{
    const QStringList entries{
        QStringLiteral("a.rcvp"),   QStringLiteral("b.rcvp"),   QStringLiteral("folder.rcvp/x.rcvp"),
        QStringLiteral("G/x.rcvp"), QStringLiteral("H/y.rcvp"), QStringLiteral("note.txt")};
    for (const QString& file : entries)
        write(file, "content");

    QFETCH(QString, entry);
    QFETCH(QString, newName);
    QFETCH(QString, message);
    const QModelIndex index = indexOf(entry);
    QVERIFY(!model->setData(index, newName));
    QStringList boxTexts;
    QTimer::singleShot(0, this, [&boxTexts] {
        auto* const box = qobject_cast<CMessageBox*>(QApplication::activeModalWidget());
        QVERIFY(box);
        QCOMPARE(box->windowTitle(), QStringLiteral("Orvel"));
        QVERIFY(!box->parentWidget());
        QVERIFY(!box->button(CDialog::Yes) && !box->button(CDialog::No) && !box->button(CDialog::Cancel));
        QVERIFY(box->button(CDialog::Ok)->isDefault());
        boxTexts.append(box->text());
        box->button(CDialog::Ok)->click();
    });
    QTRY_COMPARE(boxTexts, QStringList({message}));
    QCOMPARE(index.data().toString(), entry);
    for (const QString& file : entries)
        QVERIFY(QFile::exists(pathOf(file)));
    QCOMPARE(QDir(library->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), entries.size());
    QVERIFY(!QFile::exists(movedAway()));
}

SETTINGAREA_TEST_MAIN(tst_ProductTreeModelNames, QApplication)

#include "tst_ProductTreeModelNames.moc"
