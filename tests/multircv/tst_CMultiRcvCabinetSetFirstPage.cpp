#include "multircv/CMultiRcvCabinetSetFirstPage.h"
#include "tests/multircv/WizardLibrary.h"
#include "tests/support/ModalScript.h"
#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"

#include <widgetry/CComboBox.h>
#include <widgetry/CCustomGroupBox.h>
#include <widgetry/CMenuPushButton.h>

#include <QApplication>
#include <QLabel>
#include <QMenu>

#include <memory>

namespace {

const char unchosen[] = "Please select cabinet type file";
const char unfit[] = "Non-single cabinet parameter file.";
const char useIt[] = "The same parameter file already exists. Do you want to use this parameter file?";
const char replaceIt[] = "The same file name already exists. Do you want to replace the old file with the new one?";

QString fileDialog()
{
    return QStringLiteral("Browse...: Parameter(*.rcvp *.rcvbp)");
}

} // namespace

class tst_CMultiRcvCabinetSetFirstPage : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void startsEmpty();
    void controls();
    void configurations();
    void menuHasTheLibrary();
    void pickingAnEntry();
    void pickingAnEntryOfAGroup();
    void cancelledBrowsingChangesNothing();
    void browsingCopiesIntoTheRoot();
    void multiReceiverFileIsRefused();
    void sameContentConfirmed();
    void sameContentRefused();
    void sameNameConfirmed();
    void sameNameRefused();
    void refusalKeepsTheFormerChoice();
    void closingAQuestionRefuses();
    void copyThatFails();
    void withoutALibrary();
    void withoutAHost();
    void startsFromARecord();
    void recordWhoseFileIsGone();
    void damagedRecords_data();
    void damagedRecords();
    void namesAreShownAsTheyStand();
    void keyboard();
    void followsTheLanguage();
    void pageMayEndWhileBrowsing();

private:
    struct Page
    {
        explicit Page(const QString& folder, const SHwRcvInCabinetInfo& record = {})
            : page(folder, record),
              button(page.findChild<CMenuPushButton*>()),
              count(page.findChild<CComboBox*>())
        {
            page.show();
        }

        QStringList entries() const
        {
            QStringList texts;
            const QList<QAction*> actions = button->menu()->actions();
            for (const QAction* action : actions)
                texts.append(action->text());
            return texts;
        }
        void browse() const
        {
            button->menu()->actions().constFirst()->trigger();
            QCoreApplication::sendPostedEvents(); // the dialog opens when the menu is done
        }

        CMultiRcvCabinetSetFirstPage page;
        CMenuPushButton* button;
        CComboBox* count;
    };

    QString root() const { return m_pLibrary->root(); }

    std::unique_ptr<WizardLibrary> m_pLibrary;
};

void tst_CMultiRcvCabinetSetFirstPage::init()
{
    TestObject::init();
    m_pLibrary = std::make_unique<WizardLibrary>();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void tst_CMultiRcvCabinetSetFirstPage::cleanup()
{
    m_pLibrary.reset();
    TestObject::cleanup();
}

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

void tst_CMultiRcvCabinetSetFirstPage::cancelledBrowsingChangesNothing()
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

void tst_CMultiRcvCabinetSetFirstPage::browsingCopiesIntoTheRoot()
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

// The kind is asked before the content and the name are looked for.
void tst_CMultiRcvCabinetSetFirstPage::multiReceiverFileIsRefused()
{
    m_pLibrary->add(QStringLiteral("M.rcvbp"), "multi");
    m_pLibrary->rescan();
    const QString chosen = m_pLibrary->addOutside(QStringLiteral("M.rcvbp"), "multi");
    const Page page(root());
    ModalScript script;
    script.choose(chosen).press(CDialog::Ok);
    page.browse();
    QCOMPARE(script.seen(), QStringList({fileDialog(), information(unfit)}));
    QCOMPARE(page.page.parameterFile(), QString());
    QCOMPARE(page.button->displayText(), QLatin1String(unchosen));
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("M.rcvbp=multi")}));
}

void tst_CMultiRcvCabinetSetFirstPage::sameContentConfirmed()
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

void tst_CMultiRcvCabinetSetFirstPage::sameContentRefused()
{
    m_pLibrary->add(QStringLiteral("G/B.rcvp"), "a");
    m_pLibrary->rescan();
    const QStringList before = m_pLibrary->files();
    const Page page(root());
    ModalScript script;
    script.choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "a")).press(CDialog::No);
    page.browse();
    QCOMPARE(script.seen(), QStringList({fileDialog(), question(useIt)}));
    QCOMPARE(page.page.parameterFile(), QString());
    QCOMPARE(page.button->displayText(), QLatin1String(unchosen));
    QCOMPARE(m_pLibrary->files(), before);
}

void tst_CMultiRcvCabinetSetFirstPage::sameNameConfirmed()
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

void tst_CMultiRcvCabinetSetFirstPage::sameNameRefused()
{
    m_pLibrary->add(QStringLiteral("G/A.rcvp"), "old");
    m_pLibrary->rescan();
    const Page page(root());
    ModalScript script;
    script.choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "new")).press(CDialog::No);
    page.browse();
    QCOMPARE(script.seen(), QStringList({fileDialog(), question(replaceIt)}));
    QCOMPARE(page.page.parameterFile(), QString());
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("G/A.rcvp=old")}));
}

void tst_CMultiRcvCabinetSetFirstPage::refusalKeepsTheFormerChoice()
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

void tst_CMultiRcvCabinetSetFirstPage::closingAQuestionRefuses()
{
    m_pLibrary->add(QStringLiteral("G/A.rcvp"), "old");
    m_pLibrary->rescan();
    const Page page(root());
    ModalScript script;
    script.choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "new")).press(CDialog::Cancel); // closes the box
    page.browse();
    QVERIFY(script.isDone());
    QCOMPARE(page.page.parameterFile(), QString());
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("G/A.rcvp=old")}));
}

// The page has the path that the copy would have; the wizard finds no file there.
void tst_CMultiRcvCabinetSetFirstPage::copyThatFails()
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

void tst_CMultiRcvCabinetSetFirstPage::withoutALibrary()
{
    const Page page({});
    ModalScript script;
    script.choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "a"));
    page.browse();
    QCOMPARE(script.seen(), QStringList({fileDialog()}));
    QCOMPARE(page.page.parameterFile(), QString());
    QVERIFY(!QFileInfo::exists(QStringLiteral("/A.rcvp")));
}

void tst_CMultiRcvCabinetSetFirstPage::withoutAHost()
{
    CSettingArea::instance().setHandler(nullptr);
    const Page page(root());
    QVERIFY(QDir().mkpath(root()));
    ModalScript script;
    script.choose(m_pLibrary->addOutside(QStringLiteral("A.rcvp"), "a"));
    page.browse();
    QCOMPARE(page.page.parameterFile(), m_pLibrary->path(QStringLiteral("A.rcvp")));
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

// The host may destroy the window behind an open file dialog.
void tst_CMultiRcvCabinetSetFirstPage::pageMayEndWhileBrowsing()
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

SETTINGAREA_TEST_MAIN(tst_CMultiRcvCabinetSetFirstPage, QApplication)

#include "tst_CMultiRcvCabinetSetFirstPage.moc"
