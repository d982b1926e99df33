#include "tests/support/TestObject.h"

#include <widgetry/CWarningTipLineEdit.h>

#include <QApplication>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>

#include <memory>

namespace {

// A window with an edit that can warn, at (20, 30) and 100 x 24 pixels large, inside a plain container.
struct Window
{
    Window()
    {
        window.resize(300, 200);
        container->setGeometry(10, 10, 280, 180);
        edit->setGeometry(10, 20, 100, 24);
        edit->setTipText(QStringLiteral("Wrong."));
    }

    QLabel* tip() const { return window.findChild<QLabel*>(QStringLiteral("WarningTip")); }
    bool showsTip() const { return tip() && tip()->isVisible(); }

    QWidget window;
    QWidget* container = new QWidget(&window);
    CWarningTipLineEdit* edit = new CWarningTipLineEdit(container);
};

} // namespace

class tst_CWarningTipLineEdit : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void stateAndTexts();
    void tipIsVisibleWithoutHover();
    void tipIsPlainText();
    void tipFollowsItsText();
    void tipGoesAboveWhereNoRoomIsBelow();
    void tipIsWrappedInNarrowWindow();
    void tipStaysInsideTheWindow();
    void tipFollowsTheEdit();
    void tipFollowsTheContainer();
    void tipScrollsWithTheEdit();
    void tipHidesWithItsPage();
    void tipMovesToAnotherWindow();
    void windowThatTheEditHasLeft();
    void disabledEditShowsNoTip();
    void mouseReachesWhatLiesUnderTheTip();
    void typingKeepsTheWarning();
    void borderHasWarningColour();
    void styleSheetSeesTheWarning();
    void destruction();
    void withoutWindowAround();
};

void tst_CWarningTipLineEdit::stateAndTexts()
{
    CWarningTipLineEdit edit;
    const QSignalSpy changes(&edit, &CWarningTipLineEdit::notifyWarningChanged);
    edit.setAccessibleDescription(QStringLiteral("Address of the sender"));
    QVERIFY(!edit.isWarningShown());
    QCOMPARE(edit.tipText(), QString());
    edit.setTipText(QStringLiteral("Wrong."));
    QCOMPARE(edit.tipText(), QStringLiteral("Wrong."));
    QVERIFY(!edit.isWarningShown());
    QCOMPARE(edit.accessibleDescription(), QStringLiteral("Address of the sender"));
    for (int i = 0; i < 2; ++i) { // a second call changes nothing
        edit.showWarning();
        QVERIFY(edit.isWarningShown());
        QVERIFY(edit.property("warning").toBool());
        QCOMPARE(edit.accessibleDescription(), QStringLiteral("Wrong."));
        QCOMPARE(changes.count(), 1);
    }
    edit.setTipText(QStringLiteral("Still wrong."));
    QCOMPARE(edit.accessibleDescription(), QStringLiteral("Still wrong."));
    for (int i = 0; i < 2; ++i) {
        edit.clearWarning();
        QVERIFY(!edit.isWarningShown());
        QVERIFY(!edit.property("warning").toBool());
        QCOMPARE(edit.accessibleDescription(), QStringLiteral("Address of the sender"));
        QCOMPARE(edit.tipText(), QStringLiteral("Still wrong."));
        QCOMPARE(changes.count(), 2);
    }
}

void tst_CWarningTipLineEdit::tipIsVisibleWithoutHover()
{
    Window w;
    w.edit->showWarning();
    QVERIFY(!w.showsTip());
    w.window.show();
    QVERIFY(w.showsTip());
    QCOMPARE(w.tip()->text(), QStringLiteral("Wrong."));
    QCOMPARE(w.tip()->parentWidget(), &w.window);
    // Two pixels below the edit, and on top of everything else.
    QCOMPARE(w.tip()->pos(), QPoint(20, 30 + 24 + 2));
    QCOMPARE(w.window.children().last(), w.tip());
    QVERIFY(w.tip()->width() >= w.tip()->fontMetrics().horizontalAdvance(w.tip()->text()));
    QVERIFY(w.tip()->height() >= w.tip()->fontMetrics().height());
    w.edit->clearWarning();
    QVERIFY(!w.showsTip());
}

