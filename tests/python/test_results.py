"""Results beside those of numpy and scipy: what the arguments mean, and that none of them changes places."""
import fractions
import re

import numpy as np
import pytest
import scipy.fft
import scipy.signal
import scipy.stats

import orbs
from conftest import ROOT

RANDOM = np.random.default_rng(7)


def floats(n, dtype="f4"):
    values = RANDOM.standard_normal(n)
    if np.dtype(dtype).kind == "c":
        values = values + 1j * RANDOM.standard_normal(n)
    return values.astype(dtype)


def near(result, expected, digits=5):
    expected = np.asarray(expected)
    np.testing.assert_allclose(result, expected, rtol=10.0 ** -digits, atol=10.0 ** -digits * max(1, abs(expected).max()))


def scaled(values, scale, dtype):
    """To nearest, ties to even, saturated: the rule of all integer results."""
    limits = np.iinfo(dtype)
    rounded = [round(fractions.Fraction(int(v)) / fractions.Fraction(2) ** scale) for v in values]
    return np.clip(rounded, limits.min, limits.max).astype(dtype)


@pytest.mark.parametrize("scale", [-3, 0, 1, 5, 16])
def test_integers_with_a_scale(scale):
    a, b = (RANDOM.integers(-32768, 32768, 500).astype("i2") for _ in range(2))
    wide = a.astype("i8"), b.astype("i8")
    np.testing.assert_array_equal(orbs.Add_16s_Sfs(a, b, scale=scale), scaled(wide[0] + wide[1], scale, "i2"))
    np.testing.assert_array_equal(orbs.Sub_16s_Sfs(a, b, scale), scaled(wide[1] - wide[0], scale, "i2"))
    np.testing.assert_array_equal(orbs.Mul_16s_Sfs(a, b, scale=scale), scaled(wide[0] * wide[1], scale, "i2"))
    c = b.copy()
    assert orbs.Mul_16s_ISfs(a, c, scale=scale) is c
    np.testing.assert_array_equal(c, scaled(wide[0] * wide[1], scale, "i2"))


def test_numbers_of_every_kind():
    z, w = floats(9, "c8"), floats(9, "c16")
    np.testing.assert_array_equal(orbs.Set_32fc(1 - 2j, n=3), np.full(3, 1 - 2j, "c8"))
    near(orbs.MulC_64fc(w, np.complex128(2 + 1j)), w * (2 + 1j), 14)
    near(orbs.AddC_32fc(z, 3), z + 3)
    pairs = orbs.RealToCplx_16s([1, 2], [3, -4])
    assert pairs.dtype == orbs.int16c and pairs.tolist() == [(1, 3), (2, -4)]
    for value in ((5, 1), 5 + 1j, np.array([(5, 1)], orbs.int16c)[0]):
        assert orbs.AddC_16sc_Sfs(pairs, value).tolist() == [(6, 4), (7, -3)]
    assert orbs.Sum_64fc(w) == pytest.approx(w.sum())
    dot = orbs.DotProd_32f64f(floats(5), np.ones(5, "f4"))
    assert isinstance(dot, np.float64)
    assert orbs.MinMaxIndx_32f([3, 1, 2, 9]) == (1, 1, 9, 3)
    assert orbs.Max_16s([4, 7, -1]) == 7
    with pytest.raises(TypeError):
        orbs.Set_16s(1.5, n=3)
    with pytest.raises((OverflowError, ValueError)):
        orbs.Set_8u(256, n=3)
    with pytest.raises(TypeError, match="whole"):
        orbs.Set_16sc(1.5 + 1j, n=3)


