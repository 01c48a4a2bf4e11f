// What becomes of a scan's new and failed files ("Scan Failing Files...",
// Label12 of the scan window): every listed file goes to the user's scanners in
// batches and into a report, and then its checksum from the scan becomes its
// baseline, in the system data file or in its custom folder's. The first scan
// of a custom folder goes straight to the update.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/app_context.h"
#include "custom/custom_slots.h"
#include "integrity/scan_host.h"

namespace tv::ui {
class ScanWindow;
}

namespace tv {

class ScanDriver;

class FindingsAction {
public:
    FindingsAction(AppContext& ctx, ui::ScanWindow& window, ScanHost& host, ScanDriver& driver);

    void label12Click();
    // Accepts every listed file into its baseline with the checksum the scan took.
    void updateDatFile();
    // Writes the entries gathered for one custom folder into its data file.
    void specialSave(int slot);

private:
    enum class Handed { AllBatches, FirstBatchOnly, ScannerFailed };
    Handed handToScanners(bool noScanner, std::vector<std::string>& all);
    void scannerFailed();
    void endUnwatchedRun();

    AppContext& ctx_;
    ui::ScanWindow& window_;
    ScanHost& host_;
    ScanDriver& driver_;
    // passFolderList: per slot, "<path>(<slot>) <value>," for each file to save.
    std::array<std::string, kSlotCount + 1> passFolderList_;
};

}  // namespace tv
