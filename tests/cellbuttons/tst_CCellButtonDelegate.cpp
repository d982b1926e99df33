#include "cellbuttons/CCellButtonDelegate.h"
#include "tests/support/TestObject.h"

#include <widgetry/CToolTip.h>
#include <widgetry/CTreeView.h>

#include <QApplication>
#include <QFile>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTableView>
#include <QTemporaryDir>
#include <QToolTip>

#include <functional>
#include <memory>

namespace {

constexpr QColor normalColor(200, 0, 0);
constexpr QColor hoverColor(0, 200, 0);
constexpr QColor pressedColor(0, 0, 200);

QPixmap square(const QColor& color)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(color);
    return pixmap;
}

QIcon colorIcon(bool withPressed)
{
    QIcon icon(square(normalColor));
    icon.addPixmap(square(hoverColor), QIcon::Active);
    if (withPressed)
        icon.addPixmap(square(pressedColor), QIcon::Active, QIcon::On);
    return icon;
}

// Buttons 0 and 1, the second without a picture of its own for pressed.
class Delegate : public CCellButtonDelegate
{
public:
    explicit Delegate(QAbstractItemView* view)
        : Delegate({colorIcon(true), colorIcon(false)}, view)
    {
    }
    Delegate(const QVector<QIcon>& icons, QAbstractItemView* view)
        : CCellButtonDelegate(icons, view)
    {
    }

    QSize sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const override
    {
        return {100, 28};
    }

    std::function<void()> whenClicked = [] {};
    QStringList clicks; // as "row: button"

protected:
    QString toolTip(int button) const override { return QStringLiteral("<b>%1").arg(button); }
    void clicked(const QModelIndex& index, int button) override
    {
        clicks.append(QStringLiteral("%1: %2").arg(index.row()).arg(button));
        whenClicked();
    }
};

// Four rows: a nameand a cell of buttons.
struct Table
{
    explicit Table(QAbstractItemView* itemView)
        : view(itemView),
          model(4, 2)
    {
        for (int row = 0; row < model.rowCount(); ++row) {
            model.setItem(row, 0, new QStandardItem(QStringLiteral("name")));
            model.setItem(row, 1, new QStandardItem(QStringLiteral("never shown")));
        }
        view->setModel(&model);
        view->setSelectionBehavior(QAbstractItemView::SelectRows);
        view->setSelectionMode(QAbstractItemView::SingleSelection);
        delegate = new Delegate(view.get());
        view->setItemDelegateForColumn(1, delegate);
        view->resize(400, 300);
    }

    void show() const
    {
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    }
    QWidget* viewport() const { return view->viewport(); }
    QRect cell(int row, int column = 1) const { return view->visualRect(model.index(row, column)); }
    QRect button(int row, int number) const { return CCellButtonDelegate::buttonRect(cell(row), number); }
    QPoint middle(int row, int number) const { return button(row, number).center(); }
    int currentRow() const { return view->currentIndex().row(); }

    // From elsewhere: where the mouse is already, it does not move.
    void moveMouse(const QPoint& to) const
    {
        QTest::mouseMove(viewport(), QPoint(390, 250));
        QTest::mouseMove(viewport(), to);
    }

    // What is painted there, and in the middle of a button.
    QColor colorAt(const QPoint& position) const
    {
        QCoreApplication::processEvents();
        const QPixmap all = viewport()->grab();
        return all.toImage().pixelColor(position * all.devicePixelRatio());
    }
    QColor color(int row, int number) const { return colorAt(middle(row, number)); }

    // Sends what the window system sends when the mouse moves, with the left button held down.
    void drag(const QPoint& to) const
    {
        QMouseEvent move(QEvent::MouseMove, to, viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(viewport(), &move);
    }

    std::unique_ptr<QAbstractItemView> view;
    QStandardItemModel model;
    Delegate* delegate;
};

} // namespace

