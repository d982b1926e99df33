#pragma once

class ISettingInterfaceHandler;
class QWidget;

// How the user answered the offer to save the open project before something is changed.
enum class SaveProjectOffer
{
    GoOn,      // there was nothing to save, it is saved, or need not be
    NotSaved,  // it was to be saved, but no file was chosen
    Cancelled, // the change is not wanted
};

// Offers to save the host's project where it has changes. The parent may be destroyed meanwhile, which counts as
// Cancelled or NotSaved. [GUI thread]
SaveProjectOffer offerToSaveProject(QWidget* parent, ISettingInterfaceHandler& handler);
