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
if [ -x "$bin/gui/koral-control-center" ]; then
    exec "$bin/gui/koral-control-center" "$@"
fi

# Without the desktop application, show what the command-line tool makes of the examples.
ctl="$bin/cli/koralctl"
status=0
echo "== koralctl check examples/radio.rss examples/radio.ale"
"$ctl" check "$root/examples/radio.rss" "$root/examples/radio.ale" || status=$?
echo "== koralctl summary examples/radio.rss"
"$ctl" summary "$root/examples/radio.rss"
# 1 means the check found configuration problems: a result, not a failure of this script.
[ "$status" -le 1 ]
