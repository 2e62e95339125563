#!/usr/bin/python3
"""Writes docs/benchmarks.md and docs/benchmarks.svg: the ratios that a reader wants to know of all that was measured.

usage: page.py RESULTS FOLDER

Runs in Debian's own Python, for its matplotlib."""
import collections
import pathlib
import re
import statistics
import string
import sys
import textwrap

import results
from picture import draw

HERE = pathlib.Path(__file__).parent
SHOWN = 15


def lines(name):
    return [line for line in (HERE / name).read_text(encoding="utf-8").splitlines() if line and line[0] != "#"]


def families(rows, tier):
    """[(room, family, {peer: ratios})] in the order of families.txt."""
    known = [[part.strip() for part in line.split("|", 2)] for line in lines("families.txt")]
    found = {(room, family): collections.defaultdict(list) for room, family, _ in known}
    for row in rows:
        fitting = [(room, family) for room, family, pattern in known if re.search(pattern, row.name)]
        if not fitting:
            raise SystemExit(f"families.txt has no family for {row.name}")
        for peer, ratio in row.peers(tier).items():
            found[fitting[0]][peer].append(ratio)
    return [(room, family, peers) for (room, family), peers in found.items() if peers]


def number(size):
    return f"{int(size):,}"


def chosen(rows, tiers):
    """The rows of rows.txt: the fastest peer in each tier, and the other peers in the first one."""
    by_name = {row.name: row for row in rows}
    names = lines("rows.txt")
    missing = [name for name in names if name not in by_name]
    if missing:
        raise SystemExit(f"Not measured: {', '.join(missing)}")

    def cells(row):
        (peer, ratio), *others = row.peers(tiers[0]).items()
        yield from (row.member, number(row.size), f"**{ratio:.2f}** {peer}")
        yield ", ".join(f"{other:.2f} {name}" for name, other in others)
        for tier in tiers[1:]:
            peer, ratio = next(iter(row.peers(tier).items()))
            yield f"{ratio:.2f} {peer}"

    return len(names), results.table(["member", "elements", f"{tiers[0]}, fastest peer", "other peers", *tiers[1:]],
                                     [list(cells(by_name[name])) for name in names])


def behind(rows, tier):
    """The members that a peer beats, the worst first."""
    members, worse = collections.defaultdict(list), []
    for row in rows:
        members[row.member].append((next(iter(row.peers(tier).items())), row))
    for member, found in members.items():
        beaten = [(ratio, peer, row) for (peer, ratio), row in found if ratio > results.SLOWER]
        if beaten:
            ratio, peer, row = max(beaten, key=lambda item: item[0])
            worse.append((ratio, [member, f"{ratio:.2f}", peer, number(row.size), f"{len(beaten)} of {len(found)}"]))
    worse.sort(key=lambda item: -item[0])
    ratios = [next(iter(row.peers(tier).values())) for row in rows]
    text = (f"Of {len(rows)} rows in tier {tier}, {sum(ratio < 1 for ratio in ratios)} are faster than every peer, and "
            f"{sum(ratio > results.SLOWER for ratio in ratios)} take more than {results.SLOWER} times as long as the "
            "fastest one")
    text += f"; those of {len(worse)} members" if worse else ""
    text += f", of which the {SHOWN} worst are:" if len(worse) > SHOWN else ":" if worse else "."
    text = textwrap.fill(text, 120) + "\n\n"
    if worse:
        text += results.table(["member", "at its worst", "peer", "elements", "sizes behind"],
                              [cells for _, cells in worse[:SHOWN]])
    return text


def beside_each_other(rows, tiers):
    cells = []
    for tier, below in zip(tiers, tiers[1:]):
        ratios = sorted(statistics.median(rounds) for row in rows if (rounds := row.tier_ratios(tier, below)))
        found = results.slower(rows, tier, below)
        worst = ", ".join(f"{row.name} {ratio:.2f}" for ratio, row in found[:3])
        cells.append([f"{tier}/{below}", f"{results.mean(ratios):.2f}", f"{ratios[0]:.2f} to {ratios[-1]:.2f}",
                      f"{len(found)} of {len(ratios)}", worst])
    return results.table(["tiers", "mean", "range", f"above {results.SLOWER} in every round", "the worst of these"],
                         cells)


def main(folder, target):
    rows, tiers, context = results.read(folder)
    rows = [row for row in rows if all(row.peers(tier) for tier in tiers)]
    target = pathlib.Path(target)
    best = tiers[0]
    count, table = chosen(rows, tiers)
    template = string.Template((HERE / "page.md").read_text(encoding="utf-8"))
    page = template.substitute(tier=best, processor=context.get("processor", "unknown"), count=count, table=table,
                               behind=behind(rows, best), tiers=beside_each_other(rows, tiers))
    draw(families(rows, best), f"Time of orbs (tier {best}) / time of the other library", target / "benchmarks.svg")
    (target / "benchmarks.md").write_text(page, encoding="utf-8")


if __name__ == "__main__":
    main(*sys.argv[1:])
