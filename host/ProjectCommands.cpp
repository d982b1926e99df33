#include "host/ProjectCommands.h"

#include "host/CMainWindow.h"
#include "host/project/Project.h"

#include <widgetry/CMessageBox.h>

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace {

const QLatin1String suffix(".prj");

} // namespace

ProjectCommands::ProjectCommands(Project& project, CMainWindow& window)
    : m_project(project),
      m_window(window)
{
}

void ProjectCommands::create()
{
    if (mayClose())
        m_project.clear();
}

void ProjectCommands::open()
{
    if (!mayClose())
        return;
    const QString folder = QFileInfo(m_project.path()).path();
    const QString path = QFileDialog::getOpenFileName(&m_window, tr("Open project"), folder, tr("Projects (*.prj)"));
    if (path.isEmpty())
        return;
    QString error;
    if (!m_project.load(path, error))
        m_window.warn(tr("The project %1 was not opened: %2").arg(QDir::toNativeSeparators(path), error));
}

bool ProjectCommands::save()
{
    return m_project.path().isEmpty() ? saveAs() : saveTo(m_project.path());
}

bool ProjectCommands::saveAs()
{
    const QString path = chooseTarget(m_project.path().isEmpty() ? m_project.name() + suffix : m_project.path());
    return !path.isEmpty() && saveTo(path);
}

// The file that the user wants written, with a suffix; empty if none. The dialog itself asks about one that exists.
QString ProjectCommands::chooseTarget(const QString& proposal)
{
    QFileDialog dialog(&m_window, tr("Save project"), QFileInfo(proposal).path(), tr("Projects (*.prj)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(suffix); // so that it asks about the file that will be written
    dialog.selectFile(QFileInfo(proposal).fileName());
    if (dialog.exec() != QDialog::Accepted)
        return {};
    QString path = dialog.selectedFiles().constFirst();
    if (!QFileInfo(path).suffix().isEmpty())
        return path;
    // Qt adds none where a folder in the path has a dot, and so has not asked about this file.
    path += suffix;
    return QFileInfo::exists(path) ? chooseTarget(path) : path;
}

bool ProjectCommands::saveTo(const QString& path)
{
    QString error;
    const bool saved = m_project.save(path, error);
    if (!saved)
        m_window.warn(tr("The project %1 was not saved: %2").arg(QDir::toNativeSeparators(path), error));
    return saved;
}

bool ProjectCommands::mayClose()
{
    if (!m_project.isModified())
        return true;
    const int answer = CMessageBox::question(
        &m_window, tr("The project %1 has changes that are not saved. Save them?").arg(m_project.name()),
        QStringLiteral("Orvel"), CMessageBox::Yes | CMessageBox::No | CMessageBox::Cancel, CMessageBox::Yes);
    return answer == CMessageBox::YesResult ? save() : answer == CMessageBox::NoResult;
}
