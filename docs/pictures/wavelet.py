"""One step of the Haar transform: a noisy step becomes averages of pairs, and half differences that show where it jumps.

orbsWTHaarFwd_32f orbsWTFwd_32f
"""
import orbs

SIZE = (8, 2.8)


def draw(figure):
    samples = orbs.Triangle_Direct_32f(0.6, 0.012, 0, n=128)[0]
    samples[63:] += 1
    samples += orbs.RandGauss_Direct_32f(0, 0.04, 3, n=128)[0]
    low, high = orbs.WTHaarFwd_32f(samples)
    whole, averages, details = figure.subplots(1, 3, sharey=True, width_ratios=(2, 1, 1))
    whole.plot(samples, drawstyle="steps-mid", linewidth=1.1)
    whole.set(title="128 samples", xlabel="sample")
    averages.plot(low, color="C2", drawstyle="steps-mid", linewidth=1.1)
    averages.set(title="low: 64 averages", xlabel="pair")
    details.plot(high, color="C3", drawstyle="steps-mid", linewidth=1.1)
    details.set(title="high: 64 half differences", xlabel="pair")
