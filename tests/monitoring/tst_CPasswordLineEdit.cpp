#include "monitoring/CPasswordLineEdit.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QFocusEvent>
#include <QRegularExpressionValidator>

class tst_CPasswordLineEdit : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void masksOutsideOfEditing();
    void noInputMethods();
    void masksWhatNobodyTyped();
    void takesLettersAndDigitsOnly();
};

void tst_CPasswordLineEdit::masksOutsideOfEditing()
{
    CPasswordLineEdit edit;
    QCOMPARE(edit.echoMode(), QLineEdit::PasswordEchoOnEdit);
    edit.setText(QStringLiteral("old"));
    QVERIFY(!edit.displayText().contains(QLatin1Char('o')));
    QTest::keyClicks(&edit, QStringLiteral("New1"));
    QCOMPARE(edit.text(), QStringLiteral("New1")); // the first key replaces a masked text
    QCOMPARE(edit.displayText(), QStringLiteral("New1"));
    QFocusEvent leaving(QEvent::FocusOut, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&edit, &leaving);
    QCOMPARE(edit.displayText().size(), 4);
    QVERIFY(!edit.displayText().contains(QLatin1Char('N')));
    QCOMPARE(edit.text(), QStringLiteral("New1"));
}

void tst_CPasswordLineEdit::noInputMethods()
{
    CPasswordLineEdit edit;
    QVERIFY(!edit.testAttribute(Qt::WA_InputMethodEnabled));
    QTest::keyClicks(&edit, QStringLiteral("a"));
    for (const auto reason : {Qt::TabFocusReason, Qt::MouseFocusReason, Qt::ActiveWindowFocusReason}) {
        edit.setAttribute(Qt::WA_InputMethodEnabled);
        QFocusEvent leaving(QEvent::FocusOut, reason);
        QCoreApplication::sendEvent(&edit, &leaving);
        QVERIFY(!edit.testAttribute(Qt::WA_InputMethodEnabled));
    }
}

void tst_CPasswordLineEdit::masksWhatNobodyTyped()
{
    CPasswordLineEdit edit;
    QTest::keyClicks(&edit, QStringLiteral("New1"));
    edit.setPassword(QStringLiteral("New1"));
    QTest::keyClicks(&edit, QStringLiteral("2"));
    QCOMPARE(edit.displayText(), QStringLiteral("New12")); // the user goes on
    edit.setPassword(QStringLiteral("Secret"));
    QCOMPARE(edit.text(), QStringLiteral("Secret"));
    QCOMPARE(edit.displayText().size(), 6);
    QVERIFY(!edit.displayText().contains(QLatin1Char('S')));
    QCOMPARE(edit.echoMode(), QLineEdit::PasswordEchoOnEdit);
    QVERIFY(!edit.testAttribute(Qt::WA_InputMethodEnabled));
    QTest::keyClicks(&edit, QStringLiteral("a"));
    QCOMPARE(edit.displayText(), QStringLiteral("a"));
}

void tst_CPasswordLineEdit::takesLettersAndDigitsOnly()
{
    CPasswordLineEdit edit;
    const auto* const validator = qobject_cast<const QRegularExpressionValidator*>(edit.validator());
    QVERIFY(validator);
    QCOMPARE(validator->regularExpression().pattern(), QStringLiteral("^[A-Za-z0-9]*"));
    QTest::keyClicks(&edit, QStringLiteral("aZ 0-9_.!$/@"));
    edit.insert(QString::fromUtf8("é"));
    edit.insert(QString::fromUtf8("密"));
    QCOMPARE(edit.text(), QStringLiteral("aZ09"));
}

SETTINGAREA_TEST_MAIN(tst_CPasswordLineEdit, QApplication)

#include "tst_CPasswordLineEdit.moc"
