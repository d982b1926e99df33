#include "multircv/CMultiRcvCabinetSetSecondPage.h"

#include "multircv/CabinetWiringWidget.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QToolButton>
#include <QTranslator>

#include <algorithm>

namespace {

using Ids = QList<int>;

struct Button
{
    const char* name;
    const char* toolTip;
};

const Button buttons[] = {
    {"clear", "Clear"},
    {"right-dwon", "S topology with first right and then down"},
    {"left-down", "S topology with first left and then down"},
    {"down-right", "S topology with first down and then right"},
    {"up-right", "S topology with first up and then right"},
    {"right-down-direction", "S topology with first right and then down"},
    {"left-down-direction", "S topology with first left and then down"},
    {"left-up-direction", "S topology with first left and then up"},
    {"right-up-direction", "S topology with first right and then up"},
    {"down-right-direction", "S topology with first down and then right"},
    {"down-left-direction", "S topology with first up and then left"},
    {"up-left-direction", "S topology with first up and then left"},
    {"up-right-direction", "S topology with first up and then right"},
};

// The record of a stored type.
SHwRcvInCabinetInfo makeRecord(int columns, int rows, const std::array<std::uint8_t, 10>& wiring,
                               bool specifyOrientation = false)
{
    SHwRcvInCabinetInfo record;
    std::fill_n(record.md5.data, 32, 'a');
    record.columns = static_cast<std::uint8_t>(columns);
    record.rows = static_cast<std::uint8_t>(rows);
    record.wiringOrder = wiring;
    record.specifyOrientation = specifyOrientation;
    return record;
}

// The page and its controls.
struct Page : CMultiRcvCabinetSetSecondPage
{
    explicit Page(const SHwRcvInCabinetInfo& record = {})
        : CMultiRcvCabinetSetSecondPage(record)
    {
    }

    QCheckBox* orientation = findChild<QCheckBox*>();
    QButtonGroup* group = findChild<QButtonGroup*>();
    CabinetWiringWidget* grid = findChild<CabinetWiringWidget*>();
    QLabel* hint = findChild<QLabel*>();

    QToolButton* button(int id) const { return qobject_cast<QToolButton*>(group->button(id)); }

    Ids shownButtons() const
    {
        Ids ids;
        for (int id = 0; id < 13; ++id) {
            if (!button(id)->isHidden())
                ids.append(id);
        }
        return ids;
    }

    bool canClear() const { return button(0)->isEnabled(); }

    // Whether the grid shows arrows: they cover more of it than lines do.
    bool showsDirection() const
    {
        QImage shown(grid->size(), QImage::Format_RGB32);
        grid->render(&shown);
        CabinetWiringWidget other;
        const QSize size = gridSize;
        other.setGridSize(size.width(), size.height());
        other.setWiring(grid->wiring());
        QImage plain(grid->size(), QImage::Format_RGB32);
        other.render(&plain);
        other.setShowDirection(true);
        QImage directed(grid->size(), QImage::Format_RGB32);
        other.render(&directed);
        if (plain == directed || (shown != plain && shown != directed))
            qFatal("The picture tells nothing about the arrows");
        return shown == directed;
    }

    void setSize(int columns, int rows)
    {
        gridSize = QSize(columns, rows);
        setGridSize(gridSize);
    }

    QSize gridSize;
};

// Gives every text of the page in capitals.
class Capitals : public QTranslator
{
    Q_OBJECT

public:
    Capitals() { QCoreApplication::installTranslator(this); }
    ~Capitals() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* sourceText, const char* /*disambiguation*/,
                      int /*n*/) const override
    {
        return qstrcmp(context, "CMultiRcvCabinetSetSecondPage") == 0 ? QString::fromUtf8(sourceText).toUpper()
                                                                      : QString();
    }
};

// What a grid of at least two columns and rows offers without orientation, and with it.
Ids plainButtons()
{
    return {0, 1, 2, 3, 4};
}

Ids directionButtons()
{
    return {0, 5, 6, 7, 8, 9, 10, 11, 12};
}

} // namespace

Q_DECLARE_METATYPE(SHwRcvInCabinetInfo)

class tst_CMultiRcvCabinetSetSecondPage : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void builtPage();
    void toggledBeforeTheSizeIsKnown();
    void topologyButtons();
    void icons_data();
    void icons();
    void shownButtons_data();
    void shownButtons();
    void hint_data();
    void hint();
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
    void keyboard();
    void accessibleNames();
    void followsLanguage();
    void gridStaysInItsPlace();
};

