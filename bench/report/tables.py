#!/usr/bin/env python3
"""Writes ratios-TIER.md, every row of a tier beside the other libraries, and tiers.md, the tiers beside each other.

usage: tables.py RESULTS FOLDER"""
import itertools
import pathlib
import statistics
import sys

import results


def beside_others(rows, tier, machine):
    yield f"Tier {tier}, {machine}. Time of orbs / time of the other: below 1.00 orbs is faster.\n"
    for room, members in itertools.groupby(rows, lambda row: row.room):
        members = [row for row in members if tier in row.times]
        others = sorted({who for row in members for who in row.others(tier)})
        yield f"\n### {room}\n"
        yield results.table(["row", "orbs, ns", *others],
                            [[row.name, f"{row.time(tier, 'orbs'):,.0f}",
                              *(f"{row.ratio(tier, who):.2f}" if who in row.others(tier) else "" for who in others)]
                             for row in members])


def beside_each_other(rows, tiers, machine):
    pairs = list(zip(tiers, tiers[1:]))
    yield f"Time of orbs in a tier / time in the tier below, {machine}: the median of the rounds, and their range.\n"
    for tier, below in pairs:
        found = results.slower(rows, tier, below)
        yield f"\n### {tier}/{below} above {results.SLOWER} in every round: {len(found)} rows\n"
        yield results.table(["row", f"{tier}/{below}"], [[row.name, f"{ratio:.2f}"] for ratio, row in found])

    def cells(row, tier, below):
        ratios = row.tier_ratios(tier, below)
        if not ratios:
            return ["", ""]
        return [f"{statistics.median(ratios):.2f}", f"{min(ratios):.2f} to {max(ratios):.2f}"]

    for room, members in itertools.groupby(rows, lambda row: row.room):
        yield f"\n### {room}\n"
        yield results.table(["row", *itertools.chain(*((f"{tier}/{below}", "range") for tier, below in pairs))],
                            [[row.name, *itertools.chain(*(cells(row, *pair) for pair in pairs))] for row in members])


def main(folder, target):
    rows, tiers, context = results.read(folder)
    machine = f"one thread, {context.get('processor', 'a processor')} at {context['mhz_per_cpu']} MHz"
    target = pathlib.Path(target)
    for tier in tiers:
        (target / f"ratios-{tier}.md").write_text("\n".join(beside_others(rows, tier, machine)), encoding="utf-8")
    (target / "tiers.md").write_text("\n".join(beside_each_other(rows, tiers, machine)), encoding="utf-8")
    print("Written:", *(target / f"ratios-{tier}.md" for tier in tiers), target / "tiers.md")


if __name__ == "__main__":
    main(*sys.argv[1:])
