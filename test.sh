#!/usr/bin/env bash
# Installs what is missing, builds into build/ and runs every test.
set -euo pipefail
root=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/ensure-deps.sh
. "$root/scripts/ensure-deps.sh"
koral_ensure_deps
koral_build "$root"
cd "$root/build"
ctest --output-on-failure --parallel "$(nproc)" "$@"
