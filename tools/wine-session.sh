# A Wine prefix and a virtual X server, for running the program and its tests.
# Sourced: start_virtual_display, then wine_session_start PREFIX [fresh].
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
XVFB_PID=""

start_virtual_display() {  # [WIDTHxHEIGHT], 1280x1024 unless given
    local n
    for n in $(seq 90 140); do
        [ -e "/tmp/.X11-unix/X$n" ] || [ -e "/tmp/.X$n-lock" ] && continue
        Xvfb ":$n" -screen 0 "${1:-1280x1024}x24" -nolisten tcp >/dev/null 2>&1 &
        XVFB_PID=$!
        for _ in $(seq 100); do
            [ -e "/tmp/.X11-unix/X$n" ] && { export DISPLAY=":$n"; return 0; }
            kill -0 "$XVFB_PID" 2>/dev/null || break
            sleep 0.1
        done
    done
    echo "could not start a virtual X server" >&2
    return 1
}

# Prepares the prefix (anew when asked) and keeps its server up between programs.
wine_session_start() {
    export WINEPREFIX=$1
    if [ "${2:-}" == fresh ]; then
        wineserver -k 2>/dev/null || true
        rm -rf "$WINEPREFIX"
    fi
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
        mkdir -p "$(dirname "$WINEPREFIX")"
        echo "Preparing the Wine prefix $WINEPREFIX ..."
        wineboot -i >/dev/null 2>&1
    fi
    wineserver -p >/dev/null 2>&1 || true  # fails harmlessly when it is already up
    # Start Wine's own services now, so that no test's output pipe is held by them.
    wine cmd /c exit >/dev/null 2>&1 || true
}

wine_session_stop() {
    wineserver -k 2>/dev/null || true
    [ -z "$XVFB_PID" ] || kill "$XVFB_PID" 2>/dev/null || true
}
