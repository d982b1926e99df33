#include "tests/multircv/SecondPage.h"
#include "tests/support/TestObject.h"

#include <QApplication>

Q_DECLARE_METATYPE(SHwRcvInCabinetInfo)

// What the second page does to the wiring: by itself, by its controls, and from a record.
class tst_SecondPageWiring : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void toggledBeforeTheSizeIsKnown();
    void singleLineIsWired_data();
    void singleLineIsWired();
    void largerGridIsLeftUnwired();
    void sameSizeKeepsTheWiring();
    void newSizeStartsAnew();
    void buttonsSetTheirTopology();
    void clearButtonFollowsTheWiring();
    void toggleShowsArrows();
    void toggleWiresUnwiredLine_data();
    void toggleWiresUnwiredLine();
    void toggleKeepsTheWiring();
    void recordIsPreselected_data();
    void recordIsPreselected();
    void recordOfAnotherSize();
    void recordWithoutDigest();
    void recordWhenItsSizeComesBack();
    void recordStaysWhatItWas();
    void damagedRecord_data();
    void damagedRecord();
};

void tst_SecondPageWiring::toggledBeforeTheSizeIsKnown()
{
    SecondPage page;
    page.orientation->setChecked(true);
    QCOMPARE(page.wiring(), Ids());
    page.setSize(1, 2);
    QVERIFY(page.specifyOrientation());
    QCOMPARE(page.wiring(), (Ids{0, 1}));
    QVERIFY(page.showsDirection());
}

void tst_SecondPageWiring::singleLineIsWired_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<Ids>("wiring");
    QTest::newRow("1 x 1") << QSize(1, 1) << Ids{0};
    QTest::newRow("2 x 1") << QSize(2, 1) << Ids{0, 1};
    QTest::newRow("1 x 2") << QSize(1, 2) << Ids{0, 1};
    QTest::newRow("3 x 1") << QSize(3, 1) << Ids{0, 1, 2};
    QTest::newRow("1 x 3") << QSize(1, 3) << Ids{0, 1, 2};
    QTest::newRow("4 x 1") << QSize(4, 1) << Ids{0, 1, 2, 3};
    QTest::newRow("1 x 4") << QSize(1, 4) << Ids{0, 1, 2, 3};
}

void tst_SecondPageWiring::singleLineIsWired()
{
    QFETCH(QSize, size);
    QFETCH(Ids, wiring);
    SecondPage page;
    page.setGridSize(size);
    QCOMPARE(page.wiring(), wiring);
    QVERIFY(page.canClear());
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton})
        QTest::mouseClick(page.grid, button, {}, page.grid->rect().center());
    QCOMPARE(page.wiring(), wiring);
}

void tst_SecondPageWiring::largerGridIsLeftUnwired()
{
    SecondPage page;
    page.setSize(2, 2);
    QCOMPARE(page.wiring(), Ids());
    QVERIFY(!page.canClear());
}

void tst_SecondPageWiring::sameSizeKeepsTheWiring()
{
    SecondPage page(makeRecord(2, 2, {3, 2, 1, 0}));
    page.setSize(2, 2);
    page.button(1)->click();
    page.orientation->setChecked(true);
    page.setSize(2, 2);
    QCOMPARE(page.wiring(), (Ids{0, 2, 3, 1}));
    QVERIFY(page.specifyOrientation());
    QVERIFY(page.canClear());
    QVERIFY(page.showsDirection());
}

void tst_SecondPageWiring::newSizeStartsAnew()
{
    SecondPage page;
    page.setSize(2, 2);
    page.orientation->setChecked(true);
    page.button(7)->click();
    page.setSize(3, 1);
    QCOMPARE(page.wiring(), (Ids{0, 1, 2}));
    QVERIFY(page.specifyOrientation()); // only a record sets the box
    QVERIFY(page.showsDirection());
    page.setSize(2, 2);
    QCOMPARE(page.wiring(), Ids());
    QVERIFY(!page.canClear());
}

void tst_SecondPageWiring::buttonsSetTheirTopology()
{
    SecondPage page;
    page.setSize(2, 2);
    const Ids wirings[] = {{},           {0, 2, 3, 1}, {2, 0, 1, 3}, {0, 1, 3, 2}, {1, 0, 2, 3},
                           {0, 2, 3, 1}, {2, 0, 1, 3}, {3, 1, 0, 2}, {1, 3, 2, 0}, {0, 1, 3, 2},
                           {2, 3, 1, 0}, {3, 2, 0, 1}, {1, 0, 2, 3}};
    for (const bool specify : {false, true}) {
        page.orientation->setChecked(specify);
        const Ids shown = page.shownButtons();
        for (const int id : shown) {
            QTest::mouseClick(page.button(id), Qt::LeftButton);
            QCOMPARE(page.wiring(), wirings[id]);
            QTest::mouseClick(page.button(id), Qt::LeftButton); // once more
            QCOMPARE(page.wiring(), wirings[id]);
        }
    }
}

