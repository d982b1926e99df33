#include "multircv/CMultiRcvCabinetSetDlg.h"
#include "tests/support/ModalScript.h"
#include "tests/support/TestObject.h"
#include "tests/typelibrary/LibraryPage.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTimer>

#include <functional>

namespace {

// Uses the wizard that opens while it lives.
class WhenWizard
{
public:
    explicit WhenWizard(const std::function<void(CMultiRcvCabinetSetDlg*)>& use)
    {
        m_timer.setSingleShot(true);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [use] {
            auto* const wizard = qobject_cast<CMultiRcvCabinetSetDlg*>(QApplication::activeModalWidget());
            if (!wizard)
                qFatal("The wizard is not open");
            use(wizard);
        });
        m_timer.start();
    }

private:
    QTimer m_timer;
};

// Saves a type from the parameter file "Card" at the library's root.
void makeType(CMultiRcvCabinetSetDlg* wizard)
{
    const QList<QAction*> entries = wizard->findChild<QPushButton*>(QStringLiteral("ParameterFile"))->menu()->actions();
    for (QAction* entry : entries) {
        if (entry->text() == QStringLiteral("Card"))
            entry->trigger();
    }
    wizard->button(CDialog::Next)->click();
    wizard->button(CDialog::Next)->click();
    wizard->findChild<QLineEdit*>(QStringLiteral("MultiRcvCabinet"))->setText(QStringLiteral("Cab"));
    wizard->button(CDialog::Next)->click();
}

} // namespace

class tst_TypeLibraryWizard : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensAndCloses();
    void seesTheLibraryAsItIsNow();
    void newTypeGoesIntoTheRoot();
    void newTypeGoesIntoTheCurrentGroup();
    void newTypeGoesBesideTheCurrentType();
    void cancelledWizardLeavesTheGroupShut();
    void pageDestroyedMeanwhile();
    void editsATypeInItsGroup();
};

void tst_TypeLibraryWizard::opensAndCloses()
{
    const LibraryPage shown;
    const WhenWizard answer([](CMultiRcvCabinetSetDlg* wizard) {
        QVERIFY(wizard->isModal());
        wizard->reject();
    });
    QTest::mouseClick(shown.button("MultiRcvCabinet"), Qt::LeftButton);
    QCOMPARE(shown.page->findChild<CMultiRcvCabinetSetDlg*>(), nullptr);
}

void tst_TypeLibraryWizard::seesTheLibraryAsItIsNow()
{
    const LibraryPage shown;
    shown.library.add(QStringLiteral("Late.rcvp"), "late");
    QStringList entries;
    const WhenWizard answer([&entries](CMultiRcvCabinetSetDlg* wizard) {
        const QList<QAction*> actions =
            wizard->findChild<QPushButton*>(QStringLiteral("ParameterFile"))->menu()->actions();
        for (const QAction* action : actions)
            entries.append(action->text());
        wizard->reject();
    });
    shown.button("MultiRcvCabinet")->click();
    QVERIFY(entries.contains(QStringLiteral("Late")));
}

void tst_TypeLibraryWizard::newTypeGoesIntoTheRoot()
{
    const LibraryPage shown;
    const WhenWizard answer(makeType);
    shown.button("MultiRcvCabinet")->click();
    QVERIFY(shown.library.files().contains(QStringLiteral("Cab.rcvbp=multi card")));
}

void tst_TypeLibraryWizard::newTypeGoesIntoTheCurrentGroup()
{
    const LibraryPage shown;
    QTRY_VERIFY(shown.find(QStringLiteral("G")).isValid());
    shown.view()->setCurrentIndex(shown.find(QStringLiteral("G")).siblingAtColumn(1)); // whichever column is current
    const WhenWizard answer(makeType);
    shown.button("MultiRcvCabinet")->click();
    QVERIFY(shown.library.files().contains(QStringLiteral("G/Cab.rcvbp=multi card")));
    QVERIFY(shown.view()->isExpanded(shown.find(QStringLiteral("G"))));
}

void tst_TypeLibraryWizard::newTypeGoesBesideTheCurrentType()
{
    const LibraryPage shown;
    QTRY_VERIFY(shown.findInGroup(QStringLiteral("Other")).isValid());
    shown.view()->setCurrentIndex(shown.findInGroup(QStringLiteral("Other")));
    const WhenWizard answer(makeType);
    shown.button("MultiRcvCabinet")->click();
    QVERIFY(shown.library.files().contains(QStringLiteral("G/Cab.rcvbp=multi card")));
}

void tst_TypeLibraryWizard::cancelledWizardLeavesTheGroupShut()
{
    const LibraryPage shown;
    QTRY_VERIFY(shown.find(QStringLiteral("G")).isValid());
    shown.view()->setCurrentIndex(shown.find(QStringLiteral("G")));
    const WhenWizard answer([](CMultiRcvCabinetSetDlg* wizard) { wizard->reject(); });
    shown.button("MultiRcvCabinet")->click();
    QVERIFY(!shown.view()->isExpanded(shown.find(QStringLiteral("G"))));
}

void tst_TypeLibraryWizard::pageDestroyedMeanwhile()
{
    LibraryPage shown;
    const WhenWizard answer([&shown](CMultiRcvCabinetSetDlg* /*wizard*/) { shown.page.reset(); });
    QTest::mouseClick(shown.button("MultiRcvCabinet"), Qt::LeftButton);
    QCOMPARE(shown.page.get(), nullptr);
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
}

void tst_TypeLibraryWizard::editsATypeInItsGroup()
{
    LibraryPage shown;
    SHwRcvInCabinetInfo record;
    record.columns = 2;
    record.rows = 1;
    record.wiringOrder = {0, 1};
    shown.library.addMulti(QStringLiteral("G/Cab.rcvbp"), shown.library.path(QStringLiteral("Card.rcvp")), record);
    QTRY_VERIFY(shown.findInGroup(QStringLiteral("Cab")).isValid());
    shown.view()->setCurrentIndex(shown.findInGroup(QStringLiteral("Cab")));
    QString name;
    ModalScript script;
    script.use([&name](QWidget* dialog) {
        const auto* const wizard = qobject_cast<CMultiRcvCabinetSetDlg*>(dialog);
        QVERIFY(wizard);
        wizard->button(CDialog::Next)->click();
        wizard->button(CDialog::Next)->click();
        auto* const edit = wizard->findChild<QLineEdit*>(QStringLiteral("MultiRcvCabinet"));
        name = edit->text();
        edit->setText(QStringLiteral("Cabinet"));
        wizard->button(CDialog::Next)->click();
    });
    script.press(CDialog::Yes);
    shown.view()->editMultiRcvType();
    QCOMPARE(name, QStringLiteral("Cab"));
    QCOMPARE(shown.library.files(),
             QStringList({QStringLiteral("Card.rcvp=card"), QStringLiteral("G/Cabinet.rcvbp=multi card"),
                          QStringLiteral("G/Other.rcvp=other")}));
}

SETTINGAREA_TEST_MAIN(tst_TypeLibraryWizard, QApplication)

#include "tst_TypeLibraryWizard.moc"
