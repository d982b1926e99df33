#include "tests/support/TestObject.h"
#include "typelibrary/NameList.h"

#include <QCoreApplication>
#include <QTranslator>

class tst_NameList : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void shortLists();
    void longLists();
    void namesWithPlaceholders();
    void inChinese();

private:
    static QStringList names(int count)
    {
        QStringList list;
        for (int i = 1; i <= count; ++i)
            list.append(QString::number(i));
        return list;
    }
};

void tst_NameList::shortLists()
{
    QCOMPARE(joinedNames({}), QString());
    QCOMPARE(joinedNames(names(1)), QStringLiteral("1"));
    QCOMPARE(joinedNames(names(3)), QStringLiteral("1, 2, 3"));
    QCOMPARE(joinedNames(names(20)), names(20).join(QStringLiteral(", ")));
}

void tst_NameList::longLists()
{
    QCOMPARE(joinedNames(names(21)), names(20).join(QStringLiteral(", ")) + QStringLiteral(" and 1 more"));
    QCOMPARE(joinedNames(names(500)), names(20).join(QStringLiteral(", ")) + QStringLiteral(" and 480 more"));
}

void tst_NameList::namesWithPlaceholders()
{
    QStringList list = names(30);
    list[0] = QStringLiteral("%1 %n");
    QVERIFY(joinedNames(list).startsWith(QStringLiteral("%1 %n, 2, ")));
    QVERIFY(joinedNames(list).endsWith(QStringLiteral(", 20 and 10 more")));
}

void tst_NameList::inChinese()
{
    QTranslator chinese;
    QVERIFY(chinese.load(QStringLiteral("settingarea_zh_CN"),
                         QCoreApplication::applicationDirPath() + QStringLiteral("/translations")));
    QCoreApplication::installTranslator(&chinese);
    const QString few = joinedNames(names(3));
    const QString many = joinedNames(names(22));
    QCoreApplication::removeTranslator(&chinese);
    QCOMPARE(few, QStringLiteral("1\u30012\u30013"));
    QCOMPARE(many, names(20).join(QChar(0x3001)) + QStringLiteral(" \u4ee5\u53ca\u53e6\u5916 2 \u4e2a"));
}

SETTINGAREA_TEST_MAIN(tst_NameList, QCoreApplication)

#include "tst_NameList.moc"
