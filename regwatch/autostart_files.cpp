#include "regwatch/autostart_files.h"

#include <set>

#include "core/text.h"
#include "regwatch/task_definitions.h"

namespace tv {
namespace {

constexpr const char* kActionSeparator = " & ";

// A folder's names but "." and "..", listed whole before the caller lists
// any other folder: the listing has one cursor for the whole process.
std::vector<std::string> namesIn(Files& files, const std::string& folder) {
    std::vector<std::string> names;
    for (std::string name = files.firstName(folder); !name.empty(); name = files.nextName())
        if (name != "." && name != "..") names.push_back(std::move(name));
    return names;
}

std::string commandsText(const Files& files, const std::vector<TaskCommand>& commands) {
    std::string text;
    for (const TaskCommand& command : commands) {
        if (!text.empty()) text += kActionSeparator;
        text += commandLineText(files.codePageText(command.program), files.codePageText(command.arguments));
    }
    return text;
}

// A folder that leads back to one above it (a junction planted among the
// tasks) is walked once: it is known by what it is on its volume, or, where
// the system cannot tell, the walk stops at a depth no real task reaches.
constexpr int kDeepestTaskFolder = 32;

struct TaskWalk {
    Files& files;
    std::vector<FileEntry>& entries;
    std::set<std::string> walked;
};

void addTasks(TaskWalk& walk, const std::string& folder, const std::string& prefix, int depth) {
    const std::string identity = walk.files.folderIdentity(folder);
    if (depth > kDeepestTaskFolder || (!identity.empty() && !walk.walked.insert(identity).second)) return;
    Files& files = walk.files;
    std::vector<FileEntry>& entries = walk.entries;
    for (const std::string& name : namesIn(files, folder)) {
        const std::string path = folder + name;
        if (files.isFolder(path)) {
            addTasks(walk, path + "\\", prefix + name + "\\", depth + 1);
            continue;
        }
        const auto bytes = files.readAll(path);
        entries.push_back({prefix + name, bytes ? commandsText(files, taskXmlCommands(textFileUnits(*bytes))) : ""});
    }
}

}  // namespace

std::string commandLineText(const std::string& program, const std::string& arguments) {
    const bool quote = program.find(' ') != std::string::npos && leftText(program, 1) != "\"";
    std::string text = quote ? "\"" + program + "\"" : program;
    if (!arguments.empty()) text += " " + arguments;
    return text;
}

std::vector<FileEntry> startupFolderEntries(Files& files, Shortcuts& shortcuts, const std::string& folder) {
    std::vector<FileEntry> entries;
    for (const std::string& name : namesIn(files, folder)) {
        const std::string path = folder + name;
        if (files.isFolder(path)) continue;
        const auto link = sameText(rightText(name, 4), ".lnk") ? shortcuts.readShellLink(path) : std::nullopt;
        const bool toFile = link && !link->path.empty();
        entries.push_back({name, toFile ? commandLineText(link->path, link->arguments) : commandLineText(path, "")});
    }
    return entries;
}

std::vector<FileEntry> scheduledTaskEntries(Files& files, const std::string& tasksFolder,
                                            const std::string& jobsFolder) {
    std::vector<FileEntry> entries;
    TaskWalk walk{files, entries, {}};
    addTasks(walk, tasksFolder, "", 0);
    for (const std::string& name : namesIn(files, jobsFolder)) {
        if (!sameText(rightText(name, 4), ".job") || files.isFolder(jobsFolder + name)) continue;
        const auto bytes = files.readAll(jobsFolder + name);
        const auto command = bytes ? jobFileCommand(*bytes) : std::nullopt;
        entries.push_back({name, command ? commandsText(files, {*command}) : ""});
    }
    return entries;
}

}  // namespace tv