void tst_SecondPageWiring::clearButtonFollowsTheWiring()
{
    SecondPage page;
    page.setSize(2, 2);
    QVERIFY(!page.canClear());
    QTest::mouseClick(page.grid, Qt::LeftButton, {}, {80, 10});
    QVERIFY(page.canClear());
    QTest::mouseClick(page.grid, Qt::LeftButton, {}, {230, 10});
    QTest::mouseClick(page.grid, Qt::RightButton, {}, {80, 10});
    QVERIFY(page.canClear());
    QTest::mouseClick(page.grid, Qt::RightButton, {}, {230, 10});
    QVERIFY(!page.canClear());
    page.button(4)->click();
    QVERIFY(page.canClear());
    QTest::mouseClick(page.button(0), Qt::LeftButton);
    QVERIFY(!page.canClear());
    QCOMPARE(page.wiring(), Ids());
}

void tst_SecondPageWiring::toggleShowsArrows()
{
    SecondPage page;
    for (const QSize& size : {QSize(2, 1), QSize(2, 2)}) {
        page.setSize(size.width(), size.height());
        page.button(1)->click();
        QVERIFY(!page.showsDirection());
        page.orientation->click();
        QVERIFY(page.showsDirection());
        page.orientation->click();
        QVERIFY(!page.showsDirection());
    }
}

void tst_SecondPageWiring::toggleWiresUnwiredLine_data()
{
    singleLineIsWired_data();
}

void tst_SecondPageWiring::toggleWiresUnwiredLine()
{
    QFETCH(QSize, size);
    QFETCH(Ids, wiring);
    SecondPage page;
    page.setGridSize(size);
    page.orientation->click();
    page.button(0)->click();
    QCOMPARE(page.wiring(), Ids());
    page.orientation->click();
    QCOMPARE(page.wiring(), wiring);
    QVERIFY(page.canClear());
    page.orientation->click();
    page.button(0)->click();
    page.setGridSize({2, 2});
    page.orientation->click();
    QCOMPARE(page.wiring(), Ids());
}

void tst_SecondPageWiring::toggleKeepsTheWiring()
{
    SecondPage page;
    page.setSize(3, 1);
    page.orientation->click();
    page.button(6)->click();
    QCOMPARE(page.wiring(), (Ids{2, 1, 0}));
    page.orientation->click();
    QCOMPARE(page.wiring(), (Ids{2, 1, 0}));
    page.setSize(2, 2);
    QTest::mouseClick(page.grid, Qt::LeftButton, {}, {230, 160});
    page.orientation->click();
    QCOMPARE(page.wiring(), Ids{3});
}

void tst_SecondPageWiring::recordIsPreselected_data()
{
    QTest::addColumn<bool>("specify");
    QTest::newRow("with orientation") << true;
    QTest::newRow("without") << false;
}

void tst_SecondPageWiring::recordIsPreselected()
{
    QFETCH(bool, specify);
    {
        // What is left over behind the four entries names cells again.
        SecondPage page(makeRecord(2, 2, {1, 3, 2, 0, 1, 1, 0, 0, 0, 3}, specify));
        page.orientation->setChecked(!specify);
        page.setSize(2, 2);
        QCOMPARE(page.specifyOrientation(), specify);
        QCOMPARE(page.wiring(), (Ids{1, 3, 2, 0}));
        QCOMPARE(page.shownButtons(), specify ? directionButtons() : plainButtons());
        QVERIFY(page.canClear());
        QCOMPARE(page.showsDirection(), specify);
        QVERIFY(!page.hint->isHidden());
    }
    SecondPage page(makeRecord(3, 1, {2, 1, 0}, specify));
    page.setSize(3, 1);
    QCOMPARE(page.specifyOrientation(), specify);
    QCOMPARE(page.wiring(), (Ids{2, 1, 0}));
    QCOMPARE(page.shownButtons(), specify ? (Ids{0, 5, 6}) : Ids());
    QCOMPARE(page.showsDirection(), specify);
    SecondPage large(makeRecord(5, 2, {9, 8, 7, 6, 5, 4, 3, 2, 1, 0}, specify));
    large.setSize(5, 2);
    QCOMPARE(large.wiring(), (Ids{9, 8, 7, 6, 5, 4, 3, 2, 1, 0}));
}

