// The whole program over the platform's stand-ins: its folder C:\Tarvelon with a settings file, a Startup folder, and
// the settings writes recorded and made in the file, so that the next load finds them.
#pragma once

#include <gtest/gtest.h>

#include "tests/core/fakes.h"
#include "ui/application.h"
#include "ui/main_window.h"
#include "ui/startup_folder.h"

namespace tv::test {

using Texts = std::vector<std::string>;

// A key's line in the settings file replaced where it stands, or added at the end; and recorded in os.profiles.
struct FileProfiles final : ProfileFiles {
    explicit FileProfiles(FakePlatform& platform) : os(platform) {}
    FakePlatform& os;
    std::string get(const std::string&, const std::string&, std::size_t, const std::string&) const override { return {}; }
    bool put(const std::string& section, const std::string& key, const std::string& value, const std::string& file) override {
        std::string text = os.files.content(file) ? *os.files.content(file) : "";
        const std::size_t at = text.find("\r\n" + key + "="), end = text.find("\r\n", at + 2);
        os.files.put(file, at == std::string::npos ? text + key + "=" + value + "\r\n"
                                                   : text.replace(at + 2, end - at - 2, key + "=" + value));
        return os.profiles.put(section, key, value, file);
    }
    std::vector<std::string> sectionNames(const std::string&) const override { return {}; }
    bool addSection(const std::string&, const std::string&) override { return false; }
};

class AppTest : public ::testing::Test {
protected:
    explicit AppTest(const std::vector<std::pair<std::string, std::string>>& lines = {}) {
        settings(lines);
        os.files.folders.insert("C:\\STARTUP");
        os.shell.special[kUserStartupFolder] = "C:\\Startup";  // the user's own
        os.profiles.recordWrites = true;
    }
    // A new settings file in which each line `first` is replaced by `second`.
    void settings(const std::vector<std::pair<std::string, std::string>>& lines) {
        prepareProgramFolder(os, ctx, lines);
    }
    // A click, and the answers to the message boxes it shows.
    void click(ui::Control& control, std::initializer_list<int> answers = {}) {
        os.boxes.answers.insert(os.boxes.answers.end(), answers);
        control.userClick();
    }
    std::string lastBox() const { return os.boxes.shown.empty() ? "" : os.boxes.shown.back().prompt; }

    FakePlatform os;
    FileProfiles profiles{os};
    ui::Application app{{os.files, profiles, os.shell, os.boxes, os.processes, os.loop, os.renderer, os.registry,
                         os.clock, os.windows, os.power, os.shortcuts}};
    AppContext& ctx = app.context();
    ui::MainWindow& window = app.mainForm();
};

}  // namespace tv::test
