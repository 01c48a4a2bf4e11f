// Every window of the program through the real renderer at each display scale users choose (100%, 125%,
// 150%, 200%), as on a move to a monitor of that scale: the window's size follows, each caption
// is measured in its control's own font against the room the control leaves it, and each control against
// its window's client area. Run by tests/e2e/display_scale_test.sh, on a screen where they fit at 200%.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>

#include "avshell/scanner_choice_form.h"
#include "avshell/scanner_catalogue_form.h"
#include "custom/custom_folder_form.h"
#include "integrity/scan_window.h"
#include "platform/win32/display_scale.h"
#include "platform/win32/win32_renderer.h"
#include "shutdown/secure_shut_down.h"
#include "tests/core/fakes.h"
#include "ui/application.h"
#include "ui/main_window.h"
#include "ui/setup_wizard_form.h"

namespace tv::test {
namespace {

using ui::Kind;

HWND childNamed(HWND form, const std::string& name) {
    struct Search { const std::string& name; HWND found; } search{name, nullptr};
    ::EnumChildWindows(form, [](HWND child, LPARAM param) -> BOOL {
        auto& [wanted, found] = *reinterpret_cast<Search*>(param);
        char own[256] = {};
        ::GlobalGetAtomNameA(static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(::GetPropA(child, win32::kNameProperty))), own, 256);
        if (wanted == own) found = child;
        return !found;
    }, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// The width at 96 DPI a control's own drawing takes beside its caption (a box, the margins of a face or
// a group), and whether the caption wraps; an image with a picture and other kinds show no caption.
const std::map<Kind, std::pair<int, bool>> kCaptionRoom = {{Kind::Label, {0, true}}, {Kind::FlatButton, {8, false}},
    {Kind::Image, {8, false}}, {Kind::FlatCheck, {19, false}}, {Kind::OptionButton, {19, false}}, {Kind::CheckBox, {19, true}},
    {Kind::Frame, {16, false}}};

// What does not fit on one window laid out at `scale`, one line per fault.
std::string misfits(const ui::Form& form, win32::Scale scale) {
    std::string faults;
    for (const auto& control : form.controls()) {
        // Timers and the empty places that only hold a value show nothing.
        if (control->kind() == Kind::Timer || control->bounds().width == 0 || control->bounds().height == 0) continue;
        const std::string where = "\n  " + form.name() + "." + control->name();
        HWND window = childNamed(reinterpret_cast<HWND>(form.nativeWindow()), control->name());
        if (!window) { faults += where + " has no window"; continue; }
        RECT own{}, room{}, text{};
        ::GetWindowRect(window, &own);
        ::GetClientRect(::GetParent(window), &room);
        ::MapWindowPoints(::GetParent(window), nullptr, reinterpret_cast<POINT*>(&room), 2);
        if (own.left < room.left || own.top < room.top || own.right > room.right || own.bottom > room.bottom)
            faults += where + " leaves its window";
        const auto room96 = kCaptionRoom.find(control->kind());
        if (control->caption().empty() || room96 == kCaptionRoom.end() || (control->kind() == Kind::Image && !control->picture().empty()))
            continue;
        const auto [taken, wraps] = std::pair{scale.px(room96->second.first), room96->second.second};
        ::GetClientRect(window, &room);
        text.right = room.right - taken;  // the caption wraps at the room it has, where it wraps
        HDC dc = ::GetDC(window);
        HGDIOBJ old = ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(::SendMessageA(window, WM_GETFONT, 0, 0)));
        ::DrawTextA(dc, control->caption().c_str(), -1, &text, DT_CALCRECT | (wraps ? DT_WORDBREAK : DT_SINGLELINE));
        ::SelectObject(dc, old);
        ::ReleaseDC(window, dc);
        if (text.right > room.right - taken || text.bottom > room.bottom)
            faults += where + " \"" + control->caption() + "\" needs " + std::to_string(text.right) + " by " +
                      std::to_string(text.bottom) + " pixels";
    }
    return faults;
}

TEST(DisplayScale, EveryWindowFollowsEachScaleAndFitsItsCaptions) {
    FakePlatform os;
    win32::Win32Renderer screen{(win32::declareDpiAwareness(), ::GetModuleHandleA(nullptr))};
    ui::Application app{{os.files, os.profiles, os.shell, os.boxes, os.processes, os.loop, screen, os.registry,
                         os.clock, os.windows, os.power, os.shortcuts}};
    prepareProgramFolder(os, app.context(), {{"antivirus=", "antivirus=C:\\AV\\scan.exe| /all "}});
    os.files.put("C:\\AV\\scan.exe", "MZ");
    const auto atEachScale = [](const ui::Form& form, const std::string& what) {
        HWND window = reinterpret_cast<HWND>(form.nativeWindow());
        for (const int dpi : {96, 120, 144, 192}) {
            ::SendMessageA(window, win32::kDpiChanged, MAKEWPARAM(dpi, dpi), 0);
            RECT client{}, wanted = win32::Scale{dpi}.rect(form.clientArea());
            ::GetClientRect(window, &client);
            EXPECT_EQ(std::make_pair(client.right, client.bottom), std::make_pair(wanted.right - wanted.left, wanted.bottom - wanted.top)) << what << " at " << dpi << " DPI";
            EXPECT_EQ(misfits(form, {dpi}), "") << what << " at " << dpi << " DPI";
        }
    };
    ui::MainWindow& main = app.mainForm();
    main.cButton7.userClick();  // About, with the program's version
    for (const ui::Form* form : std::initializer_list<const ui::Form*>{&main, &app.scannerChoice(), &app.scannerCatalogue(),
             &app.scanWindow(), &app.customFolders(), &app.secureShutDown().frmLogoff, &app.secureShutDown().sProg})
        atEachScale(*form, form->name());
    main.Image11.userClick();
    main.options.cSetW.userClick();
    for (int page = 0; page <= 8; ++page, app.setupWizard().Label1.userMouseDown(), app.setupWizard().Label1.userMouseUp())
        atEachScale(app.setupWizard(), "the wizard's page " + std::to_string(page));
}

}  // namespace
}  // namespace tv::test
