#include "monitoring/CEmailEditDlg.h"
#include "tests/monitoring/Controls.h"
#include "tests/support/ModalScript.h"
#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"

#include <widgetry/CWarningTipLineEdit.h>

#include <QApplication>
#include <QRegularExpressionValidator>
#include <QSignalSpy>

#include <string>

namespace {

const char* const wrongFormat = "Email format is incorrect, please re-enter.";
const char* const duplicate = "Duplicate email addresses exist.";

// A dialog over a list of three.
struct Dialog
{
    Dialog() { dialog = std::make_unique<CEmailEditDlg>(&list, nullptr); }
    explicit Dialog(int index) { dialog = std::make_unique<CEmailEditDlg>(&list, index, nullptr); }

    QLineEdit* name() const { return named<QLineEdit>(*dialog, "Name"); }
    CWarningTipLineEdit* address() const { return named<CWarningTipLineEdit>(*dialog, "Email address"); }
    QPushButton* ok() const { return dialog->button(CDialog::Ok); }
    // Empty when none is shown.
    QString warning() const { return address()->isWarningShown() ? address()->tipText() : QString(); }

    QList<SEmailRecipient> list{{QStringLiteral("Ann"), QStringLiteral("ann@host.com")},
                                {QStringLiteral("Bob"), QStringLiteral("bob@host.com")},
                                {{}, QStringLiteral("cay@host.com.cn")}};
    std::unique_ptr<CEmailEditDlg> dialog;
};

} // namespace

class tst_CEmailEditDlg : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void newRecipient();
    void existingRecipient();
    void existingRecipientWithoutAValidAddress();
    void sizesAndLengths();
    void charactersOfTheAddress();
    void charactersOfTheName();
    void okFollowsTheAddress();
    void noTipWhileTyping();
    void tipAfterEditing();
    void duplicates();
    void duplicateOfAnotherCase();
    void ownAddressIsNoDuplicate();
    void warningFollowsTheText();
    void accepts();
    void refusesABadAddress();
    void refusesAnAddressTakenMeanwhile();
    void modifyingInAListThatShrank();
    void returnKeyAccepts();
    void cancels();
    void tabOrder();
    void labelsFit();
    void followsTheLanguage();
    void languageAfterTheListChanged();
};

void tst_CEmailEditDlg::newRecipient()
{
    const Dialog one;
    QCOMPARE(one.dialog->windowTitle(), QStringLiteral("Add"));
    QCOMPARE(one.name()->text(), QString());
    QCOMPARE(one.address()->text(), QString());
    QVERIFY(!one.ok()->isEnabled());
    QVERIFY(one.dialog->button(CDialog::Cancel)->isEnabled());
    QCOMPARE(one.warning(), QString());
    for (const auto other : {CDialog::Yes, CDialog::No, CDialog::Previous, CDialog::Next})
        QVERIFY(!one.dialog->button(other));
}

void tst_CEmailEditDlg::existingRecipient()
{
    const Dialog one(1);
    QCOMPARE(one.dialog->windowTitle(), QStringLiteral("Modify"));
    QCOMPARE(one.name()->text(), QStringLiteral("Bob"));
    QCOMPARE(one.address()->text(), QStringLiteral("bob@host.com"));
    QVERIFY(one.ok()->isEnabled());
    QCOMPARE(one.warning(), QString());
}

void tst_CEmailEditDlg::existingRecipientWithoutAValidAddress()
{
    for (const char* address : {"", "bob", "b\nob@host.com", "<b>bob@host.com"}) {
        const QList<SEmailRecipient> list{{QStringLiteral("<b>Bob"), QString::fromLatin1(address)}};
        const CEmailEditDlg dialog(&list, 0, nullptr);
        QVERIFY(!dialog.button(CDialog::Ok)->isEnabled());
        QCOMPARE(named<QLineEdit>(dialog, "Name")->text(), QStringLiteral("<b>Bob"));
    }
}

