#!/usr/bin/env bash
# Measures the library on one thread in each tier that this processor can run, beside the open libraries that it
# compares with, and writes tables of time ratios to build/bench/: ratios-TIER.md beside the other libraries, tiers.md
# of the tiers beside each other. A round runs a program in one tier after the other, so that what else the machine does
# meets them all.
# usage: scripts/bench.sh [--rounds N] [--seconds S] [FILTER]
#            N rounds (3) of 3 repetitions of at least S seconds (0.02); FILTER is a regular expression over the names
#            member/who/size, e.g. '^Add'
#        scripts/bench.sh --page
#            writes docs/benchmarks.md and docs/benchmarks.svg from the last measurement, which was one of everything
set -euo pipefail
cd "$(dirname "$0")/.."
rounds=3 seconds=0.02 filter=. page=
while [ $# -gt 0 ]; do
    case $1 in
        --rounds) rounds=$2; shift ;;
        --seconds) seconds=$2; shift ;;
        --page) page=yes ;;
        -*) sed -n '/^# usage/,/^set/p' "$0" | sed '$d; s/^# //' >&2; exit 2 ;;
        *) filter=$1 ;;
    esac
    shift
done
scripts/setup.sh bench
results=build/bench/results
if [ "$page" ]; then exec bench/report/page.py "$results" docs; fi

log=build/bench/build.log
mkdir -p build/bench
echo "Building (log: $log) ..." >&2
if ! { cmake --preset bench && cmake --build --preset bench; } >"$log" 2>&1; then
    tail -n 30 "$log" >&2
    echo "bench.sh: the build failed; the whole log is $log" >&2
    exit 1
fi
tiers=()
for tier in v4 v3 v8; do
    if [ $tier != v8 ] && ! scripts/has-tier "x86-64-$tier"; then
        echo "This processor lacks x86-64-$tier: tier $tier is not measured." >&2
    elif [ -d "build/bench/bin/$tier" ]; then
        tiers+=("$tier")
    fi
done
processor=$(sed -n 's/^model name[[:space:]]*: //p' /proc/cpuinfo | head -n 1)
rm -rf "$results"
mkdir "$results"
export OMP_NUM_THREADS=1 ORBS_BENCH_PLANS=$PWD/$results/fftw-plans
for program in "build/bench/bin/${tiers[0]}"/*_bench; do
    name=$(basename "$program")
    for ((round = 1; round <= rounds; ++round)); do
        for tier in "${tiers[@]}"; do
            echo "Running $name in tier $tier, round $round of $rounds ..." >&2
            LD_LIBRARY_PATH=build/bench/tiers/$tier "build/bench/bin/$tier/$name" --benchmark_filter="$filter" \
                --benchmark_enable_random_interleaving=true --benchmark_repetitions=3 \
                --benchmark_min_time="$seconds" --benchmark_context=processor="$processor" \
                --benchmark_out="$results/${name%_bench}.$tier.$round.json" --benchmark_out_format=json \
                >build/bench/run.log 2>&1 || { cat build/bench/run.log >&2; exit 1; }
        done
    done
done
bench/report/tables.py "$results" build/bench
