#include "multircv/CMultiRcvCabinetSetDlg.h"
#include "tests/multircv/WizardLibrary.h"
#include "tests/support/TestObject.h"
#include "tests/support/UpperCase.h"
#include "typelibrary/CProductTreeView.h"
#include "typelibrary/CTypeLibrarySetting.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

#include <functional>
#include <memory>

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

class tst_CTypeLibrarySetting : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void wizardButton();
    void wizardSeesTheLibraryAsItIsNow();
    void newTypeGoesIntoTheRoot();
    void newTypeGoesIntoTheCurrentGroup();
    void newTypeGoesBesideTheCurrentType();
    void cancelledWizardLeavesTheGroupShut();
    void buttonFollowsTheEditableSwitch();
    void followsTheLanguage();

private:
    QToolButton* button() const { return m_pPage->findChild<QToolButton*>(QStringLiteral("MultiRcvCabinet")); }
    QModelIndex find(const QString& name, const QModelIndex& parent = {}) const
    {
        const auto* const view = m_pPage->findChild<CProductTreeView*>();
        const QModelIndex root = parent.isValid() ? parent : view->rootIndex();
        const QAbstractItemModel* const model = view->model();
        for (int row = 0; row < model->rowCount(root); ++row) {
            const QModelIndex index = model->index(row, 0, root);
            if (index.data().toString().section(QLatin1Char('.'), 0, 0) == name)
                return index;
        }
        return {};
    }

    std::unique_ptr<WizardLibrary> m_pLibrary;
    std::unique_ptr<CTypeLibrarySetting> m_pPage;
};

void tst_CTypeLibrarySetting::init()
{
    TestObject::init();
    m_pLibrary = std::make_unique<WizardLibrary>();
    m_pLibrary->add(QStringLiteral("Card.rcvp"), "card");
    m_pLibrary->add(QStringLiteral("G/Other.rcvp"), "other");
    m_pLibrary->rescan();
    m_pPage = std::make_unique<CTypeLibrarySetting>();
    m_pPage->setData(m_pLibrary->root());
    m_pPage->show();
}

void tst_CTypeLibrarySetting::cleanup()
{
    m_pPage.reset();
    m_pLibrary.reset();
    TestObject::cleanup();
}

void tst_CTypeLibrarySetting::wizardButton()
{
    QCOMPARE(button()->toolTip(), QStringLiteral("Create multi-receiver cabinet type"));
    QCOMPARE(button()->accessibleName(), button()->toolTip());
    QVERIFY(button()->focusPolicy() & Qt::TabFocus);
    const QIcon icon = button()->icon();
    QVERIFY(!icon.pixmap(16).isNull());
    QVERIFY(icon.pixmap(16, QIcon::Active).toImage() != icon.pixmap(16, QIcon::Normal).toImage());
    const WhenWizard answer([](CMultiRcvCabinetSetDlg* wizard) {
        QVERIFY(wizard->isModal());
        wizard->reject();
    });
    QTest::mouseClick(button(), Qt::LeftButton);
    QCOMPARE(m_pPage->findChild<CMultiRcvCabinetSetDlg*>(), nullptr);
}

void tst_CTypeLibrarySetting::wizardSeesTheLibraryAsItIsNow()
{
    m_pLibrary->add(QStringLiteral("Late.rcvp"), "late");
    QStringList entries;
    const WhenWizard answer([&entries](CMultiRcvCabinetSetDlg* wizard) {
        const QList<QAction*> actions =
            wizard->findChild<QPushButton*>(QStringLiteral("ParameterFile"))->menu()->actions();
        for (const QAction* action : actions)
            entries.append(action->text());
        wizard->reject();
    });
    button()->click();
    QVERIFY(entries.contains(QStringLiteral("Late")));
}

void tst_CTypeLibrarySetting::newTypeGoesIntoTheRoot()
{
    const WhenWizard answer(makeType);
    button()->click();
    QVERIFY(m_pLibrary->files().contains(QStringLiteral("Cab.rcvbp=multi card")));
}

void tst_CTypeLibrarySetting::newTypeGoesIntoTheCurrentGroup()
{
    auto* const view = m_pPage->findChild<CProductTreeView*>();
    QTRY_VERIFY(find(QStringLiteral("G")).isValid());
    view->setCurrentIndex(find(QStringLiteral("G")).siblingAtColumn(1)); // whichever column is current
    const WhenWizard answer(makeType);
    button()->click();
    QVERIFY(m_pLibrary->files().contains(QStringLiteral("G/Cab.rcvbp=multi card")));
    QVERIFY(view->isExpanded(find(QStringLiteral("G"))));
}

void tst_CTypeLibrarySetting::newTypeGoesBesideTheCurrentType()
{
    auto* const view = m_pPage->findChild<CProductTreeView*>();
    QTRY_VERIFY(find(QStringLiteral("G")).isValid());
    view->expand(find(QStringLiteral("G")));
    QTRY_VERIFY(find(QStringLiteral("Other"), find(QStringLiteral("G"))).isValid());
    view->setCurrentIndex(find(QStringLiteral("Other"), find(QStringLiteral("G"))));
    const WhenWizard answer(makeType);
    button()->click();
    QVERIFY(m_pLibrary->files().contains(QStringLiteral("G/Cab.rcvbp=multi card")));
}

void tst_CTypeLibrarySetting::cancelledWizardLeavesTheGroupShut()
{
    auto* const view = m_pPage->findChild<CProductTreeView*>();
    QTRY_VERIFY(find(QStringLiteral("G")).isValid());
    view->setCurrentIndex(find(QStringLiteral("G")));
    const WhenWizard answer([](CMultiRcvCabinetSetDlg* wizard) { wizard->reject(); });
    button()->click();
    QVERIFY(!view->isExpanded(find(QStringLiteral("G"))));
}

void tst_CTypeLibrarySetting::buttonFollowsTheEditableSwitch()
{
    m_pPage->setEditable(false);
    QVERIFY(!button()->isEnabled());
    m_pPage->setEditable(true);
    QVERIFY(button()->isEnabled());
}

void tst_CTypeLibrarySetting::followsTheLanguage()
{
    const UpperCase upper;
    QCOMPARE(button()->toolTip(), QStringLiteral("CREATE MULTI-RECEIVER CABINET TYPE"));
    QCOMPARE(button()->accessibleName(), QStringLiteral("CREATE MULTI-RECEIVER CABINET TYPE"));
}

SETTINGAREA_TEST_MAIN(tst_CTypeLibrarySetting, QApplication)

#include "tst_CTypeLibrarySetting.moc"