def test_arrays_of_other_lengths():
    a, b = floats(40), floats(7)
    near(orbs.Conv_32f(a, b), np.convolve(a, b))
    near(orbs.CrossCorr_32f(a, b), np.correlate(b, a, "full"))
    near(orbs.CrossCorr_32f(a, b, 2, dst_len=3), [sum(a[k] * b[k + lag] for k in range(7 - lag)) for lag in (2, 3, 4)])
    near(orbs.AutoCorr_32f(a, dst_len=5), np.correlate(a, a, "full")[39:44])
    near(orbs.ConvBiased_32f(b, a, 3, dst_len=20), np.convolve(a, b)[3:23])
    up, phase = orbs.SampleUp_32f(b, 3, 1)
    assert phase == 1 and up[1::3].tolist() == b.tolist() and up.sum() == pytest.approx(b.sum())
    down, phase = orbs.SampleDown_32f(a, 6, 2)
    assert down.tolist() == a[2::6].tolist() and phase == 2 + 7 * 6 - 40
    low, high = orbs.WTHaarFwd_64f(a.astype("f8")[:9])
    assert low.size == 5 and high.size == 4
    near(orbs.WTHaarInv_64f(low, high), a[:9], 14)
    joined = orbs.JoinScaled_32f16s_D2L([b / 8, -b / 8])
    near(np.stack(orbs.SplitScaled_16s32f_D2L(joined, n_channels=2)), np.stack([b / 8, -b / 8]), 4)
    stream, bits = orbs.PackBits_32u8u([0b101, 0b1, 0xff], [3, 1, 4], 0)
    assert bits == 8 and stream.tolist() == [0b10111111]
    assert orbs.Copy_1u([0b01010000], 1, 0, 3)[0] == 0b10100000
    order, places = orbs.SortIndexDescend_32f_I(b.copy())
    assert order.tolist() == sorted(b, reverse=True) and b[places].tolist() == order.tolist()
    near(orbs.SumWindow_16s32f(np.arange(20, dtype="i2"), 4), [4 * n + 6 for n in range(16)])
    assert orbs.FindNearest_16u([4, 11], [0, 5, 10])[1].tolist() == [1, 2]


def test_transforms():
    z, x = floats(64, "c8"), floats(64)
    fft, real = orbs.FftC32fc(6), orbs.FftR32f(6)
    near(fft(z), np.fft.fft(z))
    near(fft.inverse(fft.forward(z)), z)
    near(real.forward_ccs(x).view("c8"), np.fft.rfft(x))
    near(real.inverse_pack(real.forward_pack(x)), x)
    near(orbs.FFTFwd_CToC_32fc(orbs.FftC32fc(6, orbs.FFT_SCALE_FWD), z), np.fft.fft(z) / 64)
    y = z.copy()
    assert fft.forward_in_place(y) is y
    np.testing.assert_array_equal(y, fft(z, buffer=np.zeros(fft.buf_size, "u1")))
    planes = orbs.FftC64f(4).forward(floats(16, "f8"), np.zeros(16))
    assert [plane.dtype for plane in planes] == ["f8", "f8"]
    w = floats(15, "c16")
    near(orbs.DftC64fc(15)(w), np.fft.fft(w), 13)
    near(orbs.DftR64f(15).forward_ccs(w.real.copy()).view("c16"), np.fft.rfft(w.real), 13)
    near(orbs.DctFwd64f(12)(w.real[:12].copy()), scipy.fft.dct(w.real[:12], norm="ortho"), 13)
    near(orbs.Hilbert32f32fc(64)(x), scipy.signal.hilbert(x))
    near(orbs.Goertz_32fc(z, 3 / 64), np.fft.fft(z)[3])
    near(orbs.GoertzTwo_32fc(z, [1 / 64, 5 / 64]), np.fft.fft(z)[[1, 5]])
    with pytest.raises(ValueError, match="32 elements, 64 are"):
        fft(z[:32])
    with pytest.raises(ValueError, match="buffer has 8 bytes"):
        fft(z, buffer=np.zeros(8, "u1"))


@pytest.mark.parametrize("blocks", [(400,), (1, 99, 300)])
def test_filters_of_streams(blocks):
    x, cuts = floats(400), np.cumsum(blocks)[:-1]
    taps = orbs.FIRGenLowpass_64f(0.1, orbs.WinHamming, 1, taps_len=21)
    design = orbs.IIRGenLowpass_64f(0.1, 1.0, 4, orbs.Chebyshev1)
    sections = scipy.signal.butter(4, 0.2, output="sos")

    def through(f, samples=x):
        return np.concatenate([f(part) for part in np.split(samples, cuts)])

    near(through(orbs.Fir32f(taps.astype("f4"))), scipy.signal.lfilter(taps, 1, x))
    near(through(orbs.Fir64f_32f(taps)), scipy.signal.lfilter(taps, 1, x))
    near(through(orbs.Iir64f(design), x.astype("f8")), scipy.signal.lfilter(design[:5], design[5:], x), 9)
    near(through(orbs.IirBiQuad64f(sections.ravel()), x.astype("f8")), scipy.signal.sosfilt(sections, x), 9)
    past = floats(20)
    near(orbs.Fir32f(taps.astype("f4"), np.r_[past, 0].astype("f4"))(x),
         scipy.signal.lfilter(taps, 1, np.r_[past[::-1], x])[20:])
    loud = (x * 5000).astype("i2")
    near(orbs.Fir32f_16s(taps.astype("f4"))(loud, scale=1), np.rint(scipy.signal.lfilter(taps, 1, loud) / 2), 3)


