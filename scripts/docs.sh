#!/usr/bin/env bash
# Builds the reference into build/docs/html: pages made from the public headers, guides, and pictures that the library
# draws itself. A warning is an error. Its last line is the address of the first page.
# usage: scripts/docs.sh [BUILD_FOLDER]     a built library to use; without it build/dev is built and used
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
python=/usr/bin/python3 # Debian's: Sphinx, Matplotlib and the rest are its packages
"$root/scripts/setup.sh" docs
out=$root/build/docs
rm -rf "$out"
mkdir -p "$out"

run() { # NAME COMMAND...: its output in a log, which is shown if it fails
    local log=$out/$1.log
    shift
    "$@" >"$log" 2>&1 </dev/null && return
    tail -n 40 "$log" >&2
    echo "docs.sh: the end of ${log#"$root"/} stands above" >&2
    exit 1
}

build=${1-}
if [ -z "$build" ]; then
    build=$root/build/dev
    tiers=()
    scripts/has-tier x86-64-v3 || tiers=(-DORBS_TIERS=v8)
    echo "Building the library (a few minutes the first time) ..." >&2
    run configure cmake --preset dev "${tiers[@]}"
    run build cmake --build --preset dev --target orbs
fi
ORBS_LIBRARY_DIR=$(cd "$build/lib" && pwd)
export ORBS_LIBRARY_DIR

run python "$python" python/build.py "$out/python"
cp -R docs "$out/source"
cp -R examples/reference "$out/source/examples" # guides show some of them
run pictures env PYTHONPATH="$out/python" ORBS_LIBRARY="$ORBS_LIBRARY_DIR" "$python" docs/pictures/draw.py "$out/source/pictures"
run reference "$python" docs/_ext/reference.py "$out/source/reference"
run sphinx "$python" -m sphinx -W --keep-going -q -j 2 -b html -d "$out/doctrees" "$out/source" "$out/html"
echo "file://$out/html/index.html"
