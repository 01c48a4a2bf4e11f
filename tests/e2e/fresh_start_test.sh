#!/usr/bin/env bash
# A new user starts the program from a fresh folder and refuses the first full
# scan: the question comes twice, then the main window opens, and the program
# has made its data folders and a settings file of the new-file shape.
source "$(dirname "$0")/lib.sh"

app=$(new_program_folder)
start_program "$app" ""
refuse_first_run
refuse_first_run
auto wait-window "Welcome to Tarvelon" >/dev/null
[ ! -e "$app/Data/Integrity.dat" ] || fail "a data file was made although the scan was refused"
expect_eq "About page caption" "Version: 2.0" "$(auto caption "Welcome to Tarvelon" Label33)"

[ -d "$app/Data/Log" ] || fail "Data\\Log was not made"
{
    printf '[Tarvelon]\r\nsettings=0,0,0,0,0,0,0,0\r\nadvanced=65536,500,0\r\nantivirus=\r\n'
    printf 'av2=\r\nantivirus2=1,0,0\r\nalgo=crc32\r\n\r\n'
    for n in $(seq 1 20); do
        printf '[%d]\r\npath=NULL\r\nargs=0,0,0,0,0,0,0\r\nargs2=0,0,0,0,0,0,0\r\n\r\n' "$n"
    done
} >"$WORK/expected.dat"
cmp "$WORK/expected.dat" "$app/Data/Tarvelon.dat" || fail "settings file differs from a new one"

auto click "Welcome to Tarvelon" cButton9 >/dev/null
expect_eq "exit code after Exit" "0" "$(auto wait-exit "$PID")"
echo "fresh start: main window, Data folders and settings file as expected"
