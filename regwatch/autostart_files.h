// The watched places that are files: the Startup folders, whose every file
// Windows opens at log-on, and the scheduled tasks' definitions. Each file
// becomes an entry with the command it starts as its value.
#pragma once

#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/shortcuts.h"

namespace tv {

struct FileEntry {
    std::string name;   // the file's name; a task's path below its folder
    std::string value;  // the command it starts
};

// A program and its arguments as one command line: the program in double
// quotes when it holds a blank and is not quoted yet, then a blank and the
// arguments when there are any.
std::string commandLineText(const std::string& program, const std::string& arguments);

// Every file of a Startup folder (ending in a backslash), in the listing's
// order, sub-folders left out, as Windows starts only the folder's own
// files. A shortcut's value is its target and arguments; any other file, a
// shortcut that cannot be read or one to something that is no file starts
// itself.
std::vector<FileEntry> startupFolderEntries(Files& files, Shortcuts& shortcuts, const std::string& folder);

// Every task defined in `tasksFolder` and its sub-folders (named by their
// path below it, "Microsoft\Windows\Defrag\ScheduledDefrag"), then every
// .job file of `jobsFolder`, by its file name. The value is what each runs,
// its actions joined by " & "; empty for a file that cannot be read or
// defines no action.
std::vector<FileEntry> scheduledTaskEntries(Files& files, const std::string& tasksFolder,
                                            const std::string& jobsFolder);

}  // namespace tv
