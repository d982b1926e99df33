#include "tests/support/TestObject.h"
#include "typelibrary/store/Md5.h"
#include "typelibrary/store/TypeIndex.h"

#include <QCoreApplication>
#include <QRandomGenerator>

using STreeNode = SSettings::TypeLibrary::STreeNode;
using Tree = std::vector<STreeNode>;

namespace {

SMD5 digest(int number)
{
    SMD5 md5;
    const QByteArray text = QByteArray::number(number, 16).rightJustified(int(md5Length), '0');
    std::copy(text.cbegin(), text.cend(), md5.data);
    return md5;
}

// What the index stands for: a depth-first walk in which groups only pass the question on.
template<typename Matches>
QString firstPath(const Tree& nodes, Matches matches)
{
    for (const STreeNode& node : nodes) {
        const QString path = node.nodeType == STreeNode::Group ? firstPath(node.children, matches)
                             : matches(node)                   ? node.path
                                                               : QString();
        if (!path.isEmpty())
            return path;
    }
    return {};
}

// Few names and digests, so that duplicates abound; some types without a digest.
Tree randomTree(QRandomGenerator& random, int depth, const QString& path)
{
    Tree nodes(std::size_t(random.bounded(6)));
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        STreeNode& node = nodes[i];
        node.name = QStringLiteral("n%1").arg(random.bounded(12));
        node.path = QStringLiteral("%1/%2").arg(path).arg(i);
        node.nodeType = STreeNode::NodeType(random.bounded(depth > 0 ? 0 : 2, 4));
        if (node.nodeType == STreeNode::Group)
            node.children = randomTree(random, depth - 1, node.path);
        else if (node.nodeType != STreeNode::None && random.bounded(8) > 0)
            node.md5 = digest(random.bounded(12));
    }
    return nodes;
}

} // namespace

class tst_TypeIndex : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyIndexFindsNothing();
    void answersLikeTheWalk();
    void namesWithOneHash();
    void clearForgetsTheTree();
};

void tst_TypeIndex::emptyIndexFindsNothing()
{
    TypeIndex index;
    QCOMPARE(index.firstWithName(QString()), QString());
    QCOMPARE(index.firstWithDigest(SMD5{}), QString());
    index.build({});
    QCOMPARE(index.firstWithName(QStringLiteral("n0")), QString());
}

void tst_TypeIndex::answersLikeTheWalk()
{
    QRandomGenerator random(20'240'229);
    TypeIndex index;
    int found = 0;
    for (int round = 0; round < 2'000; ++round) {
        const Tree tree = randomTree(random, 3, QStringLiteral("/lib"));
        index.build(tree);
        for (int i = 0; i < 14; ++i) {
            const QString name = QStringLiteral("n%1").arg(i);
            const QString byName = firstPath(tree, [&](const STreeNode& node) { return node.name == name; });
            QCOMPARE(index.firstWithName(name), byName);
            const SMD5 md5 = i == 13 ? SMD5{} : digest(i);
            const QString byDigest = firstPath(tree, [&](const STreeNode& node) { return node.md5 == md5; });
            QCOMPARE(index.firstWithDigest(md5), byDigest);
            found += !byName.isEmpty() + !byDigest.isEmpty();
        }
    }
    QVERIFY(found > 10'000); // the trees were not all empty
}

void tst_TypeIndex::namesWithOneHash()
{
    QRandomGenerator random(20'240'229);
    QHash<uint, QString> names;
    Tree tree(2);
    while (tree[1].name.isEmpty()) {
        const QString name = QString::number(random.generate64(), 36);
        QString& known = names[qHash(name)];
        if (known.isEmpty()) {
            known = name;
        } else {
            tree[0].name = known;
            tree[1].name = name;
        }
    }
    tree[0].path = QStringLiteral("/first");
    tree[1].path = QStringLiteral("/second");
    TypeIndex index;
    index.build(tree);
    QCOMPARE(index.firstWithName(tree[0].name), tree[0].path);
    QCOMPARE(index.firstWithName(tree[1].name), tree[1].path);
}

void tst_TypeIndex::clearForgetsTheTree()
{
    Tree tree(1);
    tree[0].name = QStringLiteral("a");
    tree[0].path = QStringLiteral("/a");
    TypeIndex index;
    index.build(tree);
    QCOMPARE(index.firstWithName(QStringLiteral("a")), QStringLiteral("/a"));
    index.clear();
    QCOMPARE(index.firstWithName(QStringLiteral("a")), QString());
    QCOMPARE(index.firstWithDigest(SMD5{}), QString());
}

SETTINGAREA_TEST_MAIN(tst_TypeIndex, QCoreApplication)
#include "tst_TypeIndex.moc"
