#include "monitoring/EditingFinished.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QFocusEvent>
#include <QIntValidator>
#include <QLineEdit>

namespace {

// An edit for numbers from 10 to 99, and how often it has said that editing has finished.
struct Edit
{
    Edit()
    {
        edit.setValidator(new QIntValidator(10, 99, &edit));
        onEditingFinished(&edit, [this] { ++finished; });
    }

    void leave(Qt::FocusReason reason)
    {
        QFocusEvent event(QEvent::FocusOut, reason);
        QCoreApplication::sendEvent(&edit, &event);
    }

    QLineEdit edit;
    int finished = 0;
};

} // namespace

class tst_EditingFinished : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void whateverTheText_data();
    void whateverTheText();
    void notWhileTyping();
    void notBehindAMenu();
};

void tst_EditingFinished::whateverTheText_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("acceptable") << QStringLiteral("42");
    QTest::newRow("too small") << QStringLiteral("4");
    QTest::newRow("empty") << QString();
    QTest::newRow("invalid") << QStringLiteral("-x");
}

void tst_EditingFinished::whateverTheText()
{
    QFETCH(QString, text);
    for (const auto reason : {Qt::TabFocusReason, Qt::MouseFocusReason, Qt::ActiveWindowFocusReason}) {
        Edit edit;
        edit.edit.setText(text);
        edit.leave(reason);
        QCOMPARE(edit.finished, 1);
    }
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        Edit edit;
        edit.edit.setText(text);
        QTest::keyClick(&edit.edit, key);
        QCOMPARE(edit.finished, 1);
        QCOMPARE(edit.edit.text(), text);
    }
}

void tst_EditingFinished::notWhileTyping()
{
    Edit edit;
    QTest::keyClicks(&edit.edit, QStringLiteral("4"));
    QTest::keyClick(&edit.edit, Qt::Key_Home);
    QTest::keyClick(&edit.edit, Qt::Key_Delete);
    QCOMPARE(edit.finished, 0);
}

void tst_EditingFinished::notBehindAMenu()
{
    Edit edit;
    edit.edit.setText(QStringLiteral("4"));
    edit.leave(Qt::PopupFocusReason);
    QCOMPARE(edit.finished, 0);
}

SETTINGAREA_TEST_MAIN(tst_EditingFinished, QApplication)

#include "tst_EditingFinished.moc"
