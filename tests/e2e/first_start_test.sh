#!/usr/bin/env bash
# The first start from a fresh folder: the first full scan refused twice, the data folders and a new
# settings file; a log-on start refused without a baseline; the primary full scan. The main window's pages
# with their tab orders, About and Help; a custom folder added, first scanned and removed. Pictures.
source "$(dirname "$0")/lib.sh"
: "${SCREENSHOTS:?}"

system=$WINEPREFIX/drive_c/windows/system32
main="Welcome to Tarvelon"
manager="Add/Remove Custom Integrity Scan Folders"
nav="Image5 Image7 Image9 Image11 cButton6 cButton7 cButton9"
custom=$WINEPREFIX/drive_c/Tools  # on drive C:, where the folder dialog's tree reaches it
rm -rf "$custom" && mkdir "$custom"
trap 'rm -rf "$custom"; cleanup' EXIT
app=$(new_program_folder)

start_program "$app" ""
refuse_first_run
refuse_first_run
auto wait-window "$main" >/dev/null
[ -d "$app/Data/Log" ] && [ ! -e "$app/Data/Integrity.dat" ] || fail "no Data\\Log, or a data file although refused"
{
    printf '[Tarvelon]\r\nsettings=0,0,0,0,0,0,0,0\r\nadvanced=65536,500,0\r\nantivirus=\r\n'
    printf 'av2=\r\nantivirus2=1,0,0\r\nalgo=crc32\r\n\r\n'
    for n in $(seq 1 20); do printf '[%d]\r\npath=NULL\r\nargs=0,0,0,0,0,0,0\r\nargs2=0,0,0,0,0,0,0\r\n\r\n' "$n"; done
} | cmp - "$app/Data/Tarvelon.dat" || fail "settings file differs from a new one"
expect_eq "About page caption" "Version: 2.0" "$(auto caption "$main" Label33)"
expect_eq "the About page's tab order" "$nav Label37 cButton4 cButton5" "$(tab_order "$main")"
shoot "$main" main-about
auto click "$main" cButton9 >/dev/null
auto wait-exit "$PID" >/dev/null

start_program "$app" " /r"
refuse_first_run
refuse_first_run
expect_eq "refused log-on run" $'Cannot start Auto-Load.  Primary Full Scan has not yet been completed.\r\nClosing' \
    "$(auto box-text TarvelonLow)"
auto press TarvelonLow OK >/dev/null
auto wait-exit "$PID" >/dev/null

start_program "$app" ""
auto press TarvelonLow Yes >/dev/null
wait_for_primary_scan "$app/Data/Integrity.dat"
watched_baseline crc32 "$system" "$WORK/expected.dat"
expect_eq "baseline of the system directory" "$(entries "$WORK/expected.dat")" "$(entries "$app/Data/Integrity.dat")"

# Each page alone, with its tab order (a disabled button is no stop; an option group is one, at its choice).
shown_pages() { local page; for page in intF regF appF setFq settF repF Frame2 advF qSett; do
    [ "$(auto shown "$main" "$page")" == 0 ] || echo "$page"; done | paste -sd' '; }
checks="Check1 Check2 Check3 Check4 Check5 Check6 Check9 Check8 Check7 Check15 Check14 Check13 Check12 Check16 Check17"
for step in "Image7:regF:List5 TreeView1 Text4 Command1 cMod" "Image9:appF:lstOpenWindows txtTitle act cl ref" \
    "Image11:setFq:cSetW cSettings cButton2 cCreateSS cUpdates cAbout TreeView2 cReports cButton3" \
    "cButton2:settF advF:Option1 Option10 Check10 Check11 avfocus Option11 wsh cSave2 cButton1 cSpeeds List1" \
    "cButton1:setFq:" "cSettings:settF qSett:$checks cButton10 cSave cCancelSett chlp" "cCancelSett:setFq:" \
    "cAbout:Frame2:" "Image9:appF:" "cButton7:Frame2:" "Image5:intF:Combo1 check(0) bDLL check(1) bDRV check(2) bSYS check(3) bOCX check(4) bEXE check(5) bEXE2 bFULL bCLEAR bSCAN addRem"; do
    IFS=: read -r control page order <<<"$step"
    auto click "$main" "$control" >/dev/null
    wait_for "pages shown after $control" "$page" shown_pages
    [ -z "$order" ] || expect_eq "the tab order of $page" "$nav $order" "$(tab_order "$main")"