class tst_CCellButtonDelegate : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void rects();
    void hitBox_data();
    void hitBox();
    void clickNeedsPressAndReleaseInside();
    void otherMouseButtons();
    void pressMakesTheRowCurrent();
    void pressAndDragSelectsNothing();
    void quickClicksAllCount();
    void disabled();
    void cellNarrowerThanItsButtons();
    void hover_data();
    void hover();
    void hoverNeedsTheRowUnderTheMouse();
    void pressedPicture();
    void pressEndsOutside();
    void dimmedPicture();
    void nothingButButtons();
    void sharpAtEveryScale_data();
    void sharpAtEveryScale();
    void paintingOpensNoFile();
    void toolTips();
    void viewDestroyedByClick();
    void rowRemovedWhilePressed();
    void viewWithoutModel();
};

void tst_CCellButtonDelegate::rects()
{
    QCOMPARE(CCellButtonDelegate::buttonRect(QRect(100, 56, 287, 28), 0), QRect(108, 62, 16, 16));
    QCOMPARE(CCellButtonDelegate::buttonRect(QRect(100, 56, 287, 28), 1), QRect(132, 62, 16, 16));
    QCOMPARE(CCellButtonDelegate::buttonRect(QRect(0, 0, 10, 10), 2), QRect(56, 6, 16, 16));
}

void tst_CCellButtonDelegate::hitBox_data()
{
    QTest::addColumn<QPoint>("position"); // from the cell's corner
    QTest::addColumn<QStringList>("clicks");
    const auto hits = [](int button) { return QStringList{QStringLiteral("1: %1").arg(button)}; };
    QTest::newRow("first, top left") << QPoint(8, 6) << hits(0);
    QTest::newRow("first, bottom right") << QPoint(23, 21) << hits(0);
    QTest::newRow("left of the first") << QPoint(7, 6) << QStringList();
    QTest::newRow("above the first") << QPoint(8, 5) << QStringList();
    QTest::newRow("right of the first") << QPoint(24, 21) << QStringList();
    QTest::newRow("below the first") << QPoint(23, 22) << QStringList();
    QTest::newRow("left of the second") << QPoint(31, 6) << QStringList();
    QTest::newRow("second, top left") << QPoint(32, 6) << hits(1);
    QTest::newRow("second, bottom right") << QPoint(47, 21) << hits(1);
    QTest::newRow("right of the second") << QPoint(48, 21) << QStringList();
}

void tst_CCellButtonDelegate::hitBox()
{
    QFETCH(QPoint, position);
    QFETCH(QStringList, clicks);
    const Table table(new QTableView);
    table.show();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.cell(1).topLeft() + position);
    QCOMPARE(table.delegate->clicks, clicks);
}

void tst_CCellButtonDelegate::clickNeedsPressAndReleaseInside()
{
    const Table table(new CTreeView);
    table.show();
    const auto pressAndRelease = [&table](const QPoint& from, const QPoint& to) {
        QTest::mousePress(table.viewport(), Qt::LeftButton, {}, from);
        QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, to);
    };
    pressAndRelease(table.middle(1, 0), table.middle(1, 1));                          // another button
    pressAndRelease(table.middle(1, 0), table.middle(2, 0));                          // the same one of another row
    pressAndRelease(table.middle(1, 0), table.cell(1, 0).center());                   // another column
    pressAndRelease(table.middle(1, 0), QPoint(200, 290));                            // below all rows
    pressAndRelease(table.middle(1, 0), QPoint(-20, -20));                            // outside the view
    pressAndRelease(table.middle(1, 0), table.button(1, 0).topLeft() - QPoint(1, 0)); // beside it
    pressAndRelease(table.cell(1, 0).center(), table.middle(1, 0));                   // pressed elsewhere
    pressAndRelease(QPoint(200, 290), table.middle(1, 0));
    QCOMPARE(table.delegate->clicks, QStringList());
    pressAndRelease(table.button(1, 0).topLeft(), table.button(1, 0).bottomRight());
    QCOMPARE(table.delegate->clicks, QStringList{QStringLiteral("1: 0")});
}

