// The scanner selection and the catalogue through their controls, over a scripted file box and folders in memory, and
// the scanners' command lines. The real file box, search and scanners are the end-to-end scenario's.
#include <numeric>

#include "avshell/scanner_catalogue_form.h"
#include "avshell/scanner_choice.h"
#include "avshell/scanner_choice_form.h"
#include "avshell/scanner_launch.h"
#include "platform/command_program.h"
#include "tests/ui/app_fixture.h"
#include "ui/main_actions.h"
#include "ui/setup_wizard_form.h"

namespace tv::ui {
namespace {

using namespace std::string_literals;
using test::Texts;

class Scanners : public test::AppTest {
protected:
    Scanners() : AppTest({{"antivirus=", "antivirus=C:\\AV\\scan.exe| /all "}, {"av2=", "av2=C:\\Second\\b.exe|"}}) {
        os.shell.special[38] = "C:\\Program Files";
    }
    void choose(Control& button, const char* file) { os.shell.fileChoices.push_back(file), click(button, {box::Ok}); }
    std::string scanner1() { return choice().Text5.caption() + "|" + choice().Text6.caption(); }
    std::string scanner2() { return choice().Text1.caption() + "|" + choice().Text2.caption(); }
    // Made on first use, as in the program: after the settings file is in place.
    ScannerChoiceForm& choice() { return app.scannerChoice(); }
    ScannerCatalogueForm& catalogue() { return app.scannerCatalogue(); }
    SetupWizardForm& wizard() { return app.setupWizard(); }
};

// The family's arguments: Panda's stay out of the wizard, typed ones give way, any other program gets a blank, and
// the second scanner takes those of the first scanner's program. Saved, a missing first scanner becomes the
// placeholder after a word, a missing second one nothing without one.
TEST_F(Scanners, ChosenProgramsTakeTheirFamilysArgumentsAndAreSavedWithTheBar) {
    EXPECT_EQ(scanner1() + "," + scanner2(), "C:\\AV\\scan.exe|/all,C:\\Second\\b.exe|");
    choose(choice().cChoose, "C:\\AV\\pavcl.com");
    EXPECT_EQ(os.shell.fileDialogs.at(0).second, "Executable Files (*.exe, *.com)\0*.EXE;*.COM\0All Files (*.*)\0*.*\0"s);
    EXPECT_EQ(scanner1() + "," + wizard().varg.caption(), "C:\\AV\\pavcl.com|/NSB /NOM /AUT,");  // without the zeros
    choice().Text6.userEditText("/typed");
    choose(choice().cChoose, "C:\\navw\\scan.exe");
    EXPECT_EQ(choice().Text6.caption() + wizard().varg.caption(), "/HEUR:3/HEUR:3");
    choose(choice().cButton10, "C:\\Panda\\pavcl.com");
    EXPECT_EQ(scanner2(), "C:\\Panda\\pavcl.com|/HEUR:3");
    choose(choice().cChoose, "C:\\Other\\other.exe");
    EXPECT_EQ(choice().Text6.caption() + wizard().varg.caption(), "  ");

    os.boxes.shown.clear();
    os.files.put("C:\\Panda\\pavcl.com", "MZ");
    click(choice().cButton3, {box::Ok, box::Ok});
    os.files.files.clear();
    click(choice().cButton3, {box::Ok, box::Ok});
    EXPECT_EQ(os.boxes.shown[0].prompt + "|" + os.boxes.shown[1].prompt, kNoScannerMessage + "|Save Success!"s);
    EXPECT_EQ(os.profiles.written, (Texts{"Tarvelon|antivirus=Anti-Virus Software| ", "Tarvelon|av2=C:\\Panda\\pavcl.com|/HEUR:3",
                                          "Tarvelon|antivirus=Anti-Virus Software| ", "Tarvelon|av2=|"}));
    EXPECT_FALSE(choice().visible());
}

// Test It! names a program that will not start; only a started one offers Use It!, for the first scanner in both forms or, with the tag, for the second.
TEST_F(Scanners, SearchTestAndUseForEitherScanner) {
    const std::string nav = "C:\\Program Files\\NAV\\navw32.exe";
    os.files.folders.insert({"C:", "C:\\PROGRAM FILES"});
    os.files.makeFolder("C:\\Program Files\\NAV");
    os.files.put(nav, "MZ");
    catalogue().List1.userSetValue(13);
    click(catalogue().Command4, {box::Ok});
    EXPECT_EQ(lastBox() + "|" + catalogue().Text2.caption(), "Success!|" + nav);
    os.processes.refuse = true;
    click(catalogue().Command2, {box::Ok, box::Ok});
    EXPECT_EQ(lastBox(), scannerFailureMessage(nav));
    EXPECT_FALSE(catalogue().Command3.enabled());
    os.processes.refuse = false;
    click(catalogue().Command2, {box::Ok});
    ASSERT_TRUE(catalogue().Command3.enabled());
    catalogue().Command3.userClick();
    EXPECT_EQ(wizard().vpath.caption() + "|" + wizard().varg.caption() + "," + scanner1(), nav + "|/HEUR:3," + nav + "|/HEUR:3");

    // For the second scanner a Norton program is its own arguments, anything else (Panda too) gets a blank; the tag
    // is used up.
    choice().cButton1.userClick();
    EXPECT_EQ(catalogue().tag, "1");
    catalogue().Command3.userClick();
    EXPECT_EQ(scanner2() + "|" + catalogue().tag, nav + "|" + nav + "|");
    choice().cButton1.userClick();
    catalogue().Text2.setCaption("C:\\Panda\\Pavcl.com");
    catalogue().Command3.userClick();
    EXPECT_EQ(scanner2() + "," + scanner1(), "C:\\Panda\\Pavcl.com| ," + nav + "|/HEUR:3");

    choice().cButton1.userClick();  // closed, the catalogue is forgotten: it comes back new and for the first scanner
    catalogue().List1.userSetValue(3);
    catalogue().userClose();
    choice().chlpFind.userClick();
    EXPECT_EQ(catalogue().tag + catalogue().Text2.caption() + std::to_string(catalogue().List1.value()), "-1");
    EXPECT_FALSE(catalogue().Command2.enabled() || catalogue().Command3.enabled());
}

// Sixteen rows, each searching for its own program. Program Files is walked once, also through a junction that points
// up the tree, and then the rest of the drive; the window lives on meanwhile, and the button or Esc stops the search
// with the form as it was, without a message. A system that names no Program Files folder: its empty answer becomes
// "\" (the current drive's root).
TEST_F(Scanners, CatalogueSearchWalksEachFolderOnceAndStopsWhenAsked) {
    catalogue().Command4.userClick();  // nothing chosen: nothing at all
    EXPECT_EQ(catalogue().List1.items().size() + os.boxes.shown.size(), 16u);
    EXPECT_EQ(catalogue().List1.items()[14], "Panda 7.0 Platinum (All-OS)");
    os.files.folders.insert({"C:", "C:\\PROGRAM FILES"});
    for (const char* folder : {"C:\\Program Files\\AVG", "C:\\Program Files\\AVG\\Up", "C:\\Tools"}) os.files.makeFolder(folder);
    os.files.junctions["C:\\PROGRAM FILES\\AVG\\UP"] = "C:\\PROGRAM FILES";
    os.files.put("C:\\Tools\\avgse.exe", "MZ");
    Texts looked;
    os.loop.onPump = [&] {
        const bool held = !catalogue().List1.enabled() && !catalogue().Command3.enabled() &&
                          catalogue().Command4.caption() == "Cancel" && !catalogue().Text2.enabled() &&
                          catalogue().Text2.caption() == "Searching...";
        looked.push_back(catalogue().Label4.caption().substr(11) + (held ? "" : " (not held)"));
        if (looked.size() == 10) catalogue().cancelButton->userKeyPress();  // at the third folder of the second search
    };
    catalogue().List1.userSetValue(2);
    click(catalogue().Command4, {box::Ok});
    EXPECT_EQ(looked, (Texts{"C:\\Program Files\\", "C:\\Program Files\\AVG\\", "C:\\", "C:\\STARTUP\\", "C:\\TARVELON\\",
                             "C:\\TARVELON\\DATA\\", "C:\\Tools\\"}));
    EXPECT_EQ(catalogue().Text2.caption(), "C:\\Tools\\avgse.exe");
    EXPECT_TRUE(catalogue().Command2.enabled() && !catalogue().Command3.enabled());
    catalogue().List1.userSetValue(15);
    catalogue().Command4.userClick();
    EXPECT_EQ(looked.size(), 10u);
    EXPECT_EQ(catalogue().Text2.caption() + "|" + catalogue().Command4.caption() + "|" + catalogue().Label4.caption(),
              "C:\\Tools\\avgse.exe|Search for this Selection...|");
    EXPECT_TRUE(catalogue().Text2.enabled() && catalogue().Command2.enabled() && catalogue().List1.enabled());
    EXPECT_EQ(catalogue().cancelButton, nullptr);
    os.shell.special[38] = "";
    click(catalogue().Command4, {box::Ok});
    EXPECT_EQ(looked.at(10), "\\");

    os.shell.openResult = 31;  // My Anti-Virus Program Isn't Listed!: explained, and the maker's page, if it can be
    click(catalogue().Command1, {box::Ok, box::Ok});
    EXPECT_EQ(os.shell.opened.at(0)[1], kMakerWebPage);
}

// Batches of passCount turns, empty entries counted; the walk reads one past the end as an empty entry; a flush that
// refuses ends the walk. A scanner's window opens normal with the focus only while avfocus is 1.
TEST(ScannerCommandLines, BatchesItemsAndTheScannersWindow) {
    test::FakePlatform os;
    AppContext ctx{os.set()};
    ctx.quoteChar = "\"";
    ctx.passCount = 2;
    const auto batches = [&](const Texts& entries, std::size_t first, std::size_t last, bool goOn = true) {
        Texts out;
        walkInBatches(ctx, first, last, [&](std::size_t i) { return i < entries.size() ? entries[i] : std::string(); },
                      [&](const FileItems& batch) { return out.push_back(std::accumulate(batch.begin(), batch.end(), std::string())), goOn; });
        return out;
    };
    EXPECT_EQ(batches({"A", "", "B", "C", "D"}, 0, 5), (Texts{"\"A\" ", "\"B\" \"C\" ", "\"D\" "}));
    EXPECT_EQ(batches({"A", "B"}, 0, 2), (Texts{"\"A\" \"B\" ", ""}));
    EXPECT_EQ(batches({"A", "B", "C"}, 0, 9, false), Texts{"\"A\" \"B\" "});
    ctx.quoteChar.clear();
    EXPECT_EQ(batches({"heading", "C:\\A B.DLL"}, 1, 1), Texts{"C:\\A B.DLL "});
    ctx.quoteChar = "\"";
    EXPECT_EQ(singleRunItem(ctx, "\"C:\\A.EXE\" /x") + "|" + singleRunItem(ctx, "\"\""), " \"C:\\A.EXE /x\"| ");
    EXPECT_EQ(singleFileItem(ctx, "C:\\A.EXE") + "|" + singleFileItem(ctx, "\"C:\\A.EXE\" -run"),
              "\"C:\\A.EXE\"|\"C:\\A.EXE\" -run");
    EXPECT_EQ(toShortPath(ctx, std::string(1100, 'x')), "");  // too long: the buffer stays blank
    ui::Control avfocus(ui::Kind::CheckBox, "avfocus", nullptr, {}, "");
    ctx.scannerFocus = &avfocus;
    std::vector<int> styles;
    for (const int value : {0, 1, 2}) {
        avfocus.setValue(value);
        runScanner(ctx, "C:\\AV\\scan.exe");
        styles.push_back(os.processes.started.back().second);
    }
    EXPECT_EQ(styles, (std::vector<int>{show::MinimizedFocus, show::NormalFocus, show::MinimizedFocus}));
}

// The program a scanner's line starts is the longest beginning before a blank that names a program file: a file
// planted at a shorter beginning never runs, and with the scanner gone nothing does.
TEST(CommandProgram, LongestBeginningThatNamesAProgramFile) {
    const std::vector<std::string> files{"C:\\Program", "C:\\Program.exe", "C:\\Program Files\\Scan.v2", "C:\\a.dll",
                                         "C:\\Program Files\\Scan.v2 x\\scan.exe", "C:\\T\\TarvelonLow.exe", "C:\\My.Tools\\x"};
    Texts asked;
    const auto program = [&](std::string_view line) {
        return programOfCommandLine(line, [&](const std::string& path) {
            asked.push_back(path);
            return std::find(files.begin(), files.end(), path) != files.end();
        });
    };
    const std::string scanner = "C:\\Program Files\\Scan.v2 x\\scan.exe";
    for (const char* args : {" /x \"C:\\a b.dll\" ", "  C:\\a.dll C:\\b.dll ", ""})  // no args: two blanks
        EXPECT_EQ(program(scanner + args), scanner) << args;
    EXPECT_EQ(program("\"C:\\T\\TarvelonLow.exe\""), "C:\\T\\TarvelonLow.exe");
    EXPECT_EQ(program("\"C:\\T\\Missing.exe\" /r") + program("C:\\My.Tools\\x /y"), "");  // x: no extension, no program
    for (const std::string& path : asked)  // no beginning reaching into a file of the list is tried
        EXPECT_EQ(path.find(':', 2), std::string::npos) << path;
}

}  // namespace
}  // namespace tv::ui
