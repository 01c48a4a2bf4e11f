#!/usr/bin/env bash
# The program by the keyboard alone. The Tab key walks each window's controls
# in a sensible order (the page shown, the navigation first); Space presses a
# focused button or a pressable label; Enter presses a window's default button
# and Esc its cancel button or its close box. Each control's caption is its
# window text, which screen readers read.
source "$(dirname "$0")/lib.sh"

app=$(new_program_folder)
mkdir -p "$app/Data"
printf '' >"$app/Data/Integrity.dat"
main="Welcome to Tarvelon"
nav="Image5 Image7 Image9 Image11 cButton6 cButton7 cButton9"
tab_order() { auto tab-order "$1" | tr -d '\r' | tr '\n' ' ' | sed 's/ $//'; }
space() { auto key "$1" "$2" 32 >/dev/null; }

start_program "$app" ""
auto wait-window "$main" >/dev/null
expect_eq "the About page's tab order" "$nav Label37 cButton4 cButton5" "$(tab_order "$main")"
expect_eq "the mail link's caption" "Quillfen Software" "$(auto caption "$main" Label37)"

# The three watch pages: a disabled button is no stop.
auto click "$main" Image5 >/dev/null
wait_shown "$main" intF
checks="Combo1 check(0) bDLL check(1) bDRV check(2) bSYS check(3) bOCX check(4) bEXE check(5) bEXE2"
expect_eq "the folder scan page's tab order" "$nav $checks bFULL bCLEAR bSCAN addRem" "$(tab_order "$main")"
auto click "$main" Image7 >/dev/null
wait_shown "$main" regF
expect_eq "the RegWatch page's tab order" "$nav List5 TreeView1 Text4 Command1 cMod" "$(tab_order "$main")"
auto click "$main" Image9 >/dev/null
wait_shown "$main" appF
expect_eq "the AppWatch page's tab order" "$nav lstOpenWindows txtTitle act cl ref" "$(tab_order "$main")"

auto click "$main" Image11 >/dev/null
wait_shown "$main" setFq
expect_eq "the Options page's tab order" \
    "$nav cSetW cSettings cButton2 cCreateSS cUpdates cAbout TreeView2 cReports cButton3" "$(tab_order "$main")"

auto click "$main" cButton2 >/dev/null
wait_shown "$main" advF
# An option group is one stop, at its chosen option.
expect_eq "the advanced page's tab order" \
    "$nav Option1 Option10 Check10 Check11 avfocus Option11 wsh cSave2 cButton1 cSpeeds List1" "$(tab_order "$main")"
auto click "$main" cButton1 >/dev/null
wait_shown "$main" setFq

auto click "$main" cSettings >/dev/null
wait_shown "$main" qSett
checks="Check1 Check2 Check3 Check4 Check5 Check6 Check9 Check8 Check7 Check15 Check14 Check13 Check12 Check16 Check17"
expect_eq "the settings page's tab order" "$nav $checks cButton10 cSave cCancelSett chlp" "$(tab_order "$main")"

selection="Anti-Virus/Trojan Selection Screen"
auto click "$main" cButton10 >/dev/null
auto wait-window "$selection" >/dev/null
expect_eq "the scanner selection's tab order" "Text5 cChoose Text6 chlpFind Text1 cButton10 Text2 cButton1 cButton3 cButton2" \
    "$(tab_order "$selection")"
catalogue="Anti-Virus Shell Help"
auto click "$selection" chlpFind >/dev/null
auto wait-window "$catalogue" >/dev/null
expect_eq "the catalogue's tab order" "List1 Command4 Text2 Command1" "$(tab_order "$catalogue")"
auto key "$catalogue" - 27 >/dev/null  # Esc closes it
auto wait-no-window "$catalogue" >/dev/null
auto key "$selection" - 27 >/dev/null  # Esc: Cancel
auto wait-no-window "$selection" >/dev/null
auto click "$main" cCancelSett >/dev/null
wait_shown "$main" setFq

wizard="Tarvelon - Setup Wizard"
auto click "$main" cSetW >/dev/null
auto wait-window "$wizard" >/dev/null
expect_eq "the wizard's first page's tab order" "Label3 Label1" "$(tab_order "$wizard")"
auto key "$wizard" - 13 >/dev/null  # Enter: Next
auto wait-caption "$wizard" title "Anti-Virus Setup (1/2)" >/dev/null
expect_eq "the wizard's second page's tab order" "vpath locate varg helpme Label2 Label3 Label1" "$(tab_order "$wizard")"
space "$wizard" Label2  # Back, a pressable label
auto wait-caption "$wizard" title "Welcome to the Setup Wizard" >/dev/null
auto key "$wizard" - 27 >/dev/null  # Esc: Cancel, which asks
expect_eq "Esc in the wizard" "Are you sure you want to disregard all changes and exit the setup wizard?" \
    "$(auto box-text TarvelonLow)"
auto press TarvelonLow Yes >/dev/null
auto wait-no-window "$wizard" >/dev/null

auto click "$main" cButton9 >/dev/null  # Exit
expect_eq "exit by the keyboard" "0" "$(auto wait-exit "$PID")"

# The shut-down dialog: its three pictures, Log Off and Cancel; Esc is Cancel.
dialog="Secure Shut Down"
start_program "$app" " /s"
auto wait-window "$dialog" >/dev/null
auto mouse "$dialog" - move >/dev/null  # the pointer off the pictures: no lit picture shows
wait_shown "$dialog" Image4 0
expect_eq "the shut-down dialog's tab order" "Image1 Image3 Image5 Label2 Label1" "$(tab_order "$dialog")"
for name in Image1 Image3 Image5; do
    [ -n "$(auto caption "$dialog" "$name")" ] || fail "$name has no caption for a screen reader"
done
auto key "$dialog" - 27 >/dev/null
expect_eq "Esc in the shut-down dialog" "0" "$(auto wait-exit "$PID")"
echo "keyboard: tab orders, Space, Enter and Esc as expected"
