#include "multircv/CMultiRcvCabinetSetSecondPage.h"

#include "tests/multircv/SecondPage.h"
#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"

#include <QApplication>
#include <QFile>

namespace {

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

} // namespace

// The controls of the page, and which of them are there.
class tst_CMultiRcvCabinetSetSecondPage : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void builtPage();
    void topologyButtons();
    void icons_data();
    void icons();
    void shownButtons_data();
    void shownButtons();
    void hint_data();
    void hint();
    void keyboard();
    void accessibleNames();
    void followsLanguage();
    void gridStaysInItsPlace();
};

void tst_CMultiRcvCabinetSetSecondPage::builtPage()
{
    const SecondPage page;
    QVERIFY(!page.specifyOrientation());
    QVERIFY(!page.orientation->isChecked());
    QCOMPARE(page.orientation->text(), QStringLiteral("Specify orientation"));
    QCOMPARE(page.hint->text(), QStringLiteral("Left-click to select, right-click to unselect"));
    QVERIFY(page.hint->isHidden());
    QCOMPARE(page.wiring(), Ids());
    QCOMPARE(page.shownButtons(), Ids());
    QCOMPARE(page.grid->size(), QSize(313, 174));
    // Also that of an edited type: it counts from the moment that the size is known.
    const SecondPage edited(makeRecord(2, 1, {1, 0}, true));
    QVERIFY(!edited.specifyOrientation());
    QCOMPARE(edited.wiring(), Ids());
}

void tst_CMultiRcvCabinetSetSecondPage::topologyButtons()
{
    SecondPage page;
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
    const SecondPage page;
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
    SecondPage page;
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
    SecondPage page;
    page.setGridSize(size);
    QCOMPARE(page.hint->isHidden(), !shown);
    page.setGridSize({2, 3});
    QVERIFY(!page.hint->isHidden());
    page.setGridSize(size);
    QCOMPARE(page.hint->isHidden(), !shown);
    page.orientation->click();
    QCOMPARE(page.hint->isHidden(), !shown);
}

// Tab leads through all that is shown, arrows lead from button to button, and the grid is wired by keys.
void tst_CMultiRcvCabinetSetSecondPage::keyboard()
{
    SecondPage page;
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
    SecondPage page;
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
    SecondPage page;
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
        const UpperCase language;
        QCOMPARE(texts(), capitals);
    }
    QCOMPARE(texts(), english);
    for (int id = 0; id < 13; ++id)
        QCOMPARE(page.button(id)->objectName(), QLatin1String(buttons[id].name));
}

void tst_CMultiRcvCabinetSetSecondPage::gridStaysInItsPlace()
{
    SecondPage page;
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
