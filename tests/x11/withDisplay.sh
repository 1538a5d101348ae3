#!/usr/bin/env bash
# withDisplay.sh COMMAND...: runs a command on a display of its own with a window manager, and ends with the
# command's status; 125 when there is no display to be had.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

fail() {
  echo "withDisplay: $*" >&2
  exit 125
}

(($# > 0)) || fail "no command given"
for program in Xvfb openbox xdotool; do
  command -v "$program" >/dev/null || fail "$program is missing; ./setup installs it"
done

folder=$(mktemp -d "${TMPDIR:-/tmp}/zeph-display-XXXXXX") # its mode, 700, is what a run-time folder needs
server= manager=
cleanUp() {
  [[ -z $manager ]] || kill "$manager" || true
  [[ -z $server ]] || kill "$server" || true
  wait || true
  rm -rf "$folder"
} 2>/dev/null
trap cleanUp EXIT

# The desktop that this is called from has no say.
for name in "${!QT_@}" "${!DBUS_@}" WAYLAND_DISPLAY XAUTHORITY XDG_CURRENT_DESKTOP XMODIFIERS; do
  unset "$name"
done
export QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR=$folder LC_ALL=C.UTF-8
export LSAN_OPTIONS=suppressions=$here/leaks.txt:print_suppressions=0

# Both go with this script, even if it is killed. The server looks for a free display itself, so that several
# of them never want the same one.
setpriv --pdeathsig KILL Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -noreset \
  3>"$folder/display" >"$folder/server.log" 2>&1 &
server=$!

# waitFor WHAT CONDITION...: a machine may be slow, so only a program that ended or a minute tell of a failure.
waitFor() {
  local what=$1 end=$((SECONDS + 60))
  shift
  until "$@"; do
    kill -0 "${manager:-$server}" 2>/dev/null || fail "$what: ended; $(cat "$folder"/*.log)"
    ((SECONDS < end)) || fail "$what: not there after a minute; $(cat "$folder"/*.log)"
    sleep 0.05
  done
}

hasDisplay() { [[ $(wc -l <"$folder/display") -gt 0 ]]; } # its number stands there, whole
managesWindows() { xdotool get_num_desktops >/dev/null 2>&1; } # fails until a manager has told what it can do

waitFor "the X server" hasDisplay
DISPLAY=:$(<"$folder/display")
export DISPLAY

setpriv --pdeathsig KILL openbox --sm-disable --config-file "$here/openbox.xml" >"$folder/manager.log" 2>&1 &
manager=$!
waitFor "the window manager" managesWindows

status=0
"$@" || status=$?
exit "$status"
