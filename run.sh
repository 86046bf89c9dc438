#!/usr/bin/env bash
# Installs what is missing, builds into build/ and starts the application on the built-in
# virtual radio. Arguments are passed on to the application.
set -euo pipefail
root=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/ensure-deps.sh
. "$root/scripts/ensure-deps.sh"
koral_ensure_deps
koral_build "$root"

bin="$root/build/src"
app="$bin/gui/koral-control-center"
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$app" "$@"
fi

# No display to show a window on: draw the main window (RSS panel) into a picture instead,
# and show what the command-line tool makes of the examples.
shot="$root/build/koral-control-center.png"
echo "No display (DISPLAY and WAYLAND_DISPLAY are unset): drawing the main window into $shot"
QT_QPA_PLATFORM=offscreen "$app" --screenshot "$shot" --panel 1 "$@"
ctl="$bin/cli/koralctl"
status=0
echo "== koralctl check examples/radio.rss examples/radio.ale"
"$ctl" check "$root/examples/radio.rss" "$root/examples/radio.ale" || status=$?
echo "== koralctl summary examples/radio.rss"
"$ctl" summary "$root/examples/radio.rss"
# 1 means the check found configuration problems: a result, not a failure of this script.
[ "$status" -le 1 ]
