"""The picture of docs/benchmarks.md: ratios by family and peer."""
import matplotlib

matplotlib.use("svg")
import matplotlib.pyplot as plt
from matplotlib.ticker import FixedLocator, FuncFormatter, NullLocator

import results

# Text stays text, and the same numbers give the same file.
plt.rcParams.update({"svg.fonttype": "none", "svg.hashsalt": "orbs", "font.family": "sans-serif", "font.size": 10})

# Colours that differ for colour-blind readers too (Okabe and Ito), and a shape each. A colour may come again with
# another shape.
MARKS = {"VOLK": ("#0072b2", "o"), "FFTW": ("#d55e00", "s"), "SLEEF": ("#009e73", "^"), "Highway": ("#cc79a7", "D"),
         "Eigen": ("#000000", "*"), "liquid-dsp": ("#e69f00", "v"), "soxr": ("#0072b2", "<"),
         "libsamplerate": ("#009e73", ">"), "C++ library": ("#56b4e9", "P"), "tile": ("#000000", "d"),
         "by hand": ("#d55e00", "H"), "plain loop": ("#555555", "X"), "fast-math loop": ("#999999", "p")}
TICKS = [0.05, 0.1, 0.2, 0.5, 1, 2, 5, 10]
ROW, TOP, BOTTOM, WIDTH = 0.26, 0.98, 0.5, 9.0  # inches
LEFT, ROOM, FAMILY, RIGHT = 0.345, 0.012, 0.122, 0.985  # of the width
LEAST = 0.02  # lines that reach farther leave the picture


def draw(families, title, path):
    """families: [(room, family, {peer: ratios})] from top to bottom."""
    height = TOP + BOTTOM + ROW * len(families)
    figure = plt.figure(figsize=(WIDTH, height))
    axes = figure.add_axes([LEFT, BOTTOM / height, RIGHT - LEFT, ROW * len(families) / height])
    greatest = max(1.5, *(ratio for _, _, peers in families for found in peers.values() for ratio in found)) * 1.15
    axes.set(xscale="log", xlim=(LEAST, greatest), ylim=(len(families) - 0.5, -0.5))
    axes.axvspan(1, greatest, color="#fbe9e7", zorder=0)
    axes.axvline(1, color="black", linewidth=1.2, zorder=2)

    def margin(x):  # a place left of the axes, in their units
        return (x - LEFT) / (RIGHT - LEFT)

    handles, above = {}, None
    for y, (room, family, peers) in enumerate(families):
        label = {"transform": axes.get_yaxis_transform(), "va": "center", "clip_on": False}
        axes.text(margin(FAMILY), y, family, **label)
        if room != above:
            axes.text(margin(ROOM), y, room, weight="bold", **label)
            axes.axhline(y - 0.5, xmin=margin(ROOM), color="#999999", linewidth=0.6, clip_on=False)
            above = room
        shown = [peer for peer in MARKS if peer in peers]
        for n, peer in enumerate(shown):
            at = y + (n - (len(shown) - 1) / 2) * 0.7 / max(len(shown), 2)
            color, shape = MARKS[peer]
            axes.plot([min(peers[peer]), max(peers[peer])], [at, at], color=color, linewidth=2, alpha=0.45, zorder=3,
                      solid_capstyle="round")
            mean = max(results.mean(peers[peer]), LEAST * 1.05)
            handles[peer], = axes.plot(mean, at, color=color, marker=shape, markersize=6, markeredgecolor="white",
                                       markeredgewidth=0.5, linestyle="none", zorder=4)

    axes.xaxis.set_major_locator(FixedLocator([tick for tick in TICKS if LEAST < tick < greatest]))
    axes.xaxis.set_minor_locator(NullLocator())
    axes.xaxis.set_major_formatter(FuncFormatter(lambda tick, _: f"{tick:g}"))
    axes.yaxis.set_major_locator(NullLocator())
    axes.grid(axis="x", color="#dddddd", linewidth=0.6, zorder=1)
    axes.set_axisbelow(True)
    below = {"transform": axes.get_xaxis_transform(), "va": "center", "style": "italic", "clip_on": False}
    axes.text(0.95, -0.39 / (ROW * len(families)), "orbs is faster", ha="right", **below)
    axes.text(1.05, -0.39 / (ROW * len(families)), "slower", ha="left", **below)
    figure.text(ROOM, 1 - 0.22 / height, title, weight="bold", size=12, va="center")
    figure.legend([handles[peer] for peer in MARKS if peer in handles], [peer for peer in MARKS if peer in handles],
                  loc="center left", bbox_to_anchor=(0, 1 - 0.63 / height), ncols=7, frameon=False,
                  handletextpad=0.1, columnspacing=0.6)
    figure.savefig(path, metadata={"Date": None})