def test_rates_taps_and_adaption():
    x, taps = floats(60), floats(13)
    rate = orbs.FirMr32f(taps, 3, 2)
    near(rate(x), scipy.signal.upfirdn(taps, x, 3, 2)[:90])
    assert rate(x, out=np.empty(90, "f4")).size == 90
    y, room = x.copy(), np.empty(90, "f4")
    room[:60] = x
    np.testing.assert_array_equal(orbs.FirMr32f(taps, 3, 2).in_place(room), orbs.FirMr32f(taps, 3, 2)(x))
    with pytest.raises(ValueError, match="61 elements, 60 are"):
        rate(np.r_[x, x[:1]])
    line = np.zeros(26, "f4")
    result, index = orbs.FIR_Direct_32f(x, taps, line)
    near(result, scipy.signal.lfilter(taps, 1, x))
    result, index = orbs.FIR_Direct_32f(y, taps, line, index)
    near(result, scipy.signal.lfilter(taps, 1, np.r_[x, y])[60:])
    sparse = orbs.FirSparse32f([1, -0.5], [0, 40])
    near(np.r_[sparse(x), sparse(y)], np.r_[x, y] - 0.5 * np.r_[np.zeros(40), x, y][:120])
    comb = orbs.IirSparse32f([1.0, 0.5], [0, 3], 1)
    near(comb(x), scipy.signal.lfilter([1], [1, 0, 0, -0.5], x))
    echo, far = np.array([0.5, -0.25, 0.125], "f4"), floats(4000)
    lms = orbs.FirLms32f(np.zeros(3, "f4"))
    lms(far, scipy.signal.lfilter(echo, 1, far).astype("f4"), 0.02)
    near(lms.taps, echo, 3)
    assert lms.dly_line[1] == 0
    f = orbs.Fir32f([1, 2])
    f.taps = [3, 4]
    assert f.taps.tolist() == [3, 4] and f.one(2) == 6 and f.dly_line.tolist() == [2, 0]
    f.set_dly_line([1, 1])
    assert f([0, 0]).tolist() == [4, 0]


def test_generators():
    tone, phase = orbs.Tone_Direct_64f(2.0, 0.01, 0.5, n=300)
    near(tone, 2 * np.cos(2 * np.pi * 0.01 * np.arange(300) + 0.5), 10)
    assert phase == pytest.approx((0.5 + 6 * np.pi) % (2 * np.pi))
    assert orbs.VectorRamp_16s(1, 3, n=4).tolist() == [1, 4, 7, 10]
    noise, seed = orbs.RandUniform_Direct_64f(-1, 1, 42, n=20000)
    assert seed != 42 and scipy.stats.kstest(noise, "uniform", (-1, 2)).pvalue > 1e-4
    assert scipy.stats.kstest(orbs.RandGauss32f(1, 2, 5)(n=20000), "norm", (1, 2)).pvalue > 1e-4
    near(orbs.WinHann_32f(np.ones(9, "f4")), np.hanning(9))
    near(orbs.WinKaiser_64f(np.ones(9), 0.5), np.kaiser(9, 0.5 * 8 / 2), 6)


def test_statuses():
    with pytest.raises(orbs.Error, match="WinKaiser_32f: .+") as caught:
        orbs.WinKaiser_32f(np.ones(9, "f4"), 1e9)
    assert caught.value.status == orbs.StsWinKaiserErr
    with pytest.warns(orbs.StatusWarning, match=orbs.GetStatusString(orbs.StsDivByZero)) as caught:
        assert orbs.Div_32f([0, 2], [1, 1]).tolist() == [np.inf, 0.5]
    assert caught[0].filename == __file__ and caught[0].message.status == orbs.StsDivByZero
    with pytest.raises(orbs.Error) as caught:
        orbs.Add_32f([], [])
    assert caught.value.status == orbs.StsSizeErr
    with pytest.raises(orbs.Error):
        orbs.FftC32fc(99)
    assert orbs.Malloc_32fc(5).dtype == "c8"
    with pytest.raises(orbs.Error):
        orbs.Malloc_32f(-1)


def test_the_page(capsys):
    """What docs/python.md prints is what it says."""
    page = (ROOT / "docs" / "python.md").read_text()
    example = re.search(r"```python\n(.*?)```", page, re.S)[1]
    exec(example, {})
    assert capsys.readouterr().out.strip() == re.search(r"# (\[.*)", example)[1]
