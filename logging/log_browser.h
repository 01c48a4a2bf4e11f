// The reports in Data\Log\ as the user browses them: on the Options page a
// tree of dates with the times of their reports, on repF one report with its
// files, which can be handed to the scanners again (when their definitions are
// newer, that is what a report is for) or deleted. The tree holds nothing but
// what the folder said at the last Load Logs.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>

#include "core/app_context.h"

namespace tv::ui {
class Control;
class LogBrowserPage;
class ReportPage;
}  // namespace tv::ui

namespace tv {

class LogBrowser {
public:
    // `setFq` is the Options page, which the tree lies on; `resetPages` hides
    // every page of the main window (norms2).
    LogBrowser(AppContext& ctx, ui::LogBrowserPage& page, ui::ReportPage& report, ui::Control& setFq,
               std::function<void()> resetPages);

    // cReports: the tree again from the folder, in the folder's own order.
    void loadLogs();
    // View Log is offered on a node without "-" (a time), never after a node
    // was opened or closed.
    void nodeClicked();
    void nodeExpanded();
    // cViewReport, and a double click on a time: the selected report on repF.
    void openReport();
    void treeDoubleClick();
    // cScnLog: the report's files, not its heading, to both scanners in batches.
    void scanReport();
    // cDelLog: the report of the node still selected in the tree.
    void deleteReport();
    // cButton3: every report of the folder.
    void deleteAllLogs();
    // The keys that move through the tree leave it to the tree; any other
    // key on a selected node loads it again, and Delete first deletes the
    // node's reports, on the user's word.
    void treeKeyDown(int keyCode);
    // cX: back to the Options page.
    void closeReport();

private:
    std::string logFolder() const;
    // The file of a time node; nullopt for a node without a date above it.
    std::optional<std::string> reportPath(std::size_t node) const;
    void deleteDate(std::size_t date);

    AppContext& ctx_;
    ui::LogBrowserPage& page_;
    ui::ReportPage& report_;
    ui::Control& setFq_;
    std::function<void()> resetPages_;
    // The " (2)" of each time node whose report shares its second with
    // another, by the node's index: their date and time texts are the same.
    std::unordered_map<std::size_t, std::string> sameSecondMarks_;
};

}  // namespace tv
