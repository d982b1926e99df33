#include "dialogs/OperationDialogs.h"

#include <widgetry/CMessageBox.h>

#include <QFileDialog>
#include <QPointer>

namespace {

const QLatin1String boxTitle("Orvel");

// Runs the dialog and deletes it; what was chosen, nothing if it was cancelled or destroyed with its parent.
QStringList chosenIn(const QPointer<QFileDialog>& dialog)
{
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return {};
    const QStringList chosen = accepted ? dialog->selectedFiles() : QStringList();
    delete dialog;
    return chosen;
}

} // namespace

void inform(QWidget* parent, const QString& text)
{
    CMessageBox::information(parent, text, boxTitle, CMessageBox::Ok, CMessageBox::Ok);
}

bool ask(QWidget* parent, const QString& text)
{
    return CMessageBox::question(parent, text, boxTitle, CDialog::Buttons(CMessageBox::Yes | CMessageBox::No),
                                 CMessageBox::Yes) == CMessageBox::YesResult;
}

QString chooseFolder(QWidget* parent, const QString& title, const QString& start)
{
    auto* const dialog = new QFileDialog(parent, title, start);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    return chosenIn(dialog).value(0);
}

QString chooseFile(QWidget* parent, const QString& title, const QString& start, const QString& filter)
{
    auto* const dialog = new QFileDialog(parent, title, start, filter);
    dialog->setFileMode(QFileDialog::ExistingFile);
    return chosenIn(dialog).value(0);
}

QStringList chooseFiles(QWidget* parent, const QString& title, const QString& start, const QString& filter)
{
    auto* const dialog = new QFileDialog(parent, title, start, filter);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    return chosenIn(dialog);
}

QString chooseTarget(QWidget* parent, const QString& title, const QString& proposal, const QString& filter,
                     const QString& suffix)
{
    auto* const dialog = new QFileDialog(parent, title, QFileInfo(proposal).path(), filter);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setDefaultSuffix(suffix); // so that the warning is about the file that will be written
    dialog->selectFile(QFileInfo(proposal).fileName());
    const QString target = chosenIn(dialog).value(0);
    if (target.isEmpty() || !QFileInfo(target).suffix().isEmpty())
        return target;
    // Qt adds none where a folder in the path has a dot, and so has not warned of this file.
    const QString complete = target + QLatin1Char('.') + suffix;
    return QFileInfo::exists(complete) ? chooseTarget(parent, title, complete, filter, suffix) : complete;
}
