// Shortcut files, made in the system's two ways: through its shell-link object,
// and through the scripting host's "WScript.Shell", and read through the
// shell-link object. Each maker reports success only when the file was saved;
// a failed call leaves no half-made file it could avoid.
#pragma once

#include <optional>
#include <string>

namespace tv {

class Shortcuts {
public:
    virtual ~Shortcuts() = default;

    // What a shell link is given; a part that is nullopt is not set at all.
    struct Link {
        std::string target;
        std::optional<std::string> workDir;
        std::optional<std::string> arguments;
        std::string description;  // up to its first zero character
        std::optional<std::string> iconFile;
        int iconIndex = 0;
        int showCommand = 0;
    };
    // The shell-link object: sets what `link` holds, resolves the link with
    // no window and flags 4 (update it) and saves it at `linkPath`. False, and
    // nothing saved, when any step fails.
    virtual bool makeShellLink(const std::string& linkPath, const Link& link) = 0;

    // The scripting host: CreateShortcut(linkPath), then Arguments (unless
    // nullopt), Description, TargetPath and WindowStyle, and Save. False when
    // "WScript.Shell" cannot be created or any step fails.
    virtual bool makeScriptedShortcut(const std::string& linkPath, const std::string& description,
                                      const std::string& target, const std::optional<std::string>& arguments,
                                      int windowStyle) = 0;

    // What a shell link starts: its target's path (empty for a link to
    // something that is no file) and its arguments.
    struct Target {
        std::string path;
        std::string arguments;
    };
    // Loads the link file at `linkPath` into the shell-link object and reads
    // its target and arguments; nullopt when it is no link the object can load.
    virtual std::optional<Target> readShellLink(const std::string& linkPath) = 0;
};

}  // namespace tv