void tst_CMultiRcvCabinetSetSecondPage::builtPage()
{
    const Page page;
    QVERIFY(!page.specifyOrientation());
    QVERIFY(!page.orientation->isChecked());
    QCOMPARE(page.orientation->text(), QStringLiteral("Specify orientation"));
    QCOMPARE(page.hint->text(), QStringLiteral("Left-click to select, right-click to unselect"));
    QVERIFY(page.hint->isHidden());
    QCOMPARE(page.wiring(), Ids());
    QCOMPARE(page.shownButtons(), Ids());
    QCOMPARE(page.grid->size(), QSize(313, 174));
    // Also that of an edited type: it counts from the moment that the size is known.
    const Page edited(makeRecord(2, 1, {1, 0}, true));
    QVERIFY(!edited.specifyOrientation());
    QCOMPARE(edited.wiring(), Ids());
}

void tst_CMultiRcvCabinetSetSecondPage::toggledBeforeTheSizeIsKnown()
{
    Page page;
    page.orientation->setChecked(true);
    QCOMPARE(page.wiring(), Ids());
    page.setSize(1, 2);
    QVERIFY(page.specifyOrientation());
    QCOMPARE(page.wiring(), (Ids{0, 1}));
    QVERIFY(page.showsDirection());
}

void tst_CMultiRcvCabinetSetSecondPage::topologyButtons()
{
    Page page;
    page.setSize(2, 2);
    QCOMPARE(page.group->buttons().size(), 13);
    QVERIFY(page.group->exclusive());
    for (int id = 0; id < 13; ++id) {
        const QToolButton* const button = page.button(id);
        QVERIFY(button);
        QCOMPARE(button->objectName(), QLatin1String(buttons[id].name));
        QCOMPARE(button->toolTip(), QLatin1String(buttons[id].toolTip));
        QCOMPARE(button->minimumSize(), QSize(18, 18));
        QCOMPARE(button->maximumSize(), QSize(18, 18));
        QVERIFY(!button->icon().isNull());
    }
    for (const bool specify : {false, true}) {
        page.orientation->setChecked(specify);
        page.resize(500, 250);
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        int right = -1;
        const Ids shown = page.shownButtons();
        for (const int id : shown) {
            const QRect box = page.button(id)->geometry();
            QCOMPARE(box.size(), QSize(18, 18));
            if (right >= 0)
                QCOMPARE(box.left() - right - 1, 8);
            right = box.right();
            QCOMPARE(box.top(), page.button(0)->geometry().top());
        }
    }
}

void tst_CMultiRcvCabinetSetSecondPage::icons_data()
{
    QTest::addColumn<int>("id");
    for (int id = 0; id < 13; ++id)
        QTest::newRow(buttons[id].name) << id;
}

// Every icon is there, draws something that stands out from the dark page, and is not the icon of another button.
void tst_CMultiRcvCabinetSetSecondPage::icons()
{
    QFETCH(int, id);
    const auto path = [](int of) {
        return QStringLiteral(":/Image/SettingArea/TypeLibrary/MultiCardWizard/Topology/%1.svg")
            .arg(QLatin1String(buttons[of].name));
    };
    QVERIFY(QFile::exists(path(id)));
    const auto drawn = [](const QIcon& icon, int side) {
        return icon.pixmap(side, side).toImage().convertToFormat(QImage::Format_ARGB32);
    };
    const Page page;
    for (const int side : {16, 18, 32, 48}) {
        const QImage image = drawn(page.button(id)->icon(), side);
        QCOMPARE(image.size(), QSize(side, side));
        QCOMPARE(image, drawn(QIcon(path(id)), side));
        int visible = 0;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const QColor color = image.pixelColor(x, y);
                visible += color.alpha() > 200 && qGray(color.rgb()) > 100;
            }
        }
        QVERIFY2(visible > side * side / 5, qPrintable(QString::number(visible)));
        for (int other = 0; other < 13; ++other)
            QVERIFY(other == id || drawn(QIcon(path(other)), side) != image);
    }
}

