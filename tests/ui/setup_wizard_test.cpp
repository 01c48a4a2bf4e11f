// The Setup Wizard walked page by page with the mouse, as a user does: its
// pages, its clock, its lit labels and its scanner fields.
#include <gtest/gtest.h>

#include "avshell/scanner_catalogue_form.h"
#include "avshell/scanner_choice_form.h"
#include "tests/core/fakes.h"
#include "ui/application.h"
#include "ui/main_window.h"
#include "ui/setup_wizard.h"
#include "ui/setup_wizard_form.h"

namespace tv::ui {
namespace {

constexpr const char* kNoScanner =
    "You didn't choose an anti-virus software exe.  We recommend that you get one to take full advantage of Tarvelon";

class Wizard : public ::testing::Test {
protected:
    Wizard() {
        test::prepareProgramFolder(os, ctx, {{"settings=0,0,0,0,0,0,0,0", "settings=1,0,1,0,1,0,1,0,1"},
                                             {"antivirus=", "antivirus=C:\\AV\\scan.exe| /all "}});
        os.files.folders.insert("C:\\STARTUP");
        os.shell.special[24] = "C:\\Startup";
    }
    // The Options page's Settings Wizard button.
    void open() {
        app.mainForm().Image11.userClick();
        app.mainForm().options.cSetW.userClick();
    }
    void release(Control& label) {
        label.userMouseMove();
        label.userMouseDown();
        label.userMouseUp();
    }
    void next() { release(form().Label1); }
    void back() { release(form().Label2); }
    // The page's own controls that are shown, by name, labels left out.
    std::vector<std::string> shownControls() {
        std::vector<std::string> names;
        for (const auto& control : app.setupWizard().controls())
            if (control->visible() && control->kind() != Kind::Label) names.push_back(control->name());
        return names;
    }