void tst_CWarningTipLineEdit::tipIsPlainText()
{
    Window w;
    w.edit->setTipText(QStringLiteral("<b>Wrong</b> &amp; more"));
    w.window.show();
    w.edit->showWarning();
    QCOMPARE(w.tip()->text(), QStringLiteral("<b>Wrong</b> &amp; more"));
    QCOMPARE(w.tip()->textFormat(), Qt::PlainText);
}

void tst_CWarningTipLineEdit::tipFollowsItsText()
{
    Window w;
    w.window.show();
    w.edit->showWarning();
    const int width = w.tip()->width();
    w.edit->setTipText(QStringLiteral("Wrong, and for a longer reason."));
    QVERIFY(w.showsTip());
    QCOMPARE(w.tip()->text(), QStringLiteral("Wrong, and for a longer reason."));
    QVERIFY(w.tip()->width() > width);
    w.edit->setTipText(QString());
    QVERIFY(!w.showsTip());
    QVERIFY(w.edit->isWarningShown());
}

void tst_CWarningTipLineEdit::tipGoesAboveWhereNoRoomIsBelow()
{
    Window w;
    w.edit->move(10, 150);
    w.window.show();
    w.edit->showWarning();
    QCOMPARE(w.tip()->geometry().bottom() + 1, 160 - 2);
    QCOMPARE(w.tip()->x(), 20);

    // Nor above: then below all the same.
    w.edit->move(10, 0);
    w.window.resize(300, 40);
    QCOMPARE(w.tip()->pos(), QPoint(20, 10 + 24 + 2));
}

void tst_CWarningTipLineEdit::tipIsWrappedInNarrowWindow()
{
    Window w;
    w.edit->setTipText(QStringLiteral("Wrong, for a reason that takes more words than one line of this window holds."));
    w.window.resize(150, 200);
    w.window.show();
    w.edit->showWarning();
    QCOMPARE(w.tip()->width(), 150);
    QCOMPARE(w.tip()->x(), 0);
    QVERIFY(w.tip()->height() > 3 * w.tip()->fontMetrics().height());
}

void tst_CWarningTipLineEdit::tipStaysInsideTheWindow()
{
    Window w;
    w.edit->move(180, 20);
    w.edit->setTipText(QStringLiteral("Wrong, for a long reason."));
    w.window.show();
    w.edit->showWarning();
    QCOMPARE(w.tip()->geometry().right() + 1, 300);
    QVERIFY(w.tip()->x() < 190);
}

void tst_CWarningTipLineEdit::tipFollowsTheEdit()
{
    Window w;
    w.window.show();
    w.edit->showWarning();
    w.edit->move(30, 50);
    QCOMPARE(w.tip()->pos(), QPoint(40, 60 + 24 + 2));
    w.edit->resize(100, 40);
    QCOMPARE(w.tip()->pos(), QPoint(40, 60 + 40 + 2));
}

void tst_CWarningTipLineEdit::tipFollowsTheContainer()
{
    Window w;
    w.window.show();
    w.edit->showWarning();
    w.container->move(50, 60);
    QCOMPARE(w.tip()->pos(), QPoint(60, 80 + 24 + 2));
    w.window.resize(300, 110); // no room below any more
    QCOMPARE(w.tip()->geometry().bottom() + 1, 80 - 2);
}

