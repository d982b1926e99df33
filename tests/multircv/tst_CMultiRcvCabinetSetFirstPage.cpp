#include "tests/multircv/FirstPageFixture.h"
#include "tests/support/UpperCase.h"

#include <widgetry/CCustomGroupBox.h>

#include <QApplication>
#include <QLabel>
#include <QTimer>

// What the page shows and what is picked on it.
class tst_CMultiRcvCabinetSetFirstPage : public FirstPageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty();
    void controls();
    void configurations();
    void menuHasTheLibrary();
    void pickingAnEntry();
    void pickingAnEntryOfAGroup();
    void startsFromARecord();
    void recordWhoseFileIsGone();
    void damagedRecords_data();
    void damagedRecords();
    void namesAreShownAsTheyStand();
    void keyboard();
    void followsTheLanguage();
};

void tst_CMultiRcvCabinetSetFirstPage::startsEmpty()
{
    const Page page(root());
    QCOMPARE(page.page.parameterFile(), QString());
    QCOMPARE(page.page.gridSize(), QSize(2, 1));
    QCOMPARE(page.button->displayText(), QLatin1String(unchosen));
}

void tst_CMultiRcvCabinetSetFirstPage::controls()
{
    const Page page(root());
    QVERIFY(page.button->isActionSync());
    QCOMPARE(page.button->styleSheet(), QStringLiteral("QPushButton{text-align: left;}"));
    QCOMPARE(page.count->width(), 313);
    QCOMPARE(page.page.findChild<CCustomGroupBox*>()->title(), QStringLiteral("Cabinet configuration"));
    const auto* const label = page.page.findChild<CCustomGroupBox*>()->findChild<QLabel*>(QString());
    QVERIFY(label);
    bool labelled = false;
    const auto labels = page.page.findChildren<QLabel*>();
    for (const QLabel* one : labels)
        labelled |= one->text() == QStringLiteral("Receiver count") && one->buddy() == page.count;
    QVERIFY(labelled);
    QCOMPARE(page.count->accessibleName(), QStringLiteral("Receiver count"));
    QCOMPARE(page.button->accessibleName(), QStringLiteral("Parameter file"));
    QCOMPARE(page.button->accessibleDescription(), QLatin1String(unchosen));
}

void tst_CMultiRcvCabinetSetFirstPage::configurations()
{
    const Page page(root());
    const QList<QPair<QString, QSize>> expected{{QStringLiteral("2 x 1"), {2, 1}}, {QStringLiteral("1 x 2"), {1, 2}},
                                                {QStringLiteral("2 x 2"), {2, 2}}, {QStringLiteral("3 x 1"), {3, 1}},
                                                {QStringLiteral("1 x 3"), {1, 3}}, {QStringLiteral("4 x 1"), {4, 1}},
                                                {QStringLiteral("1 x 4"), {1, 4}}};
    QCOMPARE(page.count->count(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        QCOMPARE(page.count->itemText(i), expected.at(i).first);
        QCOMPARE(page.count->itemData(i).toSize(), expected.at(i).second);
        page.count->setCurrentIndex(i);
        QCOMPARE(page.page.gridSize(), expected.at(i).second);
    }
}

void tst_CMultiRcvCabinetSetFirstPage::menuHasTheLibrary()
{
    m_pLibrary->add(QStringLiteral("A.rcvp"), "a");
    m_pLibrary->add(QStringLiteral("M.rcvbp"), "multi");
    m_pLibrary->add(QStringLiteral("S.rcvbp"), "single by its content");
    m_pLibrary->add(QStringLiteral("G/B.rcvp"), "b");
    m_pLibrary->rescan();
    const Page page(root());
    QCOMPARE(page.entries(), QStringList({QStringLiteral("Browse..."), QString(), QStringLiteral("A"),
                                          QStringLiteral("S"), QStringLiteral("G")}));
    QVERIFY(page.button->menu()->actions().at(1)->isSeparator());
    QCOMPARE(page.button->menu()->minimumWidth(), 313);
}

void tst_CMultiRcvCabinetSetFirstPage::pickingAnEntry()
{
    const QString file = m_pLibrary->add(QStringLiteral("A.rcvp"), "a");
    m_pLibrary->rescan();
    const Page page(root());
    page.button->menu()->actions().at(2)->trigger();
    QCOMPARE(page.page.parameterFile(), file);
    QCOMPARE(page.button->displayText(), QStringLiteral("A"));
    QCOMPARE(page.button->accessibleDescription(), QStringLiteral("A"));
}

void tst_CMultiRcvCabinetSetFirstPage::pickingAnEntryOfAGroup()
{
    const QString file = m_pLibrary->add(QStringLiteral("G/A.rcvp"), "a");
    m_pLibrary->rescan();
    const Page page(root());
    QMenu* const group = page.button->menu()->actions().at(2)->menu();
    Q_EMIT group->aboutToShow();
    group->actions().constFirst()->trigger();
    QCOMPARE(page.page.parameterFile(), file);
    QCOMPARE(page.button->displayText(), QStringLiteral("A"));
}

void tst_CMultiRcvCabinetSetFirstPage::startsFromARecord()
{
    const QString file = m_pLibrary->add(QStringLiteral("G/A.rcvp"), "a");
    m_pLibrary->rescan();
    SHwRcvInCabinetInfo record;
    record.md5 = md5OfFile(file);
    record.columns = 1;
    record.rows = 3;
    const Page page(root(), record);
    QCOMPARE(page.page.parameterFile(), file);
    QCOMPARE(page.button->displayText(), QStringLiteral("A"));
    QCOMPARE(page.page.gridSize(), QSize(1, 3));
}

void tst_CMultiRcvCabinetSetFirstPage::recordWhoseFileIsGone()
{
    SHwRcvInCabinetInfo record;
    qstrncpy(record.md5.data, "0123456789abcdef0123456789abcdef", sizeof(record.md5.data));
    record.columns = 2;
    record.rows = 2;
    const Page page(root(), record);
    QCOMPARE(page.page.parameterFile(), QString());
    QCOMPARE(page.button->displayText(), QLatin1String(unchosen));
    QCOMPARE(page.page.gridSize(), QSize(2, 2));
}

void tst_CMultiRcvCabinetSetFirstPage::damagedRecords_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    QTest::newRow("too many cells") << 4 << 3;
    QTest::newRow("very many cells") << 255 << 255;
    QTest::newRow("no column") << 0 << 2;
    QTest::newRow("not on offer") << 3 << 2;
}

