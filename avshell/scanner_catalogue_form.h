// aVirHelp, the "Anti-Virus Shell Help": the known scanners with the file of
// each that takes a command line, found on disk, tested and handed to the
// scanner selection or the wizard. Its tag says for which scanner it works:
// empty for the first, any other text for the second.
#pragma once

#include <string>

#include "platform/form.h"

namespace tv::ui {

class ScannerCatalogueForm : public Form {
public:
    ScannerCatalogueForm();

    std::string tag;

    Control& Label1;
    Control& List1;     // the catalogue
    Control& Command4;  // Search for this Selection...
    Control& Text2;     // the path found
    Control& Label4;    // where a search is looking
    Control& Label2;
    Control& Command2;  // Test It!
    Control& Label3;
    Control& Command3;  // Use It!
    Control& Command1;  // My Anti-Virus Program Isn't Listed!
};

}  // namespace tv::ui