void tst_CEmailEditDlg::sizesAndLengths()
{
    const Dialog one;
    QCOMPARE(one.dialog->minimumSize(), QSize(341, 154));
    QCOMPARE(one.dialog->maximumSize(), QSize(341, 154));
    for (QLineEdit* const edit : {one.name(), static_cast<QLineEdit*>(one.address())}) {
        QCOMPARE(edit->minimumSize(), QSize(238, 24));
        QCOMPARE(edit->maximumSize(), QSize(238, 24));
        QCOMPARE(edit->maxLength(), 64);
        type(edit, QString(65, QLatin1Char('n')));
        QCOMPARE(edit->text(), QString(64, QLatin1Char('n')));
    }
}

void tst_CEmailEditDlg::charactersOfTheAddress()
{
    const Dialog one;
    const auto* const validator = qobject_cast<const QRegularExpressionValidator*>(one.address()->validator());
    QVERIFY(validator);
    QCOMPARE(validator->regularExpression().pattern(), QStringLiteral("^[A-Za-z0-9`~!@#$%^&*()_\\-+=<>,.\\\\/]*"));
    const QString allowed = QStringLiteral("AZaz09`~!@#$%^&*()_-+=<>,.\\/");
    type(one.address(), allowed);
    QCOMPARE(one.address()->text(), allowed);
    type(one.address(), QStringLiteral("a \"';:|[]{}?b"));
    QCOMPARE(one.address()->text(), QStringLiteral("ab"));
    one.address()->insert(QString::fromUtf8("é中\n"));
    QCOMPARE(one.address()->text(), QStringLiteral("ab"));
}

void tst_CEmailEditDlg::charactersOfTheName()
{
    const Dialog one;
    QVERIFY(!one.name()->validator());
    one.name()->insert(QString::fromUtf8("张伟 \"<b>|;"));
    QCOMPARE(one.name()->text(), QString::fromUtf8("张伟 \"<b>|;"));
}

void tst_CEmailEditDlg::okFollowsTheAddress()
{
    const Dialog one;
    QStringList valid;
    one.address()->selectAll();
    for (const char character : std::string("eve@host.com.cn")) {
        QTest::keyClick(one.address(), character);
        if (one.ok()->isEnabled())
            valid.append(one.address()->text());
    }
    QCOMPARE(valid, QStringList({QStringLiteral("eve@host.co"), QStringLiteral("eve@host.com"),
                                 QStringLiteral("eve@host.com.cn")}));
    QTest::keyClick(one.address(), Qt::Key_Backspace);
    QVERIFY(!one.ok()->isEnabled());
    type(one.address(), QStringLiteral("eve@mail.host.com"));
    QVERIFY(!one.ok()->isEnabled());
    type(one.address(), QStringLiteral("eve@Host.com"));
    QVERIFY(!one.ok()->isEnabled());
}

void tst_CEmailEditDlg::noTipWhileTyping()
{
    const Dialog one;
    for (const char* text : {"e", "eve@", "eve@host.c", "eve@host.com"}) {
        type(one.address(), QLatin1String(text));
        QCOMPARE(one.warning(), QString());
    }
}

void tst_CEmailEditDlg::tipAfterEditing()
{
    const Dialog one;
    type(one.address(), QStringLiteral("e"));
    QTest::keyClick(one.address(), Qt::Key_Backspace);
    leave(one.address());
    QCOMPARE(one.warning(), QLatin1String(wrongFormat)); // empty
    type(one.address(), QStringLiteral("eve@host.com"));
    QCOMPARE(one.warning(), QString());
    leave(one.address());
    QCOMPARE(one.warning(), QString());
    type(one.address(), QStringLiteral("eve@host"));
    QCOMPARE(one.warning(), QString());
    QTest::keyClick(one.address(), Qt::Key_Return);
    QCOMPARE(one.warning(), QLatin1String(wrongFormat));
    QVERIFY(!one.ok()->isEnabled());
}

void tst_CEmailEditDlg::duplicates()
{
    const Dialog one;
    for (const char* text : {"ann@host.com", "bob@host.com", "cay@host.com.cn"}) {
        type(one.address(), QLatin1String(text));
        QCOMPARE(one.warning(), QLatin1String(duplicate));
        QVERIFY(!one.ok()->isEnabled());
        leave(one.address());
        QCOMPARE(one.warning(), QLatin1String(duplicate));
    }
    type(one.address(), QStringLiteral("dan@host.com"));
    QCOMPARE(one.warning(), QString());
    QVERIFY(one.ok()->isEnabled());
}

