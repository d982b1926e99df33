#include "monitoring/CButtonItemDelegate.h"
#include "monitoring/CEmailEditDlg.h"
#include "monitoring/CEmailTableWidget.h"
#include "monitoring/CTargetMailboxes.h"
#include "tests/monitoring/Controls.h"
#include "tests/support/ModalScript.h"
#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"

#include <QApplication>
#include <QPointer>
#include <QSignalSpy>

namespace {

const char* const deleteQuestion = "Are you sure want to delete email?";

QList<SEmailRecipient> three()
{
    return {{QStringLiteral("Ann"), QStringLiteral("ann@host.com")},
            {QStringLiteral("Bob"), QStringLiteral("bob@host.com")},
            {QStringLiteral("Cay"), QStringLiteral("cay@host.com")}};
}

struct Mailboxes
{
    Mailboxes()
    {
        mailboxes->setRecipients(three());
        mailboxes->show();
    }
    ~Mailboxes() { delete mailboxes; }
    Q_DISABLE_COPY(Mailboxes)

    CEmailTableWidget* table() const { return mailboxes->findChild<CEmailTableWidget*>(); }
    QPushButton* add() const { return mailboxes->findChild<QPushButton*>(QStringLiteral("AddEmail")); }
    QStringList list() const { return texts(mailboxes->recipients()); }
    void clickButton(int row, int button)
    {
        const QRect cell = table()->visualRect(table()->model()->index(row, 2));
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, {},
                          CButtonItemDelegate::buttonRect(cell, button).center());
    }

    QPointer<CTargetMailboxes> mailboxes = new CTargetMailboxes;
    QSignalSpy changes{mailboxes, &CTargetMailboxes::notifyRecipientsChanged};
};

// Fills in the dialog and presses a button.
std::function<void(QWidget*)> entering(const char* title, const char* name, const char* address,
                                       CDialog::Button button = CDialog::Ok)
{
    return [=](QWidget* dialog) {
        auto* const edit = qobject_cast<CEmailEditDlg*>(dialog);
        QVERIFY(edit);
        QCOMPARE(edit->windowTitle(), QLatin1String(title));
        type(named<QLineEdit>(*dialog, "Name"), QLatin1String(name));
        type(named<QLineEdit>(*dialog, "Email address"), QLatin1String(address));
        QTest::mouseClick(edit->button(button), Qt::LeftButton);
    };
}

} // namespace

class tst_CTargetMailboxes : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheList();
    void adds();
    void addsNothingWhenCancelled();
    void refusesADuplicate();
    void edits();
    void editsNothingWhenCancelled();
    void deletes();
    void deletesNothingOnNo();
    void pushedWhileADialogIsOpen();
    void destroyedBehindADialog_data();
    void destroyedBehindADialog();
    void keys();
    void keysOfAnEmptyTable();
    void selectedRecipientIsDescribed();
    void looks();
    void followsTheLanguage();
};

void tst_CTargetMailboxes::showsTheList()
{
    const Mailboxes shown;
    QCOMPARE(shown.list(), texts(three()));
    QCOMPARE(rows(shown.table()), texts(three()));
    QCOMPARE(shown.changes.count(), 0);
    shown.mailboxes->setRecipients({});
    QCOMPARE(shown.table()->rowCount(), 0);
    QCOMPARE(shown.changes.count(), 0);
}

void tst_CTargetMailboxes::adds()
{
    const Mailboxes shown;
    ModalScript script;
    script.use(entering("Add", "<i>Dan", "dan@host.com"));
    QTest::mouseClick(shown.add(), Qt::LeftButton);
    const QStringList expected = texts(three()) + QStringList{QStringLiteral("<i>Dan <dan@host.com>")};
    QCOMPARE(shown.list(), expected);
    QCOMPARE(rows(shown.table()), expected);
    QVERIFY(shown.table()->item(3, 0)->toolTip().contains(QStringLiteral("&lt;i&gt;Dan")));
    QCOMPARE(shown.table()->item(3, 1)->toolTip(), QStringLiteral("dan@host.com"));
    QCOMPARE(shown.changes.count(), 1);
    QVERIFY(!shown.mailboxes->findChild<CEmailEditDlg*>());
}

void tst_CTargetMailboxes::addsNothingWhenCancelled()
{
    const Mailboxes shown;
    ModalScript script;
    script.use(entering("Add", "Dan", "dan@host.com", CDialog::Cancel));
    QTest::mouseClick(shown.add(), Qt::LeftButton);
    QCOMPARE(shown.list(), texts(three()));
    QCOMPARE(rows(shown.table()), texts(three()));
    QCOMPARE(shown.changes.count(), 0);
    QVERIFY(!shown.mailboxes->findChild<CEmailEditDlg*>());
}

void tst_CTargetMailboxes::refusesADuplicate()
{
    const Mailboxes shown;
    ModalScript script;
    script.use([](QWidget* dialog) {
        entering("Add", "Dan", "cay@host.com")(dialog);
        QVERIFY(dialog->isVisible());
        dialog->close();
    });
    QTest::mouseClick(shown.add(), Qt::LeftButton);
    QCOMPARE(shown.list(), texts(three()));
}