done
expect_eq "version on the About page" "Version: 2.0.0" "$(auto caption "$main" Label33)"
auto click "$main" cButton6 >/dev/null  # this program folder has no Help pages: the web is offered instead
expect_eq "missing help" "The Help file wasn't found or cannot be executed! Would you like to browse Tarvelon help on the web?" \
    "$(auto box-text TarvelonLow)"
auto press TarvelonLow No >/dev/null

auto click "$main" bDLL >/dev/null
shoot "$main" main-integrity-scan

# A custom folder added: the tab order waits for the chosen row's boxes.
printf 't' >"$custom/t.dll"
printf 'u' >"$custom/u v.exe"
auto click "$main" addRem >/dev/null
auto wait-window "$manager" >/dev/null
expect_eq "the folder manager's tab order" "List1 cButton2 Command2 Command3" "$(tab_order "$manager")"
auto click "$manager" cButton2 >/dev/null
tools='C:\Tools\'
auto browse "Please Choose a Folder to Add" "${tools%\\}" >/dev/null
expect_eq "adding" "Folder Added." "$(auto box-text TarvelonLow)"
auto press TarvelonLow OK >/dev/null
auto choose "$manager" List1 0 >/dev/null
expect_eq "the tab order with a folder chosen" "List1 Check1 Check2 cButton2 Command2 Command3" "$(tab_order "$manager")"
auto click "$manager" Check1 >/dev/null
auto tick "$manager" List2 0 >/dev/null
auto wait-caption "$manager" Label1 "Currently Selected: 1) $tools" >/dev/null
shoot "$manager" custom-folders
auto click "$manager" Command3 >/dev/null
expect_eq "saving" "Save Successful!" "$(auto box-text TarvelonLow)"
auto press TarvelonLow OK >/dev/null
auto wait-no-window "$manager" >/dev/null

# Chosen in the folder list, its first scan becomes its baseline, with no scanner and no report.
auto choose "$main" Combo1 1 >/dev/null
expect_eq "first-scan question" "$(printf 'This Custom Folder %s has not been fully scanned yet. The scan is required by the Integrity Checker.\r\n\r\nPerform scan now?' "$tools")" \
    "$(auto box-text TarvelonLow)"
auto press TarvelonLow Yes >/dev/null
expect_eq "end of the first scan" "Initial Custom Folder Scan Completed Successfully!" "$(auto --timeout 60000 box-text TarvelonLow)"
auto press TarvelonLow OK >/dev/null
watched_baseline crc32 "$custom" "$WORK/custom.dat"
expect_eq "the folder's baseline" "$(entries "$WORK/custom.dat")" "$(entries "$app/Data/1.dat")"
[ -z "$(ls -A "$app/Data/Log")" ] || fail "a report was written for a first scan"

# Removed: at once, with its files.
auto click "$main" addRem >/dev/null
auto wait-window "$manager" >/dev/null
auto choose "$manager" List1 0 >/dev/null
auto click "$manager" Command2 >/dev/null
auto press "Caution!" OK >/dev/null
expect_eq "first row after removal" "1) Empty:" "$(auto items "$manager" List1 | head -1 | tr -d '\r')"
[ ! -e "$app/Data/1.dat" ] && [ ! -e "$app/Data/1.bak" ] || fail "the folder's data files are still there"
auto click "$main" cButton9 >/dev/null
expect_eq "exit code after Exit" "0" "$(auto wait-exit "$PID")"
echo "first start: refusals, primary scan, pages and a custom folder's life as expected"
