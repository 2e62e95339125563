"""Low passes at a quarter of the sampling rate: FIR designs of 41 taps by four windows, IIR designs of order 6.

orbsFIRGenLowpass_64f orbsIIRGenLowpass_64f
"""
import numpy as np
import orbs

BARTLETT, BLACKMAN, HAMMING, HANN = range(4)
BUTTERWORTH, CHEBYSHEV = range(2)
ORDER = 12


def response(taps):
    """The magnitude of a polynomial in 1/z on the unit circle, by a transform of the padded taps."""
    padded = np.zeros(1 << ORDER)
    padded[:taps.size] = taps
    return orbs.Magnitude_64fc(orbs.FftR64f(ORDER).forward_ccs(padded).view(np.complex128))


def draw(figure):
    fir, iir = figure.subplots(1, 2, sharey=True)
    frequency = np.linspace(0, 0.5, (1 << ORDER) // 2 + 1)
    for name, window in (("Bartlett", BARTLETT), ("Hann", HANN), ("Hamming", HAMMING), ("Blackman", BLACKMAN)):
        gain = response(orbs.FIRGenLowpass_64f(0.25, window, 1, taps_len=41))
        fir.plot(frequency, 20 * np.log10(np.maximum(gain, 1e-7)), label=name, linewidth=1.1)
    for name, ripple, kind in (("Butterworth", 0, BUTTERWORTH), ("Chebyshev, 1 dB", 1, CHEBYSHEV),
                               ("Chebyshev, 3 dB", 3, CHEBYSHEV)):
        taps = orbs.IIRGenLowpass_64f(0.25, ripple, 6, kind)
        gain = response(taps[:7]) / response(taps[7:])
        iir.plot(frequency, 20 * np.log10(np.maximum(gain, 1e-7)), label=name)
    fir.set(title="FIRGenLowpass, 41 taps", xlabel="frequency / sampling rate", ylabel="gain in dB", ylim=(-110, 5))
    iir.set(title="IIRGenLowpass, order 6", xlabel="frequency / sampling rate")
    fir.legend(loc="lower left")
    iir.legend(loc="lower left")
