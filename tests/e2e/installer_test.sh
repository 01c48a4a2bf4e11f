#!/usr/bin/env bash
# The release: both setups and the portable archive carry the stripped programs, the help (every page
# reached, every link whole), the licence, the notices and the release notes. The released setups are
# 32-bit programs (to tell 32-bit Windows why the 64-bit one cannot run), and this Wine runs 64-bit ones
# only: the journeys run the same script over the same files on the 64-bit stub, for the current user,
# for all users and into a folder of the user's choosing and over it, with the rights they grant, a
# refused upgrade while Tarvelon runs, Auto-Load and the silent uninstaller (it leaves Data\ and the
# shortcuts of other programs).
source "$(dirname "$0")/lib.sh"
: "${RELEASE:?} ${FAKESCAN:?}"
root=$(cd "$(dirname "$0")/../.." && pwd)
version=$(tr -d '\n' <"$(dirname "$TARVELON_EXE")/version.txt")

# The release's files.
has_release_files() {  # folder, objdump format of its program
    for file in TarvelonLow.exe Help/index.html LICENSE.txt NOTICES.txt CHANGELOG.md; do [ -f "$1/$file" ] || fail "$1 lacks $file"; done
    x86_64-w64-mingw32-objdump -f "$1/TarvelonLow.exe" | grep -q "file format $2" || fail "$1 holds no $2 program"
    ! x86_64-w64-mingw32-objdump -h "$1/TarvelonLow.exe" | grep -q '\.debug' || fail "$1: the program keeps its symbols"
    for word in 'GCC RUNTIME LIBRARY EXCEPTION' Lucent winpthreads; do grep -q "$word" "$1/NOTICES.txt" || fail "$1: $word's notice"; done
}
declare -A format=([x64]=pei-x86-64 [x86]=pei-i386)
7zz x -o"$WORK/zip" "$RELEASE/Tarvelon-$version-portable.zip" >/dev/null || fail "the portable archive cannot be read"
[ -f "$WORK/zip/Tarvelon-$version/README.txt" ] || fail "the portable archive lacks README.txt"
for arch in x64 x86; do
    setup=$RELEASE/Tarvelon-$version-setup-$arch.exe
    i686-w64-mingw32-objdump -f "$setup" | grep -q 'file format pei-i386' || fail "the $arch setup is no 32-bit program"
    grep -aq '<dpiAware[^>]*>true</dpiAware>' "$setup" || fail "the $arch setup is not DPI aware"
    7zz x -o"$WORK/$arch" "$setup" >/dev/null || fail "the $arch setup cannot be read"
    has_release_files "$WORK/$arch" "${format[$arch]}"
    has_release_files "$WORK/zip/Tarvelon-$version/$arch" "${format[$arch]}"
