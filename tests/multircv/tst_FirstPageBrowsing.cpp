#include "tests/multircv/FirstPageFixture.h"
#include "tests/support/ModalScript.h"

#include <QApplication>
#include <QPointer>

Q_DECLARE_METATYPE(CDialog::Button)

namespace {

const char unfit[] = "Non-single cabinet parameter file.";
const char useIt[] = "The same parameter file already exists. Do you want to use this parameter file?";
const char replaceIt[] = "The same file name already exists. Do you want to replace the old file with the new one?";

QString fileDialog()
{
    return QStringLiteral("Browse...: Parameter(*.rcvp *.rcvbp)");
}

} // namespace

// A parameter file from outside of the library.
class tst_FirstPageBrowsing : public FirstPageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void cancelledBrowsingChangesNothing();
    void browsingCopiesIntoTheRoot();
    void refusals_data();
    void refusals();
    void sameContentConfirmed();
    void sameNameConfirmed();
    void refusalKeepsTheFormerChoice();
    void copyThatFails();
    void withoutALibrary();
    void withoutAHost();
    void pageMayEndWhileBrowsing();
};

void tst_FirstPageBrowsing::cancelledBrowsingChangesNothing()
{
    const Page page(root());
    ModalScript script;
    script.choose(QString());
    page.browse();
    QCOMPARE(script.seen(), QStringList({fileDialog()}));
    QCOMPARE(page.page.parameterFile(), QString());
    QCOMPARE(page.button->displayText(), QLatin1String(unchosen));
    QCOMPARE(m_pLibrary->files(), QStringList());
}

void tst_FirstPageBrowsing::browsingCopiesIntoTheRoot()
{
    m_pLibrary->add(QStringLiteral("G/B.rcvp"), "b");
    m_pLibrary->rescan();
    const QString chosen = m_pLibrary->addOutside(QStringLiteral("A.b.rcvp"), "a");
    const Page page(root());
    m_pLibrary->handler->forgetCalls();
    ModalScript script;
    script.choose(chosen);
    page.browse();
    QCOMPARE(script.seen(), QStringList({fileDialog()}));
    QCOMPARE(m_pLibrary->handler->calls(), QStringList({QStringLiteral("isMultiRcvCabinetFile(%1)").arg(chosen)}));
    QCOMPARE(page.page.parameterFile(), m_pLibrary->path(QStringLiteral("A.b.rcvp")));
    QCOMPARE(page.button->displayText(), QStringLiteral("A.b"));
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("A.b.rcvp=a"), QStringLiteral("G/B.rcvp=b")}));
    QCOMPARE(m_pLibrary->contentOf(chosen), QByteArray("a"));
}

void tst_FirstPageBrowsing::refusals_data()
{
    QTest::addColumn<QString>("known"); // the library's one type
    QTest::addColumn<QByteArray>("knownContent");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QByteArray>("chosenContent");
    QTest::addColumn<QString>("box");
    QTest::addColumn<CDialog::Button>("answer");
    const QString type = QStringLiteral("A.rcvp");
    const QString multi = QStringLiteral("M.rcvbp");
    // The kind is asked before the content and the name are looked for.
    QTest::newRow("multi-receiver file") << multi << QByteArray("multi") << multi << QByteArray("multi")
                                         << information(unfit) << CDialog::Ok;
    QTest::newRow("same content") << QStringLiteral("G/B.rcvp") << QByteArray("a") << type << QByteArray("a")
                                  << question(useIt) << CDialog::No;
    QTest::newRow("same name") << QStringLiteral("G/A.rcvp") << QByteArray("old") << type << QByteArray("new")
                               << question(replaceIt) << CDialog::No;
    QTest::newRow("question closed") << QStringLiteral("G/A.rcvp") << QByteArray("old") << type << QByteArray("new")
                                     << question(replaceIt) << CDialog::Cancel; // which it lacks
}

void tst_FirstPageBrowsing::refusals()
{
    QFETCH(QString, known);
    QFETCH(QByteArray, knownContent);
    QFETCH(QString, chosen);
    QFETCH(QByteArray, chosenContent);
    QFETCH(QString, box);
    QFETCH(CDialog::Button, answer);
    m_pLibrary->add(known, knownContent);
    m_pLibrary->rescan();
    const Page page(root());
    ModalScript script;
    script.choose(m_pLibrary->addOutside(chosen, chosenContent)).press(answer);
    page.browse();
    QVERIFY(script.isDone());
    QCOMPARE(script.seen(), QStringList({fileDialog(), box}));
    QCOMPARE(page.page.parameterFile(), QString());
    QCOMPARE(page.button->displayText(), QLatin1String(unchosen));
    QCOMPARE(m_pLibrary->files(), QStringList({known + QLatin1Char('=') + QString::fromUtf8(knownContent)}));
}

