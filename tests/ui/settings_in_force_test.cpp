// What the user changes stays until it is saved or given up, and what is saved or cancelled is in force at once.
#include <gtest/gtest.h>

#include "avshell/scanner_choice_form.h"
#include "core/text.h"
#include "tests/core/fakes.h"
#include "ui/application.h"
#include "ui/load_settings.h"
#include "ui/main_window.h"
#include "ui/setup_wizard_form.h"

namespace tv::ui {
namespace {

// The profile writer over the in-memory settings file: a key's line is replaced where it stands, or added at the end.
struct MemoryProfiles final : ProfileFiles {
    explicit MemoryProfiles(test::MemoryFiles& store) : files(store) {}
    test::MemoryFiles& files;
    std::string get(const std::string&, const std::string&, std::size_t, const std::string&) const override { return {}; }
    bool put(const std::string&, const std::string& key, const std::string& value, const std::string& file) override {
        std::string text = *files.content(file);
        const std::size_t at = text.find("\r\n" + key + "="), end = text.find("\r\n", at + 2);
        files.put(file, at == std::string::npos ? text + key + "=" + value + "\r\n"
                                                : text.replace(at + 2, end - at - 2, key + "=" + value));
        return true;
    }
    std::vector<std::string> sectionNames(const std::string&) const override { return {}; }
    bool addSection(const std::string&, const std::string&) override { return false; }
};

class SettingsInForce : public ::testing::Test {
protected:
    SettingsInForce() {
        test::prepareProgramFolder(os, ctx, {{"antivirus=", "antivirus=C:\\AV\\old.exe|/old"}});
        os.files.put("C:\\AV\\new.exe", "MZ");
        loadSettings(ctx, main, choice);
    }

    test::FakePlatform os;
    MemoryProfiles profiles{os.files};
    Application app{{os.files, profiles, os.shell, os.boxes, os.processes, os.loop, os.renderer, os.registry, os.clock,
                     os.windows, os.power, os.shortcuts}};
    AppContext& ctx = app.context();
    MainWindow& main = app.mainForm();
    ScannerChoiceForm& choice = app.scannerChoice();
};

// A scanner edit outlives every page that loads the settings until it is saved or given up with Cancel; given up,
// it lasts until the settings are loaded again. The wizard's logging box, saved, is what the next report obeys, and
// its scanner is the scanner window's, whose arguments it had handed over; cancelled ticks are undone at once on both
// pages; the scanner options, saved, shape the next command line.
TEST_F(SettingsInForce, EditsLastUntilSavedOrGivenUpAndActAtOnce) {
    main.settings.cButton10.userClick();
    choice.Text5.userEditText("C:\\AV\\new.exe");
    for (Control* opener : {&main.Image11, &main.options.cSettings, &main.options.cButton2, &main.options.cSetW})
        opener->userClick();
    EXPECT_EQ(choice.Text5.caption() + "|" + choice.Text6.caption(), "C:\\AV\\new.exe|/old");
    os.boxes.answers = {box::Ok};
    choice.cButton3.userClick();
    EXPECT_EQ(getBetween(*os.files.content(ctx.settFile), 1, "antivirus=", "\r\n"), "C:\\AV\\new.exe|/old");
    choice.Text6.userEditText("/typed");
    choice.cButton2.userClick();
    main.Image11.userClick();
    EXPECT_EQ(choice.Text6.caption(), "/old");
    main.options.cSetW.userClick();
    SetupWizardForm& wizard = app.setupWizard();
    wizard.Check7.userSetValue(1);
    os.shell.fileChoices = {"C:\\AV\\new.exe"};
    wizard.locate.userClick();
    os.boxes.answers = {box::Ok, box::Ok};
    wizard.Command2.userClick();
    EXPECT_EQ(ctx.autoLogging->value(), 1);
    EXPECT_EQ(choice.Text5.caption() + "|" + choice.Text6.caption(), "C:\\AV\\new.exe|");
    main.options.cSettings.userClick();
    main.settings.Check7.userSetValue(0);
    main.settings.cCancelSett.userClick();
    main.options.cButton2.userClick();
    main.advanced.avfocus.userSetValue(1);
    main.advanced.cButton1.userClick();
    EXPECT_EQ(ctx.autoLogging->value() * 10 + ctx.scannerFocus->value(), 10);
    main.options.cButton2.userClick();
    main.advanced.Check10.userSetValue(0);
    main.advanced.Check11.userSetValue(1);
    main.advanced.cSave2.userClick();
    EXPECT_TRUE(ctx.quoteChar.empty() && ctx.shortPaths);
}

}  // namespace
}  // namespace tv::ui
