// The scanner selection and the catalogue, driven through their controls:
// the file box is scripted, the folders searched and the settings file are in memory.
#include <gtest/gtest.h>

#include "avshell/scanner_catalogue.h"
#include "avshell/scanner_catalogue_form.h"
#include "avshell/scanner_choice_form.h"
#include "core/text.h"
#include "tests/core/fakes.h"
#include "ui/application.h"
#include "ui/main_actions.h"
#include "ui/setup_wizard_form.h"

namespace tv::ui {
namespace {

using namespace std::string_literals;

class Scanners : public ::testing::Test {
protected:
    Scanners() {
        test::prepareProgramFolder(os, ctx, {{"antivirus=", "antivirus=C:\\AV\\scan.exe| /all "},
                                             {"av2=", "av2=C:\\Second\\b.exe|"}});
        os.shell.special[38] = "C:\\Program Files";
        ctx.quoteChar = "\"";
    }
    void answer(std::initializer_list<int> answers) { os.boxes.answers.insert(os.boxes.answers.end(), answers); }
    void choose(Control& button, std::string file) {
        os.shell.fileChoices.push_back(std::move(file));
        answer({box::Ok});
        button.userClick();
    }

    test::FakePlatform os;
    Application app{os.set()};
    AppContext& ctx = app.context();
    // Made on first use, as in the program: after the settings file is in place.
    ScannerChoiceForm& choice() { return app.scannerChoice(); }
    ScannerCatalogueForm& catalogue() { return app.scannerCatalogue(); }
    SetupWizardForm& wizard() { return app.setupWizard(); }
};

TEST_F(Scanners, FieldsHoldTheSavedScannersAndTheButtonsOpenTheCatalogueForEach) {
    EXPECT_EQ(choice().Text5.caption() + "|" + choice().Text6.caption(), "C:\\AV\\scan.exe|/all");
    EXPECT_EQ(choice().Text1.caption() + "|" + choice().Text2.caption(), "C:\\Second\\b.exe|");

    choice().cButton1.userClick();
    EXPECT_TRUE(catalogue().visible());
    EXPECT_EQ(catalogue().tag, "1");
    choice().chlpFind.userClick();
    EXPECT_EQ(catalogue().tag, "");
    choice().cButton2.userClick();
    EXPECT_FALSE(choice().visible());
    EXPECT_EQ(choice().Text5.caption(), "C:\\AV\\scan.exe");  // Cancel undoes nothing
}

// The file box's own texts, and the family's arguments: Panda's stay out of
// the wizard, typed ones give way, and any other program gets a blank.
TEST_F(Scanners, ChosenProgramTakesTheArgumentsOfItsFamily) {
    choose(choice().cChoose, "C:\\Norton AV\\NAVW32.EXE");
    ASSERT_EQ(os.shell.fileDialogs.size(), 1u);
    EXPECT_EQ(os.shell.fileDialogs[0].first, "Choose Anti-Virus Executable File");
    EXPECT_EQ(os.shell.fileDialogs[0].second,
              "Executable Files (*.exe, *.com)\0*.EXE;*.COM\0All Files (*.*)\0*.*\0"s);
    EXPECT_EQ(choice().Text5.caption(), "C:\\Norton AV\\NAVW32.EXE");  // without the dialog's zeros
    choose(choice().cChoose, "C:\\AV\\pavcl.com");
    EXPECT_EQ(choice().Text6.caption(), "/NSB /NOM /AUT");
    EXPECT_EQ(wizard().varg.caption(), "/HEUR:3");
    choice().Text6.userEditText("/typed");
    choose(choice().cChoose, "C:\\navw\\scan.exe");
    EXPECT_EQ(choice().Text6.caption(), "/HEUR:3");
    choose(choice().cChoose, "C:\\Other\\other.exe");
    EXPECT_EQ(choice().Text6.caption(), " ");
    EXPECT_EQ(wizard().varg.caption(), " ");
    wizard().varg.setCaption("wizard's own");  // the second scanner leaves the wizard alone
    choose(choice().cButton10, "C:\\Panda\\pavcl.com");
    EXPECT_EQ(wizard().varg.caption(), "wizard's own");
}

// Each row, in its place, searches for its own program file by that exact name.
TEST_F(Scanners, CatalogueRowsSearchForTheirOwnPrograms) {
    const std::vector<std::pair<std::string, std::string>> rows{
        {"AVAST 4 (All Operating Systems)", "ashQuick.exe"},
        {"AVAST32 (All Operating Systems)", "quick32.exe"},
        {"AVG (All Operating Systems)", "avgse.exe"},
        {"EZ Anti-Virus (All Operating Systems)", "vet98.exe"},
        {"Fix-It Utilities (All OS)", "AVCmd.exe"},
        {"F-Prot (All Operating Systems)", "fpcmd.exe"},
        {"H+BDEV AntiVir (Personal Edition - All OS)", "avwin.exe"},
        {"Kaspersky 3.0 (All Operating Systems)", "avp32.exe"},
        {"McAfee 5.0 and earlier (All Operating Systems)", "scan32.exe"},
        {"McAfee 6.0 (All Operating Systems)", "scanpm.exe"},
        {"McAfee 6.02 and later (All Operating Systems)", "scan.exe"},
        {"NOD32 (All Operating Systems)", "nod32.exe"},
        {"Norton (2000/NT)", "navwnt.exe"},
        {"Norton (Win95/98/ME/XP)", "navw32.exe"},
        {"Panda 7.0 Platinum (All-OS)", "Pavcl.com"},
        {"Sophos Anti Virus (All-OS)", "sweep.exe"},
    };
    ASSERT_EQ(catalogue().List1.items().size(), rows.size());
    os.files.folders.insert({"C:", "C:\\PROGRAM FILES"});
    for (std::size_t row = 0; row < rows.size(); ++row) {
        EXPECT_EQ(catalogue().List1.items()[row], rows[row].first);
        const std::string folder = "C:\\Program Files\\" + std::to_string(row);
        os.files.folders.insert(upperCase(folder));
        os.files.put(folder + "\\" + rows[row].second, "MZ");
        catalogue().List1.userSetValue(static_cast<int>(row));
        answer({box::Ok});
        catalogue().Command4.userClick();
        EXPECT_EQ(catalogue().Text2.caption(), folder + "\\" + rows[row].second) << rows[row].first;
    }

    // A system that names no Program Files folder: its empty answer becomes
    // "\" (the current drive's root), the one answer the fallback does not mend.
    std::vector<std::string> looked;
    os.loop.onPump = [&] { looked.push_back(catalogue().Label4.caption()); };
    for (const auto& [answer38, root] : {std::pair{"", "\\"}, std::pair{"\\", "C:\\Program Files\\"}}) {
        os.shell.special[38] = answer38;
        looked.clear();
        answer({box::Ok});
        catalogue().Command4.userClick();
        EXPECT_EQ(looked.at(0), std::string("Looking in ") + root) << answer38;
    }
}

// Program Files is walked once, also through a junction that points up the
// tree, and then the rest of the drive; the window lives on meanwhile, and
// the button or Esc stops the search with the form as it was.
TEST_F(Scanners, CatalogueSearchWalksEachFolderOnceAndStopsWhenAsked) {
    os.files.folders.insert("C:");
    for (const char* folder : {"C:\\Program Files", "C:\\Program Files\\AVG", "C:\\Program Files\\AVG\\Up", "C:\\Tools"})
        os.files.makeFolder(folder);
    os.files.junctions["C:\\PROGRAM FILES\\AVG\\UP"] = "C:\\PROGRAM FILES";
    os.files.put("C:\\Tools\\avgse.exe", "MZ");
    std::vector<std::string> looked;
    os.loop.onPump = [&] {
        const bool held = !catalogue().List1.enabled() && !catalogue().Command3.enabled() &&
                          catalogue().Command4.caption() == "Cancel" && !catalogue().Text2.enabled();
        looked.push_back(catalogue().Label4.caption() + (held ? "" : " (not held)") + " " + catalogue().Text2.caption());
    };
    catalogue().List1.userSetValue(2);
    answer({box::Ok});
    catalogue().Command4.userClick();
    EXPECT_EQ(looked, (std::vector<std::string>{
                          "Looking in C:\\Program Files\\ Searching...", "Looking in C:\\Program Files\\AVG\\ Searching...",
                          "Looking in C:\\ Searching...", "Looking in C:\\TARVELON\\ Searching...",
                          "Looking in C:\\TARVELON\\DATA\\ Searching...", "Looking in C:\\Tools\\ Searching..."}));
    EXPECT_EQ(catalogue().Text2.caption(), "C:\\Tools\\avgse.exe");
    EXPECT_TRUE(catalogue().Command2.enabled());
    EXPECT_FALSE(catalogue().Command3.enabled());

    // Esc at the third folder: no message, and the form as before the search.
    looked.clear();
    os.loop.onPump = [&] {
        looked.push_back(catalogue().Label4.caption());
        if (looked.size() == 3) catalogue().cancelButton->userKeyPress();
    };
    catalogue().List1.userSetValue(15);
    catalogue().Command4.userClick();
    EXPECT_EQ(looked.size(), 3u);
    EXPECT_EQ(catalogue().Text2.caption(), "C:\\Tools\\avgse.exe");
    EXPECT_TRUE(catalogue().Text2.enabled() && catalogue().Command2.enabled() && catalogue().List1.enabled());
    EXPECT_EQ(catalogue().Command4.caption(), "Search for this Selection...");
    EXPECT_EQ(catalogue().Label4.caption(), "");
    EXPECT_EQ(catalogue().cancelButton, nullptr);
}

// Test It! starts nothing for a folder named like the program, and one that
// will not start is named; either way Use It! is not offered. A search that
// finds nothing takes it back as well.
TEST_F(Scanners, TestAndUseAreOfferedOnlyForAProgramThatStarted) {
    os.files.folders.insert("C:\\TOOLS\\AVGSE.EXE");
    catalogue().Text2.setCaption("C:\\Tools\\avgse.exe");
    catalogue().Command2.setEnabled(true);  // as the search leaves it
    answer({box::Ok});
    catalogue().Command2.userClick();
    EXPECT_EQ(os.boxes.shown.back().prompt, "You must choose a virus scanner before you proceed!");
    EXPECT_TRUE(os.processes.started.empty());
    EXPECT_FALSE(catalogue().Command3.enabled());

    os.files.put("C:\\AV Tools\\avgse.exe", "MZ");
    catalogue().Text2.setCaption("C:\\AV Tools\\avgse.exe");
    os.processes.refuse = true;
    answer({box::Ok, box::Ok});
    catalogue().Command2.userClick();
    EXPECT_EQ(os.boxes.shown.back().prompt,
              "Your Anti-Virus program could not be executed!!!\rPlease verify the path of the software:\r"
              "C:\\AV Tools\\avgse.exe");
    EXPECT_FALSE(catalogue().Command3.enabled());
    os.processes.refuse = false;
    answer({box::Ok});
    catalogue().Command2.userClick();
    ASSERT_TRUE(catalogue().Command3.enabled());

    catalogue().List1.userSetValue(15);
    answer({box::Ok});
    catalogue().Command4.userClick();
    EXPECT_EQ(os.boxes.shown.back().prompt,
              "The default executable for this program was not found! Make sure you selected the correct "
              "anti-virus program, and the correct operating system.");
    EXPECT_EQ(catalogue().Text2.caption(), "");
    EXPECT_FALSE(catalogue().Command3.enabled());
    EXPECT_TRUE(catalogue().Text2.enabled());
}

TEST_F(Scanners, UseItFillsTheScannerTheCatalogueWasOpenedFor) {
    const std::string norton = "C:\\Program Files\\NAV\\navw32.exe";
    app.catalogueSearch().show("");
    catalogue().Text2.setCaption(norton);
    catalogue().Command3.setEnabled(true);  // as the test leaves it
    catalogue().Command3.userClick();
    EXPECT_FALSE(catalogue().visible());
    EXPECT_EQ(wizard().varg.caption(), "/HEUR:3");
    EXPECT_EQ(choice().Text6.caption(), "/HEUR:3");

    // The second scanner: Norton's program is its own arguments, anything
    // else (Panda too) gets a blank; the tag is used up.
    choice().cButton1.userClick();
    catalogue().Command3.userClick();
    EXPECT_EQ(choice().Text1.caption(), norton);
    EXPECT_EQ(choice().Text2.caption(), norton);
    EXPECT_EQ(catalogue().tag, "");
    choice().cButton1.userClick();
    catalogue().Text2.setCaption("C:\\Panda\\Pavcl.com");
    catalogue().Command3.userClick();
    EXPECT_EQ(choice().Text1.caption(), "C:\\Panda\\Pavcl.com");
    EXPECT_EQ(choice().Text2.caption(), " ");
    EXPECT_EQ(choice().Text5.caption(), norton);
}

TEST_F(Scanners, ClosedCatalogueComesBackNewAndForTheFirstScanner) {
    choice().cButton1.userClick();
    catalogue().List1.userSetValue(3);
    catalogue().Text2.setCaption("C:\\x\\vet98.exe");
    catalogue().Command2.setEnabled(true);
    catalogue().userClose();
    EXPECT_FALSE(catalogue().visible());
    EXPECT_EQ(catalogue().tag, "");
    app.catalogueSearch().show("");
    EXPECT_EQ(catalogue().Text2.caption(), "");
    EXPECT_EQ(catalogue().List1.value(), -1);
    EXPECT_EQ(catalogue().List1.items().size(), 16u);
    EXPECT_FALSE(catalogue().Command2.enabled());
}

TEST_F(Scanners, NotListedSendsTheUserToTheMakersPage) {
    answer({box::Ok});
    catalogue().Command1.userClick();
    EXPECT_EQ(os.boxes.shown[0].prompt,
              "There is a very good chance that your anti-virus software is compatible.  As long as it supports "
              "command line arguments, then it will work.\rTarvelon will now take you to the Quillfen Software web "
              "site.\r\rSimply click on Tarvelon, and click on Anti-Virus support.");
    ASSERT_EQ(os.shell.opened.size(), 1u);
    EXPECT_EQ(os.shell.opened[0], (std::array<std::string, 3>{"Open", kMakerWebPage, ""}));

    os.shell.openResult = 31;
    answer({box::Ok, box::Ok});
    catalogue().Command1.userClick();
    EXPECT_EQ(os.boxes.shown.back().prompt,
              "Tarvelon could not open your default web browser. Please visit https://www.quillfen.com/ by hand.");
}

}  // namespace
}  // namespace tv::ui