void tst_CEmailEditDlg::duplicateOfAnotherCase()
{
    const Dialog one;
    type(one.address(), QStringLiteral("Ann@host.com"));
    QCOMPARE(one.warning(), QString());
    QVERIFY(one.ok()->isEnabled());
}

void tst_CEmailEditDlg::ownAddressIsNoDuplicate()
{
    const Dialog one(1);
    type(one.address(), QStringLiteral("bob@host.co"));
    QVERIFY(one.ok()->isEnabled());
    QTest::keyClicks(one.address(), QStringLiteral("m"));
    QVERIFY(one.ok()->isEnabled());
    QCOMPARE(one.warning(), QString());
    type(one.address(), QStringLiteral("ann@host.com"));
    QVERIFY(!one.ok()->isEnabled());
    QCOMPARE(one.warning(), QLatin1String(duplicate));
}

void tst_CEmailEditDlg::warningFollowsTheText()
{
    const Dialog one;
    type(one.address(), QStringLiteral("ann@host.co"));
    QCOMPARE(one.warning(), QString());
    QTest::keyClicks(one.address(), QStringLiteral("m"));
    QCOMPARE(one.warning(), QLatin1String(duplicate));
    QTest::keyClicks(one.address(), QStringLiteral("m"));
    QCOMPARE(one.warning(), QLatin1String(wrongFormat)); // wrong in another way
    QTest::keyClick(one.address(), Qt::Key_Backspace);
    QCOMPARE(one.warning(), QLatin1String(duplicate));
    QTest::keyClick(one.address(), Qt::Key_Backspace);
    QCOMPARE(one.warning(), QString()); // valid
}

void tst_CEmailEditDlg::accepts()
{
    const Dialog one(0);
    QSignalSpy finished(one.dialog.get(), &QDialog::finished);
    type(one.name(), QStringLiteral("Eve"));
    type(one.address(), QStringLiteral("eve@host.com"));
    QTest::mouseClick(one.ok(), Qt::LeftButton);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(one.dialog->result(), static_cast<int>(QDialog::Accepted));
    QCOMPARE(texts({one.dialog->recipient()}), QStringList({QStringLiteral("Eve <eve@host.com>")}));
    QCOMPARE(one.list.at(0).strName, QStringLiteral("Ann")); // the list is the owner's to change

    const Dialog nameless;
    type(nameless.address(), QStringLiteral("eve@host.com"));
    QTest::mouseClick(nameless.ok(), Qt::LeftButton);
    QCOMPARE(texts({nameless.dialog->recipient()}), QStringList({QStringLiteral(" <eve@host.com>")}));
}

void tst_CEmailEditDlg::languageAfterTheListChanged()
{
    Dialog one;
    type(one.address(), QStringLiteral("ann@host.com"));
    QCOMPARE(one.warning(), QLatin1String(duplicate));
    one.list.clear();
    const CWarningTipLineEdit* const address = one.address();
    const UpperCase language;
    QVERIFY(!address->isWarningShown());
    QVERIFY(one.ok()->isEnabled());
}

void tst_CEmailEditDlg::refusesABadAddress()
{
    const Dialog one;
    QSignalSpy finished(one.dialog.get(), &QDialog::finished);
    type(one.address(), QStringLiteral("eve@host"));
    ModalScript script;
    script.press(CDialog::Ok);
    one.dialog->accept();
    QCOMPARE(script.seen(), QStringList({information("The email address is invalid, Please re-enter it.")}));
    QCOMPARE(finished.count(), 0);
}

void tst_CEmailEditDlg::refusesAnAddressTakenMeanwhile()
{
    Dialog one;
    QSignalSpy finished(one.dialog.get(), &QDialog::finished);
    type(one.address(), QStringLiteral("eve@host.com"));
    one.list.append({QStringLiteral("Eve"), QStringLiteral("eve@host.com")});
    QTest::mouseClick(one.ok(), Qt::LeftButton);
    QCOMPARE(finished.count(), 0);
    QCOMPARE(one.warning(), QLatin1String(duplicate));
    QVERIFY(!one.ok()->isEnabled());
}

