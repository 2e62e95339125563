"""Whatever array comes: it is computed with as numpy would, or refused with a reason; nothing is misread or written astray."""
import inspect

import numpy as np
import pytest
from hypothesis import given, settings
from hypothesis import strategies as st
from hypothesis.extra import numpy as arrays

import orbs

TYPES = {"8u": "u1", "16s": "i2", "32s": "i4", "32f": "f4", "64f": "f8", "32fc": "c8", "64fc": "c16"}
ANY = st.sampled_from(["u1", "i1", "u2", "i2", "i4", "i8", "f2", "f4", "f8", "c8", "c16", ">f4", ">i2", "?", "O", "U3", "M8[s]"])


@st.composite
def views(draw, dtype):
    """A vector of any stride, direction and place."""
    step = draw(st.sampled_from([1, 1, 2, 3, -1, -2]))
    n = draw(st.integers(1, 70))
    kind = np.dtype(dtype).kind
    block = np.random.default_rng(draw(st.integers(0, 9))).integers(1, 100, n * abs(step) + 3).astype(dtype)
    if kind == "c":
        block *= dtype(1 + 2j) if callable(dtype) else np.dtype(dtype).type(1 + 2j)
    view = block[2:2 + n * abs(step)][::step]
    return view if draw(st.booleans()) else np.lib.stride_tricks.as_strided(
        view, view.shape, view.strides, writeable=False)


@settings(max_examples=300, deadline=None)
@given(st.data(), st.sampled_from(sorted(TYPES)))
def test_sources_of_any_stride(data, name):
    a = data.draw(views(TYPES[name]))
    copied = orbs.__getattr__(f"Copy_{name}")(a) if name in ("8u", "16s", "32s", "32f", "64f", "32fc", "64fc") else a
    np.testing.assert_array_equal(copied, a)
    assert copied.flags.c_contiguous and not np.shares_memory(copied, a)
    doubled = orbs.__getattr__(f"Add_{name}_Sfs" if name in ("8u", "16s", "32s") else f"Add_{name}")(a, a)
    np.testing.assert_array_equal(doubled, np.minimum(a.astype("i8") * 2, 255).astype("u1") if name == "8u" else a + a)


@settings(max_examples=300, deadline=None)
@given(ANY, arrays.array_shapes(min_dims=0, max_dims=3, min_side=0, max_side=5), st.booleans(), st.integers(0, 5))
def test_any_array_as_source_and_destination(dtype, shape, order, n):
    array = np.zeros(shape, dtype, order="F" if order else "C")
    wanted = np.arange(n, dtype="f4")
    good = array.dtype == "f4" and array.ndim == 1 and array.size > 0
    for call in (lambda: orbs.Sqr_32f(array), lambda: orbs.Sqr_32f_I(array)):
        if good:
            np.testing.assert_array_equal(call(), np.zeros(array.size))
        else:
            with pytest.raises((TypeError, ValueError, orbs.Error)):
                call()
    if good and array.size == n:
        np.testing.assert_array_equal(orbs.Sqr_32f(wanted, out=array), wanted ** 2)
    else:
        with pytest.raises((TypeError, ValueError, orbs.Error)):
            orbs.Sqr_32f(wanted, out=array)
        assert array.dtype.kind in "OUM" or not array.any()


@settings(max_examples=200, deadline=None)
@given(st.lists(st.one_of(st.integers(-300, 300), st.integers(), st.floats(allow_nan=False), st.text(max_size=2), st.none()),
                max_size=5), st.sampled_from(["8u", "16s", "32f", "64f"]))
def test_lists_fit_or_are_refused(values, name):
    dtype = np.dtype(TYPES[name])
    try:
        copied = orbs.__getattr__(f"Copy_{name}")(values)
    except (TypeError, ValueError, orbs.Error):
        return
    assert copied.dtype == dtype and [dtype.type(v) for v in values] == copied.tolist()


def test_lists_that_do_not_fit():
    for values in ([(40000, 1)], [(1, 2, 3)], [(1,)], [1.5], [float("nan")], [("a", "b")]):
        with pytest.raises((TypeError, ValueError), match="src "):
            orbs.Copy_16sc(values)
    for bad in (lambda: orbs.Convert_24s32f([1, 2]), lambda: orbs.Copy_32f([1e300])):
        with pytest.raises((TypeError, ValueError), match="src "):
            bad()


def test_scalars():
    """What C's conversion would cut off, and sizes that would overflow in numpy's small integers."""
    ones = np.ones(100, "i2")
    for bad in (np.float32(1.7), np.array([1.7]), 1.0, "1", None):
        with pytest.raises(TypeError, match="scale is .*; an integer is needed"):
            orbs.Add_16s_Sfs(ones, ones, scale=bad)
    for bad in (np.complex64(1 + 2j), np.ones(1), "1", None):
        with pytest.raises(TypeError, match="val is .*; a real number is needed"):
            orbs.MulC_32f([1], bad)
    assert orbs.Add_16s_Sfs(ones, ones, scale=np.array(1)).tolist() == ones.tolist()
    assert orbs.MulC_32f([1], np.array(2)) == orbs.MulC_32f([1], np.int8(2)) == [2]
    up, _ = orbs.SampleUp_32f(np.ones(100, "f4"), np.uint8(3))
    assert up.size == 300


def test_misaligned_arrays():
    block = np.zeros(41, "u1")
    odd = block[1:].view("f4")
    odd[:] = 3
    np.testing.assert_array_equal(orbs.Sqr_32f(odd), np.full(10, 9))
    with pytest.raises(ValueError, match="not aligned"):
        orbs.Sqr_32f_I(odd)
    packed = block[1:].view([("re", "i2"), ("im", "i2")])      # equal to orbs.int16c, but for the alignment
    assert packed.flags.aligned
    with pytest.raises(ValueError, match="not aligned"):
        orbs.Zero_16sc(out=packed)


def test_subclasses_and_absent_arrays():
    class Named(np.ndarray):
        pass

    np.testing.assert_array_equal(orbs.Sqr_32f(np.arange(3, dtype="f4").view(Named)), [0, 1, 4])
    assert orbs.RealToCplx_32f([1, 2], None).tolist() == [1, 2]
    assert orbs.RealToCplx_32f(None, [1, 2]).tolist() == [1j, 2j]
    for bad in (lambda: orbs.RealToCplx_32f(None, None), lambda: orbs.Sqr_32f(None), lambda: orbs.Sqr_32f(3.0),
                lambda: orbs.MulC_32fc([1j], "2"), lambda: orbs.Sqr_32f(np.ma.ones(3, "f4")), lambda: orbs.Sqr_32f(), lambda: orbs.Zero_32f(), lambda: orbs.Zero_32f(out=3),
                lambda: orbs.CartToPolar_32fc(np.ones(3, "c8"), out=np.ones(3, "f4"))):
        with pytest.raises(TypeError):
            bad()


def test_the_module_tells():
    assert {"Add_32f", "Fir32f", "FFT_SCALE_INV", "_10Log10_32s_Sfs"} <= set(dir(orbs)) & set(orbs.__all__)
    assert orbs.Add_32f.__doc__.startswith("OrbStatus orbsAdd_32f(const Orb32f* pSrc1")
    assert "newest sample first" in orbs.Fir32f.__doc__
    assert str(inspect.signature(orbs.Fir32f)) == "(taps, dly_line=None)"
    with pytest.raises(AttributeError, match="no Add_33f"):
        orbs.Add_33f