void tst_CCellButtonDelegate::otherMouseButtons()
{
    const Table table(new CTreeView);
    table.show();
    QTest::mouseClick(table.viewport(), Qt::RightButton, {}, table.middle(1, 0));
    QTest::mouseClick(table.viewport(), Qt::MiddleButton, {}, table.middle(1, 1));
    QCOMPARE(table.delegate->clicks, QStringList());
    // A right button that comes in between, and brings a menu up, ends the press.
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    QTest::mousePress(table.viewport(), Qt::RightButton, {}, table.middle(1, 0));
    QCOMPARE(table.color(1, 0), normalColor);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    QCOMPARE(table.delegate->clicks, QStringList());
    // The release of a right button does not.
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    QTest::mouseRelease(table.viewport(), Qt::RightButton, {}, table.middle(1, 0));
    QCOMPARE(table.delegate->clicks, QStringList());
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    QCOMPARE(table.delegate->clicks, QStringList{QStringLiteral("1: 0")});
}

void tst_CCellButtonDelegate::pressMakesTheRowCurrent()
{
    const Table table(new CTreeView);
    table.show();
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.middle(2, 0));
    QCOMPARE(table.currentRow(), 2);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.middle(2, 0));
    QCOMPARE(table.view->selectionModel()->selectedRows().size(), 1);
    // The view has not kept the press: the next one works as ever.
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.cell(0, 0).center());
    QCOMPARE(table.currentRow(), 0);
    QCOMPARE(table.delegate->clicks, QStringList{QStringLiteral("2: 0")});
}

void tst_CCellButtonDelegate::pressAndDragSelectsNothing()
{
    const Table table(new CTreeView);
    table.show();
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.middle(0, 0));
    table.drag(table.cell(1, 0).center());
    table.drag(table.cell(2, 0).center());
    QCOMPARE(table.currentRow(), 0);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.cell(2, 0).center());
    QCOMPARE(table.currentRow(), 0);
    // A drag that did not begin on a button does.
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.cell(0, 0).center());
    table.drag(table.cell(2, 0).center());
    QCOMPARE(table.currentRow(), 2);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.cell(2, 0).center());
}

// What comes soon after a click arrives as a double click. It neither gets lost nor opens the row.
void tst_CCellButtonDelegate::quickClicksAllCount()
{
    for (QAbstractItemView* view :
         {static_cast<QAbstractItemView*>(new CTreeView), static_cast<QAbstractItemView*>(new QTableView)}) {
        Table table(view);
        table.model.item(1)->appendRow(new QStandardItem(QStringLiteral("child")));
        table.show();
        table.moveMouse(table.middle(1, 0));
        const QSignalSpy doubleClicked(view, &QAbstractItemView::doubleClicked);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
        QCOMPARE(table.color(1, 0), pressedColor);
        QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
        QCOMPARE(table.delegate->clicks, QStringList({QStringLiteral("1: 0"), QStringLiteral("1: 0")}));
        QCOMPARE(table.color(1, 0), hoverColor);
        QCOMPARE(doubleClicked.count(), 0);
        if (const auto* const opened = qobject_cast<QTreeView*>(view))
            QVERIFY(!opened->isExpanded(table.model.index(1, 0)));
        // Beside the buttons it is the view's.
        const QPoint beside = table.button(1, 1).topRight() + QPoint(4, 0);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, beside);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, beside);
        QCOMPARE(doubleClicked.count(), 1);
    }
}

