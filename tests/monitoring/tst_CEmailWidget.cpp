#include "monitoring/CSendMailArrow.h"
#include "tests/monitoring/EmailGroup.h"
#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"

#include <QApplication>
#include <QIntValidator>
#include <QLayout>
#include <QRegularExpressionValidator>

#include <limits>

namespace {

// The left edge, top edge and so on of controls, in the group.
QRect place(const EmailGroup& shown, const QWidget* widget)
{
    return {widget->mapTo(shown.group, QPoint()), widget->size()};
}

} // namespace

class tst_CEmailWidget : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void asConstructed();
    void controls();
    void charactersOfTheEdits_data();
    void charactersOfTheEdits();
    void charactersOfThePort();
    void noInputMethods();
    void showsTheRecord();
    void pushedPasswordIsMasked();
    void givesTheRecordBack();
    void readsTheEditsAsTheyStand();
    void alertCountIsClamped_data();
    void alertCountIsClamped();
    void sslEnablesThePortOnClicksOnly();
    void arrangement();
    void accessibleNames();
    void tabOrder();
    void longTexts();
    void followsTheLanguage();
};

void tst_CEmailWidget::asConstructed()
{
    const EmailGroup shown;
    QCOMPARE(shown.group->title(), QStringLiteral("Email settings"));
    QCOMPARE(shown.port()->text(), QStringLiteral("465"));
    QVERIFY(shown.ssl()->isChecked());
    QVERIFY(shown.port()->isEnabled());
    QVERIFY(!shown.box("Email notification")->isChecked());
    QVERIFY(!shown.box("Recovery notice")->isChecked());
    QCOMPARE(shown.count()->value(), 1);
    QVERIFY(!shown.test()->isEnabled());
    QCOMPARE(shown.table()->rowCount(), 0);
    QCOMPARE(warningOf(shown.sender()) + warningOf(shown.port()), QString());
}

void tst_CEmailWidget::controls()
{
    const EmailGroup shown;
    QCOMPARE(shown.count()->minimum(), 1);
    QCOMPARE(shown.count()->maximum(), 10);
    QCOMPARE(shown.count()->singleStep(), 1);
    QCOMPARE(shown.count()->size(), QSize(56, 24));
    QCOMPARE(shown.test()->size(), QSize(128, 24));
    QCOMPARE(shown.group->findChild<CSendMailArrow*>()->size(), QSize(65, 50));
    QStringList seen;
    const auto labels = shown.group->findChildren<QLabel*>();
    for (const QLabel* label : labels)
        seen.append(label->text());
    for (const char* text : {"Send mail if", "alerts have been continuously detected", "Sender email settings",
                             "Target mailboxes", "Email address", "Email password", "SMTP server", "Port"})
        QVERIFY2(seen.contains(QLatin1String(text)), text);
}

void tst_CEmailWidget::charactersOfTheEdits_data()
{
    QTest::addColumn<QString>("edit");
    QTest::newRow("sender") << QStringLiteral("Email address");
    QTest::newRow("server") << QStringLiteral("SMTP server");
}

void tst_CEmailWidget::charactersOfTheEdits()
{
    QFETCH(QString, edit);
    const EmailGroup shown;
    auto* const field = named<QLineEdit>(*shown.group, edit.toLatin1().constData());
    const auto* const validator = qobject_cast<const QRegularExpressionValidator*>(field->validator());
    QVERIFY(validator);
    QCOMPARE(validator->regularExpression().pattern(), QStringLiteral("^[A-Za-z0-9`~!@#$%^&*()_\\-+=<>,.\\\\/]*"));
    const QString allowed = QStringLiteral("AZaz09`~!@#$%^&*()_-+=<>,.\\/");
    type(field, allowed);
    QCOMPARE(field->text(), allowed);
    type(field, QStringLiteral("a \"';:|[]{}?b"));
    QCOMPARE(field->text(), QStringLiteral("ab"));
    field->insert(QString::fromUtf8("中"));
    QCOMPARE(field->text(), QStringLiteral("ab"));
}

void tst_CEmailWidget::charactersOfThePort()
{
    const EmailGroup shown;
    const auto* const validator = qobject_cast<const QIntValidator*>(shown.port()->validator());
    QVERIFY(validator);
    QCOMPARE(validator->bottom(), 1);
    QCOMPARE(validator->top(), 9999999);
    type(shown.port(), QStringLiteral("a-4 6.5x"));
    QCOMPARE(shown.port()->text(), QStringLiteral("465"));
    type(shown.port(), QStringLiteral("99999999"));
    QCOMPARE(shown.port()->text(), QStringLiteral("9999999"));
}

