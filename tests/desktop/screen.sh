# shellcheck shell=bash
# An X server with a window manager, and the hands and eyes of who sits before it. Sourced by run, which ends the
# processes that it adds to `processes` and says in `pictures` where pictures go.

# until_true SECONDS COMMAND...: calls the command until it succeeds; fails if it never does.
until_true()
{
    local deadline=$((SECONDS + $1))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$deadline" ] || return 1
        read -rt 0.05 <>"$waiting" || true
    done
}

# await WHAT COMMAND...: as until_true, with patience for a machine under load.
await()
{
    local what=$1
    shift
    until_true 60 "$@" || fail "waited in vain for $what; the active window is '$(active_title || true)'"
}

# open_screen FOLDER: starts the server and the window manager. Sets DISPLAY. Their files go into the folder.
open_screen()
{
    waiting=$1/waiting # what nobody writes to, so that reading from it takes its time
    mkfifo "$waiting"
    # Tall enough for a whole page, so that nothing has to be scrolled. It would start anew after each last client.
    Xvfb -displayfd 3 -screen 0 1280x1600x24 -dpi 96 -nolisten tcp -noreset 3>"$1/display" >"$1/xvfb.log" 2>&1 &
    processes+=($!)
    await "the X server" has_line "$1/display"
    DISPLAY=:$(<"$1/display")
    export DISPLAY
    # Two Chinese characters on keys that no keyboard has: xdotool would change the keys' meaning while they are read.
    setxkbmap us -print |
        sed '/xkb_symbols/s/};$/key <FK21> { [ U503C ] }; key <FK22> { [ U73ED ] }; };/' |
        xkbcomp -w0 - "$DISPLAY" 2>"$1/xkbcomp.log"
    openbox --sm-disable >"$1/openbox.log" 2>&1 &
    processes+=($!)
    await "the window manager" window_manager_is_ready
}

has_line() { read -r _ <"$1"; } 2>/dev/null

window_manager_is_ready() { timeout 10 xdotool get_num_desktops >/dev/null 2>&1; }

# await_size WIDTH HEIGHT: until the active window has this size.
await_size() { await "the size $1x$2" size_is "$1x$2"; }

size_is() { timeout 10 xdotool getactivewindow getwindowgeometry 2>/dev/null | grep -q "Geometry: $1$"; }

active_title() { timeout 10 xdotool getactivewindow getwindowname 2>/dev/null; }

title_is() { [ "$(active_title)" = "$1" ]; }

# await_window TITLE: until the window with this title has the keyboard.
await_window() { await "the window '$1'" title_is "$1"; }

keys() { timeout 30 xdotool key --delay 30 "$@"; }

text() { timeout 60 xdotool type --delay 20 -- "$1"; }

# click X Y: at this place of the active window.
click()
{
    local window
    window=$(timeout 10 xdotool getactivewindow)
    timeout 10 xdotool mousemove --window "$window" "$1" "$2" click 1
}

# picture NAME: of the whole screen.
picture() { timeout 30 import -window root "${pictures:?}/$1.png" || true; }
