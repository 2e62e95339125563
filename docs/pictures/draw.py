#!/usr/bin/env python3
"""Draws the pictures of the reference, each for a light and for a dark page.

A picture is a script beside this one: its first line is the caption, the lines after it name members with whose
families it is shown, and draw(figure) draws it. All of its numbers come from the library, through its Python package.

usage: draw.py FOLDER
"""
import importlib
import pathlib
import sys

import matplotlib

matplotlib.use("svg")
import matplotlib.pyplot as plt  # noqa: E402

HERE = pathlib.Path(__file__).parent
# Okabe and Ito's colours can be told apart by everyone, and stand out on white and on black.
COLOURS = ["#0072b2", "#e69f00", "#009e73", "#d55e00", "#cc79a7", "#56b4e9"]
SCHEMES = {"light": ("#24292f", "#d0d7de"), "dark": ("#d1d5da", "#444c56")}


def style(ink, grid):
    return {"text.color": ink, "axes.labelcolor": ink, "axes.edgecolor": ink, "xtick.color": ink, "ytick.color": ink,
            "axes.titlecolor": ink, "grid.color": grid, "axes.grid": True, "axes.prop_cycle": plt.cycler(color=COLOURS),
            "axes.spines.top": False, "axes.spines.right": False, "axes.titlesize": 10, "axes.labelsize": 9,
            "xtick.labelsize": 8, "ytick.labelsize": 8, "legend.fontsize": 8, "legend.frameon": False,
            "lines.linewidth": 1.6, "grid.linewidth": 0.6, "figure.constrained_layout.use": True,
            "savefig.transparent": True, "svg.hashsalt": "orbs"}


def main(folder):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    sys.path.insert(0, str(HERE))
    for path in sorted(HERE.glob("*.py")):
        if path.name == pathlib.Path(__file__).name:
            continue
        picture = importlib.import_module(path.stem)
        for scheme, colours in SCHEMES.items():
            with plt.rc_context(style(*colours)):
                figure = plt.figure(figsize=getattr(picture, "SIZE", (8, 3.2)))
                picture.draw(figure)
                figure.savefig(folder / f"{path.stem}-{scheme}.svg", metadata={"Date": None})
                plt.close(figure)


if __name__ == "__main__":
    main(sys.argv[1])
