#!/usr/bin/env bash
# The release as a Windows user gets it. The 64-bit installer installs silently
# into the test prefix: the program, its help, a writable Data folder, the Start
# menu entries and the uninstall entry. The installed program makes its primary
# full scan and then a clean log-on check. The silent uninstaller removes the
# program, its entries and the shortcuts the program may have made, and keeps
# Data\. The 32-bit installer and the portable archive hold what they should.
source "$(dirname "$0")/lib.sh"
: "${RELEASE:?}"

setups=("$RELEASE"/Tarvelon-*-setup-x64.exe)
[ -f "${setups[0]}" ] || fail "no installer in $RELEASE"
version=$(basename "${setups[0]}")
version=${version#Tarvelon-}
version=${version%-setup-x64.exe}
[ "$version" == "$(tr -d '\n' <"$(dirname "$TARVELON_EXE")/version.txt")" ] || fail "installer version $version"

target='C:\Program Files\Tarvelon'
installed="$WINEPREFIX/drive_c/Program Files/Tarvelon"
programs="$WINEPREFIX/drive_c/ProgramData/Microsoft/Windows/Start Menu/Programs"
key='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Tarvelon'
remove_installation() {
    rm -rf "$installed" "$programs/Tarvelon" "$programs/StartUp/Tarvelon.lnk"
    wine reg delete "$key" /f >/dev/null 2>&1 || true
}
trap 'remove_installation; cleanup' EXIT
remove_installation

wine "${setups[0]}" /S "/D=$target" >"$WORK/setup.log" 2>&1 || fail "the installer failed"
for file in TarvelonLow.exe Uninstall.exe Help/index.html Help/first-steps.html; do
    [ -f "$installed/$file" ] || fail "$file was not installed"
done
[ -d "$installed/Data" ] || fail "Data\\ was not made"
cmp -s "$TARVELON_EXE" "$installed/TarvelonLow.exe" || fail "the installed program file is not the built one"
for entry in Tarvelon "Secure Shut Down" Help "Uninstall Tarvelon"; do
    [ -f "$programs/Tarvelon/$entry.lnk" ] || fail "Start menu entry $entry.lnk is missing"
done
wine reg query "$key" /v DisplayVersion 2>/dev/null | tr -d '\r' | grep -q "REG_SZ *$version\$" ||
    fail "Add/Remove Programs does not list version $version"

# The installed program: its first start makes the primary full scan, and
# the log-on check that follows finds nothing and ends by itself.
PID=$(auto start "\"$target\\TarvelonLow.exe\"")
STARTED+=("$PID")
auto press TarvelonLow Yes >/dev/null
wait_for_primary_scan "$installed/Data/Integrity.dat"
auto click "Welcome to Tarvelon" cButton9 >/dev/null
auto wait-exit "$PID" >/dev/null
PID=$(auto start "\"$target\\TarvelonLow.exe\" /r")
STARTED+=("$PID")
expect_eq "exit of the clean log-on check" "0" "$(auto --timeout 120000 wait-exit "$PID")"
[ -z "$(ls "$installed/Data/Log")" ] || fail "a clean check wrote a report"

# Shortcuts as the program makes them, for the uninstaller to find.
mkdir -p "$programs/StartUp"
cp "$programs/Tarvelon/Tarvelon.lnk" "$programs/StartUp/Tarvelon.lnk"
cp "$programs/Tarvelon/Secure Shut Down.lnk" "$installed/SecureShutDown.lnk"

wine "$installed/Uninstall.exe" /S >"$WORK/uninstall.log" 2>&1 || fail "the uninstaller failed"
uninstalled() { ! wine reg query "$key" >/dev/null 2>&1; }
wait_until 60 "the uninstaller's end" uninstalled  # it runs on from a copy of itself; its entry goes last
for gone in "$installed/TarvelonLow.exe" "$installed/Uninstall.exe"; do
    [ ! -e "$gone" ] || fail "$gone is left after the uninstall"
done
for gone in "$installed/Help" "$installed/SecureShutDown.lnk" "$programs/Tarvelon" "$programs/StartUp/Tarvelon.lnk"; do
    [ ! -e "$gone" ] || fail "$gone is left after the uninstall"
done
[ -f "$installed/Data/Integrity.dat" ] || fail "the silent uninstall removed the user's baselines"

# The 32-bit installer: a 32-bit stub holding the 32-bit program and the help.
x86=$RELEASE/Tarvelon-$version-setup-x86.exe
i686-w64-mingw32-objdump -f "$x86" | grep -q 'file format pei-i386' || fail "the x86 installer's stub is not 32-bit"
x86_64-w64-mingw32-objdump -f "${setups[0]}" | grep -q 'file format pei-x86-64' || fail "the x64 installer's stub is not 64-bit"
7zz x -o"$WORK/x86" "$x86" >/dev/null || fail "the x86 installer cannot be read"
for file in TarvelonLow.exe Help/index.html Help/first-steps.html; do
    [ -f "$WORK/x86/$file" ] || fail "the x86 installer lacks $file"
done
i686-w64-mingw32-objdump -f "$WORK/x86/TarvelonLow.exe" | grep -q 'file format pei-i386' ||
    fail "the x86 installer holds no 32-bit program"

python3 - "$RELEASE/Tarvelon-$version-portable.zip" "$version" <<'PY' || fail "the portable archive"
import sys, zipfile
names = set(zipfile.ZipFile(sys.argv[1]).namelist())
top = f"Tarvelon-{sys.argv[2]}/"
for name in ["README.txt", "x64/TarvelonLow.exe", "x64/Help/index.html", "x86/TarvelonLow.exe", "x86/Help/index.html"]:
    if top + name not in names:
        sys.exit(f"missing {name}")
PY
(cd "$RELEASE" && sha256sum --quiet -c SHA256SUMS.txt) || fail "the checksums of the release"
expect_eq "files the checksums cover" "3" "$(wc -l <"$RELEASE/SHA256SUMS.txt")"
echo "release: installer round trip, x86 installer, portable archive and checksums as expected"
