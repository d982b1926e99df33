#include "tests/platform/WidgetFixture.h"
#include "tests/support/TestObject.h"

#include <widgetry/CDialog.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <initializer_list>

namespace {

class RecordingDialog : public CDialog
{
public:
    RecordingDialog()
    {
        initialize();
        initialize();
    }

    QStringList steps;

protected:
    void createWidgets() override { steps.append(QStringLiteral("create")); }
    void layoutWidgets() override { steps.append(QStringLiteral("lay out")); }
    void connectSignals() override { steps.append(QStringLiteral("connect")); }
};

struct Role
{
    CDialog::Button button;
    const char* text;
    const char* objectName;
};
constexpr std::initializer_list<Role> roles = {
    {CDialog::Previous, "Previous", "PreviousButton"},
    {CDialog::Next, "Next", "NextButton"},
    {CDialog::Ok, "OK", "OkButton"},
    {CDialog::Cancel, "Cancel", "CancelButton"},
    {CDialog::Yes, "&Yes", "YesButton"},
    {CDialog::No, "&No", "NoButton"},
};

} // namespace

class tst_CDialog : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void stepsRunOnceAndInOrder();
    void titleAndContent();
    void buttons();
    void buttonsOfWizardKeepTheirOrder();
    void okAndCancelClose();
    void otherButtonsStayOpen();
    void returnPressesDefault();
    void nextIsDefaultWithoutOk();
    void returnPassesDisabledDefault();
    void escapeAndClosingReject();
    void fixedSize();
    void standardTextsFollowLanguage();
};

void tst_CDialog::stepsRunOnceAndInOrder()
{
    const RecordingDialog dialog;
    QCOMPARE(dialog.steps,
             QStringList({QStringLiteral("create"), QStringLiteral("lay out"), QStringLiteral("connect")}));
}