void tst_CCellButtonDelegate::disabled()
{
    const Table table(new CTreeView);
    table.show();
    QVERIFY(table.delegate->isEnabled());
    table.delegate->setEnabled(false);
    QVERIFY(!table.delegate->isEnabled());
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.middle(1, 1));
    QCOMPARE(table.delegate->clicks, QStringList());
    QCOMPARE(table.currentRow(), 1); // a cell like any other

    table.delegate->setEnabled(true);
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    table.delegate->setEnabled(false);
    table.delegate->setEnabled(true);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    QCOMPARE(table.delegate->clicks, QStringList());
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.middle(1, 1));
    QCOMPARE(table.delegate->clicks, QStringList{QStringLiteral("1: 1")});
}

// What is cut off is neither painted nor clicked: a neighbour's cell begins there.
void tst_CCellButtonDelegate::cellNarrowerThanItsButtons()
{
    auto* const view = new QTableView;
    const Table table(view);
    view->setColumnWidth(1, 40);
    table.show();
    const QPoint corner = table.button(1, 1).topLeft();
    const int end = table.cell(1).right();
    QVERIFY(end < table.button(1, 1).right());
    QCOMPARE(table.colorAt({end - 1, corner.y() + 8}), normalColor);
    QVERIFY(table.colorAt({end + 2, corner.y() + 8}) != normalColor);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, QPoint(end + 1, corner.y()));
    QCOMPARE(table.delegate->clicks, QStringList());
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, QPoint(end, corner.y()));
    QCOMPARE(table.delegate->clicks, QStringList{QStringLiteral("1: 1")});
}

void tst_CCellButtonDelegate::hover_data()
{
    QTest::addColumn<bool>("isTree");
    QTest::newRow("tree") << true;
    QTest::newRow("table") << false;
}

void tst_CCellButtonDelegate::hover()
{
    QFETCH(bool, isTree);
    const Table table(isTree ? static_cast<QAbstractItemView*>(new CTreeView) : new QTableView);
    table.show();
    QCOMPARE(table.color(1, 0), normalColor);
    table.moveMouse(table.middle(1, 0));
    QTRY_COMPARE(table.color(1, 0), hoverColor);
    QCOMPARE(table.color(1, 1), normalColor);
    QCOMPARE(table.color(2, 0), normalColor);
    table.moveMouse(table.middle(1, 1));
    QTRY_COMPARE(table.color(1, 1), hoverColor);
    QCOMPARE(table.color(1, 0), normalColor);
    // The same row, but no button.
    table.moveMouse(table.cell(1, 0).center());
    QTRY_COMPARE(table.color(1, 1), normalColor);
    table.moveMouse(table.middle(3, 0));
    QTRY_COMPARE(table.color(3, 0), hoverColor);
    QHoverEvent leave(QEvent::HoverLeave, QPointF(-1, -1), table.middle(3, 0));
    QCoreApplication::sendEvent(table.viewport(), &leave);
    QCOMPARE(table.color(3, 0), normalColor);
}

void tst_CCellButtonDelegate::hoverNeedsTheRowUnderTheMouse()
{
    const Table table(new CTreeView);
    table.show();
    table.moveMouse(table.middle(1, 0));
    QTRY_COMPARE(table.color(1, 0), hoverColor);
    const auto paintedColor = [&table](QStyle::State state) {
        QImage image(table.viewport()->size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = table.cell(1);
        option.state = state;
        table.delegate->paint(&painter, option, table.model.index(1, 1));
        return image.pixelColor(table.middle(1, 0));
    };
    QCOMPARE(paintedColor(QStyle::State_Enabled | QStyle::State_MouseOver), hoverColor);
    QCOMPARE(paintedColor(QStyle::State_Enabled), normalColor);
}

void tst_CCellButtonDelegate::pressedPicture()
{
    const Table table(new CTreeView);
    table.show();
    table.moveMouse(table.middle(1, 0));
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    QCOMPARE(table.color(1, 0), pressedColor);
    QCOMPARE(table.color(1, 1), normalColor);
    QCOMPARE(table.color(2, 0), normalColor);
    // Wherever the mouse goes meanwhile; other buttons do not light up.
    table.drag(table.middle(1, 1));
    QCOMPARE(table.color(1, 0), pressedColor);
    QCOMPARE(table.color(1, 1), normalColor);
    table.drag(table.middle(1, 0));
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
    QCOMPARE(table.color(1, 0), hoverColor);
    QCOMPARE(table.delegate->clicks, QStringList{QStringLiteral("1: 0")});
    // A button without a picture for it.
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.middle(1, 1));
    QCOMPARE(table.color(1, 1), hoverColor);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, table.middle(1, 1));
}