void tst_CEmailEditDlg::modifyingInAListThatShrank()
{
    Dialog one(2);
    one.list.clear();
    type(one.address(), QStringLiteral("eve@host.com"));
    QTest::mouseClick(one.ok(), Qt::LeftButton);
    QCOMPARE(one.dialog->result(), static_cast<int>(QDialog::Accepted));
}

void tst_CEmailEditDlg::returnKeyAccepts()
{
    const Dialog one;
    one.dialog->show();
    type(one.address(), QStringLiteral("eve@host"));
    QTest::keyClick(one.address(), Qt::Key_Return);
    QVERIFY(one.dialog->isVisible());
    type(one.address(), QStringLiteral("eve@host.com"));
    QTest::keyClick(one.address(), Qt::Key_Return);
    QCOMPARE(one.dialog->result(), static_cast<int>(QDialog::Accepted));
}

void tst_CEmailEditDlg::cancels()
{
    const Dialog one(1);
    one.dialog->show();
    type(one.address(), QStringLiteral("eve@host.com"));
    QTest::mouseClick(one.dialog->button(CDialog::Cancel), Qt::LeftButton);
    QCOMPARE(one.dialog->result(), static_cast<int>(QDialog::Rejected));
    QVERIFY(!one.dialog->isVisible());
}

void tst_CEmailEditDlg::tabOrder()
{
    const Dialog one(1);
    one.dialog->show();
    QList<QWidget*> order;
    for (QWidget* next = one.dialog->nextInFocusChain(); next != one.dialog.get(); next = next->nextInFocusChain()) {
        if (next->focusPolicy() & Qt::TabFocus)
            order.append(next);
    }
    QCOMPARE(order, QList<QWidget*>({one.name(), one.address(), one.ok(), one.dialog->button(CDialog::Cancel)}));
}

void tst_CEmailEditDlg::labelsFit()
{
    const Dialog one;
    QFont font = one.dialog->font();
    font.setPixelSize(12);
    one.dialog->setFont(font);
    one.dialog->show();
    const auto labels = one.dialog->findChildren<QLabel*>();
    QCOMPARE(labels.size(), 2);
    for (const QLabel* label : labels) {
        QVERIFY(label->buddy());
        QVERIFY2(label->heightForWidth(label->width()) <= label->height(), qPrintable(label->text()));
    }
    QCOMPARE(one.address()->size(), QSize(238, 24));
    QVERIFY(one.address()->geometry().bottom() + 30 < one.ok()->mapTo(one.dialog.get(), QPoint()).y());
}

void tst_CEmailEditDlg::followsTheLanguage()
{
    const Dialog one;
    const Dialog other(0);
    const auto labels = one.dialog->findChildren<QLabel*>();
    type(one.address(), QStringLiteral("ann@host.com"));
    leave(other.address());
    const CWarningTipLineEdit* const address = one.address();
    {
        const UpperCase language;
        QCOMPARE(one.dialog->windowTitle(), QStringLiteral("ADD"));
        QCOMPARE(other.dialog->windowTitle(), QStringLiteral("MODIFY"));
        QCOMPARE(labels.at(0)->text(), QStringLiteral("NAME"));
        QCOMPARE(labels.at(1)->text(), QStringLiteral("EMAIL ADDRESS"));
        QCOMPARE(address->accessibleName(), QStringLiteral("EMAIL ADDRESS"));
        QCOMPARE(address->tipText(), QStringLiteral("DUPLICATE EMAIL ADDRESSES EXIST."));
        QVERIFY(address->isWarningShown());
        QVERIFY(!named<CWarningTipLineEdit>(*other.dialog, "EMAIL ADDRESS")->isWarningShown());
    }
    QCOMPARE(one.warning(), QLatin1String(duplicate));
}

SETTINGAREA_TEST_MAIN(tst_CEmailEditDlg, QApplication)

#include "tst_CEmailEditDlg.moc"
