#include "tests/preferences/PreferencesPage.h"
#include "tests/support/AreaFixture.h"
#include "tests/support/ModalScript.h"
#include "tests/support/UpperCase.h"

#include <QAccessible>
#include <QApplication>
#include <QTemporaryDir>

namespace {

const QString asked = QStringLiteral("Orvel: The project has not been saved, want to save it? [(&Yes) &No Cancel]");
const QString fileAsked = QStringLiteral("Save project: *.prj");

} // namespace

// What becomes of a connection priority that the user chooses.
class tst_CPriorityChoice : public AreaFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void isToldAtOnceWithoutChanges_data();
    void isToldAtOnceWithoutChanges();
    void yesSavesAProjectThatHasAPath();
    void yesAsksForAPath();
    void pathGetsTheSuffix();
    void yesWithoutAFileTellsNothing();
    void noTellsWithoutSaving();
    void cancelGoesBack_data();
    void cancelGoesBack();
    void cancelGoesBackToWhatTheHostKnows();
    void questionLiesOverThePagesParent();
    void textsAreTranslated();

    void handlerReplacedWhileTheQuestionIsOpen();
    void handlerTakenAwayWhileTheQuestionIsOpen();
    void pushWhileTheQuestionIsOpen_data();
    void pushWhileTheQuestionIsOpen();
    void windowDestroyedWhileTheQuestionIsOpen();
    void pageDestroyedWhileTheQuestionIsOpen();
    void windowDestroyedWhileTheFileIsChosen();
    void pageDestroyedByTheHost();
    void pageDestroyedLater();

private:
    QStringList calls() const { return m_pHandler->calls(); }

    FakeHandler* m_pHandler = nullptr; // the area's
};

void tst_CPriorityChoice::init()
{
    AreaFixture::init();
    m_pHandler = new FakeHandler;
    m_pHandler->projectModified = true;
    area().setHandler(m_pHandler);
}

void tst_CPriorityChoice::isToldAtOnceWithoutChanges_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    for (const int from : {0, 1, 2}) {
        for (const int to : {0, 1, 2}) {
            if (from != to)
                QTest::addRow("%d to %d", from, to) << from << to;
        }
    }
}

void tst_CPriorityChoice::isToldAtOnceWithoutChanges()
{
    QFETCH(int, from);
    QFETCH(int, to);
    m_pHandler->projectModified = false;
    const PreferencesPage shown;
    SSettings::Preferences pushed;
    pushed.connectionPriority = from;
    shown.push(pushed);
    QTest::mouseClick(shown.priority(to), Qt::LeftButton, {}, {8, 8});
    const QStringList expected{QStringLiteral("isProjectModified()"),
                               QStringLiteral("setConnectionPriority(%1)").arg(to)};
    QCOMPARE(calls(), expected);
    QCOMPARE(shown.page->preferences().connectionPriority, to);
    shown.priority(to)->click(); // is checked already
    QCOMPARE(calls(), expected);
}

void tst_CPriorityChoice::yesSavesAProjectThatHasAPath()
{
    m_pHandler->projectHasPath = true;
    const PreferencesPage shown;
    ModalScript script;
    script.press(CDialog::Yes);
    QTest::mouseClick(shown.priority(1), Qt::LeftButton, {}, {8, 8});
    QCOMPARE(script.seen(), QStringList{asked});
    QCOMPARE(calls(), (QStringList{QStringLiteral("isProjectModified()"), QStringLiteral("hasProjectPath()"),
                                   QStringLiteral("saveProject()"), QStringLiteral("setConnectionPriority(1)")}));
    QVERIFY(shown.priority(1)->isChecked());
}

