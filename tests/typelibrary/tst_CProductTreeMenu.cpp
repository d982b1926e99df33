#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"
#include "typelibrary/CProductTreeMenu.h"

#include <QApplication>
#include <QSignalSpy>

using NodeType = SSettings::TypeLibrary::STreeNode::NodeType;

class tst_CProductTreeMenu : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void entries_data();
    void entries();
    void icons();
    void keys();
    void followsTheLanguage();
};

namespace {

QAction* entry(const QMenu& menu, const QString& text)
{
    const QList<QAction*> actions = menu.actions();
    for (QAction* action : actions) {
        if (action->text() == text)
            return action;
    }
    qFatal("No entry %s", qPrintable(text));
}

} // namespace

void tst_CProductTreeMenu::entries_data()
{
    QTest::addColumn<NodeType>("kind");
    QTest::addColumn<QStringList>("texts");
    const QString folder = QStringLiteral("New type folder");
    const QString import = QStringLiteral("Import as folder|Import cabinet type file(Suffix rcvbp)|-|Rename|Delete");
    const QString current = QStringLiteral("Export current cabinet parameters|Export all cabinet parameters");
    const auto list = [](const QStringList& parts) { return parts.join(QLatin1Char('|')).split(QLatin1Char('|')); };
    QTest::newRow("group") << NodeType::Group
                           << list({folder, import, QStringLiteral("Export cabinet parameters by group"),
                                    QStringLiteral("Export all cabinet parameters")});
    QTest::newRow("multi") << NodeType::MultiRcv << list({import, QStringLiteral("Edit|-"), current});
    QTest::newRow("single") << NodeType::SingleRcv << list({import, current});
    QTest::newRow("none") << NodeType::None << list({import, current});
}

void tst_CProductTreeMenu::entries()
{
    QFETCH(NodeType, kind);
    const CProductTreeMenu menu(kind);
    QStringList texts;
    const QList<QAction*> actions = menu.actions();
    for (const QAction* action : actions)
        texts.append(action->isSeparator() ? QStringLiteral("-") : action->text());
    QTEST(texts, "texts");
}

void tst_CProductTreeMenu::icons()
{
    const CProductTreeMenu menu(NodeType::Group);
    const QMap<QString, QString> files = {
        {QStringLiteral("New type folder"), QStringLiteral("SettingArea/TypeLibrary/new-type-folder")},
        {QStringLiteral("Import as folder"), QStringLiteral("SettingArea/TypeLibrary/import-folder")},
        {QStringLiteral("Import cabinet type file(Suffix rcvbp)"),
         QStringLiteral("SettingArea/TypeLibrary/import-cabinet")},
        {QStringLiteral("Rename"), QStringLiteral("OperateButton/edit")},
        {QStringLiteral("Delete"), QStringLiteral("OperateButton/delete")},
    };
    const QList<QAction*> actions = menu.actions();
    for (const QAction* action : actions) {
        const QString file = files.value(action->text());
        const auto picture = [&file](const char* state) {
            return QIcon(QStringLiteral(":/Image/%1_%2.svg").arg(file, QLatin1String(state))).pixmap(16).toImage();
        };
        QCOMPARE(action->icon().isNull(), file.isEmpty());
        if (file.isEmpty())
            continue;
        QVERIFY(!picture("normal").isNull());
        QCOMPARE(action->icon().pixmap(16).toImage(), picture("normal"));
        QCOMPARE(action->icon().pixmap(16, QIcon::Active).toImage(), picture("hover"));
    }
}

void tst_CProductTreeMenu::keys()
{
    const CProductTreeMenu menu(NodeType::Group);
    const QMap<QString, QKeySequence> keys = {
        {QStringLiteral("New type folder"), QKeySequence(QStringLiteral("Ctrl+N"))},
        {QStringLiteral("Import as folder"), QKeySequence(QStringLiteral("Ctrl+I"))},
        {QStringLiteral("Delete"), QKeySequence(QKeySequence::Delete)},
    };
    const QList<QAction*> actions = menu.actions();
    for (const QAction* action : actions) {
        QCOMPARE(action->shortcut(), keys.value(action->text()));
        QVERIFY(action->isShortcutVisibleInContextMenu() || action->isSeparator());
    }
}

void tst_CProductTreeMenu::followsTheLanguage()
{
    CProductTreeMenu menu(NodeType::MultiRcv);
    UpperCase upper;
    QCoreApplication::installTranslator(&upper);
    QCoreApplication::sendPostedEvents();
    QVERIFY(entry(menu, QStringLiteral("EDIT")));
    const QSignalSpy chosen(&menu, &CProductTreeMenu::notifyChosen);
    entry(menu, QStringLiteral("RENAME"))->trigger();
    QCoreApplication::removeTranslator(&upper);
    QCOMPARE(chosen, QList<QVariantList>({{CProductTreeMenu::Rename}}));
}

SETTINGAREA_TEST_MAIN(tst_CProductTreeMenu, QApplication)

#include "tst_CProductTreeMenu.moc"