    test::FakePlatform os;
    Application app{os.set()};
    AppContext& ctx = app.context();
    SetupWizardForm& form() { return app.setupWizard(); }
    SetupWizard& pages() { return app.wizardPages(); }
};

TEST_F(Wizard, OpensOnPageZeroWithTheSavedSettings) {
    os.files.put("C:\\Startup\\Tarvelon.lnk", "L");
    open();
    EXPECT_EQ(pages().page(), 0);
    EXPECT_EQ(form().aload.value(), 1);
    std::vector<int> values;
    for (const Control* box : form().settingsBoxes()) values.push_back(box->value());
    EXPECT_EQ(values, (std::vector<int>{1, 0, 1, 0, 1, 0, 1, 0}));  // the ninth position is no box's
    EXPECT_EQ(form().vpath.caption(), "C:\\AV\\scan.exe");
    EXPECT_EQ(form().varg.caption(), "/all");
}

TEST_F(Wizard, EachPageShowsItsTitleTextAndControls) {
    os.files.put("C:\\AV\\scan.exe", "MZ");
    open();
    struct Page {
        const char* title;
        std::string description;
        std::vector<std::string> controls;
    };
    const std::vector<Page> expected{
        {"Welcome to the Setup Wizard",
         "Just click the 'Next' button to continue.\r-If you make any mistakes, just click on the back button.\r"
         "-Hit Cancel if you want to quit the setup without changing any settings.",
         {}},
        {"Anti-Virus Setup (1/2)",
         "Step 1: Locate your main anti-virus software program.\r\r-If you aren't sure where to find it, click on "
         "the 'Help Me' button.",
         {"vpath", "locate", "varg", "helpme"}},
        {"Anti-Virus Setup (2/2)",
         "Step 2: Make sure it works!\r\r-Click the 'Test It!' button to make sure you selected the correct program.",
         {"Command1"}},
        {"Main Settings (1/3)",
         "-The most powerful aspect of Tarvelon is the Integrity Checker and the auto-loading and auto-scanning "
         "features.\r\r-This loads Tarvelon whenever a user logs into Windows, and performs a quick Integrity Check "
         "of your system files. This will provide an early warning of potential threats and will allow the "
         "elimination of malicious files before they cause serious damage.",
         {"aload"}},
        {"Main Settings (2/3)",
         "-Please choose the types of files you would like to scan at startup.\r\r-We recommend scanning of at "
         "least these files types:\rDRV,SYS,EXE,SCR and PIF files.",
         {"Check1", "Check2", "Check3", "Check4", "Check5", "Check8"}},
        {"Main Settings (3/3)",
         "Auto-Scan:\r-If this option is enabled, then if any files fail the Integrity Check, they will be scanned "
         "automatically (only applies if Tarvelon is loaded at Start Up of Windows).\r\n\r\n-If you enable this "
         "option, then it is very highly recommended that you also enable the 'Logging' feature in Tarvelon (so "
         "that files can be re-scanned after your Anti-Virus definition files are updated).",
         {"Check6"}},
        {"Other Settings (1/2)",
         "Tarvelon's Logging Feature\r-If this option is enabled, then if any files fail the Integrity Check or if "
         "any New or Modified Registry entries are scanned, they will be added to the log.  Users can pull up the "
         "logs later on to see what files were scanned, and have the option to scan them again.  This feature is "
         "useful to protect the user from not finding viruses or trojans due to older Virus Definition files.",
         {"Check7"}},
        {"Other Settings (2/2)",
         "Tarvelon's 'Secure Shut Down' Feature\r\n-This button will create a shortcut on your Desktop that will "
         "provide an alternative to shutting down your computer via the ShutDown button in Windows.\r\n-Using the "
         "'Secure Shut Down' method will perform the same actions as the Auto-Load feature, as well as scanning the "
         "registry and also your wininit.ini files for suspicious entries. Using this method of shutting down is "
         "HIGHLY recommended.",
         {"cButton1"}},
    };
    for (const Page& page : expected) {
        EXPECT_EQ(form().title.caption(), page.title);
        EXPECT_EQ(form().desc.caption(), page.description) << page.title;
        EXPECT_EQ(shownControls(), page.controls) << page.title;
        EXPECT_EQ(form().Label4.visible(), pages().page() == 1);
        next();
    }
    EXPECT_EQ(form().title.caption(), "You're done!");
    EXPECT_EQ(shownControls(), std::vector<std::string>{"Command2"});
    EXPECT_TRUE(os.boxes.shown.empty());
}

TEST_F(Wizard, ClockRunsFromPageZeroAndTellsTheMinutes) {
    os.files.put("C:\\AV\\scan.exe", "MZ");
    os.clock.script = {1000.4, 1002.9};
    open();
    for (int i = 0; i < 8; ++i) next();
    EXPECT_EQ(form().desc.caption(),
              "Just click on the Save button to save the settings!\r\rThis setup took: 0 minutes to complete.\r\r"
              "That was quick! Go Speed Racer Go!");

    // Back to page 0 starts the clock again: from 2000 (2000.5, rounded half
    // to even), 90 seconds are 1.5 minutes and read 2; 30 seconds read 0.
    os.clock.script = {2000.5, 2090};
    for (int i = 0; i < 8; ++i) back();
    for (int i = 0; i < 8; ++i) next();
    EXPECT_EQ(form().desc.caption(),
              "Just click on the Save button to save the settings!\r\rThis setup took: 2 minutes to complete.");
    os.clock.script = {2000, 2030};
    for (int i = 0; i < 8; ++i) back();
    for (int i = 0; i < 8; ++i) next();
    EXPECT_NE(form().desc.caption().find("took: 0 minutes"), std::string::npos);
    EXPECT_EQ(form().desc.caption().find("Speed Racer"), std::string::npos);
}

TEST_F(Wizard, LeavingTheTestPageWithoutAScannerIsToldButAllowed) {
    open();
    next();
    next();
    os.boxes.answers = {box::Ok};
    next();
    EXPECT_EQ(pages().page(), 3);
    ASSERT_EQ(os.boxes.shown.size(), 1u);
    EXPECT_EQ(os.boxes.shown[0].prompt, kNoScanner);

    // Back and forth many times: the page stays within the nine.
    os.files.put("C:\\AV\\scan.exe", "MZ");
    for (int round = 0; round < 50; ++round) {
        for (int i = 0; i < 10; ++i) next();
        EXPECT_EQ(pages().page(), 8);
        for (int i = 0; i < 10; ++i) back();
        EXPECT_EQ(pages().page(), 0);
    }
    EXPECT_EQ(form().title.caption(), "Welcome to the Setup Wizard");
    EXPECT_EQ(os.boxes.shown.size(), 1u);
}

TEST_F(Wizard, LabelsLightUnderTheMouseAndTheHoverNumberFollows) {
    open();
    Control &nextLabel = form().Label1, &backLabel = form().Label2, &cancelLabel = form().Label3;
    next();  // page 1, so that Back is shown
    EXPECT_EQ(pages().hoverNumber(), 6);
    backLabel.userMouseMove();
    EXPECT_EQ(pages().hoverNumber(), 1);
    EXPECT_EQ(backLabel.foreColour(), kBlue);
    EXPECT_TRUE(backLabel.underlined());
    cancelLabel.userMouseMove();
    EXPECT_EQ(pages().hoverNumber(), 2);
    EXPECT_FALSE(backLabel.underlined());
    EXPECT_TRUE(cancelLabel.underlined());
    nextLabel.userMouseMove();
    EXPECT_EQ(pages().hoverNumber(), 3);
    nextLabel.userMouseDown();
    EXPECT_EQ(nextLabel.foreColour(), 0xFF8080u);
    EXPECT_TRUE(nextLabel.underlined());
    EXPECT_EQ(pages().page(), 1);  // the press alone does not turn the page

    form().desc.userMouseMove();
    EXPECT_EQ(pages().hoverNumber(), 0);
    for (const Control* label : {&nextLabel, &backLabel, &cancelLabel}) {
        EXPECT_EQ(label->foreColour(), kBlack);
        EXPECT_FALSE(label->underlined());
    }
    nextLabel.userClick();  // a click is no release
    EXPECT_EQ(pages().page(), 1);
}

// The question and Yes are the keyboard scenario's.
TEST_F(Wizard, CancelAsksAndOnlyNoKeepsTheWizard) {
    open();
    os.boxes.answers = {box::No};
    release(form().Label3);
    form().Label3.userClick();
    EXPECT_EQ(os.boxes.shown.size(), 1u);
    EXPECT_TRUE(form().visible());
    EXPECT_EQ(pages().hoverNumber(), 6);
    os.boxes.answers = {box::Yes};
    form().Label3.userClick();
    EXPECT_FALSE(form().visible());
}

TEST_F(Wizard, LocateAndHelpFillTheFirstScannerInBothForms) {
    open();
    next();
    os.shell.fileChoices = {"C:\\Panda\\PAVCL.COM"};
    form().locate.userClick();
    EXPECT_EQ(form().vpath.caption(), "C:\\Panda\\PAVCL.COM");
    EXPECT_EQ(form().varg.caption(), "/NSB /NOM /AUT");
    EXPECT_EQ(app.scannerChoice().Text6.caption(), "/NSB /NOM /AUT");
    EXPECT_EQ(app.scannerChoice().Text5.caption(), "C:\\AV\\scan.exe");
    EXPECT_TRUE(os.boxes.shown.empty());

    // A cancelled box keeps the path.
    form().locate.userClick();
    EXPECT_EQ(form().vpath.caption(), "C:\\Panda\\PAVCL.COM");

    app.scannerChoice().cButton1.userClick();  // the catalogue left open for the second scanner
    form().helpme.userClick();
    EXPECT_TRUE(app.scannerCatalogue().visible());
    EXPECT_EQ(app.scannerCatalogue().tag, "");
}

}  // namespace
}  // namespace tv::ui
