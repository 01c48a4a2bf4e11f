// The whole program over the platform's stand-ins: its folder C:\Tarvelon with a settings file, a Startup folder, and
// the settings writes recorded.
#pragma once

#include <gtest/gtest.h>

#include "tests/core/fakes.h"
#include "ui/application.h"
#include "ui/main_window.h"
#include "ui/startup_folder.h"

namespace tv::test {

using Texts = std::vector<std::string>;

class AppTest : public ::testing::Test {
protected:
    // The settings file's lines `first` replaced by `second`, as settings() does.
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
    ui::Application app{os.set()};
    AppContext& ctx = app.context();
    ui::MainWindow& window = app.mainForm();
};

}  // namespace tv::test
