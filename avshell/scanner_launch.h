// The user's command-line anti-virus programs, started with the files to look
// at on their command line: "<exe> <args> <files>", the exe exactly as stored,
// never through a command interpreter and never waited for.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "core/app_context.h"

namespace tv {

inline constexpr const char* kChooseScannerFirst = "You must choose a virus scanner before you proceed!";

// The short (8.3) form of a path; empty text when the system has none for it,
// as for a file that does not exist.
std::string toShortPath(const AppContext& ctx, const std::string& path);

// One file of a batch: quoteChar + name + quoteChar + a blank, the name
// shortened first when shortPaths is set.
std::string batchItem(const AppContext& ctx, const std::string& name);

// Starts one command line, its window normal with the focus when the main
// window's avfocus box is 1, else minimised with the focus. False when it
// could not be started.
bool runScanner(AppContext& ctx, const std::string& commandLine);

// The two scanners as a caller holds them; the second counts only when its
// exe, trimmed, is not empty.
struct ScannerPair {
    std::string exe1, args1, exe2, args2;
};

// The two scanners of the settings file (antivirus, av2), each "<exe>|<args>":
// the exe as it stands in front of the first "|", the arguments behind it
// trimmed. A setting without "|" (or a missing settings file) names no exe.
ScannerPair scannersFromSettings(const AppContext& ctx);

// Hands one list to each scanner in turn, whether or not the other started
// (the one-run callers pass failures over). A scanner whose exe is blank is
// not started: the command line would otherwise begin with the first file.
void startEachScanner(AppContext& ctx, const ScannerPair& scanners, const std::string& list);

// Hands one batch to the first scanner and then to the second. False at the
// first scanner that could not be started. A first scanner without an exe
// cannot be started: its command line would begin with the first file.
bool startScanners(AppContext& ctx, const ScannerPair& scanners, const std::string& batch);

// The batching walk over a list from index `first` to `last`: every turn counts,
// also for an empty entry; a non-empty entry joins the batch as a batchItem;
// when the index reaches `last` or the turns reach passCount the batch goes to
// `flush` (empty or not), which says whether the walk goes on.
void walkInBatches(const AppContext& ctx, std::size_t first, std::size_t last,
                   const std::function<std::string(std::size_t)>& entryAt,
                   const std::function<bool(const std::string&)>& flush);

// The item of a one-run list (scanning registry entries and boot operations):
// a blank, then the name without any double quote, shortened when shortPaths
// is set and quoted with quoteChar unless it came out empty.
std::string singleRunItem(const AppContext& ctx, const std::string& name);

// The one file of "Scan File for Viruses": quoted unless the name holds a
// double quote, in which case it goes in as it is, not shortened either.
std::string singleFileItem(const AppContext& ctx, const std::string& name);

// The scanner test's command line: the program field and the settings and
// integrity data files, without the scanner's arguments.
std::string scannerTestCommand(const AppContext& ctx, const std::string& exeField);

// What the user is told when a scanner could not be started: the message names
// the program path given (for a batch, the first scanner's, whichever failed).
std::string scannerFailureMessage(const std::string& exe);

// "Test It!": a scanner that has not been saved yet is started on the settings
// file and the integrity data file, after a notice; a program field without a
// file behind it stops the test with its message. True when the scanner was
// started; a start that fails is told with scannerFailureMessage.
bool runScannerTest(AppContext& ctx, const std::string& exeField);

}  // namespace tv
