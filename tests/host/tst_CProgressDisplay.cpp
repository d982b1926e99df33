#include "host/CProgress.h"
#include "host/CProgressDisplay.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QSignalSpy>
#include <QVariantAnimation>

namespace {

const QString importing = QStringLiteral("Importing...");

// The clock of a run, which moves by hand from now on.
QVariantAnimation* clockOf(const CProgress* progress, const char* name)
{
    auto* const clock = progress->findChild<QVariantAnimation*>(QLatin1String(name));
    if (clock->state() == QAbstractAnimation::Running)
        clock->pause();
    return clock;
}

// Takes an ended run to its end.
void finish(const CProgress* progress)
{
    QVariantAnimation* const clock = clockOf(progress, "Finish");
    clock->setCurrentTime(clock->duration());
}

} // namespace

class tst_CProgressDisplay : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void nothingIsShownWhileNothingRuns();
    void aRunFollowsItsCurve_data();
    void aRunFollowsItsCurve();
    void aRunWaitsFullForItsEnd();
    void anEndedRunFinishesQuickly();
    void aRunNearItsEndRunsToIt();
    void aRunWithoutDurationIsFull_data();
    void aRunWithoutDurationIsFull();
    void endingTwiceEndsOnce();
    void theLastOfSeveralIsShown();
    void theOneShownMayEndFirst();
    void foreignObjectsAreLeftAlone();
    void theTextIsPlainAndShort();
    void aDisplayMayGoWhileItRuns();
    void itRunsByItself();

private:
    QLabel* text() const { return m_display->findChild<QLabel*>(QStringLiteral("ProgressText")); }
    QProgressBar* bar() const { return m_display->findChild<QProgressBar*>(QStringLiteral("ProgressBar")); }

    std::unique_ptr<CProgressDisplay> m_display;
};

void tst_CProgressDisplay::init()
{
    TestObject::init();
    m_display = std::make_unique<CProgressDisplay>();
}

void tst_CProgressDisplay::nothingIsShownWhileNothingRuns()
{
    QVERIFY(!m_display->isVisible());
    CProgress* const progress = m_display->start(importing, 1000, QEasingCurve::Linear);
    QVERIFY(m_display->isVisible());
    QCOMPARE(text()->text(), importing);
    QCOMPARE(bar()->accessibleName(), importing);
    QVERIFY(!bar()->isTextVisible());
    progress->end();
    QVERIFY(m_display->isVisible());
    finish(progress);
    QVERIFY(!m_display->isVisible());
}

void tst_CProgressDisplay::aRunFollowsItsCurve_data()
{
    QTest::addColumn<QEasingCurve>("curve");
    QTest::addColumn<int>("half"); // in thousandths, after half of the time
    QTest::addColumn<int>("most"); // after nine tenths
    QTest::newRow("linear") << QEasingCurve(QEasingCurve::Linear) << 500 << 900;
    QTest::newRow("slow start") << QEasingCurve(QEasingCurve::InQuart) << 63 << 656;
    QTest::newRow("below zero") << QEasingCurve(QEasingCurve::InBack) << 0 << 591;
    QTest::newRow("beyond one") << QEasingCurve(QEasingCurve::OutBack) << 1000 << 1000;
}

