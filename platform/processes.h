// The program's own process, and other programs started from it.
#pragma once

#include <string>

namespace tv {

namespace show {
inline constexpr int Hidden = 0;
inline constexpr int NormalFocus = 1;
inline constexpr int MinimizedFocus = 2;
inline constexpr int MaximizedFocus = 3;
inline constexpr int NormalNoFocus = 4;
inline constexpr int MinimizedNoFocus = 6;
}  // namespace show

class Processes {
public:
    virtual ~Processes() = default;

    // The whole command line of this process, the program's own name included.
    virtual std::string commandLine() const = 0;

    // The full path of the program file.
    virtual std::string modulePath() const = 0;

    // Starts the program file that `commandLine` names (programOfCommandLine in
    // command_program.h), told to the system by that name, so that no other
    // program can be found in its place; the program receives `commandLine`
    // exactly as given. No command interpreter in between; the window style is
    // `showStyle`; nothing waits for it. False when the line names no program
    // file or it cannot start.
    virtual bool start(const std::string& commandLine, int showStyle) = 0;

    // True when another process runs this same program file (by its name).
    virtual bool anotherInstanceRunning() const = 0;

    // The first three numbers of the program file's version record, as
    // "2.0.0"; empty when the file has none.
    virtual std::string versionNumbers() const = 0;
};

}  // namespace tv
