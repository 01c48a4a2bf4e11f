// The user's command-line anti-virus programs, started with the files to look
// at on their command line: "<exe> <args> <files>", the exe exactly as stored,
// never through a command interpreter and never waited for.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "core/app_context.h"

namespace tv {

inline constexpr const char* kChooseScannerFirst = "You must choose a virus scanner before you proceed!";

// The files of one scanner run, each in its item form (`"C:\A.DLL" `).
using FileItems = std::vector<std::string>;

// The longest command line the system starts: 32,767 characters with the
// NUL that ends it.
inline constexpr std::size_t kLongestCommandLine = 32766;

// The command lines that hand `items` to a program: `head` (its program, a
// blank, its arguments and a blank) followed by as many whole items as fit
// within the system's limit, in as many lines as that takes. No items give
// one line of the head alone; an item that fits no line goes alone in one,
// which the system then refuses.
std::vector<std::string> commandLinesFor(const std::string& head, const FileItems& items);

// The short (8.3) form of a path; empty text when the system has none for it,
// as for a file that does not exist.
std::string toShortPath(const AppContext& ctx, const std::string& path);

// One file of a batch: quoteChar + name + quoteChar + a blank, the name
// shortened first when shortPaths is set. With `keepWhole` a name that holds
// a blank is put in double quotes even when quoteChar is empty, so that it
// reaches the scanner as one file. Names end at a NUL, which no file name
// holds and no command line can carry (the same for every item below).
std::string batchItem(const AppContext& ctx, const std::string& name, bool keepWhole = false);

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

// Starts one program with the items, in as many runs as the command line's
// limit asks for; false at the first run that could not be started.
bool runScannerWith(AppContext& ctx, const std::string& exe, const std::string& args, const FileItems& items);

// Hands one list to each scanner in turn, whether or not the other started
// (the one-run callers pass failures over). A scanner whose exe is blank is
// not started: the command line would otherwise begin with the first file.
void startEachScanner(AppContext& ctx, const ScannerPair& scanners, const FileItems& items);

// Hands one batch to the first scanner and then to the second. False at the
// first scanner that could not be started. A first scanner without an exe
// cannot be started: its command line would begin with the first file.
bool startScanners(AppContext& ctx, const ScannerPair& scanners, const FileItems& batch);

// The batching walk over a list from index `first` to `last`: every turn counts,
// also for an empty entry; a non-empty entry joins the batch as a batchItem
// (whole with its blanks when `keepWhole` says so); when the index reaches
// `last` or the turns reach passCount the batch goes to `flush` (empty or not),
// which says whether the walk goes on.
void walkInBatches(const AppContext& ctx, std::size_t first, std::size_t last,
                   const std::function<std::string(std::size_t)>& entryAt,
                   const std::function<bool(const FileItems&)>& flush, bool keepWhole = false);

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