void tst_CEmailWidget::noInputMethods()
{
    const EmailGroup shown;
    shown.port()->setEnabled(false);
    shown.port()->setEnabled(true);
    for (QLineEdit* const edit : {static_cast<QLineEdit*>(shown.sender()), static_cast<QLineEdit*>(shown.password()),
                                  shown.server(), static_cast<QLineEdit*>(shown.port())}) {
        leave(edit);
        QVERIFY2(!edit->testAttribute(Qt::WA_InputMethodEnabled), qPrintable(edit->accessibleName()));
    }
}

void tst_CEmailWidget::showsTheRecord()
{
    SEmailSettings settings = validSettings();
    settings.bEmailNotification = true;
    settings.bRecoveryNotice = false;
    settings.nAlertCount = 7;
    settings.bSsl = false;
    settings.nPort = 587;
    const EmailGroup shown(settings);
    QVERIFY(shown.box("Email notification")->isChecked());
    QVERIFY(!shown.box("Recovery notice")->isChecked());
    QCOMPARE(shown.count()->value(), 7);
    QVERIFY(!shown.ssl()->isChecked());
    QCOMPARE(shown.port()->text(), QStringLiteral("587"));
    QCOMPARE(shown.sender()->text(), QStringLiteral("wall@site.com"));
    QCOMPARE(shown.password()->text(), QStringLiteral("Secret42"));
    QCOMPARE(shown.server()->text(), QStringLiteral("smtp.site.com"));
    QCOMPARE(rows(shown.table()), texts(settings.lstRecipients));
    QVERIFY(shown.test()->isEnabled());

    shown.group->setSettings(SEmailSettings());
    QVERIFY(!shown.box("Email notification")->isChecked());
    QVERIFY(shown.box("Recovery notice")->isChecked());
    QCOMPARE(shown.count()->value(), 3);
    QVERIFY(shown.ssl()->isChecked());
    QCOMPARE(shown.port()->text(), QStringLiteral("465"));
    QCOMPARE(shown.sender()->text() + shown.password()->text() + shown.server()->text(), QString());
    QCOMPARE(shown.table()->rowCount(), 0);
    QVERIFY(!shown.test()->isEnabled());
}

void tst_CEmailWidget::pushedPasswordIsMasked()
{
    const EmailGroup shown;
    type(shown.password(), QStringLiteral("Typed1"));
    shown.group->setSettings(validSettings());
    QCOMPARE(shown.password()->text(), QStringLiteral("Secret42"));
    QVERIFY(!shown.password()->displayText().contains(QLatin1Char('S')));
}

void tst_CEmailWidget::givesTheRecordBack()
{
    const EmailGroup shown(validSettings());
    shown.box("Email notification")->click();
    shown.box("Recovery notice")->click();
    shown.ssl()->click();
    shown.count()->setValue(9);
    shown.port()->setText(QStringLiteral("25"));
    shown.sender()->setText(QStringLiteral("s@t.uv"));
    type(shown.password(), QStringLiteral("New1"));
    shown.server()->setText(QStringLiteral("10.0.0.1"));
    const SEmailSettings given = shown.group->settings();
    QCOMPARE(given.bEmailNotification, true);
    QCOMPARE(given.bRecoveryNotice, false);
    QCOMPARE(given.bSsl, false);
    QCOMPARE(given.nAlertCount, 9);
    QCOMPARE(given.nPort, 25);
    QCOMPARE(given.strSenderAddress, QStringLiteral("s@t.uv"));
    QCOMPARE(given.strPassword, QStringLiteral("New1"));
    QCOMPARE(given.strSmtpServer, QStringLiteral("10.0.0.1"));
    QCOMPARE(texts(given.lstRecipients), texts(validSettings().lstRecipients));
}

void tst_CEmailWidget::readsTheEditsAsTheyStand()
{
    const EmailGroup shown(validSettings());
    type(shown.sender(), QStringLiteral("not-an-address"));
    leave(shown.sender());
    QCOMPARE(shown.group->settings().strSenderAddress, QStringLiteral("not-an-address"));
    const QPair<const char*, int> ports[] = {{"0465", 465}, {"0", 0}, {"", 0}, {"+", 0}, {"9999999", 9999999}};
    for (const auto& [text, number] : ports) {
        type(shown.port(), QLatin1String(text));
        leave(shown.port());
        QCOMPARE(shown.group->settings().nPort, number);
    }
}