void tst_CPriorityChoice::yesAsksForAPath()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("wall.prj"));
    const PreferencesPage shown;
    ModalScript script;
    QString suggested;
    QString caption;
    script.press(CDialog::Yes).use([&](QWidget* dialog) {
        caption = dialog->windowTitle() + QStringLiteral(": ") +
                  qobject_cast<QFileDialog*>(dialog)->nameFilters().join(QLatin1Char(';'));
        auto* const edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        suggested = edit->text();
        edit->setText(path);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    shown.priority(2)->click();
    QCOMPARE(caption, fileAsked);
    QCOMPARE(suggested, QStringLiteral("Stage.prj"));
    QCOMPARE(calls(), (QStringList{QStringLiteral("isProjectModified()"), QStringLiteral("hasProjectPath()"),
                                   QStringLiteral("projectName()"), QStringLiteral("saveProject(%1)").arg(path),
                                   QStringLiteral("setConnectionPriority(2)")}));
}

void tst_CPriorityChoice::pathGetsTheSuffix()
{
    const QTemporaryDir folder;
    const PreferencesPage shown;
    ModalScript script;
    script.press(CDialog::Yes).choose(folder.filePath(QStringLiteral("wall")));
    shown.priority(2)->click();
    QCOMPARE(script.seen(), (QStringList{asked, fileAsked}));
    QVERIFY(calls().contains(QStringLiteral("saveProject(%1)").arg(folder.filePath(QStringLiteral("wall.prj")))));
}

void tst_CPriorityChoice::yesWithoutAFileTellsNothing()
{
    const PreferencesPage shown;
    ModalScript script;
    script.press(CDialog::Yes).choose({});
    shown.priority(2)->click();
    QCOMPARE(script.seen(), (QStringList{asked, fileAsked}));
    QCOMPARE(calls(), (QStringList{QStringLiteral("isProjectModified()"), QStringLiteral("hasProjectPath()"),
                                   QStringLiteral("projectName()")}));
    QVERIFY(shown.priority(2)->isChecked());
    QCOMPARE(shown.page->preferences().connectionPriority, 2);
    // The host still has the first one, which Cancel therefore goes back to.
    script.press(CDialog::Cancel);
    shown.priority(1)->click();
    QVERIFY(shown.priority(0)->isChecked());
}

void tst_CPriorityChoice::noTellsWithoutSaving()
{
    const PreferencesPage shown;
    ModalScript script;
    script.press(CDialog::No);
    shown.priority(2)->click();
    QCOMPARE(script.seen(), QStringList{asked});
    QCOMPARE(calls(), (QStringList{QStringLiteral("isProjectModified()"), QStringLiteral("setConnectionPriority(2)")}));
}

void tst_CPriorityChoice::cancelGoesBack_data()
{
    QTest::addColumn<bool>("byButton");
    QTest::newRow("Cancel") << true;
    QTest::newRow("closed") << false;
}

void tst_CPriorityChoice::cancelGoesBack()
{
    QFETCH(bool, byButton);
    const PreferencesPage shown;
    for (const int from : {0, 1, 2}) {
        SSettings::Preferences pushed;
        pushed.connectionPriority = from;
        shown.push(pushed);
        m_pHandler->forgetCalls();
        ModalScript script;
        if (byButton)
            script.press(CDialog::Cancel);
        else
            script.use([](QWidget* box) { QTest::keyClick(box, Qt::Key_Escape); });
        shown.priority((from + 1) % 3)->click();
        QVERIFY(script.isDone());
        QVERIFY(shown.priority(from)->isChecked());
        QCOMPARE(shown.page->preferences().connectionPriority, from);
        QCOMPARE(calls(), QStringList{QStringLiteral("isProjectModified()")});
    }
}

void tst_CPriorityChoice::cancelGoesBackToWhatTheHostKnows()
{
    const PreferencesPage shown;
    ModalScript script;
    script.press(CDialog::No).press(CDialog::Cancel);
    shown.priority(2)->click();
    shown.priority(1)->click();
    QVERIFY(shown.priority(2)->isChecked()); // told, though never pushed
}

void tst_CPriorityChoice::questionLiesOverThePagesParent()
{
    const PreferencesPage shown;
    ModalScript script;
    QWidget* parent = nullptr;
    script.use([&](QWidget* box) {
        parent = box->parentWidget();
        box->close();
    });
    shown.priority(1)->click();
    QCOMPARE(parent, shown.window.data());
}

void tst_CPriorityChoice::textsAreTranslated()
{
    const UpperCase language;
    const PreferencesPage shown;
    ModalScript script;
    script.press(CDialog::Yes).choose({});
    shown.radio("USB AND LAN")->click();
    QCOMPARE(script.seen().size(), 2);
    QVERIFY(script.seen().constFirst().startsWith(
        QStringLiteral("Orvel: THE PROJECT HAS NOT BEEN SAVED, WANT TO SAVE IT?")));
    QCOMPARE(script.seen().constLast(), QStringLiteral("SAVE PROJECT: *.prj"));
}

void tst_CPriorityChoice::handlerReplacedWhileTheQuestionIsOpen()
{
    const PreferencesPage shown;
    int destroyed = 0;
    QStringList told;
    m_pHandler->projectHasPath = true;
    m_pHandler->destroyed = [&, old = m_pHandler] {
        told = old->calls();
        ++destroyed;
    };
    auto* const other = new FakeHandler;
    ModalScript script;
    script.use([&](QWidget* box) {
        area().setHandler(other);
        QCOMPARE(destroyed, 0);
        QTest::mouseClick(qobject_cast<CMessageBox*>(box)->button(CDialog::Yes), Qt::LeftButton);
    });
    shown.priority(1)->click();
    QCOMPARE(destroyed, 1);
    QCOMPARE(told, (QStringList{QStringLiteral("isProjectModified()"), QStringLiteral("hasProjectPath()"),
                                QStringLiteral("saveProject()"), QStringLiteral("setConnectionPriority(1)")}));
    QCOMPARE(other->calls(), QStringList());
}

void tst_CPriorityChoice::handlerTakenAwayWhileTheQuestionIsOpen()
{
    const PreferencesPage shown;
    ModalScript script;
    script.use([&](QWidget* box) {
        area().setHandler(nullptr);
        box->close();
    });
    shown.priority(1)->click();
    QVERIFY(shown.priority(0)->isChecked());
}

void tst_CPriorityChoice::pushWhileTheQuestionIsOpen_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("No") << int(CDialog::No);
    QTest::newRow("Cancel") << int(CDialog::Cancel);
}