void tst_CDialog::titleAndContent()
{
    CDialog dialog;
    dialog.setTitle(QStringLiteral("Wizard"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Wizard"));
    QVERIFY(!(dialog.windowFlags() & Qt::WindowContextHelpButtonHint));

    auto* const edit = new QLineEdit;
    auto* const layout = new QVBoxLayout(dialog.contentWidget());
    layout->addWidget(edit);
    QPushButton* const ok = dialog.addButton(CDialog::Ok);
    dialog.show();
    QCOMPARE(edit->window(), &dialog);
    QVERIFY(edit->mapTo(&dialog, edit->rect().bottomLeft()).y() < ok->mapTo(&dialog, QPoint()).y());
    QCOMPARE(dialog.contentWidget()->objectName(), QStringLiteral("DialogContent"));
    QCOMPARE(ok->parentWidget()->objectName(), QStringLiteral("DialogButtons"));
}

void tst_CDialog::buttons()
{
    CDialog dialog;
    for (const Role& role : roles) {
        QCOMPARE(dialog.button(role.button), nullptr);
        QPushButton* const button = dialog.addButton(role.button);
        QCOMPARE(dialog.addButton(role.button), button);
        QCOMPARE(dialog.button(role.button), button);
        QCOMPARE(button->text(), QLatin1String(role.text));
        QCOMPARE(button->objectName(), QLatin1String(role.objectName));
        QCOMPARE(button->metaObject()->className(), "QPushButton"); // style sheets say .QPushButton
    }
    QCOMPARE(dialog.findChildren<QPushButton*>().size(), 6);
}

void tst_CDialog::buttonsOfWizardKeepTheirOrder()
{
    CDialog dialog;
    const QPushButton* const previous = dialog.addButton(CDialog::Previous);
    const QPushButton* const next = dialog.addButton(CDialog::Next);
    const QPushButton* const cancel = dialog.addButton(CDialog::Cancel);
    dialog.resize(520, 353);
    dialog.show();
    QVERIFY(previous->geometry().right() < next->x());
    QVERIFY(next->geometry().right() < cancel->x());
    QCOMPARE(cancel->geometry().right(), cancel->parentWidget()->rect().right());
}

void tst_CDialog::okAndCancelClose()
{
    for (const auto& [button, result] :
         {std::pair(CDialog::Ok, QDialog::Accepted), std::pair(CDialog::Cancel, QDialog::Rejected)}) {
        CDialog dialog;
        dialog.addButton(CDialog::Ok);
        dialog.addButton(CDialog::Cancel);
        whenModal([&dialog, pressed = button](QWidget* modal) {
            QCOMPARE(modal, &dialog);
            QTest::mouseClick(dialog.button(pressed), Qt::LeftButton);
        });
        QCOMPARE(dialog.exec(), static_cast<int>(result));
    }
}

void tst_CDialog::otherButtonsStayOpen()
{
    CDialog dialog;
    dialog.show();
    for (const CDialog::Button role : {CDialog::Previous, CDialog::Next, CDialog::Yes, CDialog::No}) {
        QTest::mouseClick(dialog.addButton(role), Qt::LeftButton);
        QVERIFY(dialog.isVisible());
    }
}

void tst_CDialog::returnPressesDefault()
{
    CDialog dialog;
    QLineEdit edit(dialog.contentWidget());
    dialog.addButton(CDialog::Next);
    dialog.addButton(CDialog::Ok);
    dialog.addButton(CDialog::Cancel);
    dialog.show();
    QVERIFY(dialog.button(CDialog::Ok)->isDefault());
    QTest::keyClick(&edit, Qt::Key_Return);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
}

void tst_CDialog::nextIsDefaultWithoutOk()
{
    CDialog dialog;
    QLineEdit edit(dialog.contentWidget());
    dialog.addButton(CDialog::Previous);
    QSignalSpy next(dialog.addButton(CDialog::Next), &QPushButton::clicked);
    dialog.addButton(CDialog::Cancel);
    dialog.show();
    QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(next.count(), 1);
    QVERIFY(dialog.isVisible());
}

void tst_CDialog::returnPassesDisabledDefault()
{
    CDialog dialog;
    QLineEdit edit(dialog.contentWidget());
    dialog.addButton(CDialog::Ok)->setEnabled(false);
    dialog.addButton(CDialog::Cancel);
    dialog.show();
    QTest::keyClick(&edit, Qt::Key_Return);
    QVERIFY(dialog.isVisible());
}

void tst_CDialog::escapeAndClosingReject()
{
    CDialog dialog;
    QLineEdit edit(dialog.contentWidget());
    dialog.addButton(CDialog::Ok);
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    dialog.show();
    QTest::keyClick(&edit, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(rejected.count(), 1);
    dialog.show();
    dialog.close();
    QCOMPARE(rejected.count(), 2);
}

void tst_CDialog::fixedSize()
{
    CDialog dialog;
    dialog.addButton(CDialog::Ok);
    dialog.setFixedSize(341, 154);
    dialog.show();
    dialog.resize(600, 600);
    QCOMPARE(dialog.size(), QSize(341, 154));
}

void tst_CDialog::standardTextsFollowLanguage()
{
    CDialog dialog;
    for (const Role& role : roles)
        dialog.addButton(role.button);
    dialog.button(CDialog::Next)->setText(QStringLiteral("Save"));
    dialog.show();
    {
        const OtherLanguage other;
        QCoreApplication::processEvents();
        for (const Role& role : roles) {
            const QPushButton* const button = dialog.button(role.button);
            const QString text = OtherLanguage::translated(QLatin1String(role.text));
            QCOMPARE(button->text(), role.button == CDialog::Next ? QStringLiteral("Save") : text);
            QTRY_VERIFY(button->width() > button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width());
        }
    }
    QCoreApplication::processEvents();
    QCOMPARE(dialog.button(CDialog::Previous)->text(), QStringLiteral("Previous"));
    QCOMPARE(dialog.button(CDialog::Next)->text(), QStringLiteral("Save"));

    // A button that reads as it did at first follows again.
    dialog.button(CDialog::Next)->setText(QStringLiteral("Next"));
    const OtherLanguage other;
    QCoreApplication::processEvents();
    QCOMPARE(dialog.button(CDialog::Next)->text(), OtherLanguage::translated(QStringLiteral("Next")));
}

SETTINGAREA_TEST_MAIN(tst_CDialog, QApplication)
#include "tst_CDialog.moc"
