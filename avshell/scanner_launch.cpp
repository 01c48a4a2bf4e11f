#include "avshell/scanner_launch.h"

#include "core/file_utils.h"
#include "core/settings_store.h"
#include "core/text.h"
#include "platform/controls.h"

namespace tv {
namespace {

constexpr std::size_t kShortPathBuffer = 1024;

// A file's name up to a NUL: what a value read from the registry may carry
// behind it is no part of the name, and would end the command line there.
std::string fileNameOf(const std::string& name) { return name.substr(0, name.find('\0')); }

constexpr const char* kTestNotice =
    "Tarvelon will now attempt to scan two files. If the Virus-Scanner you selected scans both files, then it is "
    "fully compatible with Tarvelon! If not, make sure you chose the correct EXE file in your anti-virus folder.";

}  // namespace

std::string toShortPath(const AppContext& ctx, const std::string& path) {
    const std::string buffer = ctx.os.shell.shortPathBuffer(path, kShortPathBuffer);
    // The call leaves the name, one zero character and the blanks behind it, so
    // the first blank stands two places behind the name's end.
    const std::size_t blank = inStr(1, buffer, " ");
    if (blank < 2) return {};
    return trimBlanks(leftText(buffer, blank - 2));
}

std::string batchItem(const AppContext& ctx, const std::string& name, bool keepWhole) {
    const std::string file = ctx.shortPaths ? toShortPath(ctx, fileNameOf(name)) : fileNameOf(name);
    const std::string quote = keepWhole && ctx.quoteChar.empty() && file.find(' ') != std::string::npos
                                  ? std::string("\"")
                                  : ctx.quoteChar;
    return quote + file + quote + " ";
}

std::vector<std::string> commandLinesFor(const std::string& head, const FileItems& items) {
    std::vector<std::string> lines{head};
    bool filesInLine = false;
    for (const std::string& item : items) {
        if (filesInLine && lines.back().size() + item.size() > kLongestCommandLine) {
            lines.push_back(head);
            filesInLine = false;
        }
        lines.back() += item;
        filesInLine = true;
    }
    return lines;
}

bool runScannerWith(AppContext& ctx, const std::string& exe, const std::string& args, const FileItems& items) {
    for (const std::string& line : commandLinesFor(exe + " " + args + " ", items))
        if (!runScanner(ctx, line)) return false;
    return true;
}

bool runScanner(AppContext& ctx, const std::string& commandLine) {
    const bool focus = ctx.scannerFocus && ctx.scannerFocus->value() == 1;
    return ctx.os.processes.start(commandLine, focus ? show::NormalFocus : show::MinimizedFocus);
}

ScannerPair scannersFromSettings(const AppContext& ctx) {
    ScannerPair scanners;
    const auto split = [&ctx](const char* request, std::string& exe, std::string& args) {
        const std::string value = getSetting(ctx, request).value_or("");
        const std::size_t bar = inStr(1, value, "|");
        if (bar > 0) exe = leftText(value, bar - 1);
        args = trimBlanks(midText(value, bar + 1));
    };
    split("ANTIVIRUS", scanners.exe1, scanners.args1);
    split("AV2", scanners.exe2, scanners.args2);
    return scanners;
}

void startEachScanner(AppContext& ctx, const ScannerPair& scanners, const FileItems& items) {
    if (!trimBlanks(scanners.exe1).empty()) runScannerWith(ctx, scanners.exe1, scanners.args1, items);
    if (!trimBlanks(scanners.exe2).empty()) runScannerWith(ctx, scanners.exe2, scanners.args2, items);
}

bool startScanners(AppContext& ctx, const ScannerPair& scanners, const FileItems& batch) {
    if (trimBlanks(scanners.exe1).empty()) return false;
    if (!runScannerWith(ctx, scanners.exe1, scanners.args1, batch)) return false;
    return trimBlanks(scanners.exe2).empty() || runScannerWith(ctx, scanners.exe2, scanners.args2, batch);
}

void walkInBatches(const AppContext& ctx, std::size_t first, std::size_t last,
                   const std::function<std::string(std::size_t)>& entryAt,
                   const std::function<bool(const FileItems&)>& flush, bool keepWhole) {
    FileItems batch;
    std::int32_t turns = 0;
    for (std::size_t index = first; index <= last; ++index) {
        ++turns;
        const std::string entry = entryAt(index);
        if (!entry.empty()) batch.push_back(batchItem(ctx, entry, keepWhole));
        if (index < last && turns < ctx.passCount) continue;
        if (!flush(batch)) return;
        batch.clear();
        turns = 0;
    }
}

std::string singleRunItem(const AppContext& ctx, const std::string& name) {
    std::string file = replaceText(fileNameOf(name), "\"", "");
    if (ctx.shortPaths) file = toShortPath(ctx, file);
    return file.empty() ? " " : " " + ctx.quoteChar + file + ctx.quoteChar;
}

std::string singleFileItem(const AppContext& ctx, const std::string& whole) {
    const std::string name = fileNameOf(whole);
    if (name.find('"') != std::string::npos) return name;
    const std::string file = ctx.shortPaths ? toShortPath(ctx, name) : name;
    return ctx.quoteChar + file + ctx.quoteChar;
}

std::string scannerTestCommand(const AppContext& ctx, const std::string& exeField) {
    const auto file = [&ctx](const std::string& path) {
        return ctx.quoteChar + (ctx.shortPaths ? toShortPath(ctx, path) : path) + ctx.quoteChar;
    };
    return exeField + " " + file(ctx.settFile) + " " + file(ctx.intFile);
}

std::string scannerFailureMessage(const std::string& exe) {
    return "Your Anti-Virus program could not be executed!!!\rPlease verify the path of the software:\r" + exe;
}

bool runScannerTest(AppContext& ctx, const std::string& exeField) {
    if (!fileThere(ctx, exeField)) {
        ctx.os.boxes.show(kChooseScannerFirst, kAppTitle, box::OkOnly);
        return false;
    }
    ctx.os.boxes.show(kTestNotice, kAppTitle, box::OkOnly);
    if (runScanner(ctx, scannerTestCommand(ctx, exeField))) return true;
    ctx.os.boxes.show(scannerFailureMessage(exeField), kAppTitle, box::OkOnly);
    return false;
}

}  // namespace tv