void tst_CCellButtonDelegate::pressEndsOutside()
{
    const Table table(new CTreeView);
    table.show();
    for (const QPoint& place : {table.cell(1, 0).center(), table.middle(2, 0), QPoint(200, 290), QPoint(-20, -20)}) {
        QTest::mousePress(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
        QCOMPARE(table.color(1, 0), pressedColor);
        QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, place);
        QCOMPARE(table.color(1, 0), normalColor);
    }
}

void tst_CCellButtonDelegate::dimmedPicture()
{
    const Table table(new CTreeView);
    table.view->setStyleSheet(QStringLiteral("QTreeView { background: black }"));
    table.show();
    table.moveMouse(table.middle(1, 0));
    QTRY_COMPARE(table.color(1, 0), hoverColor);
    // 40 % of the normal picture, and no hover.
    const auto isDimmed = [&table](int button) {
        const QColor color = table.color(1, button);
        return qAbs(color.red() - 80) <= 1 && color.green() == 0 && color.blue() == 0;
    };
    table.delegate->setEnabled(false);
    QVERIFY(isDimmed(0) && isDimmed(1));
    table.delegate->setEnabled(true);
    QCOMPARE(table.color(1, 0), hoverColor);
    table.view->setEnabled(false);
    QVERIFY(isDimmed(0) && isDimmed(1));
}

void tst_CCellButtonDelegate::nothingButButtons()
{
    const Table table(new CTreeView);
    table.show();
    const auto cellWith = [&table](const QString& text) {
        table.model.item(1, 1)->setText(text);
        return table.viewport()->grab(table.cell(1)).toImage();
    };
    QCOMPARE(cellWith(QStringLiteral("never shown")), cellWith(QString()));
}

void tst_CCellButtonDelegate::sharpAtEveryScale_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QRect>("square"); // in device pixels, of a button at 9, 8 that fills its picture
    QTest::newRow("100 %") << 1.0 << QRect(9, 8, 16, 16);
    QTest::newRow("110 %") << 1.1 << QRect(10, 9, 18, 18);
    QTest::newRow("125 %") << 1.25 << QRect(11, 10, 20, 20);
    QTest::newRow("150 %") << 1.5 << QRect(14, 12, 24, 24);
    QTest::newRow("175 %") << 1.75 << QRect(16, 14, 28, 28);
    QTest::newRow("200 %") << 2.0 << QRect(18, 16, 32, 32);
}

namespace {

// A delegate with one button, whose picture, a square that fills it, lies in a file.
struct SvgButton
{
    SvgButton()
    {
        QFile file(path());
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">)"
                       R"(<rect width="16" height="16" fill="#ff0000"/></svg>)") < 0)
            qFatal("Cannot write %s", qPrintable(path()));
        file.close();
        delegate = new Delegate({QIcon(path())}, &view);
    }
    QString path() const { return folder.filePath(QStringLiteral("square.svg")); }

    QImage painted(double scale)
    {
        QImage image((QSizeF(40, 32) * scale).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::white);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = QRect(1, 2, 35, 28);
        option.state = QStyle::State_Enabled;
        QStandardItemModel model(1, 1);
        delegate->paint(&painter, option, model.index(0, 0));
        return image;
    }

    const QTemporaryDir folder;
    QTableView view;
    Delegate* delegate;
};

} // namespace

