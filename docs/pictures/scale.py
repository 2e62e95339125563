"""Sums of unsigned bytes under four scale factors.

orbsAdd_8u_Sfs
"""
import numpy as np
import orbs


def draw(figure):
    whole, close = figure.subplots(1, 2)
    x = np.arange(256, dtype=np.uint8)
    for scale in (-1, 0, 1, 2):
        whole.plot(np.arange(256) * 2, orbs.Add_8u_Sfs(x, x, scale), label=f"scale factor {scale}")
    few = np.arange(13, dtype=np.uint8)
    zero = np.zeros_like(few)
    for scale in (1, 2):
        close.plot(few, orbs.Add_8u_Sfs(few, zero, scale), "o", color=f"C{scale + 1}", label=f"scale factor {scale}")
        close.plot(few, few / 2**scale, color=f"C{scale + 1}", linewidth=0.8, linestyle=":")
    whole.set(title="x + x", xlabel="exact sum", ylabel="result")
    close.set(title="ties go to the even integer", xlabel="exact sum", xticks=range(0, 13, 2))
    whole.legend()
    close.legend()
