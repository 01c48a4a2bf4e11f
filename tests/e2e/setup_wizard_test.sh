#!/usr/bin/env bash
# A user sets Tarvelon up in one start: a report opened and deleted; both shortcuts; a scanner from the
# open-file dialog; the wizard's nine pages by mouse and keyboard, with the catalogue's search and its
# scanner test. Each save changes only its keys of the settings file. Pictures and tab orders.
source "$(dirname "$0")/lib.sh"
: "${FAKESCAN:?}"

main="Welcome to Tarvelon" wizard="Tarvelon - Setup Wizard" catalogue="Anti-Virus Shell Help"
selection="Anti-Virus/Trojan Selection Screen" file_box="Choose Anti-Virus Executable File"
startup="$WINEPREFIX/drive_c/users/$(id -un)/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/StartUp"  # the user's own
# The prefix's Desktop may be the Unix home folder: only what this test makes there goes.
desktop=$(readlink -f "$WINEPREFIX/drive_c/users/$(id -un)/Desktop")
programs="$WINEPREFIX/drive_c/Program Files"  # where the catalogue's search finds AVG
trap 'rm -rf "$startup/Tarvelon.lnk" "$desktop/SecureShutDown.lnk" "$programs/Grisoft"; cleanup' EXIT
rm -rf "$startup/Tarvelon.lnk" "$desktop/SecureShutDown.lnk" "$programs/Grisoft"

