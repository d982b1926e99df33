#include "host/CStatusBar.h"

#include "host/CProgressDisplay.h"

#include <widgetry/CToolTip.h>

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QLabel>

CStatusBar::CStatusBar(QWidget* parent)
    : QStatusBar(parent),
      m_pState(addLabel("StatusState")),
      m_pProgress(new CProgressDisplay(this)),
      m_pFolder(addLabel("StatusFolder")),
      m_pPlugin(addLabel("StatusPlugin"))
{
    setSizeGripEnabled(false);
    addWidget(m_pState);
    addWidget(m_pProgress);
    addPermanentWidget(m_pFolder);
    addPermanentWidget(m_pPlugin);
    setTexts();
}

QLabel* CStatusBar::addLabel(const char* name)
{
    auto* const label = new QLabel(this);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

void CStatusBar::setPlugin(const QString& path)
{
    m_plugin = path;
    setTexts();
}

void CStatusBar::setLibraryFolder(const QString& folder)
{
    m_folder = folder;
    m_bFound = QDir(folder).exists();
    setTexts();
}

void CStatusBar::setScanning(bool scanning)
{
    m_bScanning = scanning;
    setTexts();
}

void CStatusBar::setTypeCount(int types)
{
    m_nTypes = types;
    setTexts();
}

void CStatusBar::setTexts()
{
    m_pState->setText(m_bScanning ? tr("Scanning the type library...") : tr("Types: %1").arg(m_nTypes));

    m_pFolder->setText(tr("Type library: %1").arg(folderText()));
    m_pFolder->setToolTip(CToolTip::fromPlainText(QDir::toNativeSeparators(m_folder)));

    m_pPlugin->setText(tr("Plug-in: %1").arg(QFileInfo(m_plugin).fileName()));
    m_pPlugin->setToolTip(CToolTip::fromPlainText(QDir::toNativeSeparators(m_plugin)));
}

// An empty tree does not tell whether the library is empty or on a disk that is not connected.
QString CStatusBar::folderText() const
{
    if (m_folder.isEmpty())
        return tr("none");
    const QString name = QDir(m_folder).dirName();
    return m_bFound ? name : tr("%1 (not found)").arg(name);
}

void CStatusBar::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    QStatusBar::changeEvent(event);
}