void tst_CTargetMailboxes::edits()
{
    Mailboxes shown;
    ModalScript script;
    script.use([](QWidget* dialog) {
        QCOMPARE(named<QLineEdit>(*dialog, "Name")->text(), QStringLiteral("Bob"));
        QCOMPARE(named<QLineEdit>(*dialog, "Email address")->text(), QStringLiteral("bob@host.com"));
        entering("Modify", "<u>Bo", "bo@host.com")(dialog);
    });
    shown.clickButton(1, 0);
    const QStringList expected{QStringLiteral("Ann <ann@host.com>"), QStringLiteral("<u>Bo <bo@host.com>"),
                               QStringLiteral("Cay <cay@host.com>")};
    QCOMPARE(shown.list(), expected);
    QCOMPARE(rows(shown.table()), expected);
    QVERIFY(shown.table()->item(1, 0)->toolTip().contains(QStringLiteral("&lt;u&gt;Bo")));
    QCOMPARE(shown.table()->item(1, 1)->toolTip(), QStringLiteral("bo@host.com"));
}

void tst_CTargetMailboxes::editsNothingWhenCancelled()
{
    Mailboxes shown;
    ModalScript script;
    script.use(entering("Modify", "Bo", "bo@host.com", CDialog::Cancel));
    shown.clickButton(1, 0);
    QCOMPARE(shown.list(), texts(three()));
    QCOMPARE(rows(shown.table()), texts(three()));
}

void tst_CTargetMailboxes::deletes()
{
    Mailboxes shown;
    ModalScript script;
    script.press(CDialog::Yes).press(CDialog::Yes).press(CDialog::Yes);
    shown.clickButton(1, 1);
    QCOMPARE(script.seen(), QStringList({question(deleteQuestion)}));
    QStringList left{QStringLiteral("Ann <ann@host.com>"), QStringLiteral("Cay <cay@host.com>")};
    QCOMPARE(shown.list(), left);
    QCOMPARE(rows(shown.table()), left);
    QCOMPARE(shown.changes.count(), 1);
    shown.clickButton(1, 1);
    shown.clickButton(0, 1);
    QCOMPARE(shown.list(), QStringList());
    QCOMPARE(shown.table()->rowCount(), 0);
    QCOMPARE(shown.changes.count(), 3);
}

void tst_CTargetMailboxes::deletesNothingOnNo()
{
    Mailboxes shown;
    ModalScript script;
    script.press(CDialog::No).press(CDialog::Cancel); // a box without Cancel is closed
    shown.clickButton(0, 1);
    shown.clickButton(2, 1);
    QCOMPARE(script.seen(), QStringList({question(deleteQuestion), question(deleteQuestion)}));
    QCOMPARE(shown.list(), texts(three()));
    QCOMPARE(rows(shown.table()), texts(three()));
    QCOMPARE(shown.changes.count(), 0);
}

// The row that the dialog is about is one of a list that is no more.
void tst_CTargetMailboxes::pushedWhileADialogIsOpen()
{
    Mailboxes shown;
    const QList<SEmailRecipient> pushed{{QStringLiteral("Zoe"), QStringLiteral("zoe@host.com")}};
    ModalScript script;
    for (int i = 0; i < 2; ++i) {
        script.use([&](QWidget* dialog) {
            shown.mailboxes->setRecipients(pushed);
            if (auto* const box = qobject_cast<CMessageBox*>(dialog))
                QTest::mouseClick(box->button(CDialog::Yes), Qt::LeftButton);
            else
                entering("Modify", "Bo", "bo@host.com")(dialog);
        });
    }
    shown.clickButton(2, 0);
    QCOMPARE(shown.list(), texts(pushed));
    QCOMPARE(rows(shown.table()), texts(pushed));
    shown.mailboxes->setRecipients(three());
    shown.clickButton(0, 1);
    QCOMPARE(shown.list(), texts(pushed));
    QCOMPARE(rows(shown.table()), texts(pushed));
    QCOMPARE(shown.changes.count(), 0);
}

void tst_CTargetMailboxes::destroyedBehindADialog_data()
{
    QTest::addColumn<int>("button"); // of the table; the button above it for -1
    QTest::newRow("add") << -1;
    QTest::newRow("edit") << 0;
    QTest::newRow("delete") << 1;
}

void tst_CTargetMailboxes::destroyedBehindADialog()
{
    QFETCH(int, button);
    Mailboxes shown;
    ModalScript script;
    script.use([&](QWidget*) { delete shown.mailboxes; });
    if (button < 0)
        QTest::mouseClick(shown.add(), Qt::LeftButton);
    else
        shown.clickButton(1, button);
    QVERIFY(!shown.mailboxes);
    QVERIFY(script.isDone());
}

