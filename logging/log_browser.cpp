#include "logging/log_browser.h"

#include "avshell/scanner_launch.h"
#include "core/file_utils.h"
#include "core/text.h"
#include "logging/log_browser_page.h"
#include "logging/log_names.h"
#include "logging/report_fields.h"

namespace tv {
namespace {

constexpr const char* kMissingReport = "Error - This report does not exist and could not be opened.";
constexpr const char* kScanned = "Anti-Virus program executed successfully!";

// A date's node is keyed by its text behind a "|", as the dates seen are
// kept; a time's node by its own index. Two reports of the same clock time on
// different dates (a daily scan at log-on) so both get their node, and no key
// of a time can be taken for a date's.
std::string dateKey(const std::string& date) { return "|" + date; }

// The " (2)" that a report of the same second as another carries between its
// time and ".log"; empty for any other name, which opens as it always did.
std::string sameSecondMark(const std::string& name) {
    const std::size_t close = name.find(')');
    if (close == std::string::npos || name.size() < close + 1 + 4) return {};
    const std::string mark = name.substr(close + 1, name.size() - 4 - close - 1);
    const bool counted = mark.size() > 3 && mark.compare(0, 2, " (") == 0 && mark.back() == ')' &&
                         mark.find_first_not_of("0123456789", 2) == mark.size() - 1;
    return counted ? mark : std::string();
}

// The keys with which every tree view moves through its nodes and opens and
// closes them: the tree itself acts on them, and a tree loaded anew would
// lose the place they move from.
bool movesInTree(int keyCode) {
    using namespace ui::key;
    for (const int moving : {Left, Up, Right, Down, Home, End, PageUp, PageDown, Add, Subtract, Multiply})
        if (keyCode == moving) return true;
    return false;
}

}  // namespace

LogBrowser::LogBrowser(AppContext& ctx, ui::LogBrowserPage& page, ui::ReportPage& report, ui::Control& setFq,
                       std::function<void()> resetPages)
    : ctx_(ctx), page_(page), report_(report), setFq_(setFq), resetPages_(std::move(resetPages)) {
    page_.cReports.onClick = [this] { loadLogs(); };
    page_.cViewReport.onClick = [this] { openReport(); };
    page_.cButton3.onClick = [this] { deleteAllLogs(); };
    page_.TreeView2.onNodeClick = [this] { nodeClicked(); };
    page_.TreeView2.onExpand = [this](std::size_t, bool) { nodeExpanded(); };
    page_.TreeView2.onDoubleClick = [this] { treeDoubleClick(); };
    page_.TreeView2.onKeyDown = [this](int keyCode) { treeKeyDown(keyCode); };
    report_.cScnLog.onClick = [this] { scanReport(); };
    report_.cDelLog.onClick = [this] { deleteReport(); };
    report_.cX.onClick = [this] { closeReport(); };
}

std::string LogBrowser::logFolder() const { return ctx_.appPath + "Data\\Log\\"; }

std::optional<std::string> LogBrowser::reportPath(std::size_t node) const {
    const auto& nodes = page_.TreeView2.nodes();
    if (node >= nodes.size() || nodes[node].parent == ui::kNoNode) return std::nullopt;
    std::string name = reportFileName(nodes[nodes[node].parent].text, nodes[node].text);
    if (const auto mark = sameSecondMarks_.find(node); mark != sameSecondMarks_.end())
        name.insert(name.size() - 4, mark->second);
    return logFolder() + name;
}

// Sub-folders named like reports are listed as reports. A name without "("
// has no date and is passed over.
void LogBrowser::loadLogs() {
    ui::Control& tree = page_.TreeView2;
    tree.clearNodes();
    sameSecondMarks_.clear();
    Files& files = ctx_.os.files;
    for (std::string name = files.firstName(logFolder()); !name.empty(); name = files.nextName()) {
        if (!looksLikeReport(name)) continue;
        ctx_.os.loop.pump();
        if (const auto stamp = reportStamp(name)) {
            const std::string key = dateKey(stamp->date);
            if (tree.nodeIndex(key) == ui::kNoNode) tree.addNode({}, key, stamp->date);
            const std::string mark = sameSecondMark(name);
            if (tree.addNode(key, std::to_string(tree.nodes().size()), stamp->time) && !mark.empty())
                sameSecondMarks_[tree.nodes().size() - 1] = mark;
        }
        ctx_.os.loop.pump();
    }
}

void LogBrowser::nodeClicked() {
    const ui::Control& tree = page_.TreeView2;
    const std::size_t node = tree.selectedNode();
    if (node == ui::kNoNode) return;
    page_.cViewReport.setEnabled(tree.nodes()[node].text.find('-') == std::string::npos);
}

void LogBrowser::nodeExpanded() { page_.cViewReport.setEnabled(false); }

// A missing report leaves the loading notice on the page; a report that
// cannot be read ends the action there as well.
void LogBrowser::openReport() {
    ui::Control& list = report_.List4;
    list.clearItems();
    const ui::Control& tree = page_.TreeView2;
    const std::size_t node = tree.selectedNode();
    if (node == ui::kNoNode || tree.nodes()[node].text.empty()) return;
    page_.Label26.setVisible(true);
    const auto path = reportPath(node);
    if (!path || !fileThere(ctx_, *path)) {
        ctx_.os.boxes.show(kMissingReport, kAppTitle, box::OkOnly);
        return;
    }
    const auto content = ctx_.os.files.readAll(*path);
    if (!content) return;
    std::vector<std::string> fields = reportEntries(*content);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        list.addItem(std::move(fields[i]));
        if (i + 1 < fields.size()) ctx_.os.loop.pump();
    }
    page_.Label26.setVisible(false);
    resetPages_();
    report_.repF.setVisible(true);
}

