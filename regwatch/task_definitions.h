// What a scheduled task runs, read from its definition: the XML files of the
// Task Scheduler below System32\Tasks, and the binary .job files of the older
// one in the Windows folder's Tasks. Both hold their texts in UTF-16; the
// caller spells them in the code page.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tv {

struct TaskCommand {
    std::u16string program;    // a COM handler's action: its class id
    std::u16string arguments;
};

// A text file's characters as UTF-16, told by its byte order mark: UTF-16
// (either byte order) or UTF-8; without a mark, UTF-16 when its second byte
// is zero, else UTF-8. A byte that is no UTF-8 stands for itself.
std::u16string textFileUnits(std::string_view bytes);

// The actions of a task definition, in their order: each Exec's Command and
// Arguments, each ComHandler's ClassId. Comments and processing instructions
// are passed over; entities and character references are decoded; blanks and
// line breaks around a text are dropped. Nothing for a text that is no task.
std::vector<TaskCommand> taskXmlCommands(std::u16string_view xml);

// The program and parameters of a .job file; nothing when the file is too
// short or its strings run past its end.
std::optional<TaskCommand> jobFileCommand(std::string_view bytes);

}  // namespace tv
