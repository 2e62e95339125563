"""Five windows of 64 points, and what each leaves of a tone in the bins beside its own.

orbsWinHann_32f orbsWinBlackmanStd_32f orbsWinKaiser_32f
"""
import numpy as np
import orbs

SIZE = (8, 3.4)
POINTS, PADDED = 64, 12


def draw(figure):
    ones = np.ones(POINTS)
    windows = {
        "Bartlett": orbs.WinBartlett_64f(ones),
        "Hann": orbs.WinHann_64f(ones),
        "Hamming": orbs.WinHamming_64f(ones),
        "Blackman": orbs.WinBlackmanStd_64f(ones),
        "Kaiser, beta 8": orbs.WinKaiser_64f(ones, 16 / (POINTS - 1)),
    }
    fft = orbs.FftR64f(PADDED)
    weights, spectra = figure.subplots(1, 2, width_ratios=(2, 3))
    for name, window in windows.items():
        weights.plot(window, label=name)
        padded = np.zeros(1 << PADDED)
        padded[:POINTS] = window
        power = orbs.PowerSpectr_64fc(fft.forward_ccs(padded).view(np.complex128))
        bins = np.arange(power.size) * POINTS / (1 << PADDED)
        spectra.plot(bins, 10 * np.log10(np.maximum(power / power[0], 1e-12)), linewidth=1.1)
    weights.set(title="weights", xlabel="sample")
    spectra.set(title="leakage", xlabel="distance from the tone in bins", ylabel="dB", xlim=(0, 12), ylim=(-110, 3))
    spectra.legend(*weights.get_legend_handles_labels(), loc="upper right", ncols=2)
