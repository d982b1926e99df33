#include "tests/support/TestObject.h"

#include <widgetry/CTranslatingAnimation.h>

#include <QApplication>
#include <QVBoxLayout>

#include <memory>

namespace {

// Notes where it has been painted or moved, while it is visible.
class Panel : public QWidget
{
public:
    using QWidget::QWidget;

    QSize sizeHint() const override { return {100, 40}; }

    QVector<QPoint> positions;

protected:
    void moveEvent(QMoveEvent* event) override
    {
        positions.append(pos());
        QWidget::moveEvent(event);
    }
};

// An overlay of 200 x 100 pixels with a panel of 100 x 40 at (30, 20), hidden.
struct Overlay
{
    explicit Overlay(Qt::Edge edge = Qt::BottomEdge)
        : animation(new CTranslatingAnimation(edge, panel))
    {
        overlay.resize(200, 100);
        panel->setGeometry(30, 20, 100, 40);
        panel->hide();
        overlay.show();
        animation->setMoveInCompleteCallback([this] { ++in; });
        animation->setMoveOutCompleteCallback([this] { ++out; });
        animation->setDuration(50);
    }

    QWidget overlay;
    Panel* panel = new Panel(&overlay);
    CTranslatingAnimation* animation;
    int in = 0;
    int out = 0;
};

// Until a slide that began before would have ended.
void letSlidesEnd()
{
    Overlay clock;
    clock.animation->setDuration(100);
    clock.animation->moveIn();
    QTRY_COMPARE(clock.in, 1);
}

} // namespace

class tst_CTranslatingAnimation : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void slidesFromAndToEdge_data();
    void slidesFromAndToEdge();
    void onlyOneCallbackPerSlide();
    void turnsBack();
    void stopWhileMovingIn();
    void stopWhileMovingOut();
    void stopWhereTheSlideTurnedBack();
    void hidingEndsTheSlide();
    void shownAgainAfterHiding();
    void layoutDecidesThePlace();
    void layoutChangesDuringTheSlide();
    void parentIsResizedBetweenTheSlides();
    void ownerMovesDuringTheSlide();
    void hiddenParent();
    void noDuration();
    void callbackMaySlideAgain();
    void callbackMayDestroy_data();
    void callbackMayDestroy();
    void destroyedDuringTheSlide();
    void withoutCallbacks();
};

void tst_CTranslatingAnimation::slidesFromAndToEdge_data()
{
    QTest::addColumn<Qt::Edge>("edge");
    QTest::addColumn<QPoint>("outside"); // just out of sight
    QTest::newRow("bottom") << Qt::BottomEdge << QPoint(30, 100);
    QTest::newRow("top") << Qt::TopEdge << QPoint(30, -40);
    QTest::newRow("left") << Qt::LeftEdge << QPoint(-100, 20);
    QTest::newRow("right") << Qt::RightEdge << QPoint(200, 20);
}

void tst_CTranslatingAnimation::slidesFromAndToEdge()
{
    QFETCH(Qt::Edge, edge);
    QFETCH(QPoint, outside);
    Overlay o(edge);
    const QPoint place(30, 20);

    o.animation->moveIn();
    QVERIFY(o.panel->isVisible());
    QVERIFY(o.animation->isMoving());
    QCOMPARE(o.panel->pos(), outside);
    o.panel->positions.clear();
    QTRY_COMPARE(o.in, 1);
    QVERIFY(!o.animation->isMoving());
    QCOMPARE(o.panel->pos(), place);
    QVERIFY(o.panel->isVisible());
    // It came nearer with every step.
    QVERIFY(!o.panel->positions.isEmpty());
    int distance = (outside - place).manhattanLength();
    for (const QPoint& position : qAsConst(o.panel->positions)) {
        QVERIFY((position - place).manhattanLength() <= distance);
        distance = (position - place).manhattanLength();
    }

    o.animation->moveOut();
    QVERIFY(o.panel->isVisible());
    QCOMPARE(o.panel->pos(), place);
    o.panel->positions.clear();
    QTRY_COMPARE(o.out, 1);
    QVERIFY(!o.panel->isVisible());
    QCOMPARE(o.panel->pos(), place);
    distance = 0;
    for (const QPoint& position : qAsConst(o.panel->positions)) {
        QVERIFY((position - place).manhattanLength() >= distance);
        distance = (position - place).manhattanLength();
    }
    QCOMPARE(o.in, 1);
}

void tst_CTranslatingAnimation::onlyOneCallbackPerSlide()
{
    Overlay o;
    o.animation->moveOut(); // is out
    QVERIFY(!o.animation->isMoving());
    o.animation->moveIn();
    o.animation->moveIn(); // is on its way
    QTRY_COMPARE(o.in, 1);
    o.animation->moveIn(); // is in
    QVERIFY(!o.animation->isMoving());
    o.animation->moveOut();
    o.animation->moveOut();
    QTRY_COMPARE(o.out, 1);
    letSlidesEnd();
    QCOMPARE(o.in, 1);
    QCOMPARE(o.out, 1);
}

