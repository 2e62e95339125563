#!/usr/bin/env bash
# Builds the library and the example, and cleans a recording with it: one that the example makes itself, or the sound
# file given. All arguments go to the example; see scripts/demo.sh --help.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"
log=$root/build/demo.log
mkdir -p "$root/build"
echo "Building (a few minutes the first time; log: build/demo.log) ..." >&2
if ! { cd "$root" && cmake --preset release && cmake --build --preset release --target bandpass; } >"$log" 2>&1; then
    tail -n 30 "$log" >&2
    echo "demo.sh: the build failed; the whole log is $log" >&2
    exit 1
fi
exec "$root/build/release/bin/bandpass" "$@"
