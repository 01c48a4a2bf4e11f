#!/usr/bin/env bash
# Each switch, without a completed primary full scan, first asks for that scan
# (twice), then shows its refusal and the process ends on OK; unknown switches
# open the main window.
source "$(dirname "$0")/lib.sh"

app=$(new_program_folder)
tail_r=$'\r\nClosing'
tail_dot=$'\r\nClosing.'
refusal() {  # arguments, expected prompt
    start_program "$app" "$1"
    refuse_first_run
    refuse_first_run
    expect_eq "prompt for [$1]" "$2" "$(auto box-text TarvelonLow)"
    auto press TarvelonLow OK >/dev/null
    auto wait-exit "$PID" >/dev/null
}
refusal " /r" "Cannot start Auto-Load.  Primary Full Scan has not yet been completed.$tail_r"
refusal " /s" "Cannot start Secure Shut Down.  Primary Full Scan has not yet been completed.$tail_dot"
refusal " /a" "Cannot run Scheduled Scan.  Primary Full Scan has not yet been completed.$tail_dot"
refusal "  /s " "Cannot start Secure Shut Down.  Primary Full Scan has not yet been completed.$tail_dot"

for unknown in " /R" " /r /s"; do
    start_program "$app" "$unknown"
    refuse_first_run
    refuse_first_run
    auto wait-window "Welcome to Tarvelon" >/dev/null
    auto click "Welcome to Tarvelon" cButton9 >/dev/null
    auto wait-exit "$PID" >/dev/null
done
echo "switches: refusals and unknown switches behave as expected"
