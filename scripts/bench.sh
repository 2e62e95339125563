#!/usr/bin/env bash
# Runs the benchmarks on one thread in each tier, beside the open libraries that they compare with, and writes tables
# of time ratios to build/bench/ratios-<tier>.md.
# usage: scripts/bench.sh [FILTER]     a regular expression over the names family/who/size, e.g. '^Add'
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh bench
log=build/bench/build.log
mkdir -p build/bench
echo "Building (log: $log) ..." >&2
if ! { cmake --preset bench && cmake --build --preset bench; } >"$log" 2>&1; then
    tail -n 30 "$log" >&2
    echo "bench.sh: the build failed; the whole log is $log" >&2
    exit 1
fi
tiers=()
for tier in v4 v3; do
    if scripts/has-tier "x86-64-$tier"; then tiers+=("$tier"); else echo "This processor lacks x86-64-$tier: tier $tier is not measured." >&2; fi
done
tiers+=(v8)
for tier in "${tiers[@]}"; do
    results=()
    for program in build/bench/bin/*_bench; do
        result=build/bench/$(basename "$program")-$tier.json
        rm -f "$result"
        echo "Running $(basename "$program") in tier $tier ..." >&2
        LD_LIBRARY_PATH=build/bench/tiers/$tier OMP_NUM_THREADS=1 "$program" --benchmark_filter="${1:-.}" \
            --benchmark_enable_random_interleaving=true --benchmark_repetitions=9 --benchmark_min_time=0.02 \
            --benchmark_out="$result" --benchmark_out_format=json >build/bench/run.log 2>&1 || { cat build/bench/run.log >&2; exit 1; }
        [ ! -s "$result" ] || results+=("$result")
    done
    echo
    scripts/ratios "$tier" "${results[@]}" | tee "build/bench/ratios-$tier.md"
done