void tst_CMultiRcvCabinetSetFirstPage::damagedRecords()
{
    QFETCH(int, columns);
    QFETCH(int, rows);
    SHwRcvInCabinetInfo record;
    record.columns = static_cast<std::uint8_t>(columns);
    record.rows = static_cast<std::uint8_t>(rows);
    QCOMPARE(Page(root(), record).page.gridSize(), QSize(2, 1));
}

void tst_CMultiRcvCabinetSetFirstPage::namesAreShownAsTheyStand()
{
    m_pLibrary->add(QStringLiteral("<b>A&B.rcvp"), "a");
    m_pLibrary->rescan();
    const Page page(root());
    page.button->menu()->actions().at(2)->trigger();
    QCOMPARE(page.button->displayText(), QStringLiteral("<b>A&B"));
}

void tst_CMultiRcvCabinetSetFirstPage::keyboard()
{
    const Page page(root());
    QVERIFY(page.button->focusPolicy() & Qt::TabFocus);
    QVERIFY(page.count->focusPolicy() & Qt::TabFocus);
    QVERIFY(!page.button->autoDefault()); // Return belongs to the wizard's button
    QWidget* next = page.button;
    do
        next = next->nextInFocusChain();
    while (!(next->focusPolicy() & Qt::TabFocus));
    QCOMPARE(next, page.count);
    QTest::keyClick(page.count, Qt::Key_Down);
    QCOMPARE(page.page.gridSize(), QSize(1, 2));

    m_pLibrary->add(QStringLiteral("A.rcvp"), "a");
    m_pLibrary->rescan();
    const Page other(root());
    bool opened = false;
    QTimer inMenu;
    inMenu.setSingleShot(true);
    connect(&inMenu, &QTimer::timeout, &inMenu, [&] {
        opened = other.button->menu()->isVisible();
        QTest::keyClick(other.button->menu(), Qt::Key_Up);
        QTest::keyClick(other.button->menu(), Qt::Key_Return);
    });
    inMenu.start();
    QTest::keyClick(other.button, Qt::Key_Down);
    QVERIFY(opened);
    QCOMPARE(other.page.parameterFile(), m_pLibrary->path(QStringLiteral("A.rcvp")));
}

void tst_CMultiRcvCabinetSetFirstPage::followsTheLanguage()
{
    m_pLibrary->add(QStringLiteral("a.rcvp"), "a");
    m_pLibrary->rescan();
    const Page page(root());
    const Page chosen(root());
    chosen.button->menu()->actions().at(2)->trigger();
    const UpperCase language;
    QCOMPARE(page.button->displayText(), QStringLiteral("PLEASE SELECT CABINET TYPE FILE"));
    QCOMPARE(page.button->accessibleName(), QStringLiteral("PARAMETER FILE"));
    QCOMPARE(page.button->accessibleDescription(), QStringLiteral("PLEASE SELECT CABINET TYPE FILE"));
    QCOMPARE(page.page.findChild<CCustomGroupBox*>()->title(), QStringLiteral("CABINET CONFIGURATION"));
    QCOMPARE(page.count->accessibleName(), QStringLiteral("RECEIVER COUNT"));
    QCOMPARE(page.count->itemText(3), QStringLiteral("3 X 1"));
    QCOMPARE(page.entries().constFirst(), QStringLiteral("BROWSE..."));
    QCOMPARE(chosen.button->displayText(), QStringLiteral("a"));
}

SETTINGAREA_TEST_MAIN(tst_CMultiRcvCabinetSetFirstPage, QApplication)

#include "tst_CMultiRcvCabinetSetFirstPage.moc"