void tst_CProgressDisplay::aRunFollowsItsCurve()
{
    QFETCH(QEasingCurve, curve);
    QFETCH(int, half);
    QFETCH(int, most);
    const CProgress* const progress = m_display->start(importing, 600'000, curve);
    QVariantAnimation* const clock = clockOf(progress, "Run");
    QCOMPARE(clock->duration(), 600'000);
    QCOMPARE(bar()->value(), 0);
    QCOMPARE(bar()->minimum(), 0);
    QCOMPARE(bar()->maximum(), 1000);
    clock->setCurrentTime(300'000);
    QCOMPARE(bar()->value(), half);
    clock->setCurrentTime(540'000);
    QCOMPARE(bar()->value(), most);
    clock->setCurrentTime(600'000);
    QCOMPARE(bar()->value(), 1000);
}

void tst_CProgressDisplay::aRunWaitsFullForItsEnd()
{
    CProgress* const progress = m_display->start(importing, 300, QEasingCurve::InQuart);
    QSignalSpy finished(progress, &CProgress::notifyFinished);
    clockOf(progress, "Run")->setCurrentTime(300);
    QCOMPARE(finished.size(), 0);
    QVERIFY(m_display->isVisible());
    QCOMPARE(bar()->value(), 1000);
    m_display->end(progress);
    QCOMPARE(bar()->value(), 1000);
    finish(progress);
    QCOMPARE(finished.size(), 1);
}

void tst_CProgressDisplay::anEndedRunFinishesQuickly()
{
    CProgress* const progress = m_display->start(importing, 600'000, QEasingCurve::Linear);
    clockOf(progress, "Run")->setCurrentTime(60'000);
    m_display->end(progress);
    QVariantAnimation* const clock = clockOf(progress, "Finish");
    QCOMPARE(clock->duration(), 900); // 500 to the end and 400 there
    QCOMPARE(bar()->value(), 100);
    clock->setCurrentTime(250);
    QCOMPARE(bar()->value(), 550);
    clock->setCurrentTime(500);
    QCOMPARE(bar()->value(), 1000);
    clock->setCurrentTime(899);
    QVERIFY(m_display->isVisible());
    clock->setCurrentTime(900);
    QVERIFY(!m_display->isVisible());
    const QPointer<CProgress> gone(progress);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!gone);
}

void tst_CProgressDisplay::aRunNearItsEndRunsToIt()
{
    CProgress* const progress = m_display->start(importing, 1000, QEasingCurve::Linear);
    clockOf(progress, "Run")->setCurrentTime(800);
    m_display->end(progress);
    QVariantAnimation* const clock = clockOf(progress, "Finish");
    QCOMPARE(clock->duration(), 600);
    QCOMPARE(bar()->value(), 800);
    clock->setCurrentTime(100);
    QCOMPARE(bar()->value(), 900);
}

void tst_CProgressDisplay::aRunWithoutDurationIsFull_data()
{
    QTest::addColumn<int>("duration");
    QTest::newRow("none") << 0;
    QTest::newRow("negative") << -300;
}

void tst_CProgressDisplay::aRunWithoutDurationIsFull()
{
    QFETCH(int, duration);
    CProgress* const progress = m_display->start(importing, duration, QEasingCurve::InQuart);
    QCOMPARE(bar()->value(), 1000);
    m_display->end(progress);
    QVERIFY(m_display->isVisible());
    finish(progress);
    QVERIFY(!m_display->isVisible());
}

void tst_CProgressDisplay::endingTwiceEndsOnce()
{
    CProgress* const progress = m_display->start(importing, 600'000, QEasingCurve::Linear);
    QSignalSpy finished(progress, &CProgress::notifyFinished);
    m_display->end(progress);
    QVariantAnimation* const clock = clockOf(progress, "Finish");
    clock->setCurrentTime(400);
    m_display->end(progress);
    QCOMPARE(clock->currentTime(), 400);
    finish(progress);
    m_display->end(progress); // finished, and about to be deleted
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_display->end(progress); // deleted
    QCOMPARE(finished.size(), 1);
    QVERIFY(!m_display->isVisible());
}

void tst_CProgressDisplay::theLastOfSeveralIsShown()
{
    CProgress* const first = m_display->start(QStringLiteral("first"), 1000, QEasingCurve::Linear);
    clockOf(first, "Run")->setCurrentTime(700);
    CProgress* const second = m_display->start(QStringLiteral("second"), 1000, QEasingCurve::Linear);
    clockOf(second, "Run")->setCurrentTime(200);
    QCOMPARE(text()->text(), QStringLiteral("second"));
    QCOMPARE(bar()->value(), 200);
    clockOf(first, "Run")->setCurrentTime(750);
    QCOMPARE(bar()->value(), 200);

    m_display->end(second);
    finish(second);
    QCOMPARE(text()->text(), QStringLiteral("first"));
    QCOMPARE(bar()->value(), 750);
    m_display->end(first);
    finish(first);
    QVERIFY(!m_display->isVisible());
}

void tst_CProgressDisplay::theOneShownMayEndFirst()
{
    CProgress* const first = m_display->start(QStringLiteral("first"), 1000, QEasingCurve::Linear);
    CProgress* const second = m_display->start(QStringLiteral("second"), 1000, QEasingCurve::Linear);
    m_display->end(first);
    finish(first);
    QCOMPARE(text()->text(), QStringLiteral("second"));
    QVERIFY(m_display->isVisible());
    m_display->end(second);
    finish(second);
    QVERIFY(!m_display->isVisible());
}

void tst_CProgressDisplay::foreignObjectsAreLeftAlone()
{
    CProgress* const progress = m_display->start(importing, 600'000, QEasingCurve::Linear);
    clockOf(progress, "Run")->setCurrentTime(60'000);
    CProgressDisplay other;
    const CProgress* const foreign = other.start(QStringLiteral("other"), 600'000, QEasingCurve::Linear);
    QSignalSpy finished(foreign, &CProgress::notifyFinished);
    m_display->end(nullptr);
    m_display->end(m_display.get());
    m_display->end(foreign);
    QCOMPARE(clockOf(foreign, "Finish")->state(), QAbstractAnimation::Stopped);
    QCOMPARE(bar()->value(), 100);
    QCOMPARE(clockOf(progress, "Finish")->state(), QAbstractAnimation::Stopped);
}

void tst_CProgressDisplay::theTextIsPlainAndShort()
{
    const QString longText = QStringLiteral("<b>Importing</b>\nP4 ").repeated(50);
    m_display->start(longText, 1000, QEasingCurve::Linear);
    QCOMPARE(text()->textFormat(), Qt::PlainText);
    QVERIFY(text()->text().startsWith(QStringLiteral("<b>Importing</b> P4 ")));
    QVERIFY(text()->text().endsWith(QChar(0x2026)));
    QVERIFY(text()->sizeHint().width() <= 300 + 2 * text()->margin() + 2);
    QCOMPARE(bar()->accessibleName(), longText.simplified());
}

void tst_CProgressDisplay::aDisplayMayGoWhileItRuns()
{
    CProgress* const running = m_display->start(importing, 600'000, QEasingCurve::Linear);
    CProgress* const ended = m_display->start(importing, 600'000, QEasingCurve::Linear);
    ended->end();
    const QPointer<CProgress> gone(running);
    m_display.reset();
    QVERIFY(!gone);
}

// Without a hand on the clock.
void tst_CProgressDisplay::itRunsByItself()
{
    CProgress* const progress = m_display->start(importing, 20, QEasingCurve::InQuart);
    QTRY_COMPARE(bar()->value(), 1000);
    m_display->end(progress);
    QTRY_VERIFY(!m_display->isVisible());
}

SETTINGAREA_TEST_MAIN(tst_CProgressDisplay, QApplication)
#include "tst_CProgressDisplay.moc"
