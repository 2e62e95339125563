"""What scripts/bench.sh measured: Google Benchmark's JSON files, ROOM.TIER.ROUND.json, as rows of times."""
import json
import math
import pathlib
import re
import statistics

SLOWER = 1.05  # a ratio above this one is worth a look; up to it, it may be the noise of a machine
TIERS = ["v4", "v3", "v8"]  # from the widest vectors to the narrowest
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}

# The others by their names in the benchmarks; those without a name for readers stand in the full tables only.
PEERS = {"volk": "VOLK", "fftw": "FFTW", "eigen": "Eigen", "sleef": "SLEEF", "highway": "Highway",
         "liquid": "liquid-dsp", "samplerate": "libsamplerate", "soxr": "soxr", "std": "C++ library",
         "std::cos": "C++ library", "lower_bound": "C++ library", "loop": "plain loop", "rint": "plain loop",
         "table": "plain loop", "loop_by_taps": "plain loop", "tile": "tile", "hand": "by hand",
         "fastmath": "fast-math loop", "fastmath-single": "fast-math loop"}


class Row:
    """A member at one size: the times of everybody, in nanoseconds, by tier and round."""

    def __init__(self, room, member, size):
        self.room, self.member, self.size = room, member, size
        self.name = f"{member}/{size}"
        self.times = {}

    def add(self, tier, who, turn, time):
        self.times.setdefault(tier, {}).setdefault(who, {}).setdefault(turn, []).append(time)

    def order(self):
        return self.room, self.member, [int(number) for number in re.findall(r"\d+", self.size)]

    def time(self, tier, who):
        return statistics.median(time for times in self.times[tier][who].values() for time in times)

    def others(self, tier):
        return [who for who in self.times.get(tier, {}) if who != "orbs"]

    def ratio(self, tier, who):
        """The time of orbs over that of another, which ran in the same process."""
        return self.time(tier, "orbs") / self.time(tier, who)

    def peers(self, tier):
        """Ratios beside each peer, at its fastest, the worst first."""
        ratios = {}
        for who in self.others(tier):
            if who in PEERS:
                ratios[PEERS[who]] = max(ratios.get(PEERS[who], 0), self.ratio(tier, who))
        return dict(sorted(ratios.items(), key=lambda item: -item[1]))

    def tier_ratios(self, tier, other):
        """The time in one tier over that in another, round by round."""
        rounds, others = (self.times.get(name, {}).get("orbs", {}) for name in (tier, other))
        return [statistics.median(rounds[n]) / statistics.median(others[n]) for n in sorted(rounds) if n in others]


def read(folder):
    """The rows in order, the tiers measured from the widest on, and what Google Benchmark says of the machine."""
    rows, tiers, context = {}, set(), {}
    for path in sorted(pathlib.Path(folder).glob("*.json")):
        room, tier, turn = path.stem.split(".")
        if path.stat().st_size == 0:  # no benchmark of the program passed the filter
            continue
        report = json.loads(path.read_text(encoding="utf-8"))
        context = report["context"]
        for run in report["benchmarks"]:
            if run["run_type"] != "iteration":
                continue
            if run.get("error_occurred"):
                raise SystemExit(f"{path}: {run['name']}: {run['error_message']}")
            member, who, size = run["run_name"].split("/repeats:")[0].split("/")
            row = rows.setdefault((member, size), Row(room, member, size))
            row.add(tier, who, turn, run["cpu_time"] * NANOSECONDS[run["time_unit"]])
            tiers.add(tier)
    for row in rows.values():
        lonely = [tier for tier, times in row.times.items() if "orbs" not in times]
        if lonely:
            raise SystemExit(f"{row.name} has no time of orbs in {', '.join(lonely)}")
    if not rows:
        raise SystemExit(f"{folder} holds no results: scripts/bench.sh measures")
    return sorted(rows.values(), key=Row.order), [tier for tier in TIERS if tier in tiers], context


def slower(rows, tier, below):
    """[(ratio, row)] where a tier takes longer than the one below in every round, the worst first."""
    found = [(statistics.median(ratios), row) for row in rows
             if (ratios := row.tier_ratios(tier, below)) and min(ratios) > SLOWER]
    return sorted(found, key=lambda item: -item[0])


def mean(ratios):
    return math.exp(statistics.fmean(math.log(ratio) for ratio in ratios))


def table(head, lines):
    """A table of Markdown: the first column to the left, the others to the right."""
    return "\n".join("| " + " | ".join(cells) + " |" for cells in
                     [head, ["---"] + ["---:"] * (len(head) - 1), *lines]) + "\n"
