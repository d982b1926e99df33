#include "typelibrary/CTypeLibrarySetting.h"

#include "dialogs/OperationDialogs.h"
#include "typelibrary/CProductTreeModel.h"
#include "typelibrary/CProductTreeView.h"
#include "typelibrary/ChangeOperations.h"
#include "typelibrary/store/CTypeLibrary.h"

#include <widgetry/CSeparator.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

enum Button
{
    NewTypeFolder,
    ImportFolder,
    ImportCabinet,
    MultiRcvCabinet,
    ClearAll,
    ButtonCount,
};

constexpr int buttonSpacing = 16; // pixels

struct ButtonLook
{
    const char* objectName;
    const char* icon; // begins the names of its files
    const char* shortcut;
};

constexpr ButtonLook looks[ButtonCount] = {
    {"NewTypeFolder", "new-type-folder", "Ctrl+N"},
    {"ImportFolder", "import-folder", "Ctrl+I"},
    {"ImportCabinet", "import-cabinet", "Ctrl+A"},
    {"MultiRcvCabinet", "multi-receiver", ""},
    {"ClearAll", "clear-all", ""},
};

} // namespace

CTypeLibrarySetting::CTypeLibrarySetting(QWidget* parent)
    : QWidget(parent)
{
    createButtons(); // first: the tab key follows the order of creation
    m_pView = new CProductTreeView(this);
    layOut();
    connect(m_pView, &CProductTreeView::notifyRowsChanged, this, &CTypeLibrarySetting::updateClearAll);
    setTexts();
    updateClearAll();
}

void CTypeLibrarySetting::createButtons()
{
    for (int number = 0; number < ButtonCount; ++number) {
        const ButtonLook& look = looks[number];
        const QString file = QStringLiteral(":/Image/SettingArea/TypeLibrary/%1_%2.svg").arg(QLatin1String(look.icon));
        QIcon icon(file.arg(QStringLiteral("normal")));
        icon.addFile(file.arg(QStringLiteral("hover")), {}, QIcon::Active);
        icon.addFile(file.arg(QStringLiteral("disabled")), {}, QIcon::Disabled);
        auto* const button = new QToolButton(this);
        button->setObjectName(QLatin1String(look.objectName));
        button->setIcon(icon);
        button->setAutoRaise(true);
        // Qt heeds the key in the active window, as long as the button is shown and enabled: not from another tab.
        button->setShortcut(QKeySequence::fromString(QLatin1String(look.shortcut)));
        connect(button, &QToolButton::clicked, this, [this, number] { runOperation(number); });
        m_buttons.insert(number, button);
    }
}

void CTypeLibrarySetting::layOut()
{
    auto* const row = new QWidget(this);
    row->setObjectName(QStringLiteral("BGTransparent"));
    auto* const rowLayout = new QHBoxLayout(row);
    rowLayout->setContentsMargins(0, 0, 0, 0);
    rowLayout->setSpacing(buttonSpacing);
    for (auto button = m_buttons.cbegin(); button != m_buttons.cend(); ++button) {
        if (button.key() == ClearAll) {
            auto* const separator = new CSeparator(0, QFrame::VLine, row);
            separator->setStyleSheet(QStringLiteral("background:rgba(57, 57, 64, 1);width: 1px;"));
            rowLayout->addWidget(separator);
        }
        rowLayout->addWidget(button.value());
    }
    rowLayout->addStretch();

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(row);
    layout->addWidget(m_pView, 1);
}

void CTypeLibrarySetting::setData(const QString& rootPath)
{
    m_pView->setRootPath(rootPath);
    updateClearAll();
}

void CTypeLibrarySetting::setEditable(bool editable)
{
    m_bDisabled = !editable;
    for (const int number : {NewTypeFolder, ImportFolder, ImportCabinet, MultiRcvCabinet})
        m_buttons[number]->setEnabled(editable);
    updateClearAll();
    m_pView->setEditable(editable);
}

void CTypeLibrarySetting::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    QWidget::changeEvent(event);
}

void CTypeLibrarySetting::setTexts()
{
    for (auto button = m_buttons.cbegin(); button != m_buttons.cend(); ++button) {
        button.value()->setToolTip(buttonText(button.key()));
        button.value()->setAccessibleName(buttonText(button.key()));
    }
}

QString CTypeLibrarySetting::buttonText(int button)
{
    switch (button) {
    case NewTypeFolder:
        return tr("New type folder(Ctrl+N)");
    case ImportFolder:
        return tr("Import as folder(Ctrl+I)");
    case ImportCabinet:
        return tr("Import cabinet type file(Suffix rcvp,rcvbp)(Ctrl+A)");
    case MultiRcvCabinet:
        return tr("Create multi-receiver cabinet type");
    case ClearAll:
        return tr("Delete all types");
    default:
        return {};
    }
}

void CTypeLibrarySetting::runOperation(int button)
{
    switch (button) {
    case NewTypeFolder:
        m_pView->newTypeFolder();
        break;
    case ImportFolder:
        CTypeLibrary::instance().updateLibrary(); // the searches for duplicates see the folder as it is now
        m_pView->importAsFolder();
        break;
    case ImportCabinet:
        CTypeLibrary::instance().updateLibrary();
        m_pView->importCabinetFiles();
        break;
    case MultiRcvCabinet:
        CTypeLibrary::instance().updateLibrary();
        createMultiRcvCabinet();
        break;
    case ClearAll:
        clearAll();
        break;
    default:
        break;
    }
}

// Runs the wizard; the new type goes into the folder that operations work in.
void CTypeLibrarySetting::createMultiRcvCabinet()
{
    const QPersistentModelIndex target = m_pView->targetDirectory();
    const QString folder =
        target.isValid() ? target.data(CProductTreeModel::PathRole).toString() : CTypeLibrary::instance().rootPath();

    if (runCabinetWizard(this, folder))
        m_pView->expand(target);
}

void CTypeLibrarySetting::clearAll()
{
    const QPersistentModelIndex library = m_pView->rootIndex();
    if (!ask(this, tr("Are you sure you want to delete all types?")))
        return;
    // The host may have given another library meanwhile, whose types nobody has asked about, or forbidden changes.
    if (m_pView->rootIndex() == library && !m_bDisabled)
        m_pView->clear();
}

void CTypeLibrarySetting::updateClearAll()
{
    m_buttons[ClearAll]->setEnabled(!m_bDisabled && m_pView->hasRows());
}
