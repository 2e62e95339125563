#!/usr/bin/env bash
# Draws the pictures of these pages anew, each by its program without an argument. usage: docs/gallery/draw.sh [BUILD]
set -euo pipefail
cd "$(dirname "$0")"
bin=$(cd "../../${1:-build/release}" && pwd)/bin
made=$(mktemp -d)
trap 'rm -rf "$made"' EXIT
for program in bandpass listen resample equalize echo modem; do
    "$bin/$program" --out "$made/$program" >/dev/null
    mv "$made/$program"/*.png "$program.png"
done