void tst_SecondPageWiring::recordOfAnotherSize()
{
    SecondPage page(makeRecord(1, 3, {2, 1, 0}, true));
    page.setSize(3, 1);
    QCOMPARE(page.wiring(), (Ids{0, 1, 2}));
    QVERIFY(!page.specifyOrientation());
    page.setSize(2, 2);
    QCOMPARE(page.wiring(), Ids());
    QVERIFY(!page.specifyOrientation());
}

void tst_SecondPageWiring::recordWithoutDigest()
{
    SHwRcvInCabinetInfo record = makeRecord(3, 1, {2, 1, 0}, true);
    record.md5 = SMD5{};
    SecondPage page(record);
    page.setSize(3, 1);
    QCOMPARE(page.wiring(), (Ids{0, 1, 2}));
    QVERIFY(!page.specifyOrientation());
}

void tst_SecondPageWiring::recordWhenItsSizeComesBack()
{
    SecondPage page(makeRecord(2, 2, {1, 3, 2, 0}, true));
    page.setSize(2, 2);
    page.button(5)->click();
    page.orientation->click();
    page.setSize(2, 1);
    QVERIFY(!page.specifyOrientation());
    page.setSize(2, 2);
    QCOMPARE(page.wiring(), (Ids{1, 3, 2, 0}));
    QVERIFY(page.specifyOrientation());
    QVERIFY(page.showsDirection());
}

// The wizard fills its record while the page is alive.
void tst_SecondPageWiring::recordStaysWhatItWas()
{
    SHwRcvInCabinetInfo record = makeRecord(2, 1, {1, 0});
    SecondPage page(record);
    record = makeRecord(2, 1, {0, 1}, true);
    page.setSize(2, 1);
    QCOMPARE(page.wiring(), (Ids{1, 0}));
    QVERIFY(!page.specifyOrientation());
}

void tst_SecondPageWiring::damagedRecord_data()
{
    QTest::addColumn<SHwRcvInCabinetInfo>("record");
    QTest::addColumn<Ids>("wiring");
    QTest::addColumn<Ids>("afterToggle");
    QTest::newRow("one cell twice") << makeRecord(2, 1, {0, 0}) << Ids{0} << Ids{0};
    QTest::newRow("all cells one") << makeRecord(2, 2, {2, 2, 2, 2}) << Ids{2} << Ids{2};
    QTest::newRow("a cell out of range") << makeRecord(2, 2, {3, 200, 0, 1}) << Ids{3, 0, 1} << Ids{3, 0, 1};
    QTest::newRow("all out of range, line") << makeRecord(1, 2, {255, 255}) << Ids() << Ids{0, 1};
    QTest::newRow("all out of range") << makeRecord(2, 2, {4, 5, 6, 7, 0, 1, 2, 3}) << Ids() << Ids();
    QTest::newRow("more cells than places") << makeRecord(4, 4, {9, 8, 7, 6, 5, 4, 3, 2, 1, 0})
                                            << Ids{9, 8, 7, 6, 5, 4, 3, 2, 1, 0} << Ids{9, 8, 7, 6, 5, 4, 3, 2, 1, 0};
    QTest::newRow("255 x 255") << makeRecord(255, 255, {255, 1}) << Ids{255, 1, 0} << Ids{255, 1, 0};
    QTest::newRow("no columns") << makeRecord(0, 2, {0, 1}) << Ids() << Ids();
    QTest::newRow("nothing") << makeRecord(0, 0, {0, 1}) << Ids() << Ids();
}

void tst_SecondPageWiring::damagedRecord()
{
    QFETCH(SHwRcvInCabinetInfo, record);
    QFETCH(Ids, wiring);
    for (const bool specify : {false, true}) {
        record.specifyOrientation = specify;
        SecondPage page(record);
        page.setSize(record.columns, record.rows);
        QCOMPARE(page.wiring(), wiring);
        QCOMPARE(page.specifyOrientation(), specify);
        QCOMPARE(page.canClear(), !wiring.isEmpty());
        page.grab();
        page.orientation->click();
        QTEST(page.wiring(), "afterToggle");
        // The sizes that the wizard offers are as good as ever.
        page.setSize(2, 1);
        page.setSize(2, 2);
        page.orientation->setChecked(true);
        page.button(10)->click();
        QCOMPARE(page.wiring(), (Ids{2, 3, 1, 0}));
    }
}

SETTINGAREA_TEST_MAIN(tst_SecondPageWiring, QApplication)
#include "tst_SecondPageWiring.moc"
