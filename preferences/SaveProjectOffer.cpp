#include "preferences/SaveProjectOffer.h"

#include "dialogs/OperationDialogs.h"
#include "plugin/interface/ISettingInterfaceHandler.h"

#include <widgetry/CMessageBox.h>

#include <QCoreApplication>

namespace {

QString text(const char* source)
{
    return QCoreApplication::translate("CPreferencesSettings", source);
}

SaveProjectOffer saveProject(QWidget* parent, ISettingInterfaceHandler& handler)
{
    QString path; // empty: where the project is
    if (!handler.hasProjectPath()) {
        const QString suffix = QStringLiteral("prj");
        path = chooseTarget(parent, text(QT_TRANSLATE_NOOP("CPreferencesSettings", "Save project")),
                            handler.projectName() + QLatin1Char('.') + suffix, QStringLiteral("*.prj"), suffix);
        if (path.isEmpty())
            return SaveProjectOffer::NotSaved;
    }
    handler.saveProject(path);
    return SaveProjectOffer::GoOn;
}

} // namespace

SaveProjectOffer offerToSaveProject(QWidget* parent, ISettingInterfaceHandler& handler)
{
    if (!handler.isProjectModified())
        return SaveProjectOffer::GoOn;
    const QString question =
        text(QT_TRANSLATE_NOOP("CPreferencesSettings", "The project has not been saved, want to save it?"));
    switch (CMessageBox::question(parent, question, QStringLiteral("Orvel"),
                                  CMessageBox::Yes | CMessageBox::No | CMessageBox::Cancel, CMessageBox::Yes)) {
    case CMessageBox::YesResult:
        return saveProject(parent, handler);
    case CMessageBox::NoResult:
        return SaveProjectOffer::GoOn;
    default:
        return SaveProjectOffer::Cancelled;
    }
}