void tst_CTranslatingAnimation::turnsBack()
{
    Overlay o;
    o.animation->setDuration(200);
    o.animation->moveIn();
    QTRY_VERIFY(o.panel->y() < 80);
    const int y = o.panel->y();
    o.animation->moveOut();
    QCOMPARE(o.panel->y(), y); // from where it is
    o.panel->positions.clear();
    QTRY_COMPARE(o.out, 1);
    QVERIFY(!o.panel->isVisible());
    QCOMPARE(o.in, 0);
    for (const QPoint& position : qAsConst(o.panel->positions))
        QVERIFY(position == QPoint(30, 20) || position.y() >= y); // its place again, once it is hidden

    o.animation->moveIn();
    QTRY_COMPARE(o.in, 1);
    o.animation->moveOut();
    QTRY_VERIFY(o.panel->y() > 40);
    o.animation->moveIn();
    QTRY_COMPARE(o.in, 2);
    QCOMPARE(o.out, 1);
    QCOMPARE(o.panel->pos(), QPoint(30, 20));
}

void tst_CTranslatingAnimation::stopWhileMovingIn()
{
    Overlay o;
    o.animation->stop(); // nothing to stop
    QVERIFY(!o.panel->isVisible());
    o.animation->moveIn();
    o.animation->stop();
    QVERIFY(!o.animation->isMoving());
    QVERIFY(o.panel->isVisible());
    QCOMPARE(o.panel->pos(), QPoint(30, 20));
    letSlidesEnd();
    QCOMPARE(o.in, 0);
    QCOMPARE(o.panel->pos(), QPoint(30, 20));
}

void tst_CTranslatingAnimation::stopWhileMovingOut()
{
    Overlay o;
    o.animation->moveIn();
    QTRY_COMPARE(o.in, 1);
    o.animation->moveOut();
    o.animation->stop();
    QVERIFY(!o.animation->isMoving());
    QVERIFY(!o.panel->isVisible());
    letSlidesEnd();
    QCOMPARE(o.out, 0);
}

// There Qt's animation is at its end already, and says so when it is stopped.
void tst_CTranslatingAnimation::stopWhereTheSlideTurnedBack()
{
    Overlay o;
    o.animation->moveIn();
    o.animation->moveOut();
    o.animation->stop();
    QVERIFY(!o.panel->isVisible());
    QCOMPARE(o.out, 0);

    o.animation->moveIn();
    o.animation->moveOut();
    o.panel->hide();
    QCOMPARE(o.out, 0);

    o.animation->moveIn();
    QTRY_COMPARE(o.in, 1);
    o.animation->moveOut();
    o.animation->moveIn();
    o.animation->stop();
    QVERIFY(!o.animation->isMoving());
    QVERIFY(o.panel->isVisible());
    QCOMPARE(o.panel->pos(), QPoint(30, 20));
    QCOMPARE(o.in, 1);
    QCOMPARE(o.out, 0);
}

void tst_CTranslatingAnimation::hidingEndsTheSlide()
{
    Overlay o;
    o.animation->moveIn();
    o.panel->hide();
    QVERIFY(!o.animation->isMoving());
    QCOMPARE(o.panel->pos(), QPoint(30, 20));
    letSlidesEnd();
    QVERIFY(!o.panel->isVisible());
    QCOMPARE(o.in, 0);
    QCOMPARE(o.out, 0);
    o.animation->moveIn();
    QCOMPARE(o.panel->pos(), QPoint(30, 100));
    QTRY_COMPARE(o.in, 1);
}

void tst_CTranslatingAnimation::shownAgainAfterHiding()
{
    Overlay o;
    o.animation->moveIn();
    QTRY_COMPARE(o.in, 1);
    o.panel->hide(); // as closing it at once does
    o.animation->moveIn();
    QVERIFY(o.panel->isVisible());
    QTRY_COMPARE(o.in, 2);
    QCOMPARE(o.panel->pos(), QPoint(30, 20));
}

void tst_CTranslatingAnimation::layoutDecidesThePlace()
{
    Overlay o;
    auto* const layout = new QVBoxLayout(&o.overlay);
    layout->setContentsMargins(0, 0, 0, 0);
    o.panel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    layout->addStretch();
    layout->addWidget(o.panel);
    for (int i = 1; i <= 2; ++i) {
        o.animation->moveIn();
        QCOMPARE(o.panel->geometry(), QRect(0, 100, 200, 40));
        QTRY_COMPARE(o.in, i);
        QCOMPARE(o.panel->geometry(), QRect(0, 60, 200, 40));
        QCoreApplication::processEvents();
        QCOMPARE(o.panel->geometry(), QRect(0, 60, 200, 40));
        o.animation->moveOut();
        QTRY_COMPARE(o.out, i);
    }
}