void tst_FirstPageBrowsing::sameContentConfirmed()
{
    m_pLibrary->add(QStringLiteral("A.rcvp"), "of the same name");
    m_pLibrary->add(QStringLiteral("G/B.rcvp"), "a");
    m_pLibrary->rescan();
    const QStringList before = m_pLibrary->files();
    const Page page(root());
    ModalScript script;
    script.choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "a")).press(CDialog::Yes);
    page.browse();
    QCOMPARE(script.seen(), QStringList({fileDialog(), question(useIt)}));
    QCOMPARE(page.page.parameterFile(), m_pLibrary->path(QStringLiteral("G/B.rcvp")));
    QCOMPARE(page.button->displayText(), QStringLiteral("B"));
    QCOMPARE(m_pLibrary->files(), before);
}

void tst_FirstPageBrowsing::sameNameConfirmed()
{
    const QString old = m_pLibrary->add(QStringLiteral("G/A.rcvp"), "old");
    m_pLibrary->rescan();
    const SMD5 oldMd5 = md5OfFile(old);
    const Page page(root());
    ModalScript script;
    script.choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "new")).press(CDialog::Yes);
    page.browse();
    QCOMPARE(script.seen(), QStringList({fileDialog(), question(replaceIt)}));
    QCOMPARE(page.page.parameterFile(), old);
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("G/A.rcvp=new")}));
    QVERIFY(md5OfFile(old) != oldMd5);
}

void tst_FirstPageBrowsing::refusalKeepsTheFormerChoice()
{
    const QString former = m_pLibrary->add(QStringLiteral("A.rcvp"), "a");
    m_pLibrary->rescan();
    const Page page(root());
    page.button->menu()->actions().at(2)->trigger();
    ModalScript script;
    script.choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "new")).press(CDialog::No);
    page.browse();
    QCOMPARE(page.page.parameterFile(), former);
    QCOMPARE(page.button->displayText(), QStringLiteral("A"));
}

// The page has the path that the copy would have; the wizard finds no file there.
void tst_FirstPageBrowsing::copyThatFails()
{
    const QString notAFolder = m_pLibrary->addOutside(QStringLiteral("file"), "file");
    const Page page(notAFolder);
    ModalScript script;
    script.choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "a"));
    page.browse();
    QCOMPARE(script.seen(), QStringList({fileDialog()}));
    QCOMPARE(page.page.parameterFile(), notAFolder + QStringLiteral("/A.rcvp"));
    QVERIFY(!QFileInfo::exists(page.page.parameterFile()));
}

void tst_FirstPageBrowsing::withoutALibrary()
{
    const Page page({});
    ModalScript script;
    script.choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "a"));
    page.browse();
    QCOMPARE(script.seen(), QStringList({fileDialog()}));
    QCOMPARE(page.page.parameterFile(), QString());
    QVERIFY(!QFileInfo::exists(QStringLiteral("/A.rcvp")));
}

void tst_FirstPageBrowsing::withoutAHost()
{
    CSettingArea::instance().setHandler(nullptr);
    const Page page(root());
    QVERIFY(QDir().mkpath(root()));
    ModalScript script;
    script.choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "a"));
    page.browse();
    QCOMPARE(page.page.parameterFile(), m_pLibrary->path(QStringLiteral("A.rcvp")));
}

// The host may destroy the window behind an open file dialog.
void tst_FirstPageBrowsing::pageMayEndWhileBrowsing()
{
    auto* const page = new CMultiRcvCabinetSetFirstPage(root(), {});
    page->show();
    QMenu* const menu = page->findChild<CMenuPushButton*>()->menu();
    const QPointer<QWidget> guard(page);
    QTimer end;
    end.setSingleShot(true);
    connect(&end, &QTimer::timeout, &end, [page] { delete page; });
    end.start();
    menu->actions().constFirst()->trigger();
    QCoreApplication::sendPostedEvents();
    QVERIFY(!guard);
    QCOMPARE(m_pLibrary->files(), QStringList());
}

SETTINGAREA_TEST_MAIN(tst_FirstPageBrowsing, QApplication)

#include "tst_FirstPageBrowsing.moc"