void tst_CWarningTipLineEdit::tipScrollsWithTheEdit()
{
    QScrollArea area;
    auto* const content = new QWidget;
    content->setFixedSize(250, 1000);
    auto* const edit = new CWarningTipLineEdit(content);
    edit->setGeometry(10, 100, 100, 24);
    edit->setTipText(QStringLiteral("Wrong."));
    area.setWidget(content);
    area.resize(300, 200);
    area.show();
    edit->showWarning();
    auto* const tip = area.findChild<QLabel*>(QStringLiteral("WarningTip"));
    QVERIFY(tip);
    // On the content, so that the viewport cuts it off where it cuts the edit off.
    QCOMPARE(tip->parentWidget(), content);
    QCOMPARE(tip->mapTo(&area, QPoint()) - edit->mapTo(&area, QPoint()), QPoint(0, 24 + 2));
    area.verticalScrollBar()->setValue(60);
    QCOMPARE(tip->mapTo(&area, QPoint()) - edit->mapTo(&area, QPoint()), QPoint(0, 24 + 2));
    QVERIFY(!tip->visibleRegion().isEmpty());
    area.verticalScrollBar()->setValue(500);
    QVERIFY(tip->visibleRegion().isEmpty());
}

void tst_CWarningTipLineEdit::tipHidesWithItsPage()
{
    QStackedWidget pages;
    auto* const page = new QWidget;
    auto* const edit = new CWarningTipLineEdit(page);
    edit->setTipText(QStringLiteral("Wrong."));
    pages.addWidget(page);
    pages.addWidget(new QWidget);
    pages.resize(300, 200);
    pages.show();
    edit->showWarning();
    const auto showsTip = [&] {
        const auto* const tip = pages.findChild<QLabel*>(QStringLiteral("WarningTip"));
        return tip && tip->isVisible();
    };
    QVERIFY(showsTip());
    pages.setCurrentIndex(1);
    QVERIFY(!showsTip());
    pages.setCurrentIndex(0);
    QVERIFY(showsTip());
    edit->hide();
    QVERIFY(!showsTip());
    edit->clearWarning();
    edit->show();
    QVERIFY(!showsTip());
}

void tst_CWarningTipLineEdit::tipMovesToAnotherWindow()
{
    Window w;
    QWidget other;
    other.resize(300, 200);
    other.show();
    w.window.show();
    w.edit->showWarning();
    w.container->setParent(&other);
    QVERIFY(!w.showsTip());
    w.container->show();
    const auto* const tip = other.findChild<QLabel*>(QStringLiteral("WarningTip"));
    QVERIFY(tip && tip->isVisible());
    QCOMPARE(tip->parentWidget(), &other);
}

// The tip is still a child of the old window then, and knows nothing of the new one.
void tst_CWarningTipLineEdit::windowThatTheEditHasLeft()
{
    Window w;
    QWidget other;
    other.resize(300, 200);
    other.show();
    w.window.show();
    w.edit->showWarning();
    w.container->setParent(&other);
    w.window.resize(400, 300);
    QVERIFY(!w.showsTip());
    w.edit->move(30, 50);
    w.container->show();
    const auto* const tip = other.findChild<QLabel*>(QStringLiteral("WarningTip"));
    QVERIFY(tip && tip->isVisible());
    QCOMPARE(tip->pos(), w.edit->mapTo(&other, QPoint(0, 24 + 2)));
}

void tst_CWarningTipLineEdit::disabledEditShowsNoTip()
{
    Window w;
    w.window.show();
    w.edit->showWarning();
    w.edit->setEnabled(false);
    QVERIFY(!w.showsTip());
    QVERIFY(w.edit->isWarningShown());
    w.edit->setEnabled(true);
    QVERIFY(w.showsTip());
    w.container->setEnabled(false);
    QVERIFY(!w.showsTip());
}

void tst_CWarningTipLineEdit::mouseReachesWhatLiesUnderTheTip()
{
    Window w;
    w.window.show();
    w.edit->showWarning();
    QCOMPARE(w.window.childAt(w.tip()->geometry().center()), w.container);
}

