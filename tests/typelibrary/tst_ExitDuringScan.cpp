#include "tests/support/StoreFixture.h"

#include <QCoreApplication>
#include <QProcess>
#include <QRandomGenerator>

namespace {

#if defined(__SANITIZE_THREAD__)
constexpr int exits = 50; // each takes half a second
#else
constexpr int exits = 1'000;
#endif

} // namespace

// A process may end at any moment of a scan, without a crash and without waiting for it.
class tst_ExitDuringScan : public StoreFixture
{
    Q_OBJECT

private Q_SLOTS:
    void everyExitIsClean();
};

void tst_ExitDuringScan::everyExitIsClean()
{
    for (int i = 0; i < 300; ++i)
        write(QStringLiteral("G%1/%2.rcvp").arg(i % 10).arg(i), QByteArray(20'000, char('a' + i % 26)));

    const QString program = QCoreApplication::applicationDirPath() + QStringLiteral("/exit_during_scan");
    QRandomGenerator random(4711);
    for (int run = 0; run < exits; ++run) {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(program, {library->path(), QString::number(run % 5),
                                QString::number(random.bounded(run % 2 == 0 ? 3'000 : 200))});
        QVERIFY2(process.waitForFinished(30'000), qPrintable(QStringLiteral("Run %1 hangs").arg(run)));
        const QByteArray output = process.readAll();
        QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
                 qPrintable(
                     QStringLiteral("Run %1: %2 %3").arg(run).arg(process.exitCode()).arg(QString::fromUtf8(output))));
    }
}

SETTINGAREA_TEST_MAIN(tst_ExitDuringScan, QCoreApplication)
#include "tst_ExitDuringScan.moc"