done
# The version record's systems: any 32-bit Windows (VOS__WINDOWS32), 98 as well as NT.
at=$(LC_ALL=C grep -obUaP -m1 '\xbd\x04\xef\xfe' "$WORK/x86/TarvelonLow.exe" | cut -d: -f1)
expect_eq "the version record's systems" 4 "$(od -An -tu4 -j $((at + 32)) -N4 "$WORK/x86/TarvelonLow.exe" | tr -d ' ')"
help=$WORK/x64/Help links=$(cat "$WORK/x64/Help"/*.html | grep -oE '(href|src)="[^"#:]+"' | cut -d'"' -f2 | sort -u)
for target in $links; do [ -f "$help/$target" ] || fail "a help page links to the missing $target"; done
expect_eq "help pages that links lead to" "$(cd "$help" && ls -- *.html)" "$(grep -x '[^/]*\.html' <<<"$links")"
(cd "$RELEASE" && sha256sum --quiet -c SHA256SUMS.txt) || fail "the checksums of the release"
expect_eq "files the checksums cover" "3" "$(wc -l <"$RELEASE/SHA256SUMS.txt")"

build_setup() {  # arch, version
    makensis -V1 -DSTUB=amd64-unicode -DVERSION="$2" -DARCH="$1" -DPROGRAM="$WORK/$1/TarvelonLow.exe" \
        -DHELP="$WORK/$1/Help" -DDOCS="$WORK/$1" -DICON="$root/packaging/tarvelon.ico" \
        -DOUTFILE="$WORK/setup-$1-$2.exe" "$root/packaging/installer/tarvelon.nsi" || fail "building the $1 setup"
}
build_setup x64 "$version"
build_setup x64 9.9.9

user=$(id -un)
own="$WINEPREFIX/drive_c/users/$user/AppData/Local/Programs"
own_menu="$WINEPREFIX/drive_c/users/$user/AppData/Roaming/Microsoft/Windows/Start Menu/Programs"
all="$WINEPREFIX/drive_c/Program Files/Tarvelon"
all_menu="$WINEPREFIX/drive_c/ProgramData/Microsoft/Windows/Start Menu/Programs"
tools="$WINEPREFIX/drive_c/Tools/Tarvelon"
uninstall='Software\Microsoft\Windows\CurrentVersion\Uninstall'
# What the setup grants is recorded by a stand-in for Wine's icacls: Wine keeps no access lists.
icacls=$WINEPREFIX/drive_c/windows/system32/icacls.exe
cp "$icacls" "$WORK/icacls.wine"
export WINEDLLOVERRIDES="$WINEDLLOVERRIDES;icacls.exe=n" TARVELON_FAKESCAN_LOG_ICACLS
TARVELON_FAKESCAN_LOG_ICACLS=$(windows_path "$WORK/icacls.log")
remove_installations() {
    rm -rf "$own/Tarvelon" "$all" "$tools" "$own_menu/Tarvelon"* "$all_menu/Tarvelon" \
        "$own_menu/StartUp/Tarvelon.lnk" "$all_menu/StartUp/Tarvelon.lnk"
    for key in "HKCU\\$uninstall\\Tarvelon" "HKLM\\$uninstall\\Tarvelon"; do wine reg delete "$key" /f >/dev/null 2>&1 || true; done
}
trap 'remove_installations; cp "$WORK/icacls.wine" "$icacls"; cleanup' EXIT
cp "$FAKESCAN" "$icacls"
remove_installations

value() { wine reg query "$1" /v "$2" 2>/dev/null | tr -d '\r' | sed -n "s/^ *$2 *REG_[A-Z]* *//p"; }  # key, name
values() { local name; for name in "${@:2}"; do value "$1" "$name"; done | paste -sd'|'; }  # key, names
granted() { tr -d '\r' <"$WORK/icacls.log" | sed -n 's/.* \/inheritance:r \/grant:r \(.*\) \/C \/Q$/\1/p' | tail -n 1; }
setup() {  # the setup's name, its exit code, its arguments
    local code=0
    wine "$WORK/setup-$1.exe" "${@:3}" >"$WORK/setup.log" 2>&1 || code=$?
    expect_eq "exit code of setup-$1 ${*:3}" "$2" "$code"
}
# Whether the key is missing, as reg says; a reg that did not run at all (Wine now and then fails to start a
# process on a busy machine) is asked again rather than taken for a missing key.
gone() {
    local out try
    for try in 1 2 3; do
        out=$(wine reg query "$1" 2>&1) && return 1
        [[ $out == *"Unable to find"* ]] && return 0
    done
    fail "reg query $1 did not answer: $out"
}
uninstall() {  # folder, its entry: the silent uninstaller runs on from a copy of itself; its entry goes last
    wine "$1/Uninstall.exe" /S >"$WORK/uninstall.log" 2>&1 || fail "the uninstaller failed"
    wait_until 60 "the uninstaller's end" gone "$2"
    expect_eq "left in $1" "Data" "$(ls "$1")"
}
installed() {  # folder, its entry, its Start menu folder
    cmp -s "$WORK/x64/TarvelonLow.exe" "$1/TarvelonLow.exe" || fail "$1 holds no program of the x64 setup"
    for file in Uninstall.exe Help/first-steps.html LICENSE.txt NOTICES.txt CHANGELOG.md Data/Log; do [ -e "$1/$file" ] || fail "$1 lacks $file"; done
    for entry in Tarvelon "Secure Shut Down" Help "Uninstall Tarvelon"; do [ -f "$3/$entry.lnk" ] || fail "no $3/$entry.lnk"; done
    expect_eq "installed programs' entry" "Tarvelon|$version|Quillfen Software|https://www.quillfen.com/|https://www.quillfen.com/" \
        "$(values "$2" DisplayName DisplayVersion Publisher HelpLink URLInfoAbout)"
    [[ $(value "$2" EstimatedSize) =~ ^0x[0-9a-f]{3,}$ ]] || fail "the entry's size: $(value "$2" EstimatedSize)"
}

# For the current user, by default: the user's programs folder, entry and Start
# menu, the folder granted to the user, the administrators and the system only.
setup "x64-$version" 0 /S
installed "$own/Tarvelon" "HKCU\\$uninstall\\Tarvelon" "$own_menu/Tarvelon"
gone "HKLM\\$uninstall\\Tarvelon" || fail "a current user's installation is entered for the machine"
[[ $(granted) =~ ^\*S-1-5-21-[0-9-]+:\(OI\)\(CI\)F\ \*S-1-5-32-544:\(OI\)\(CI\)F\ \*S-1-5-18:\(OI\)\(CI\)F$ ]] ||
    fail "rights of a current user's installation: $(granted)"
grep -q 'S-1-5-32-545' "$WORK/icacls.log" && fail "the setup gave the machine's users rights"
PID=$(auto start "\"C:\\users\\$user\\AppData\\Local\\Programs\\Tarvelon\\TarvelonLow.exe\"")
STARTED+=("$PID")
auto press TarvelonLow Yes >/dev/null
wait_for_primary_scan "$own/Tarvelon/Data/Integrity.dat"
# Auto-Load ticked on the settings page and saved.
auto click "Welcome to Tarvelon" Image11 >/dev/null && auto click "Welcome to Tarvelon" cSettings >/dev/null
wait_shown "Welcome to Tarvelon" qSett
auto click "Welcome to Tarvelon" Check1 >/dev/null && auto click "Welcome to Tarvelon" cSave >/dev/null
auto press TarvelonLow OK >/dev/null
[ -f "$own_menu/StartUp/Tarvelon.lnk" ] && [ ! -e "$all_menu/StartUp/Tarvelon.lnk" ] ||
    fail "Auto-Load of a current user's installation is not in the user's own Startup folder"
setup "x64-9.9.9" 3 /S  # while Tarvelon runs
cmp -s "$WORK/x64/TarvelonLow.exe" "$own/Tarvelon/TarvelonLow.exe" || fail "an upgrade touched the running program"
expect_eq "version after a refused upgrade" "$version" "$(value "HKCU\\$uninstall\\Tarvelon" DisplayVersion)"
auto click "Welcome to Tarvelon" cButton9 >/dev/null
auto wait-exit "$PID" >/dev/null
# Another program's Auto-Load shortcut, which is not the uninstaller's to remove.
cp "$own_menu/Tarvelon/Help.lnk" "$all_menu/StartUp/Tarvelon.lnk"
cp "$own_menu/Tarvelon/Secure Shut Down.lnk" "$own/Tarvelon/SecureShutDown.lnk"
uninstall "$own/Tarvelon" "HKCU\\$uninstall\\Tarvelon"
[ ! -e "$own_menu/Tarvelon" ] && [ ! -e "$own_menu/StartUp/Tarvelon.lnk" ] || fail "the uninstall left shortcuts"
[ -f "$all_menu/StartUp/Tarvelon.lnk" ] || fail "the uninstall removed another program's shortcut"
rm "$all_menu/StartUp/Tarvelon.lnk"

# For all users: Program Files, the machine's entry and Start menu, users may
# read and run it only.
setup "x64-$version" 0 /S /AllUsers
installed "$all" "HKLM\\$uninstall\\Tarvelon" "$all_menu/Tarvelon"
gone "HKCU\\$uninstall\\Tarvelon" || fail "an installation for all users is entered for the user"
expect_eq "rights of an installation for all users" "*S-1-5-32-544:(OI)(CI)F *S-1-5-18:(OI)(CI)F *S-1-5-32-545:(OI)(CI)RX" "$(granted)"
cp "$all_menu/Tarvelon/Tarvelon.lnk" "$all_menu/StartUp/Tarvelon.lnk"  # this installation's Auto-Load
uninstall "$all" "HKLM\\$uninstall\\Tarvelon"
[ ! -e "$all_menu/StartUp/Tarvelon.lnk" ] && [ ! -e "$all_menu/Tarvelon" ] || fail "the uninstall left shortcuts"

# A folder of the user's choosing, found again by the next version.
setup "x64-$version" 0 /S '/D=C:\Tools\Tarvelon'
touch "$tools/Data/Tarvelon.dat"
setup "x64-9.9.9" 0 /S
expect_eq "upgraded installation" "9.9.9|C:\\Tools\\Tarvelon" "$(values "HKCU\\$uninstall\\Tarvelon" DisplayVersion InstallLocation)"
[ ! -e "$own/Tarvelon/TarvelonLow.exe" ] && [ -f "$tools/Data/Tarvelon.dat" ] || fail "the upgrade made a second copy"
uninstall "$tools" "HKCU\\$uninstall\\Tarvelon"

echo "release: files, help, programs, notices; installs for the user, all users and a folder, upgrades and uninstalls"