void tst_CMultiRcvCabinetSetSecondPage::shownButtons_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<Ids>("without");
    QTest::addColumn<Ids>("with");
    QTest::newRow("1 x 1") << QSize(1, 1) << Ids() << Ids{0, 5, 6};
    QTest::newRow("2 x 1") << QSize(2, 1) << Ids() << Ids{0, 5, 6};
    QTest::newRow("3 x 1") << QSize(3, 1) << Ids() << Ids{0, 5, 6};
    QTest::newRow("4 x 1") << QSize(4, 1) << Ids() << Ids{0, 5, 6};
    QTest::newRow("1 x 2") << QSize(1, 2) << Ids() << Ids{0, 9, 12};
    QTest::newRow("1 x 3") << QSize(1, 3) << Ids() << Ids{0, 9, 12};
    QTest::newRow("1 x 4") << QSize(1, 4) << Ids() << Ids{0, 9, 12};
    QTest::newRow("2 x 2") << QSize(2, 2) << plainButtons() << directionButtons();
    QTest::newRow("5 x 2") << QSize(5, 2) << plainButtons() << directionButtons();
}

void tst_CMultiRcvCabinetSetSecondPage::shownButtons()
{
    QFETCH(QSize, size);
    QFETCH(Ids, without);
    QFETCH(Ids, with);
    Page page;
    page.setGridSize(size);
    QCOMPARE(page.shownButtons(), without);
    QTest::mouseClick(page.orientation, Qt::LeftButton, {}, QPoint(8, page.orientation->height() / 2));
    QVERIFY(page.specifyOrientation());
    QCOMPARE(page.shownButtons(), with);
    // A new size is met in either state of the box.
    page.setGridSize({3, 3});
    QCOMPARE(page.shownButtons(), directionButtons());
    page.setGridSize(size);
    QCOMPARE(page.shownButtons(), with);
    page.orientation->click();
    QCOMPARE(page.shownButtons(), without);
    QVERIFY(!page.specifyOrientation());
}

void tst_CMultiRcvCabinetSetSecondPage::hint_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("shown");
    for (const QSize& size :
         {QSize(1, 1), QSize(2, 1), QSize(1, 2), QSize(3, 1), QSize(1, 3), QSize(4, 1), QSize(1, 4)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size << false;
    QTest::newRow("2 x 2") << QSize(2, 2) << true;
    QTest::newRow("2 x 5") << QSize(2, 5) << true;
}

void tst_CMultiRcvCabinetSetSecondPage::hint()
{
    QFETCH(QSize, size);
    QFETCH(bool, shown);
    Page page;
    page.setGridSize(size);
    QCOMPARE(page.hint->isHidden(), !shown);
    page.setGridSize({2, 3});
    QVERIFY(!page.hint->isHidden());
    page.setGridSize(size);
    QCOMPARE(page.hint->isHidden(), !shown);
    page.orientation->click();
    QCOMPARE(page.hint->isHidden(), !shown);
}

void tst_CMultiRcvCabinetSetSecondPage::singleLineIsWired_data()
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

void tst_CMultiRcvCabinetSetSecondPage::singleLineIsWired()
{
    QFETCH(QSize, size);
    QFETCH(Ids, wiring);
    Page page;
    page.setGridSize(size);
    QCOMPARE(page.wiring(), wiring);
    QVERIFY(page.canClear());
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton})
        QTest::mouseClick(page.grid, button, {}, page.grid->rect().center());
    QCOMPARE(page.wiring(), wiring);
}

void tst_CMultiRcvCabinetSetSecondPage::largerGridIsLeftUnwired()
{
    Page page;
    page.setSize(2, 2);
    QCOMPARE(page.wiring(), Ids());
    QVERIFY(!page.canClear());
}

void tst_CMultiRcvCabinetSetSecondPage::sameSizeKeepsTheWiring()
{
    Page page(makeRecord(2, 2, {3, 2, 1, 0}));
    page.setSize(2, 2);
    page.button(1)->click();
    page.orientation->setChecked(true);
    page.setSize(2, 2);
    QCOMPARE(page.wiring(), (Ids{0, 2, 3, 1}));
    QVERIFY(page.specifyOrientation());
    QVERIFY(page.canClear());
    QVERIFY(page.showsDirection());
}

