#include "multircv/CMultiRcvCabinetSetFirstPage.h"

#include "dialogs/OperationDialogs.h"
#include "multircv/CParameterFileMenu.h"
#include "multircv/ParameterFileChoice.h"
#include "typelibrary/store/CTypeLibrary.h"

#include <widgetry/CComboBox.h>
#include <widgetry/CCustomGroupBox.h>
#include <widgetry/CMenuPushButton.h>

#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>

namespace {

constexpr int fieldWidth = 313; // pixels

// Columns x rows of the configurations on offer.
constexpr QSize gridSizes[] = {{2, 1}, {1, 2}, {2, 2}, {3, 1}, {1, 3}, {4, 1}, {1, 4}};

} // namespace

CMultiRcvCabinetSetFirstPage::CMultiRcvCabinetSetFirstPage(const QString& libraryFolder,
                                                           const SHwRcvInCabinetInfo& record, QWidget* parent)
    : QWidget(parent),
      m_libraryFolder(libraryFolder)
{
    auto tree = CTypeLibrary::instance().nodes();
    m_parameterFile = parameterFileWithDigest(tree, record.md5);
    m_pMenu = new CParameterFileMenu(std::move(tree), this);
    createWidgets();
    layoutWidgets();
    selectGridSize(QSize(record.columns, record.rows));
    // After the button, which has its text from the action by then.
    connect(m_pMenu, &QMenu::triggered, this, &CMultiRcvCabinetSetFirstPage::onTriggered);
    // When the menu is done: the host may destroy the page, and with it the menu, behind the file dialog.
    connect(m_pMenu->browseAction(), &QAction::triggered, this, &CMultiRcvCabinetSetFirstPage::browse,
            Qt::QueuedConnection);
    setTexts();
}

QSize CMultiRcvCabinetSetFirstPage::gridSize() const
{
    return m_pCount->currentData().toSize();
}

void CMultiRcvCabinetSetFirstPage::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    QWidget::changeEvent(event);
}

void CMultiRcvCabinetSetFirstPage::createWidgets()
{
    m_pFile = new CMenuPushButton(this);
    m_pFile->setObjectName(QStringLiteral("ParameterFile"));
    m_pFile->setStyleSheet(QStringLiteral("QPushButton{text-align: left;}"));
    m_pFile->setFixedWidth(fieldWidth);
    m_pFile->setAutoDefault(false); // Return goes on to the next step; Space and Down open the menu
    m_pFile->setActionSync(true);
    m_pFile->setMenu(m_pMenu);

    m_pGroup = new CCustomGroupBox({}, this);
    m_pCountLabel = new QLabel(this);
    m_pCount = new CComboBox(this);
    m_pCount->setObjectName(QStringLiteral("ReceiverCount"));
    m_pCount->setFixedWidth(fieldWidth);
    m_pCountLabel->setBuddy(m_pCount);
    for (const QSize& size : gridSizes)
        m_pCount->addItem(QString(), size);
}

void CMultiRcvCabinetSetFirstPage::layoutWidgets()
{
    auto* const count = new QHBoxLayout;
    count->setContentsMargins(12, 4, 12, 12);
    count->addWidget(m_pCountLabel);
    count->addWidget(m_pCount);
    count->addStretch();
    m_pGroup->addCustomLayout(count);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(16);
    layout->addWidget(m_pFile, 0, Qt::AlignLeft);
    layout->addWidget(m_pGroup);
    layout->addStretch();
}

void CMultiRcvCabinetSetFirstPage::setTexts()
{
    m_pGroup->setTitle(tr("Cabinet configuration"));
    m_pCountLabel->setText(tr("Receiver count"));
    m_pCount->setAccessibleName(m_pCountLabel->text());
    for (int i = 0; i < m_pCount->count(); ++i) {
        const QSize size = m_pCount->itemData(i).toSize();
        m_pCount->setItemText(i, tr("%1 x %2").arg(size.width()).arg(size.height()));
    }
    m_pFile->setAccessibleName(tr("Parameter file"));
    showParameterFile();
}

void CMultiRcvCabinetSetFirstPage::selectGridSize(const QSize& size)
{
    const int index = m_pCount->findData(size);
    m_pCount->setCurrentIndex(index < 0 ? 0 : index);
}

void CMultiRcvCabinetSetFirstPage::onTriggered(QAction* action)
{
    if (action != m_pMenu->browseAction())
        m_parameterFile = CParameterFileMenu::pathOf(action);
    showParameterFile();
}

void CMultiRcvCabinetSetFirstPage::browse()
{
    const QString file = chooseFile(this, tr("Browse..."), QString(), tr("Parameter(*.rcvp *.rcvbp)"));
    if (file.isEmpty() || m_libraryFolder.isEmpty())
        return;

    const ParameterFileChoice choice(file, m_libraryFolder);
    switch (choice.kind()) {
    case ParameterFileChoice::Kind::Unfit:
        inform(this, tr("Non-single cabinet parameter file."));
        return;
    case ParameterFileChoice::Kind::SameContent:
        if (!ask(this, tr("The same parameter file already exists. Do you want to use this parameter file?")))
            return;
        break;
    case ParameterFileChoice::Kind::SameName:
        if (!ask(this, tr("The same file name already exists. Do you want to replace the old file with the new one?")))
            return;
        break;
    case ParameterFileChoice::Kind::New:
        break;
    }
    m_parameterFile = choice.take();
    showParameterFile();
}

void CMultiRcvCabinetSetFirstPage::showParameterFile()
{
    m_pFile->setDisplayText(m_parameterFile.isEmpty() ? tr("Please select cabinet type file")
                                                      : QFileInfo(m_parameterFile).completeBaseName());
    m_pFile->setAccessibleDescription(m_pFile->displayText());
}
