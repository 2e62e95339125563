"""A chirp with its echo and a tone that starts late: power of windowed blocks of 256 samples, in decibels.

orbsFFTFwd_RToCCS_32f orbsPowerSpectr_32fc
"""
import numpy as np
import orbs

BLOCK, HOP, LENGTH = 256, 64, 16384


def draw(figure):
    samples = orbs.VectorJaehne_32f(1, n=LENGTH)
    samples[3000:] += 0.2 * samples[:-3000].copy()
    samples[9000:] += 0.3 * orbs.Tone_Direct_32f(1, 0.1, n=LENGTH - 9000)[0]
    samples += orbs.RandGauss_Direct_32f(0, 0.01, 1, n=LENGTH)[0]
    fft = orbs.FftR32f(8)
    columns = []
    for start in range(0, LENGTH - BLOCK + 1, HOP):
        block = orbs.WinHann_32f(samples[start:start + BLOCK])
        columns.append(orbs.PowerSpectr_32fc(fft.forward_ccs(block).view(np.complex64)))
    power = 10 * np.log10(np.maximum(np.array(columns).T, 1e-6))
    axes = figure.subplots()
    axes.grid(False)
    image = axes.imshow(power, origin="lower", aspect="auto", cmap="magma", vmin=-25, vmax=40, interpolation="nearest",
                        extent=(0, LENGTH, 0, 0.5))
    axes.set(xlabel="sample", ylabel="frequency / sampling rate")
    figure.colorbar(image, label="dB")