void tst_CMultiRcvCabinetSetSecondPage::newSizeStartsAnew()
{
    Page page;
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

void tst_CMultiRcvCabinetSetSecondPage::buttonsSetTheirTopology()
{
    Page page;
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

void tst_CMultiRcvCabinetSetSecondPage::clearButtonFollowsTheWiring()
{
    Page page;
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

void tst_CMultiRcvCabinetSetSecondPage::toggleShowsArrows()
{
    Page page;
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

void tst_CMultiRcvCabinetSetSecondPage::toggleWiresUnwiredLine_data()
{
    singleLineIsWired_data();
}

void tst_CMultiRcvCabinetSetSecondPage::toggleWiresUnwiredLine()
{
    QFETCH(QSize, size);
    QFETCH(Ids, wiring);
    Page page;
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

void tst_CMultiRcvCabinetSetSecondPage::toggleKeepsTheWiring()
{
    Page page;
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

void tst_CMultiRcvCabinetSetSecondPage::recordIsPreselected_data()
{
    QTest::addColumn<bool>("specify");
    QTest::newRow("with orientation") << true;
    QTest::newRow("without") << false;
}

void tst_CMultiRcvCabinetSetSecondPage::recordIsPreselected()
{
    QFETCH(bool, specify);
    {
        // What is left over behind the four entries names cells again.
        Page page(makeRecord(2, 2, {1, 3, 2, 0, 1, 1, 0, 0, 0, 3}, specify));
        page.orientation->setChecked(!specify);
        page.setSize(2, 2);
        QCOMPARE(page.specifyOrientation(), specify);
        QCOMPARE(page.wiring(), (Ids{1, 3, 2, 0}));
        QCOMPARE(page.shownButtons(), specify ? directionButtons() : plainButtons());
        QVERIFY(page.canClear());
        QCOMPARE(page.showsDirection(), specify);
        QVERIFY(!page.hint->isHidden());
    }
    Page page(makeRecord(3, 1, {2, 1, 0}, specify));
    page.setSize(3, 1);
    QCOMPARE(page.specifyOrientation(), specify);
    QCOMPARE(page.wiring(), (Ids{2, 1, 0}));
    QCOMPARE(page.shownButtons(), specify ? (Ids{0, 5, 6}) : Ids());
    QCOMPARE(page.showsDirection(), specify);
    Page large(makeRecord(5, 2, {9, 8, 7, 6, 5, 4, 3, 2, 1, 0}, specify));
    large.setSize(5, 2);
    QCOMPARE(large.wiring(), (Ids{9, 8, 7, 6, 5, 4, 3, 2, 1, 0}));
}

void tst_CMultiRcvCabinetSetSecondPage::recordOfAnotherSize()
{
    Page page(makeRecord(1, 3, {2, 1, 0}, true));
    page.setSize(3, 1);
    QCOMPARE(page.wiring(), (Ids{0, 1, 2}));
    QVERIFY(!page.specifyOrientation());
    page.setSize(2, 2);
    QCOMPARE(page.wiring(), Ids());
    QVERIFY(!page.specifyOrientation());
}

void tst_CMultiRcvCabinetSetSecondPage::recordWithoutDigest()
{
    SHwRcvInCabinetInfo record = makeRecord(3, 1, {2, 1, 0}, true);
    record.md5 = SMD5{};
    Page page(record);
    page.setSize(3, 1);
    QCOMPARE(page.wiring(), (Ids{0, 1, 2}));
    QVERIFY(!page.specifyOrientation());
}

void tst_CMultiRcvCabinetSetSecondPage::recordWhenItsSizeComesBack()
{
    Page page(makeRecord(2, 2, {1, 3, 2, 0}, true));
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
void tst_CMultiRcvCabinetSetSecondPage::recordStaysWhatItWas()
{
    SHwRcvInCabinetInfo record = makeRecord(2, 1, {1, 0});
    Page page(record);
    record = makeRecord(2, 1, {0, 1}, true);
    page.setSize(2, 1);
    QCOMPARE(page.wiring(), (Ids{1, 0}));
    QVERIFY(!page.specifyOrientation());
}

void tst_CMultiRcvCabinetSetSecondPage::damagedRecord_data()
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

void tst_CMultiRcvCabinetSetSecondPage::damagedRecord()
{
    QFETCH(SHwRcvInCabinetInfo, record);
    QFETCH(Ids, wiring);
    for (const bool specify : {false, true}) {
        record.specifyOrientation = specify;
        Page page(record);
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

// Tab leads through all that is shown, arrows lead from button to button, and the grid is wired by keys.
void tst_CMultiRcvCabinetSetSecondPage::keyboard()
{
    Page page;
    page.setSize(2, 2);
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    page.orientation->setFocus();
    const auto tab = [&page] {
        QTest::keyClick(page.focusWidget(), Qt::Key_Tab);
        return page.focusWidget();
    };
    QCOMPARE(tab(), page.button(1)); // there is nothing to clear
    for (int id = 2; id <= 4; ++id)
        QCOMPARE(tab(), page.button(id));
    QCOMPARE(tab(), page.grid);
    QCOMPARE(tab(), page.orientation);

    QTest::keyClick(page.orientation, Qt::Key_Space);
    QCOMPARE(tab(), page.button(5));
    QTest::keyClick(page.button(5), Qt::Key_Right);
    QCOMPARE(page.focusWidget(), page.button(6));
    QCOMPARE(page.wiring(), Ids());
    QTest::keyClick(page.button(6), Qt::Key_Space);
    QCOMPARE(page.wiring(), (Ids{2, 0, 1, 3}));
    QTest::keyClick(page.button(6), Qt::Key_Left);
    QTest::keyClick(page.button(5), Qt::Key_Left);
    QCOMPARE(page.focusWidget(), page.button(0));
    QTest::keyClick(page.button(0), Qt::Key_Space);
    QCOMPARE(page.wiring(), Ids());

    page.grid->setFocus();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Space, Qt::Key_Right, Qt::Key_Space})
        QTest::keyClick(page.focusWidget(), key);
    QCOMPARE(page.wiring(), (Ids{1, 3}));
    QVERIFY(page.canClear());
    QTest::keyClick(page.focusWidget(), Qt::Key_Delete);
    QCOMPARE(page.wiring(), Ids{1});
    QCOMPARE(tab(), page.orientation);
}

void tst_CMultiRcvCabinetSetSecondPage::accessibleNames()
{
    Page page;
    page.setSize(2, 2);
    QCOMPARE(page.grid->accessibleName(), QStringLiteral("Receiver wiring"));
    QCOMPARE(page.button(0)->accessibleName(), QStringLiteral("Clear"));
    // The one button whose tooltip goes another way than its wiring is called by its wiring.
    QCOMPARE(page.button(10)->accessibleName(), QStringLiteral("S topology with first down and then left"));
    for (const bool specify : {false, true}) {
        page.orientation->setChecked(specify);
        QStringList names;
        const Ids shown = page.shownButtons();
        for (const int id : shown) {
            names.append(page.button(id)->accessibleName());
            if (id != 10)
                QCOMPARE(names.last(), page.button(id)->toolTip());
        }
        QCOMPARE(names.removeDuplicates(), 0);
    }
}

void tst_CMultiRcvCabinetSetSecondPage::followsLanguage()
{
    Page page;
    page.setSize(2, 2);
    const auto texts = [&page] {
        QStringList all{page.orientation->text(), page.hint->text(), page.grid->accessibleName()};
        for (int id = 0; id < 13; ++id)
            all << page.button(id)->toolTip() << page.button(id)->accessibleName();
        return all;
    };
    const QStringList english = texts();
    QStringList capitals = english;
    for (QString& text : capitals)
        text = text.toUpper();
    {
        const Capitals translator;
        QCoreApplication::processEvents();
        QCOMPARE(texts(), capitals);
    }
    QCoreApplication::processEvents();
    QCOMPARE(texts(), english);
    for (int id = 0; id < 13; ++id)
        QCOMPARE(page.button(id)->objectName(), QLatin1String(buttons[id].name));
}

void tst_CMultiRcvCabinetSetSecondPage::gridStaysInItsPlace()
{
    Page page;
    page.resize(500, 250);
    page.setSize(2, 2);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    const QRect place = page.grid->geometry();
    QVERIFY(page.rect().contains(place));
    page.setSize(2, 1); // without buttons and hint
    QCoreApplication::processEvents();
    QCOMPARE(page.grid->geometry(), place);
    page.orientation->click();
    QCoreApplication::processEvents();
    QCOMPARE(page.grid->geometry(), place);
}

SETTINGAREA_TEST_MAIN(tst_CMultiRcvCabinetSetSecondPage, QApplication)
#include "tst_CMultiRcvCabinetSetSecondPage.moc"