// The table takes no focus; the button above it has its keys.
void tst_CTargetMailboxes::keys()
{
    const Mailboxes shown;
    QVERIFY(shown.add()->focusPolicy() & Qt::TabFocus);
    const QString keysText = QStringLiteral("Up and Down select a recipient, F2 edits it, Delete deletes it.");
    QCOMPARE(shown.add()->toolTip(), keysText);
    QCOMPARE(shown.add()->accessibleDescription(), keysText);
    ModalScript script;
    QTest::keyClick(shown.add(), Qt::Key_F2); // nothing is selected
    QTest::keyClick(shown.add(), Qt::Key_Delete);
    QCOMPARE(script.seen(), QStringList());

    const auto pressed = [&shown](Qt::Key key) {
        QTest::keyClick(shown.add(), key);
        return shown.table()->currentRow();
    };
    QCOMPARE(pressed(Qt::Key_Down), 0);
    QCOMPARE(shown.add()->accessibleDescription(), QStringLiteral("ann@host.com: ") + keysText);
    QCOMPARE(pressed(Qt::Key_Up), 0);
    QCOMPARE(pressed(Qt::Key_Down), 1);
    QCOMPARE(pressed(Qt::Key_Down), 2);
    QCOMPARE(pressed(Qt::Key_Down), 2);
    QCOMPARE(pressed(Qt::Key_Up), 1);
    QVERIFY(shown.table()->selectionModel()->isRowSelected(1, {}));
    QCOMPARE(shown.add()->accessibleDescription(), QStringLiteral("bob@host.com: ") + keysText);

    script.use(entering("Modify", "Bo", "bo@host.com")).press(CDialog::Yes);
    QTest::keyClick(shown.add(), Qt::Key_F2);
    QCOMPARE(shown.list().at(1), QStringLiteral("Bo <bo@host.com>"));
    QTest::keyClick(shown.add(), Qt::Key_Delete);
    QCOMPARE(script.seen(), QStringList({question(deleteQuestion)}));
    QCOMPARE(shown.list(), QStringList({QStringLiteral("Ann <ann@host.com>"), QStringLiteral("Cay <cay@host.com>")}));

    script.use(entering("Add", "Dan", "dan@host.com"));
    QTest::keyClick(shown.add(), Qt::Key_Space);
    QCOMPARE(shown.list().size(), 3);
}

void tst_CTargetMailboxes::keysOfAnEmptyTable()
{
    const Mailboxes shown;
    shown.mailboxes->setRecipients({});
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_F2, Qt::Key_Delete})
        QTest::keyClick(shown.add(), key);
    QCOMPARE(shown.table()->currentRow(), -1);
}

void tst_CTargetMailboxes::selectedRecipientIsDescribed()
{
    const Mailboxes shown;
    const auto described = [&shown] {
        const QString description = shown.add()->accessibleDescription();
        return description.startsWith(QStringLiteral("Up and Down")) ? QString() : description.section(u':', 0, 0);
    };
    ModalScript script;
    script.use(entering("Modify", "Bo", "bo@host.com")).press(CDialog::Yes).press(CDialog::Yes);
    QCOMPARE(described(), QString());
    shown.table()->selectRow(1);
    QCOMPARE(described(), QStringLiteral("bob@host.com"));
    QTest::keyClick(shown.add(), Qt::Key_F2);
    QCOMPARE(described(), QStringLiteral("bo@host.com"));
    QTest::keyClick(shown.add(), Qt::Key_Delete);
    QCOMPARE(shown.table()->currentRow(), 1); // the one below has moved up
    QCOMPARE(described(), QStringLiteral("cay@host.com"));
    QTest::keyClick(shown.add(), Qt::Key_Delete);
    QCOMPARE(described(), QStringLiteral("ann@host.com"));
    shown.mailboxes->setRecipients(three());
    QCOMPARE(shown.table()->currentRow(), -1);
    QCOMPARE(described(), QString());
}

void tst_CTargetMailboxes::looks()
{
    const Mailboxes shown;
    QCOMPARE(shown.add()->text(), QStringLiteral("Add email"));
    QCOMPARE(shown.add()->styleSheet(),
             QStringLiteral("QPushButton{ border: 0px; color: rgba(139, 129, 255, 1); background: transparent;}"));
    QCOMPARE(shown.table()->accessibleName(), QStringLiteral("Target mailboxes"));
    const auto* const heading = withText<QLabel>(*shown.mailboxes, "Target mailboxes");
    QCOMPARE(heading->objectName(), QStringLiteral("Highlight"));
    QVERIFY(heading->geometry().right() < shown.add()->geometry().left());
    QVERIFY(heading->geometry().bottom() < shown.table()->geometry().top());
}

void tst_CTargetMailboxes::followsTheLanguage()
{
    const Mailboxes shown;
    const UpperCase language;
    QCOMPARE(shown.add()->text(), QStringLiteral("ADD EMAIL"));
    QCOMPARE(shown.table()->accessibleName(), QStringLiteral("TARGET MAILBOXES"));
    withText<QLabel>(*shown.mailboxes, "TARGET MAILBOXES");
    QCOMPARE(shown.add()->toolTip(), shown.add()->toolTip().toUpper());
    QCOMPARE(shown.list(), texts(three()));
}

SETTINGAREA_TEST_MAIN(tst_CTargetMailboxes, QApplication)

#include "tst_CTargetMailboxes.moc"