app=$(new_program_folder)
program="$(windows_path "$app")\\TarvelonLow.exe"
mkdir -p "$app/Data/Log/03-07-2006(1_00_00AM).log" "$programs/Grisoft/AVG"
watched_baseline crc32 "$(mktemp -d "$WORK/none.XXXXXX")" "$app/Data/Integrity.dat"
cp "$FAKESCAN" "$programs/Grisoft/AVG/avgse.exe"
avg='C:\Program Files\Grisoft\AVG\avgse.exe'
# A first scanner of 250 characters, with blanks and Norton's mark in a folder's name.
mkdir -p "$WORK/Anti Virus/NAVW tools"
long="$(windows_path "$WORK/Anti Virus/NAVW tools")\\scan "
long+=$(printf 'x%.0s' $(seq $((250 - ${#long} - 4)))).exe
printf 'MZ' >"$WORK/Anti Virus/NAVW tools/${long##*\\}"
# Batches of two files, reports on.
{
    printf '[Tarvelon]\r\nsettings=1,1,1,1,1,1,1,1\r\nsettings2=1,1,1,1,1,1\r\nadvanced=65536,2,0\r\n'
    printf 'antivirus=%s|/all\r\nav2=|\r\nantivirus2=1,0,0\r\nalgo=crc32\r\n\r\n' "$avg"
    for n in $(seq 1 20); do printf '[%d]\r\npath=NULL\r\nargs=0,0,0,0,0,0,0\r\nargs2=0,0,0,0,0,0,0\r\n\r\n' "$n"; done
} >"$app/Data/Tarvelon.dat"
heading="Integrity Checker - These files were either New or Failed the Integrity Check"
sys='C:\windows\system32\'
printf '%s,%sa.dll,%sb&c.exe,C:\\x.dll\r\n' "$heading" "$sys" "$sys" >"$app/Data/Log/03-05-2006(7_30_00AM).log"
printf '%s,%sd.dll\r\n' "$heading" "$sys" >"$app/Data/Log/03-06-2006(5_00_00PM).log"
export TARVELON_FAKESCAN_LOG
TARVELON_FAKESCAN_LOG=$(windows_path "$WORK/scans.log")

answer() { expect_eq "message" "$1" "$(auto box-text TarvelonLow)"; auto press TarvelonLow "$2" >/dev/null; }  # prompt, button
open_page() { auto click "$main" "$1" >/dev/null; wait_shown "$main" "$2"; }  # button, the page it shows
save_page() { auto click "$main" "$1" >/dev/null; answer "$2" OK; }            # button, its message
link_of() { auto link "$(windows_path "$1")" | tr -d '\r'; }
sorted_tree() { auto tree "$main" TreeView2 | tr -d '\r' | sort; }
# The settings file without the blank lines, which the system's profile writer drops.
snapshot() { tr -d '\r' <"$app/Data/Tarvelon.dat" | grep -v '^$'; }
saved=$(snapshot)
expect_saved() {  # key=value...: the settings file is the one before with these lines replaced
    local expected="" line pair
    while IFS= read -r line; do
        for pair; do [[ $line == "${pair%%=*}="* ]] && line=$pair; done
        expected+=$line$'\n'
    done <<<"$saved"
    saved=${expected%$'\n'}
    expect_eq "settings file after the save" "$saved" "$(snapshot)"
}

start_program "$app" ""
auto wait-window "$main" >/dev/null
auto click "$main" Image9 >/dev/null && auto click "$main" ref >/dev/null
counted() { [[ $(auto caption "$main" lblCount) == *" open Windows." ]]; }
wait_until 20 "AppWatch's list" counted
shoot "$main" main-appwatch

# The reports by date and time; a folder named like a report is listed as one.
auto click "$main" Image11 >/dev/null
auto click "$main" cReports >/dev/null
wait_for "tree of the reports" "$(printf '%s\n' 03-05-2006 '03-05-2006\7:30:00 AM' 03-06-2006 '03-06-2006\5:00:00 PM' \
    03-07-2006 '03-07-2006\1:00:00 AM' | sort)" sorted_tree
auto tree-select "$main" TreeView2 '03-05-2006\7:30:00 AM' >/dev/null
shoot "$main" main-options
auto click "$main" cViewReport >/dev/null
wait_shown "$main" repF
expect_eq "the report's entries" "$(printf '%s\n' "$heading" "${sys}a.dll" "${sys}b&c.exe" 'C:\x.dll')" "$(auto items "$main" List4 | tr -d '\r')"
shoot "$main" main-report
auto click "$main" cDelLog >/dev/null
answer "Are you sure you want to delete this Report?" Yes
wait_for "tree after the deletion" "$(printf '%s\n' 03-06-2006 '03-06-2006\5:00:00 PM' 03-07-2006 '03-07-2006\1:00:00 AM' | sort)" sorted_tree

# The settings page and the Options page make both shortcuts.
open_page cSettings qSett
shoot "$main" main-settings
printf 'not a shortcut' >"$startup/Tarvelon.lnk"  # made anew
for box in Check1 Check3 Check5 Check6 Check7 Check14 Check12 Check16; do auto click "$main" "$box" >/dev/null; done
save_page cSave "Settings Saved Successfully"
expect_saved settings=1,0,1,0,0,1,1,0 settings2=1,0,1,0,0,1
expect_eq "Auto-Load shortcut" "$program"$'\n'" /r" "$(link_of "$startup/Tarvelon.lnk")"
open_page cCancelSett setFq
auto click "$main" cCreateSS >/dev/null
answer $'Tarvelon will now create a shortcut for you to use the Secure ShutDown and Scan Feature.\r\nWould you like this shortcut on your Desktop?' Yes
answer "Success!" OK
expect_eq "shut-down shortcut on the Desktop" "$program"$'\n'" /s" "$(link_of "$desktop/SecureShutDown.lnk")"

# The advanced page keeps a batch size none of its options stands for; the warning
# shows while neither scanner option is ticked.
open_page cButton2 advF
shoot "$main" main-advanced
for option in Option3 Option12 wsh Check10; do auto click "$main" "$option" >/dev/null; done
wait_shown "$main" Label1
save_page cSave2 "Save Success!"
expect_saved advanced=262144,2,1 antivirus2=0,0,0 algo=MD5
open_page cButton1 setFq

# The scanner selection takes a program from the open-file dialog.
auto click "$main" cButton10 >/dev/null
auto wait-window "$selection" >/dev/null
expect_eq "the selection's tab order" "Text5 cChoose Text6 chlpFind Text1 cButton10 Text2 cButton1 cButton3 cButton2" "$(tab_order "$selection")"
shoot "$selection" scanner-choice
auto click "$selection" cChoose >/dev/null
auto open-file "$file_box" "$long" >/dev/null
answer "Don't forget to Save!" OK
expect_eq "first scanner from the file box" "$long|/HEUR:3" "$(auto caption "$selection" Text5)|$(auto caption "$selection" Text6)"
auto click "$selection" cButton3 >/dev/null
answer "Save Success!" OK
auto wait-no-window "$selection" >/dev/null
expect_saved "antivirus=$long|/HEUR:3"

# The wizard: Next acts when the mouse button or Space is let go over it; Esc asks.
page() {  # title, the controls the Tab key walks
    auto wait-caption "$wizard" title "$1" >/dev/null
    expect_eq "the tab order of \"$1\"" "$2" "$(tab_order "$wizard")"
}
next_page() { auto key "$wizard" Label1 32 >/dev/null; page "$@"; }  # Space on Next
open_page cCancelSett setFq
auto click "$main" cSetW >/dev/null
auto wait-window "$wizard" >/dev/null
page "Welcome to the Setup Wizard" "Label3 Label1"
for what in move down up; do auto mouse "$wizard" Label1 "$what" >/dev/null; done
page "Anti-Virus Setup (1/2)" "vpath locate varg helpme Label2 Label3 Label1"
auto click "$wizard" helpme >/dev/null  # the catalogue's search finds AVG under Program Files
auto wait-window "$catalogue" >/dev/null
expect_eq "the catalogue's tab order" "List1 Command4 Text2 Command1" "$(tab_order "$catalogue")"
auto choose "$catalogue" List1 2 >/dev/null
shoot "$catalogue" scanner-catalogue
auto click "$catalogue" Command4 >/dev/null
answer "Success!" OK
auto wait-caption "$catalogue" Text2 "$avg" >/dev/null
auto click "$catalogue" Command2 >/dev/null  # its test, before it may be used
answer "Tarvelon will now attempt to scan two files. If the Virus-Scanner you selected scans both files, then it is fully compatible with Tarvelon! If not, make sure you chose the correct EXE file in your anti-virus folder." OK
# Without quotes since the advanced page's save, with the data file of the algorithm chosen there.
wait_for "the scanner test's command line" "$avg $(windows_path "$app")\\Data\\Tarvelon.dat $(windows_path "$app")\\Data\\Integrity-md5.dat" sorted_scans
auto click "$catalogue" Command3 >/dev/null
auto wait-no-window "$catalogue" >/dev/null
auto wait-caption "$wizard" vpath "$avg" >/dev/null
auto mouse "$wizard" Label1 move >/dev/null  # Next lit
shoot "$wizard" setup-wizard
auto key "$wizard" - 27 >/dev/null
answer "Are you sure you want to disregard all changes and exit the setup wizard?" No
next_page "Anti-Virus Setup (2/2)" "Command1 Label2 Label3 Label1"
for step in "Main Settings (1/3):aload:" "Main Settings (2/3):Check1 Check2 Check3 Check4 Check5 Check8:Check1 Check2 Check4" \
    "Main Settings (3/3):Check6:Check6" "Other Settings (1/2):Check7:" "Other Settings (2/2):cButton1:"; do
    IFS=: read -r title order ticks <<<"$step"
    next_page "$title" "$order Label2 Label3 Label1"
    for box in $ticks; do auto click "$wizard" "$box" >/dev/null; done
done
next_page "You're done!" "Command2 Label2 Label3"
auto click "$wizard" Command2 >/dev/null
answer "Settings Saved Successfully!" OK
auto wait-no-window "$wizard" >/dev/null
expect_saved settings=0,1,1,1,0,1,0,0 "antivirus=$avg| "

auto click "$main" cButton9 >/dev/null
auto wait-exit "$PID" >/dev/null
echo "setup: the reports, the settings pages, the scanners, the wizard, both shortcuts, pictures and tab orders"