void tst_CEmailWidget::alertCountIsClamped_data()
{
    QTest::addColumn<int>("pushed");
    QTest::addColumn<int>("shown");
    QTest::newRow("0") << 0 << 1;
    QTest::newRow("1") << 1 << 1;
    QTest::newRow("10") << 10 << 10;
    QTest::newRow("11") << 11 << 10;
    QTest::newRow("least") << std::numeric_limits<int>::min() << 1;
    QTest::newRow("greatest") << std::numeric_limits<int>::max() << 10;
}

void tst_CEmailWidget::alertCountIsClamped()
{
    QFETCH(int, pushed);
    QFETCH(int, shown);
    SEmailSettings settings;
    settings.nAlertCount = pushed;
    const EmailGroup group(settings);
    QCOMPARE(group.count()->value(), shown);
    QCOMPARE(group.group->settings().nAlertCount, shown);
}

void tst_CEmailWidget::sslEnablesThePortOnClicksOnly()
{
    const EmailGroup shown(validSettings());
    shown.ssl()->click();
    QVERIFY(!shown.port()->isEnabled());
    shown.ssl()->click();
    QVERIFY(shown.port()->isEnabled());

    SEmailSettings settings = validSettings();
    settings.bSsl = false;
    shown.group->setSettings(settings);
    QVERIFY(!shown.ssl()->isChecked());
    QVERIFY(shown.port()->isEnabled()); // as it was
    shown.ssl()->click();
    QVERIFY(shown.port()->isEnabled());
    shown.ssl()->click();
    QVERIFY(!shown.port()->isEnabled());
    settings.bSsl = true;
    shown.group->setSettings(settings);
    QVERIFY(shown.ssl()->isChecked());
    QVERIFY(!shown.port()->isEnabled()); // as it was
}

void tst_CEmailWidget::arrangement()
{
    const EmailGroup shown(validSettings());
    shown.group->resize(1000, 500);
    QCoreApplication::processEvents();
    const QWidgetList column{shown.box("Email notification"),
                             withText<QLabel>(*shown.group, "Send mail if"),
                             shown.box("Recovery notice"),
                             withText<QLabel>(*shown.group, "Sender email settings"),
                             withText<QLabel>(*shown.group, "Email address"),
                             withText<QLabel>(*shown.group, "Email password"),
                             withText<QLabel>(*shown.group, "SMTP server"),
                             shown.ssl(),
                             shown.test()};
    const int left = place(shown, column.first()).left();
    for (int i = 0; i < column.size(); ++i) {
        if (i > 0)
            QVERIFY(place(shown, column.at(i)).top() > place(shown, column.at(i - 1)).center().y());
        QCOMPARE(place(shown, column.at(i)).left(), left + (column.at(i) == shown.ssl() ? 65 : 0));
    }
    QCOMPARE(left - place(shown, shown.group->findChild<QLabel*>(QStringLiteral("GroupTitle"))).left(), 16);

    const QRect sendIf = place(shown, withText<QLabel>(*shown.group, "Send mail if"));
    const QRect detected = place(shown, withText<QLabel>(*shown.group, "alerts have been continuously detected"));
    const QRect count = place(shown, shown.count());
    QCOMPARE(count.left() - sendIf.right() - 1, 8);
    QCOMPARE(detected.left() - count.right() - 1, 8);

    // Margins of 4 above and below.
    shown.group->resize(1000, shown.group->sizeHint().height());
    QCoreApplication::processEvents();
    const QLayout* const layout = shown.group->layout();
    const auto* const title = shown.group->findChild<QLabel*>(QStringLiteral("GroupTitle"));
    QCOMPARE(place(shown, column.first()).top() - place(shown, title).bottom() - 1, layout->spacing() + 4);
    QCOMPARE(shown.group->rect().bottom() - place(shown, shown.test()).bottom(),
             layout->contentsMargins().bottom() + 4);

    // From the sender by the arrow to the targets.
    const QRect arrow = place(shown, shown.group->findChild<CSendMailArrow*>());
    QVERIFY(place(shown, shown.port()).right() < arrow.left());
    QVERIFY(place(shown, shown.sender()).right() < arrow.left());
    QVERIFY(arrow.right() < place(shown, shown.table()).left());
    const QRect targets = place(shown, shown.table()->parentWidget());
    const double above = arrow.top() - targets.top();
    const double below = targets.bottom() - arrow.bottom();
    QVERIFY2(std::abs(above / below - 1.5) < 0.2, qPrintable(QString::number(above / below))); // 3 to 2
    QCOMPARE(place(shown, shown.port()).center().y(), place(shown, shown.ssl()).center().y());
}

