#!/usr/bin/env bash
# Installs what building and testing need and this machine lacks, from Debian's packages. Says nothing when nothing
# is missing. With the argument "bench" also the libraries that the benchmarks compare with, and what draws their page;
# with "docs" what builds the reference.
set -euo pipefail
packages=(g++ g++-multilib lib32gomp1 clang-16 libomp-16-dev cmake ninja-build pkg-config googletest libhwy-dev
          libsndfile1-dev libsamplerate0-dev libsoxr-dev gnuplot-nox python3 python3-cffi python3-hypothesis
          python3-numpy python3-pip python3-pytest python3-scipy python3-setuptools python3-venv python3-wheel mypy
          dpkg-dev file lintian)
[ "${1-}" = bench ] && packages+=(libbenchmark-dev libfftw3-dev libvolk2-dev libliquid-dev libsleef-dev libeigen3-dev
                                python3-matplotlib)
[ "${1-}" = docs ] && packages+=(python3-sphinx furo python3-myst-parser python3-matplotlib)

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    echo "setup.sh: not a Debian system, nothing installed. Needed, by their Debian names: ${packages[*]}" >&2
    exit 0
fi
installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "${packages[@]}" 2>/dev/null |
            sed -n 's/ installed$//p' || true)
missing=()
for package in "${packages[@]}"; do
    grep -qxF -- "$package" <<<"$installed" || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "setup.sh: these packages are missing: ${missing[*]}. Install them as root (there is no sudo here)." >&2
        exit 1
    fi
    as_root=(sudo)
fi
echo "setup.sh: installing ${missing[*]}" >&2
log=$(mktemp)
trap 'rm -f "$log"' EXIT
install() { "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get "$@" </dev/null >>"$log" 2>&1; }
# The package lists may be old or absent: fetch them first.
if ! { install update && install install -y --no-install-recommends "${missing[@]}"; }; then
    tail -n 20 "$log" >&2
    echo "setup.sh: could not install ${missing[*]}; the last lines of apt-get stand above." >&2
    exit 1
fi
