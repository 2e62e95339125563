#!/usr/bin/env bash
# The whole suite: the rules of the source, every test in every tier and as 32-bit code, the same bits everywhere,
# programs built against an installed copy, the C++ header, the Python package, the reference, Debian packages, the tests
# under the sanitizers, and those of a build by clang. Logs go to build/logs. At the end a table tells what each step took; the
# last line is "N passed, N failed", and the exit status is 0 only if nothing failed.
# usage: scripts/test.sh [PART]...     without any, all of these but the last
set -uo pipefail
cd "$(dirname "$0")/.." || exit
known=(source release python docs packages i386 asan tsan clang dev)
for part in "$@"; do
    [[ " ${known[*]} " == *" $part "* ]] || { echo "test.sh: no part \"$part\"; there are: ${known[*]}" >&2; exit 2; }
done
[ $# -gt 0 ] || set -- "${known[@]:0:${#known[@]}-1}"
logs=$PWD/build/logs
rm -rf "$logs"
mkdir -p "$logs"
jobs=$(nproc)
passed=0 failed=0 table=""

# Called while a step's output may be going to its log: the closing lines belong on the script's own.
exec 3>&1
finish() {
    exec >&3
    printf '\n%7s %7s  step, in seconds of the clock and of processors\n%s' wall cpu "$table"
    printf '%7d %7s  in all\n\n' "$SECONDS" ""
    echo "$passed passed, $failed failed"
    if [ "$failed" -gt 0 ] || [ "$passed" -eq 0 ]; then exit 1; fi
    exit 0
}
trap finish EXIT
trap 'failed=$((failed + 1)); echo "interrupted" >&3; exit' INT TERM

# timed NAME LOG COMMAND...: runs it, its output in the log, and adds a row to the table. Leaves its wall time in `took`.
timed() {
    local name=$1 log=$2 status wall user system TIMEFORMAT='%R %U %S'
    shift 2
    [ ! -t 3 ] || printf '...     %s\r' "$name" >&3
    { time "$@" >"$log" 2>&1 </dev/null; } 2>"$logs/time"
    status=$?
    read -r wall user system <"$logs/time"
    took="${wall%.*} s"
    table+=$(awk -v n="$name" -v w="$wall" -v u="$user" -v s="$system" 'BEGIN {printf "%7.0f %7.0f  %s", w, u + s, n}')$'\n'
    return $status
}

# check NAME COMMAND...: one test; what it printed is shown if it fails.
check() {
    local name=$1 log=$logs/${1// /-}.log
    shift
    if timed "$name" "$log" "$@"; then
        passed=$((passed + 1))
        printf 'ok      %s (%s)\n' "$name" "$took"
    else
        failed=$((failed + 1))
        tail -n 60 "$log" | sed 's/^/        /'
        printf 'FAILED  %s (%s), log: %s\n' "$name" "$took" "${log#"$PWD"/}"
        return 1
    fi
}

configure_and_build() { # PRESET [CMAKE ARGUMENT]...
    cmake --preset "$@" && "${launcher[@]}" cmake --build --preset "$1" -j "$jobs"
}

build_libraries() { cmake --preset release && cmake --build --preset release -j "$jobs" --target orbs orbs_v3 orbs_v4; }

# suite PRESET [CTEST ARGUMENT]...: all of its tests, each counted.
suite() {
    local preset=$1
    shift
    counted "tests of $preset" "$logs/tests-$preset" "${launcher[@]}" \
        ctest --preset "$preset" -j "$jobs" --output-junit "$logs/tests-$preset.xml" "$@"
}

# counted NAME LOG COMMAND...: a command that writes the results of many tests to LOG.xml, in JUnit's form.
counted() {
    local name=$1 log=$2.log results=$2.xml status total=0 bad=0 skipped=0
    shift 2
    timed "$name" "$log" "$@"
    status=$?
    if [ -s "$results" ]; then
        read -r total bad skipped < <(python3 -c '
import sys, xml.etree.ElementTree as tree
suite = next(tree.parse(sys.argv[1]).getroot().iter("testsuite"))
count = lambda key: int(suite.get(key, 0))
print(count("tests"), count("failures") + count("errors"), count("skipped"))' "$results")
    fi
    # A run that broke off, or found no test, is one failure more.
    if [ "$status" -ne 0 ] && [ "$bad" -eq 0 ]; then total=$((total + 1)) bad=1; fi
    passed=$((passed + total - bad - skipped))
    failed=$((failed + bad))
    if [ "$bad" -gt 0 ]; then
        grep -vE '\.\.+ +Passed|^ +Start +[0-9]+:' "$log" | head -n 300 | sed 's/^/        /'
        printf 'FAILED  %s: %d of %d (%s), log: %s\n' "$name" "$bad" "$total" "$took" "${log#"$PWD"/}"
    else
        printf 'ok      %s: %d, %d skipped (%s)\n' "$name" "$total" "$skipped" "$took"
    fi
}

check "setup" scripts/setup.sh || exit
lacking="" launcher=() release_tests=() one_tier=()
for tier in v3 v4; do
    if ! scripts/has-tier "x86-64-$tier"; then
        echo "note    this processor lacks x86-64-$tier: the tests of tier $tier are not run"
        lacking+=${lacking:+|}$tier
    fi
done
[ -z "$lacking" ] || release_tests=(-E "^($lacking)\\.")
[[ "|$lacking|" != *"|v3|"* ]] || one_tier=(-DORBS_TIERS=v8)

source_part() {
    check "layers" scripts/check-layers
    check "headers" scripts/check-headers
}
release_part() {
    check "build release" configure_and_build release || return
    suite release "${release_tests[@]}"
    check "exports release" scripts/check-exports build/release
    check "fused release" scripts/check-fused build/release
    check "packaging" tests/packaging/check build/release
    check "c++" tests/cpp/check build/release
}
python_part() {
    # Debian's Python has the packages that setup.sh installs, whichever comes first in PATH.
    check "build release libraries" build_libraries || return
    check "python package" /usr/bin/python3 python/build.py build/python || return
    counted "tests of python" "$logs/tests-python" env ORBS_LIBRARY="$PWD/build/release/lib" \
        /usr/bin/python3 -m pytest -q -p no:cacheprovider --junitxml="$logs/tests-python.xml" tests/python
    check "python installed" tests/python/check build/release
}
docs_part() {
    check "build release libraries" build_libraries || return
    check "docs" scripts/docs.sh build/release && check "reference" tests/docs/check.py build/docs/html
}
packages_part() { # behind docs, whose pages are one of them
    check "build release libraries" build_libraries || return
    check "debian packages" tests/packaging/packages build/release
}
i386_part() {
    check "build i386" configure_and_build i386 || return
    suite i386
    check "exports i386" scripts/check-exports build/i386
    check "packaging i386" env CFLAGS=-m32 CXXFLAGS=-m32 tests/packaging/check build/i386
}
asan_part() { check "build asan" configure_and_build asan "${one_tier[@]}" && suite asan; }
tsan_part() {
    # The thread sanitizer cannot work with every address layout that the kernel may choose.
    if setarch -R true 2>/dev/null; then launcher=(setarch -R); fi
    check "build tsan" configure_and_build tsan "${one_tier[@]}" && suite tsan
    launcher=()
}
clang_part() { # one tier: three would take a quarter of an hour
    check "build clang" configure_and_build clang "${one_tier[@]:--DORBS_TIERS=v3}" || return
    suite clang
    check "fused clang" scripts/check-fused build/clang
}
dev_part() { check "build dev" configure_and_build dev "${one_tier[@]}" && suite dev; }

for part in "$@"; do "${part}_part"; done
