"""Companding: samples through eight bits and back. Steps are fine for quiet samples and coarse for loud ones.

orbsLinToMuLaw_16s8u orbsALawToMuLaw_8u
"""
import numpy as np
import orbs


def draw(figure):
    samples = np.arange(-32768, 32768, dtype=np.int16)
    curve, error = figure.subplots(1, 2)
    for name, encode, decode in (("mu-law", orbs.LinToMuLaw_16s8u, orbs.MuLawToLin_8u16s),
                                 ("A-law", orbs.LinToALaw_16s8u, orbs.ALawToLin_8u16s)):
        back = decode(encode(samples))
        near = np.abs(samples.astype(int)) <= 120
        curve.plot(samples[near], back[near], label=name, linewidth=1.2)
        wrong = np.abs(back.astype(int) - samples)[samples >= 0]
        starts = np.unique(np.geomspace(16, 32000, 32).astype(int))
        error.plot(starts, np.maximum.reduceat(wrong, starts), drawstyle="steps-post", label=name, linewidth=1.2)
    curve.set(title="quiet samples, there and back", xlabel="sample in", ylabel="sample out")
    error.set(title="largest error", xlabel="sample in", xscale="log", yscale="log")
    curve.legend()
    error.legend()
