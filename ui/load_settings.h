// Applies the settings file to the main window's settings controls, the scanner
// form's fields and the settings values of the run.
#pragma once

#include "core/app_context.h"

namespace tv::ui {

class AdvancedPage;
class MainWindow;
class ScannerChoiceForm;

// Goes through the settings in a fixed order and stops at the first value it
// cannot apply (an unreadable file, a position that is no number): what was
// applied before stays applied, the rest keeps its former state. Lists with fewer
// positions leave the remaining controls as they are. False when it stopped early.
bool loadSettings(AppContext& ctx, MainWindow& main, ScannerChoiceForm& scanners);

// The quotes around files and their short names, from the advanced page's two boxes.
void applyScannerOptions(AppContext& ctx, const AdvancedPage& page);

}  // namespace tv::ui