void LogBrowser::treeDoubleClick() {
    const ui::Control& tree = page_.TreeView2;
    const std::size_t node = tree.selectedNode();
    if (node == ui::kNoNode) return;
    const ui::TreeNode& chosen = tree.nodes()[node];
    if (chosen.parent != ui::kNoNode && !chosen.text.empty()) openReport();
}

// Entry 0 is the heading and never goes to a scanner. "Executed successfully"
// only says that the scanners were started; a report without files starts
// none and says so all the same.
void LogBrowser::scanReport() {
    const ui::Control& list = report_.List4;
    const ScannerPair scanners = scannersFromSettings(ctx_);
    bool started = true;
    // A report's file with blanks in its path goes to the scanner as one file.
    if (list.items().size() > 1)
        walkInBatches(
            ctx_, 1, list.items().size() - 1,
            [&list](std::size_t index) { return index < list.items().size() ? list.items()[index] : std::string(); },
            [&](const FileItems& batch) {
                started = batch.empty() || startScanners(ctx_, scanners, batch);
                return started;
            },
            true);
    ctx_.os.boxes.show(started ? kScanned : scannerFailureMessage(scanners.exe1), kAppTitle, box::OkOnly);
}

// Deleting fails quietly: the tree, loaded again, shows what is left.
void LogBrowser::deleteReport() {
    if (ctx_.os.boxes.show("Are you sure you want to delete this Report?", kAppTitle, box::YesNo) != box::Yes) return;
    if (const auto path = reportPath(page_.TreeView2.selectedNode())) ctx_.os.files.remove(*path);
    closeReport();
    loadLogs();
}

void LogBrowser::deleteAllLogs() {
    if (ctx_.os.boxes.show("Are you sure you want to delete all the logs?", kAppTitle, box::YesNo) != box::Yes)
        return;
    Files& files = ctx_.os.files;
    const std::string folder = logFolder();
    for (std::string name = files.firstName(folder); !name.empty(); name = files.nextName()) {
        if (!looksLikeReport(name)) continue;
        ctx_.os.loop.pump();
        files.remove(folder + name);
        ctx_.os.loop.pump();
    }
    page_.TreeView2.clearNodes();
}

// The tree may have been loaded again while the question was open: the node
// is looked at anew after the answer.
void LogBrowser::treeKeyDown(int keyCode) {
    if (movesInTree(keyCode)) return;
    const ui::Control& tree = page_.TreeView2;
    const std::size_t node = tree.selectedNode();
    if (node == ui::kNoNode || tree.nodes()[node].text.empty()) return;
    if (keyCode == ui::key::Delete) {
        const bool isDate = tree.nodes()[node].parent == ui::kNoNode;
        const std::string question =
            isDate ? "Delete All Logs on this (" + tree.nodes()[node].text + ") Date?" : "Delete Log Entry?";
        if (ctx_.os.boxes.show(question, kAppTitle, box::YesNo) != box::Yes) return;
        if (isDate)
            deleteDate(node);
        else if (const auto path = reportPath(node))
            ctx_.os.files.remove(*path);
    }
    loadLogs();
}

// The date's own times: where the folder lists the reports of two dates
// mixed, the nodes that follow a date are not all its own.
void LogBrowser::deleteDate(std::size_t date) {
    const auto& nodes = page_.TreeView2.nodes();
    if (date >= nodes.size()) return;
    for (std::size_t node = date + 1, left = nodes[date].children; node < nodes.size() && left > 0; ++node) {
        if (nodes[node].parent != date) continue;
        --left;
        if (const auto path = reportPath(node)) ctx_.os.files.remove(*path);
    }
}

void LogBrowser::closeReport() {
    resetPages_();
    setFq_.setVisible(true);
}

}  // namespace tv