void tst_CWarningTipLineEdit::typingKeepsTheWarning()
{
    Window w;
    w.window.show();
    w.edit->showWarning();
    QTest::keyClicks(w.edit, QStringLiteral("text"));
    QTest::keyClick(w.edit, Qt::Key_Return);
    QCOMPARE(w.edit->text(), QStringLiteral("text"));
    QVERIFY(w.edit->isWarningShown());
    QVERIFY(w.showsTip());
}

void tst_CWarningTipLineEdit::borderHasWarningColour()
{
    Window w;
    w.window.show();
    w.edit->setWarningColor(QColor(1, 200, 3));
    QCOMPARE(w.edit->warningColor(), QColor(1, 200, 3));
    // In the middle of the four edges, one device pixel from the outside.
    const auto edges = [&] {
        const QImage image = w.edit->grab().toImage();
        const QPoint center = image.rect().center();
        return QVector<QRgb>{image.pixel(center.x(), 0), image.pixel(center.x(), image.height() - 1),
                             image.pixel(0, center.y()), image.pixel(image.width() - 1, center.y())};
    };
    const QRgb colour = qRgb(1, 200, 3);
    QCOMPARE(edges().count(colour), 0);
    w.edit->showWarning();
    QCOMPARE(edges(), QVector<QRgb>(4, colour));
    QCOMPARE(w.tip()->palette().color(QPalette::Window), QColor(1, 200, 3));
    w.edit->setWarningColor(QColor(200, 0, 0));
    QCOMPARE(edges(), QVector<QRgb>(4, qRgb(200, 0, 0)));
    QCOMPARE(w.tip()->palette().color(QPalette::Window), QColor(200, 0, 0));
    w.edit->clearWarning();
    QCOMPARE(edges().count(qRgb(200, 0, 0)), 0);
}

void tst_CWarningTipLineEdit::styleSheetSeesTheWarning()
{
    Window w;
    w.window.setStyleSheet(QStringLiteral("CWarningTipLineEdit{color:rgb(1,2,3);qproperty-warningColor:#102030;}"
                                          "CWarningTipLineEdit[warning=\"true\"]{color:rgb(4,5,6);}"
                                          "#WarningTip{color:rgb(7,8,9);}"));
    w.window.show();
    QCOMPARE(w.edit->palette().color(QPalette::Text), QColor(1, 2, 3));
    QCOMPARE(w.edit->warningColor(), QColor(0x10, 0x20, 0x30));
    w.edit->showWarning();
    QCOMPARE(w.edit->palette().color(QPalette::Text), QColor(4, 5, 6));
    QCOMPARE(w.tip()->palette().color(QPalette::WindowText), QColor(7, 8, 9));
    w.edit->clearWarning();
    QCOMPARE(w.edit->palette().color(QPalette::Text), QColor(1, 2, 3));
}

void tst_CWarningTipLineEdit::destruction()
{
    Window w;
    w.window.show();
    w.edit->showWarning();
    delete w.edit;
    QVERIFY(!w.tip());

    auto second = std::make_unique<Window>();
    second->window.show();
    second->edit->showWarning();
    delete second->container; // and the edit in it
    QVERIFY(!second->tip());

    auto third = std::make_unique<Window>();
    third->window.show();
    third->edit->showWarning();
    delete third->tip(); // as a window does that destroys its children one by one
    third->edit->setTipText(QStringLiteral("Again."));
    QVERIFY(third->showsTip());
    third.reset();
}

void tst_CWarningTipLineEdit::withoutWindowAround()
{
    CWarningTipLineEdit edit;
    edit.setTipText(QStringLiteral("Wrong."));
    edit.show();
    edit.showWarning();
    QVERIFY(edit.isWarningShown());
    QVERIFY(edit.findChildren<QLabel*>().isEmpty());
}

SETTINGAREA_TEST_MAIN(tst_CWarningTipLineEdit, QApplication)
#include "tst_CWarningTipLineEdit.moc"