void tst_CTranslatingAnimation::layoutChangesDuringTheSlide()
{
    Overlay o;
    auto* const layout = new QVBoxLayout(&o.overlay);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    layout->addWidget(o.panel);
    o.animation->setDuration(200);
    o.animation->moveIn();
    QTRY_VERIFY(o.panel->y() < 90);
    const int distance = o.panel->y() - 60;
    o.overlay.resize(300, 150);
    layout->activate();
    // The new width, and the same way to go to the new place.
    QCOMPARE(o.panel->width(), 300);
    QVERIFY(o.panel->y() - 110 > 0);
    QVERIFY(o.panel->y() - 110 <= distance + 1);
    QTRY_COMPARE(o.in, 1);
    QCOMPARE(o.panel->geometry(), QRect(0, 110, 300, 40));
}

void tst_CTranslatingAnimation::parentIsResizedBetweenTheSlides()
{
    Overlay o;
    auto* const layout = new QVBoxLayout(&o.overlay);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    layout->addWidget(o.panel);
    o.animation->moveIn();
    QTRY_COMPARE(o.in, 1);
    o.overlay.resize(300, 150);
    QTRY_COMPARE(o.panel->geometry(), QRect(0, 110, 300, 40));
    o.animation->moveOut();
    QTRY_COMPARE(o.out, 1);
    o.overlay.resize(250, 120);
    o.animation->moveIn();
    QCOMPARE(o.panel->geometry(), QRect(0, 120, 250, 40));
    QTRY_COMPARE(o.in, 2);
    QCOMPARE(o.panel->geometry(), QRect(0, 80, 250, 40));
}

void tst_CTranslatingAnimation::ownerMovesDuringTheSlide()
{
    Overlay o;
    o.animation->moveIn();
    o.panel->move(50, 10);
    QTRY_COMPARE(o.in, 1);
    QCOMPARE(o.panel->pos(), QPoint(50, 10));
}

void tst_CTranslatingAnimation::hiddenParent()
{
    Overlay o;
    o.overlay.hide();
    o.animation->moveIn();
    QTRY_COMPARE(o.in, 1);
    o.overlay.show();
    QVERIFY(o.panel->isVisible());
    QCOMPARE(o.panel->pos(), QPoint(30, 20));
    o.animation->moveOut();
    o.overlay.hide(); // and the panel with it: that does not end the slide
    QVERIFY(o.animation->isMoving());
    QTRY_COMPARE(o.out, 1);
    QVERIFY(o.panel->isHidden());
}

void tst_CTranslatingAnimation::noDuration()
{
    Overlay o;
    o.animation->setDuration(0);
    QCOMPARE(o.animation->duration(), 0);
    o.animation->moveIn();
    QTRY_COMPARE(o.in, 1);
    QCOMPARE(o.panel->pos(), QPoint(30, 20));
    o.animation->moveOut();
    QTRY_COMPARE(o.out, 1);
    QVERIFY(!o.panel->isVisible());
}

void tst_CTranslatingAnimation::callbackMaySlideAgain()
{
    Overlay o;
    o.animation->setMoveInCompleteCallback([&o] { o.animation->moveOut(); });
    o.animation->moveIn();
    QTRY_COMPARE(o.out, 1);
    QVERIFY(!o.panel->isVisible());
}

void tst_CTranslatingAnimation::callbackMayDestroy_data()
{
    QTest::addColumn<int>("duration");
    QTest::newRow("at the end of a slide") << 20;
    QTest::newRow("at once") << 0;
}

void tst_CTranslatingAnimation::callbackMayDestroy()
{
    QFETCH(int, duration);
    Overlay o;
    const QPointer<QWidget> panel = o.panel;
    o.animation->setDuration(duration);
    o.animation->setMoveInCompleteCallback([&o] { delete o.panel; });
    o.animation->moveIn();
    QTRY_VERIFY(!panel);
}

void tst_CTranslatingAnimation::destroyedDuringTheSlide()
{
    Overlay o;
    const QPointer<CTranslatingAnimation> animation = o.animation;
    o.animation->moveIn();
    delete o.panel;
    QVERIFY(!animation);

    auto parent = std::make_unique<Overlay>();
    parent->animation->moveIn();
    parent.reset();

    Overlay stays;
    stays.animation->moveIn();
    delete stays.animation;
    letSlidesEnd();
    QCOMPARE(o.in, 0);
    QCOMPARE(stays.in, 0);
}

void tst_CTranslatingAnimation::withoutCallbacks()
{
    Overlay o;
    o.animation->setMoveInCompleteCallback({});
    o.animation->setMoveOutCompleteCallback({});
    o.animation->moveIn();
    QTRY_VERIFY(!o.animation->isMoving());
    QVERIFY(o.panel->isVisible());
    o.animation->moveOut();
    QTRY_VERIFY(!o.animation->isMoving());
    QVERIFY(!o.panel->isVisible());
}

SETTINGAREA_TEST_MAIN(tst_CTranslatingAnimation, QApplication)
#include "tst_CTranslatingAnimation.moc"
