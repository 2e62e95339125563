#!/usr/bin/env bash
# Makes Debian packages in build/packages: the shared libraries, what programs are built with, the Python package, the
# reference. Its last lines are their names.
# usage: scripts/packages.sh [BUILD_FOLDER]     a built library of all tiers; without it build/release is built and used
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:+$(cd "$1" && pwd)}
cd "$root"
scripts/setup.sh
packages=$root/build/packages
log=$root/build/packages.log
rm -rf "$packages"
mkdir -p "$root/build"
: >"$log"

run() { # COMMAND...: its output goes to the log, the end of which is shown if it fails
    "$@" >>"$log" 2>&1 </dev/null && return
    tail -n 30 "$log" >&2
    echo "packages.sh: the end of build/packages.log stands above" >&2
    exit 1
}

if [ -z "$build" ]; then
    build=$root/build/release
    echo "Building the library (a few minutes the first time; log: build/packages.log) ..." >&2
    run cmake --preset release
    run cmake --build --preset release --target orbs orbs_v3 orbs_v4
fi

# The reference takes half a minute: it is made anew only if something that it is made from is newer.
page=build/docs/html/index.html
made_from=(docs include examples/reference python scripts/headers.py "$build/lib/liborbsv8.so.5.2")
if [ ! -e "$page" ] || [ -n "$(find "${made_from[@]}" -type f -newer "$page" -not -name "*.pyc" -print -quit)" ]; then
    echo "Building the reference ..." >&2
    run scripts/docs.sh "$build"
fi

cd "$build"
run cpack
ls "$packages"/*.deb
