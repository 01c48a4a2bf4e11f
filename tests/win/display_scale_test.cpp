// Every window of the program through the real renderer, at the display scale
// of this run (tests/e2e/display_scale_test.sh runs it at 96, 120, 144 and 192
// DPI): each caption is measured in its control's own font against the room
// the control leaves it, and each control against its window's client area.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

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
    std::pair<const std::string*, HWND> search{&name, nullptr};
    ::EnumChildWindows(form, [](HWND child, LPARAM param) -> BOOL {
        auto& [wanted, found] = *reinterpret_cast<std::pair<const std::string*, HWND>*>(param);
        char own[256] = {};
        ::GlobalGetAtomNameA(static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(::GetPropA(child, win32::kNameProperty))), own, 256);
        if (*wanted == own) found = child;
        return !found;
    }, reinterpret_cast<LPARAM>(&search));
    return search.second;
}

// The width a control's own drawing takes beside its caption (a box, the
// margins of a face or a group), -1 when it shows no caption of its own; and
// whether the caption wraps.
struct Room {
    int taken;
    bool wraps = false;
};
Room captionRoom(const ui::Control& control, win32::Scale scale) {
    switch (control.kind()) {
    case Kind::Label: return {0, true};
    case Kind::FlatButton: return {2 * scale.px(4)};
    case Kind::Image: return {control.picture().empty() ? 2 * scale.px(4) : -1};
    case Kind::FlatCheck:
    case Kind::OptionButton: return {scale.px(19)};
    case Kind::CheckBox: return {scale.px(19), true};
    case Kind::Frame: return {2 * scale.px(8)};
    default: return {-1};
    }
}

// The caption's size in the window's own font, wrapped at `width` when it wraps.
SIZE measure(HWND window, const std::string& text, int width, bool wraps) {
    HDC dc = ::GetDC(window);
    HGDIOBJ old = ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(::SendMessageA(window, WM_GETFONT, 0, 0)));
    RECT area{0, 0, width, 0};
    ::DrawTextA(dc, text.c_str(), -1, &area, DT_CALCRECT | (wraps ? DT_WORDBREAK : DT_SINGLELINE));
    ::SelectObject(dc, old);
    ::ReleaseDC(window, dc);
    return {area.right, area.bottom};
}

// What does not fit on one window laid out at `scale`, one line per fault.
std::vector<std::string> misfits(const ui::Form& form, win32::Scale scale) {
    std::vector<std::string> faults;
    for (const auto& control : form.controls()) {
        // Timers and the empty places that only hold a value show nothing.
        if (control->kind() == Kind::Timer || control->bounds().width == 0 || control->bounds().height == 0) continue;
        const std::string where = form.name() + "." + control->name();
        HWND window = childNamed(reinterpret_cast<HWND>(form.nativeWindow()), control->name());
        if (!window) {
            faults.push_back(where + " has no window");
            continue;
        }
        RECT own{}, room{}, client{};
        ::GetWindowRect(window, &own);
        ::GetClientRect(::GetParent(window), &room);
        ::MapWindowPoints(::GetParent(window), nullptr, reinterpret_cast<POINT*>(&room), 2);
        if (own.left < room.left || own.top < room.top || own.right > room.right || own.bottom > room.bottom)
            faults.push_back(where + " leaves its window");
        const Room text = captionRoom(*control, scale);
        if (control->caption().empty() || text.taken < 0) continue;
        ::GetClientRect(window, &client);
        const SIZE needs = measure(window, control->caption(), client.right - text.taken, text.wraps);
        if (needs.cx > client.right - text.taken || needs.cy > client.bottom)
            faults.push_back(where + " \"" + control->caption() + "\" needs " + std::to_string(needs.cx) + " by " +
                             std::to_string(needs.cy) + " pixels");
    }
    return faults;
}

class DisplayScale : public ::testing::Test {
protected:
    DisplayScale() {
        prepareProgramFolder(os, app.context(), {{"antivirus=", "antivirus=C:\\AV\\scan.exe| /all "}});
        os.files.put("C:\\AV\\scan.exe", "MZ");
    }
    void expectFits(const ui::Form& form, const std::string& state = {}, int dpi = win32::systemDpi()) {
        std::string all;
        for (const auto& fault : misfits(form, {dpi})) all += "\n  " + fault;
        EXPECT_TRUE(all.empty()) << form.name() << state << " at " << dpi << " DPI:" << all;
    }
    int fontHeight(HWND window) {
        LOGFONTA font{};
        ::GetObjectA(reinterpret_cast<HGDIOBJ>(::SendMessageA(window, WM_GETFONT, 0, 0)), sizeof font, &font);
        return std::abs(font.lfHeight);
    }

    FakePlatform os;
    win32::Win32Renderer screen{(win32::declareDpiAwareness(), ::GetModuleHandleA(nullptr))};
    ui::Application app{{os.files, os.profiles, os.shell, os.boxes, os.processes, os.loop, screen, os.registry,
                         os.clock, os.windows, os.power, os.shortcuts}};
};

TEST_F(DisplayScale, EveryWindowFitsItsCaptions) {
    ui::MainWindow& main = app.mainForm();
    main.cButton7.userClick();  // About, with the program's version
    for (const ui::Form* form : std::initializer_list<const ui::Form*>{&main, &app.scannerChoice(), &app.scannerCatalogue(),
             &app.scanWindow(), &app.customFolders(), &app.secureShutDown().frmLogoff, &app.secureShutDown().sProg})
        expectFits(*form);
    main.Image11.userClick();
    main.options.cSetW.userClick();
    ui::SetupWizardForm& wizard = app.setupWizard();
    for (int page = 0; page <= 8; ++page) {
        expectFits(wizard, " page " + std::to_string(page));
        wizard.Label1.userMouseDown();
        wizard.Label1.userMouseUp();
    }
}

// A move to a monitor of another scale: the window's size, layout and fonts follow.
TEST_F(DisplayScale, MainWindowFollowsItsMonitor) {
    HWND window = reinterpret_cast<HWND>(app.mainForm().nativeWindow());
    const int from = win32::windowDpi(window), to = from == 144 ? 192 : 144;
    const int before = fontHeight(childNamed(window, "Label36"));
    const win32::Scale target{to};
    const RECT frame = win32::frameFor(target.rect(app.mainForm().clientArea()), ::GetWindowLongA(window, GWL_STYLE),
                                       ::GetWindowLongA(window, GWL_EXSTYLE), to);
    ::SendMessageA(window, win32::kDpiChanged, MAKEWPARAM(to, to), reinterpret_cast<LPARAM>(&frame));
    RECT client{};
    ::GetClientRect(window, &client);
    EXPECT_EQ(std::to_string(client.right) + "x" + std::to_string(client.bottom), std::to_string(target.px(720)) + "x" + std::to_string(target.px(500)));
    EXPECT_NEAR(fontHeight(childNamed(window, "Label36")), before * to / from, 1);
    expectFits(app.mainForm(), " moved", to);
}

}  // namespace
}  // namespace tv::test
