#!/usr/bin/env bash
# Usage: scripts/run-headless.sh PROGRAM FILE SCREENSHOT
#
# Digests FILE in PROGRAM's real window on a virtual display of its own: presses F5, waits for the digest on the
# clipboard, saves the window's picture as SCREENSHOT and prints the digest. The settings are throw-away ones that
# have the automatic copy switched on. Every process started here ends with the script.

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

[ $# -eq 3 ] || die "usage: scripts/run-headless.sh PROGRAM FILE SCREENSHOT"
program=$1 file=$2 screenshot=$3

scratch=$(mktemp -d)
pids=()
# The shell's own list of jobs also has one that was just started and is not in pids yet.
clean_up() {
    trap '' INT TERM HUP
    local pid
    for pid in $(jobs -rp); do
        kill "$pid" 2>/dev/null || true
        wait "$pid" 2>/dev/null || true
    done
    rm -rf "$scratch"
}
trap clean_up EXIT

everything_runs() {
    local pid
    for pid in "${pids[@]}"; do
        kill -0 "$pid" 2>/dev/null || return 1
    done
}

# wait_for SECONDS COMMAND ...: until the command succeeds; fails when the time is up or a process has ended.
wait_for() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] && everything_runs || return 1
        sleep 0.1
    done
}

# Says why it went wrong, with what the program itself wrote.
give_up() {
    [ ! -s "$scratch/program.log" ] || cat "$scratch/program.log" >&2
    die "$*"
}

start_display() {
    # Without -noreset the display starts afresh when its last client goes, and takes a newcomer with it.
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>"$scratch/display" >/dev/null 2>&1 &
    pids+=($!)
    wait_for 30 test -s "$scratch/display" || give_up "The virtual display did not start."
    DISPLAY=:$(cat "$scratch/display")
    export DISPLAY
    openbox >/dev/null 2>&1 &
    pids+=($!)
    wait_for 30 window_manager_runs || give_up "The window manager did not start."
}

window_manager_runs() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; }

# Nothing of the user's own settings, desktop or session bus takes part.
prepare_settings() {
    export XDG_CONFIG_HOME=$scratch/config XDG_DATA_HOME=$scratch/data XDG_CACHE_HOME=$scratch/cache
    export XDG_RUNTIME_DIR=$scratch/runtime
    (umask 077 && mkdir -p "$XDG_CONFIG_HOME/Quillon.example" "$XDG_DATA_HOME" "$XDG_CACHE_HOME" "$XDG_RUNTIME_DIR")
    printf '[General]\nWhatCopyToClipboard=2\n' >"$XDG_CONFIG_HOME/Quillon.example/Kestrum.conf"
    unset WAYLAND_DISPLAY XDG_CURRENT_DESKTOP QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE
    # Without an address a bus would be started, and would outlive this script.
    export DBUS_SESSION_BUS_ADDRESS=disabled:
    export QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8
}

start_program() {
    "$program" "$file" >"$scratch/program.log" 2>&1 &
    window_pid=$!
    pids+=("$window_pid")
    wait_for 60 find_window || give_up "The window did not open."
    wait_for 30 window_has_focus || give_up "The window did not take the focus."
}

find_window() {
    window=$(xdotool search --all --onlyvisible --pid "$window_pid" --name '^Kestrum v' 2>/dev/null | head -n 1)
    [ -n "$window" ]
}

window_has_focus() {
    xdotool windowactivate "$window" 2>/dev/null || true
    [ "$(xdotool getactivewindow 2>/dev/null)" = "$window" ]
}

digest_is_on_clipboard() {
    digest=$(timeout 5 xclip -selection clipboard -o 2>/dev/null) && [ -n "$digest" ]
}

save_screenshot() {
    mkdir -p "$(dirname "$screenshot")"
    import -window "$window" "$screenshot"
}

start_display
prepare_settings
start_program
xdotool key F5

# A slow disk may bring 5 MB a second.
limit=$((60 + $(stat -Lc %s -- "$file") / 5000000))
if ! wait_for "$limit" digest_is_on_clipboard; then
    save_screenshot || give_up "The program ended before a digest came."
    give_up "No digest came; the picture of the window is $screenshot"
fi
# The window answers the clipboard between its repaints: with a second answer the picture is up to date.
digest_is_on_clipboard
save_screenshot
printf '%s\n' "$digest"
