"""What the thresholds make of elements from -2 to 2, at a level of 0.5.

orbsThreshold_LT_32f orbsThreshold_LTVal_32f orbsThreshold_LTAbs_32f orbsThreshold_LTInv_32f orbsThreshold_LTValGTVal_32f
"""
import numpy as np
import orbs

SIZE = (8, 4.2)


def draw(figure):
    x = orbs.VectorRamp_32f(-2, 1 / 256, n=1025)
    curves = {
        "LT": orbs.Threshold_LT_32f(x, 0.5),
        "GT": orbs.Threshold_GT_32f(x, 0.5),
        "LTVal, value -1": orbs.Threshold_LTVal_32f(x, 0.5, -1),
        "LTAbs": orbs.Threshold_LTAbs_32f(x, 0.5),
        "GTAbs": orbs.Threshold_GTAbs_32f(x, 0.5),
        "LTInv: 1 / x, limited": orbs.Threshold_LTInv_32f(x, 0.5),
    }
    places = figure.subplots(2, 3, sharex=True, sharey=True).flat
    for number, (place, (name, y)) in enumerate(zip(places, curves.items())):
        jumps = np.flatnonzero(np.abs(np.diff(y)) > 0.5) + 1
        place.plot(x, x, color="grey", linewidth=0.8, linestyle=":")
        place.plot(np.insert(x, jumps, np.nan), np.insert(y, jumps, np.nan), color=f"C{number}")
        place.set(title=f"Threshold_{name}", ylim=(-2.2, 2.2))
