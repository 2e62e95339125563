#!/usr/bin/env bash
# Runs the benchmarks on one thread in each tier, beside the open libraries that they compare with, and writes tables
# of time ratios to build/bench/ratios-<tier>.md.
# usage: scripts/bench.sh [FILTER]     a regular expression over the names family/who/size, e.g. '^Add'
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh bench
cmake --preset bench >/dev/null
cmake --build --preset bench
tiers=(v8)
if scripts/has-avx2-tier; then tiers=(v3 v8); else echo "This processor has no AVX2: tier v3 is not measured." >&2; fi
for tier in "${tiers[@]}"; do
    results=()
    for program in build/bench/bin/*_bench; do
        result=build/bench/$(basename "$program")-$tier.json
        LD_LIBRARY_PATH=build/bench/tiers/$tier OMP_NUM_THREADS=1 "$program" --benchmark_filter="${1:-.}" \
            --benchmark_enable_random_interleaving=true --benchmark_repetitions=9 --benchmark_min_time=0.02 \
            --benchmark_out="$result" --benchmark_out_format=json >/dev/null
        [ ! -s "$result" ] || results+=("$result")
    done
    echo
    scripts/ratios "$tier" "${results[@]}" | tee "build/bench/ratios-$tier.md"
done
