#pragma once

class QString;
class TourStage;

// Saves a picture of the window as "<folder>/<name of the picture>.png", with the dialogs and menus that are open lying
// over it. The folder exists. False, with the reason in the stage's error(), when it cannot be written. [GUI thread]
bool takePicture(TourStage& stage, const QString& folder);