void tst_CCellButtonDelegate::sharpAtEveryScale()
{
    QFETCH(double, scale);
    QFETCH(QRect, square);
    SvgButton button;
    const QImage image = button.painted(scale);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor expected = square.contains(x, y) ? QColor(Qt::red) : QColor(Qt::white);
            if (image.pixelColor(x, y) != expected)
                QFAIL(qPrintable(QStringLiteral("%1, %2 is %3").arg(x).arg(y).arg(image.pixelColor(x, y).name())));
        }
    }
}

void tst_CCellButtonDelegate::paintingOpensNoFile()
{
    SvgButton button;
    const QImage first = button.painted(1);
    QCOMPARE(first.pixelColor(9, 8), QColor(Qt::red));
    QVERIFY(QFile::remove(button.path()));
    QCOMPARE(button.painted(1), first);
}

void tst_CCellButtonDelegate::toolTips()
{
    const Table table(new CTreeView);
    table.show();
    const auto ask = [&table](const QPoint& position, QEvent::Type type = QEvent::ToolTip) {
        QToolTip::hideText();
        QHelpEvent event(type, position, table.viewport()->mapToGlobal(position));
        QStyleOptionViewItem option;
        option.rect = table.cell(1);
        return table.delegate->helpEvent(&event, table.view.get(), option, table.model.index(1, 1));
    };
    QVERIFY(ask(table.middle(1, 0)));
    QCOMPARE(QToolTip::text(), CToolTip::fromPlainText(QStringLiteral("<b>0")));
    QVERIFY(ask(table.middle(1, 1)));
    QCOMPARE(QToolTip::text(), CToolTip::fromPlainText(QStringLiteral("<b>1")));
    QVERIFY(!ask(table.middle(1, 0), QEvent::WhatsThis));

    // Between the buttons the model's own tooltip is shown, as in any cell.
    QVERIFY(!ask(table.cell(1).topLeft()));
    table.model.item(1, 1)->setToolTip(QStringLiteral("from the model"));
    QVERIFY(ask(table.cell(1).topLeft()));
    QCOMPARE(QToolTip::text(), QStringLiteral("from the model"));

    // It goes when the mouse leaves the button.
    QVERIFY(ask(table.middle(1, 0)));
    QTest::mouseMove(table.viewport(), table.button(1, 0).bottomRight());
    QVERIFY(QToolTip::isVisible());
    QTest::mouseMove(table.viewport(), table.button(1, 0).bottomRight() + QPoint(2, 0));
    QTRY_VERIFY(!QToolTip::isVisible());
}

void tst_CCellButtonDelegate::viewDestroyedByClick()
{
    for (QAbstractItemView* view :
         {static_cast<QAbstractItemView*>(new CTreeView), static_cast<QAbstractItemView*>(new QTableView)}) {
        Table table(view);
        table.show();
        QString clicked;
        table.delegate->whenClicked = [&table, &clicked] {
            clicked = table.delegate->clicks.constFirst();
            table.view.reset();
        };
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.middle(1, 0));
        QCOMPARE(clicked, QStringLiteral("1: 0"));
        QCOMPARE(table.view.get(), nullptr);
    }
}

void tst_CCellButtonDelegate::rowRemovedWhilePressed()
{
    Table table(new CTreeView);
    table.show();
    const QPoint place = table.middle(1, 0);
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, place);
    table.model.removeRow(1);
    QCOMPARE(table.color(1, 0), normalColor); // the row that has moved up
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(table.delegate->clicks, QStringList());
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(table.delegate->clicks, QStringList{QStringLiteral("1: 0")});
}

void tst_CCellButtonDelegate::viewWithoutModel()
{
    const Table table(new CTreeView);
    table.show();
    const QPoint place = table.middle(0, 0);
    table.view->setModel(nullptr);
    table.moveMouse(place);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(table.delegate->clicks, QStringList());
}

SETTINGAREA_TEST_MAIN(tst_CCellButtonDelegate, QApplication)

#include "tst_CCellButtonDelegate.moc"
