// The Setup Wizard walked with the mouse, as a user does. Its pages' titles, texts and controls and a whole walk to
// Save are the end-to-end scenario's.
#include "avshell/scanner_catalogue_form.h"
#include "avshell/scanner_choice.h"
#include "avshell/scanner_choice_form.h"
#include "tests/ui/app_fixture.h"
#include "ui/setup_wizard.h"
#include "ui/setup_wizard_form.h"

namespace tv::ui {
namespace {


class Wizard : public test::AppTest {
protected:
    Wizard()
        : AppTest({{"settings=0,0,0,0,0,0,0,0", "settings=1,0,1,0,1,0,1,0,1"},
                   {"antivirus=", "antivirus=C:\\AV\\scan.exe| /all "}}) {
        os.files.put("C:\\AV\\scan.exe", "MZ");
    }
    void open() { window.options.cSetW.userClick(); }
    void release(Control& label) { label.userMouseMove(), label.userMouseDown(), label.userMouseUp(); }
    void next(int times = 1) { while (times-- > 0) release(form.Label1); }
    void back(int times = 1) { while (times-- > 0) release(form.Label2); }

    SetupWizardForm& form = app.setupWizard();
    SetupWizard& wizard = app.wizardPages();
};

// Only the release of Next or Back turns the page, never past the first or the ninth; leaving the test page without
// a scanner is told; Help Me opens the catalogue for the first scanner. Cancel acts on the click, and only No keeps
// the wizard.
TEST_F(Wizard, WalksItsNinePagesFromTheSavedSettingsAndCancelAsks) {
    os.files.put("C:\\Startup\\Tarvelon.lnk", "L");
    open();
    std::string values = std::to_string(form.aload.value()) + ":";
    for (const Control* box : form.settingsBoxes()) values += std::to_string(box->value());
    EXPECT_EQ(values, "1:10101010");  // the ninth position is no box's
    EXPECT_EQ(form.vpath.caption() + "|" + form.varg.caption(), "C:\\AV\\scan.exe|/all");
    os.files.files.erase("C:\\AV\\SCAN.EXE");
    os.boxes.answers = {box::Ok, box::No, box::Yes};
    form.Label1.userMouseDown();
    form.Label1.userClick();
    next();
    EXPECT_TRUE(form.Label4.visible() && wizard.page() == 1);  // the one label a page shows of its own
    next(8);  // Next on the last page, where it is hidden, does nothing
    EXPECT_TRUE(!form.Label4.visible() && wizard.page() == 8);
    EXPECT_EQ(lastBox(), "You didn't choose an anti-virus software exe.  We recommend that you get one to take full "
                         "advantage of Tarvelon");
    back(9);
    EXPECT_EQ(form.title.caption(), "Welcome to the Setup Wizard");
    app.scannerChoice().cButton1.userClick();  // the catalogue left open for the second scanner
    form.helpme.userClick();
    EXPECT_TRUE(app.scannerCatalogue().visible() && app.scannerCatalogue().tag.empty());
    release(form.Label3);
    form.Label3.userClick();
    EXPECT_TRUE(form.visible());
    form.Label3.userClick();
    EXPECT_TRUE(!form.visible() && wizard.page() == 0);
}

// Arriving at page 0 starts the clock again; the minutes are rounded half to even.
TEST_F(Wizard, LastPageTellsTheMinutesSinceTheLastArrivalAtPageZero) {
    os.clock.script = {1000.4, 1002.9};
    open();
    next(8);
    EXPECT_EQ(form.desc.caption(), "Just click on the Save button to save the settings!\r\rThis setup took: 0 minutes to "
                                   "complete.\r\rThat was quick! Go Speed Racer Go!");
    os.clock.script = {2000.5, 2090};  // 1.49 minutes: 2 once the seconds are rounded
    back(8);
    next(8);
    EXPECT_TRUE(form.desc.caption().ends_with("took: 2 minutes to complete."));
}

// Unlike the settings page, the wizard keeps a shortcut that is there already while Auto-Load stays on; a scanner
// that is gone is saved as the placeholder.
TEST_F(Wizard, SaveMakesTheSettingsFileAgainAndKeepsAutoLoad) {
    const char* link = "C:\\Startup\\Tarvelon.lnk";
    open();
    ASSERT_TRUE(os.files.remove(ctx.settFile));  // deleted meanwhile: made anew before the writes
    form.aload.userSetValue(1);
    click(form.Command2, {box::Ok});
    const std::string* file = os.files.content(ctx.settFile);
    EXPECT_TRUE(file && file->starts_with("[Tarvelon]\r\nsettings=1,0,1,0,1,0,1,0\r\nadvanced=") &&
                file->ends_with("\r\n[20]\r\npath=NULL\r\nargs=0,0,0,0,0,0,0\r\nargs2=0,0,0,0,0,0,0\r\n\r\n"));
    EXPECT_EQ(os.shortcuts.links.at(0).first, link);
    os.files.put(link, "kept");
    open();
    form.vpath.userEditText("C:\\Gone\\scan.exe");
    click(form.Command2, {box::Ok, box::Ok});
    EXPECT_EQ(os.profiles.written.back(), "Tarvelon|antivirus=Anti-Virus Software| ");
    EXPECT_TRUE(os.files.content(link) && *os.files.content(link) == "kept" && os.shortcuts.links.size() == 1u);
    open();
    form.aload.userSetValue(0);
    click(form.Command2, {box::Ok, box::Ok});
    EXPECT_EQ(os.files.content(link), nullptr);
}

}  // namespace
}  // namespace tv::ui