// What the host says last counts.
void tst_CPriorityChoice::pushWhileTheQuestionIsOpen()
{
    QFETCH(int, button);
    const PreferencesPage shown;
    ModalScript script;
    script.use([&](QWidget* box) {
        SSettings::Preferences pushed;
        pushed.connectionPriority = 2;
        shown.push(pushed);
        QTest::mouseClick(qobject_cast<CMessageBox*>(box)->button(CDialog::Button(button)), Qt::LeftButton);
    });
    shown.priority(1)->click();
    QVERIFY(shown.priority(2)->isChecked());
    QCOMPARE(calls(), QStringList{QStringLiteral("isProjectModified()")});
}

void tst_CPriorityChoice::windowDestroyedWhileTheQuestionIsOpen()
{
    QAccessible::setActive(true); // Qt has more to do with a button that was clicked then
    const PreferencesPage shown;
    ModalScript script;
    script.use([&](QWidget*) { delete shown.window; });
    shown.priority(1)->click();
    QAccessible::setActive(false);
    QVERIFY(!shown.page);
    QCOMPARE(calls(), QStringList{QStringLiteral("isProjectModified()")});
}

void tst_CPriorityChoice::pageDestroyedWhileTheQuestionIsOpen()
{
    m_pHandler->projectHasPath = true;
    const PreferencesPage shown;
    ModalScript script;
    script.use([&](QWidget* box) {
        delete shown.page;
        QTest::mouseClick(qobject_cast<CMessageBox*>(box)->button(CDialog::Yes), Qt::LeftButton);
    });
    shown.priority(1)->click();
    QCOMPARE(calls(), (QStringList{QStringLiteral("isProjectModified()"), QStringLiteral("hasProjectPath()"),
                                   QStringLiteral("saveProject()")}));
}

void tst_CPriorityChoice::windowDestroyedWhileTheFileIsChosen()
{
    const PreferencesPage shown;
    ModalScript script;
    script.press(CDialog::Yes).use([&](QWidget*) { delete shown.window; });
    shown.priority(1)->click();
    QVERIFY(!shown.page);
    QCOMPARE(calls(), (QStringList{QStringLiteral("isProjectModified()"), QStringLiteral("hasProjectPath()"),
                                   QStringLiteral("projectName()")}));
}

// A host that takes its window down when it is told of the priority.
void tst_CPriorityChoice::pageDestroyedByTheHost()
{
    class Host : public FakeHandler
    {
    public:
        explicit Host(QPointer<QWidget> window)
            : m_window(std::move(window))
        {
        }
        void setConnectionPriority(int /*priority*/) override { delete m_window; }

    private:
        QPointer<QWidget> m_window;
    };
    const PreferencesPage shown;
    area().setHandler(new Host(shown.window));
    shown.priority(1)->click();
    QVERIFY(!shown.page);
}

// What was kept alive for a choice goes with the page again.
void tst_CPriorityChoice::pageDestroyedLater()
{
    const PreferencesPage shown;
    m_pHandler->projectModified = false;
    const QPointer<QRadioButton> chosen = shown.priority(1);
    chosen->click();
    delete shown.page;
    QVERIFY(!chosen);
}

SETTINGAREA_TEST_MAIN(tst_CPriorityChoice, QApplication)
#include "tst_CPriorityChoice.moc"