void tst_CEmailWidget::accessibleNames()
{
    const EmailGroup shown(validSettings());
    QCOMPARE(shown.count()->accessibleName(),
             QString::fromUtf8("Send mail if … alerts have been continuously detected"));
    const auto edits = shown.group->findChildren<QLineEdit*>();
    for (const QLineEdit* edit : edits)
        QVERIFY(!edit->accessibleName().isEmpty() || qobject_cast<QAbstractSpinBox*>(edit->parent()));
    const QPair<const char*, QWidget*> buddies[] = {{"Email address", shown.sender()},
                                                    {"Email password", shown.password()},
                                                    {"SMTP server", shown.server()},
                                                    {"Port", shown.port()}};
    for (const auto& [text, edit] : buddies)
        QCOMPARE(withText<QLabel>(*shown.group, text)->buddy(), edit);
}

void tst_CEmailWidget::tabOrder()
{
    const EmailGroup shown(validSettings());
    QList<QWidget*> order;
    for (QWidget* next = shown.group->nextInFocusChain(); next != shown.group; next = next->nextInFocusChain()) {
        if ((next->focusPolicy() & Qt::TabFocus) && !next->focusProxy() && next->isVisible())
            order.append(next);
    }
    order.removeAll(shown.count()->findChild<QLineEdit*>());
    QCOMPARE(order, QList<QWidget*>({shown.box("Email notification"), shown.count(), shown.box("Recovery notice"),
                                     shown.sender(), shown.password(), shown.server(), shown.ssl(), shown.port(),
                                     shown.add(), shown.test()}));
}

void tst_CEmailWidget::longTexts()
{
    SEmailSettings settings;
    settings.strSenderAddress = QString(1000000, QLatin1Char('a'));
    settings.strPassword = settings.strSenderAddress;
    settings.strSmtpServer = QStringLiteral("<b>\r\n") + settings.strSenderAddress;
    settings.lstRecipients = {{settings.strSenderAddress, settings.strSmtpServer}};
    const EmailGroup shown(settings);
    shown.group->grab();
    const SEmailSettings given = shown.group->settings();
    QCOMPARE(given.strSenderAddress, QString(32767, QLatin1Char('a')));
    QCOMPARE(given.strPassword.size(), 32767);
    QCOMPARE(given.strSmtpServer.size(), 32767);
    QCOMPARE(texts(given.lstRecipients), texts(settings.lstRecipients));
    QCOMPARE(warningOf(shown.sender()), QLatin1String(wrongSender));
}

void tst_CEmailWidget::followsTheLanguage()
{
    const EmailGroup shown;
    leave(shown.port());
    type(shown.sender(), QStringLiteral("x"));
    leave(shown.sender());
    CWarningTipLineEdit* const sender = shown.sender();
    const UpperCase language;
    QStringList seen;
    const auto labels = shown.group->findChildren<QLabel*>();
    for (const QLabel* label : labels)
        seen.append(label->text());
    const auto buttons = shown.group->findChildren<QAbstractButton*>();
    for (const QAbstractButton* button : buttons)
        seen.append(button->text());
    for (const char* text : {"SEND MAIL IF", "ALERTS HAVE BEEN CONTINUOUSLY DETECTED", "SENDER EMAIL SETTINGS",
                             "TARGET MAILBOXES", "EMAIL ADDRESS", "EMAIL PASSWORD", "SMTP SERVER", "PORT",
                             "EMAIL NOTIFICATION", "RECOVERY NOTICE", "SSL ENCRYPTION", "ADD EMAIL", "SEND TEST EMAIL"})
        QVERIFY2(seen.contains(QLatin1String(text)), text);
    QCOMPARE(sender->tipText(), QString::fromLatin1(wrongSender).toUpper());
    QVERIFY(sender->isWarningShown());
    QCOMPARE(sender->accessibleName(), QStringLiteral("EMAIL ADDRESS"));
    QCOMPARE(shown.count()->accessibleName(), shown.count()->accessibleName().toUpper());
    QCOMPARE(shown.table()->horizontalHeaderItem(0)->text(), QStringLiteral("NAME"));
}

SETTINGAREA_TEST_MAIN(tst_CEmailWidget, QApplication)

#include "tst_CEmailWidget.moc"
