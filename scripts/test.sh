#!/usr/bin/env bash
# The whole suite: every test in every tier and as 32-bit code, under the sanitizers, the same bits everywhere, the
# rules of the source, and programs built against an installed copy. Logs go to build/logs. The last line is
# "N passed, N failed"; the exit status is 0 only if nothing failed.
set -uo pipefail
cd "$(dirname "$0")/.." || exit
logs=$PWD/build/logs
rm -rf "$logs"
mkdir -p "$logs"
jobs=$(nproc)
passed=0 failed=0
export OMP_WAIT_POLICY=passive # several tests run at once: waiting threads must not take their processors

# Called while a step's output may be going to its log: the closing line belongs on the script's own.
exec 3>&1
finish() {
    exec >&3
    printf '\n%d min %02d s\n' $((SECONDS / 60)) $((SECONDS % 60))
    echo "$passed passed, $failed failed"
    if [ "$failed" -gt 0 ] || [ "$passed" -eq 0 ]; then exit 1; fi
    exit 0
}
trap finish EXIT
trap 'failed=$((failed + 1)); echo "interrupted" >&3; exit' INT TERM

running() { [ ! -t 3 ] || printf '...     %s\r' "$1" >&3; }

# check NAME COMMAND...: one test; what it printed is shown if it fails.
check() {
    local name=$1 start=$SECONDS log=$logs/${1// /-}.log
    shift
    running "$name"
    if "$@" >"$log" 2>&1 </dev/null; then
        passed=$((passed + 1))
        printf 'ok      %s (%d s)\n' "$name" $((SECONDS - start))
    else
        failed=$((failed + 1))
        tail -n 60 "$log" | sed 's/^/        /'
        printf 'FAILED  %s (%d s), log: %s\n' "$name" $((SECONDS - start)) "${log#"$PWD"/}"
        return 1
    fi
}

configure_and_build() { # PRESET [CMAKE ARGUMENT]...
    cmake --preset "$@" && "${launcher[@]}" cmake --build --preset "$1" -j "$jobs"
}

# suite PRESET [CTEST ARGUMENT]...: all of its tests, each counted.
suite() {
    local preset=$1 start=$SECONDS log=$logs/tests-$1.log results=$logs/tests-$1.xml
    shift
    running "tests of $preset"
    "${launcher[@]}" ctest --test-dir "build/$preset" -j "$jobs" --no-tests=error --output-on-failure \
        --output-junit "$results" "$@" >"$log" 2>&1 </dev/null
    local status=$? total=0 bad=0 skipped=0
    if [ -s "$results" ]; then
        read -r total bad skipped < <(python3 -c '
import sys, xml.etree.ElementTree as tree
suite = tree.parse(sys.argv[1]).getroot()
print(*(int(suite.get(key)) for key in ("tests", "failures", "skipped")))' "$results")
    fi
    # A run that broke off, or found no test, is one failure more.
    if [ "$status" -ne 0 ] && [ "$bad" -eq 0 ]; then total=$((total + 1)) bad=1; fi
    passed=$((passed + total - bad - skipped))
    failed=$((failed + bad))
    if [ "$bad" -gt 0 ]; then
        grep -vE '\.\.+ +Passed|^ +Start +[0-9]+:' "$log" | head -n 300 | sed 's/^/        /'
        printf 'FAILED  tests of %s: %d of %d (%d s), log: %s\n' "$preset" "$bad" "$total" $((SECONDS - start)) "${log#"$PWD"/}"
    else
        printf 'ok      tests of %s: %d, %d skipped (%d s)\n' "$preset" "$total" "$skipped" $((SECONDS - start))
    fi
}

# The digests of every family: the same in each tier, ABI and thread count.
same_bits() {
    local status=0 first="" output name
    for build in release/v8 release/v3 release/v4 i386/v8; do
        [[ "|$lacking|" != *"|${build#*/}|"* ]] || continue
        for threads in 1 2 3 8; do
            name=$logs/digest-${build/\//-}-$threads.txt
            LD_LIBRARY_PATH=build/${build%/*}/tiers/${build#*/} OMP_NUM_THREADS=$threads \
                "build/${build%/*}/bin/digest" >"$name" || { echo "digest of $build failed"; return 1; }
            first=${first:-$name}
            output=$(diff "$first" "$name") || { printf '%s, %d threads, differs:\n%s\n' "$build" "$threads" "$output"; status=1; }
        done
    done
    [ -s "$first" ] || { echo "the digest program printed nothing"; return 1; }
    return $status
}

check "setup" scripts/setup.sh || exit
lacking="" launcher=() release_tests=() sanitizer_tier=()
for tier in v3 v4; do
    if ! scripts/has-tier "x86-64-$tier"; then
        echo "note    this processor lacks x86-64-$tier: the tests of tier $tier are not run"
        lacking+=${lacking:+|}$tier
    fi
done
[ -z "$lacking" ] || release_tests=(-E "^($lacking)\\.")
[[ "|$lacking|" != *"|v3|"* ]] || sanitizer_tier=(-DORBS_TIERS=v8)

check "layers" scripts/check-layers
check "headers" scripts/check-headers
if check "build release" configure_and_build release; then
    suite release "${release_tests[@]}"
    check "exports release" scripts/check-exports build/release
    check "fused release" scripts/check-fused build/release
    check "packaging" tests/packaging/check build/release
fi
if check "build i386" configure_and_build i386; then
    suite i386
    check "exports i386" scripts/check-exports build/i386
    check "packaging i386" env CFLAGS=-m32 CXXFLAGS=-m32 tests/packaging/check build/i386
    check "same bits" same_bits
fi
export UBSAN_OPTIONS=print_stacktrace=1
if check "build asan" configure_and_build asan "${sanitizer_tier[@]}"; then suite asan; fi
# The thread sanitizer cannot work with every address layout that the kernel may choose.
if setarch -R true 2>/dev/null; then launcher=(setarch -R); fi
if check "build tsan" configure_and_build tsan "${sanitizer_tier[@]}"; then suite tsan; fi
