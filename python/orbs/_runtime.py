"""What the calls of all members run on: types, tests of arguments, statuses."""
import collections
import operator
import re
import warnings

import numpy
from numpy import empty, ndarray, zeros

from . import _library
from ._abi import ffi

__all__ = ["NULL", "allocated", "bits_as_bytes", "buffer_of", "cast", "destination", "empty", "integer", "keep", "kept",
           "last", "member_of", "memory", "ndarray", "new", "object_made", "one", "packed_bytes", "pair", "pointers",
           "rate_line", "real", "report", "room_for", "several", "size_of", "source", "told", "trellis_states", "unknown",
           "whole_pair", "work_buffer", "written", "wrong_object", "wrong_size", "zeros"]

NULL, cast, new, buffer_of = ffi.NULL, ffi.cast, ffi.new, ffi.from_buffer
BYTES = ffi.typeof("Orb8u[]")


def _parts(code):
    return numpy.dtype([("re", code), ("im", code)], align=True)


DTYPES = {"8u": "u1", "8s": "i1", "16u": "u2", "16s": "i2", "16f": "f2", "32u": "u4", "32s": "i4", "64u": "u8",
          "64s": "i8", "32f": "f4", "64f": "f8", "32fc": "c8", "64fc": "c16"}
DTYPES = {name: numpy.dtype(code) for name, code in DTYPES.items()}
DTYPES.update({f"{bits}sc": _parts(f"i{bits // 8}") for bits in (8, 16, 32, 64)})
DTYPES.update({f"24{sign}": numpy.dtype([(f"{sign}24", "u1", (3,))]) for sign in "us"})
LIMITS = {t: (int(numpy.iinfo(t).min), int(numpy.iinfo(t).max)) for t in DTYPES.values() if t.kind in "iu"}
NAMES = {"24u": "orbs.uint24", "24s": "orbs.int24", **{f"{b}sc": f"orbs.int{b}c" for b in (8, 16, 32, 64)}}


class Error(RuntimeError):
    """A member refused a call: `status` is the number, the text is the library's."""

    def __init__(self, text, status=0):
        super().__init__(text)
        self.status = status


class StatusWarning(RuntimeWarning):
    """A member warns of its results, all of which are there: `status` is the number."""

    def __init__(self, text, status=0):
        super().__init__(text)
        self.status = status


def report(status, name):
    text = f"{name}: {ffi.string(_library.CORE.orbGetStatusString(status)).decode()}"
    if status < 0:
        raise Error(text, status)
    warnings.warn(StatusWarning(text, status), stacklevel=3)


# ---- Arrays ----

def dtype_name(dtype):
    return next((NAMES.get(name, str(dtype)) for name, known in DTYPES.items() if known == dtype), str(dtype))


def _described(value):
    return f"an array of {dtype_name(value.dtype)}" if isinstance(value, ndarray) else "None" if value is None else f"a {type(value).__name__}"


def _vector(value, dtype, name):
    if not isinstance(value, ndarray) or value.dtype != dtype:
        raise TypeError(f"{name} is {_described(value)}; an array of {dtype_name(dtype)} is needed")
    if isinstance(value, numpy.ma.MaskedArray):
        raise TypeError(f"{name} is masked; the library knows no masks")
    if value.ndim != 1:
        raise ValueError(f"{name} has {value.ndim} axes; a vector has one")
    return value


def source(value, dtype, name):
    """A vector to read, in one block: strided ones are copied, lists become arrays if they fit the type."""
    if isinstance(value, (list, tuple)):
        value = _from_list(value, dtype, name)
    # An equal dtype of the caller's own may want another alignment.
    return numpy.require(_vector(value, dtype, name).view(dtype, ndarray), requirements="CA")


def _from_list(values, dtype, name):
    if len(dtype) == 2:
        parts = [part for value in values for part in whole_pair(value, name)]
        return _from_list(parts, dtype["re"], name).view(dtype)
    if dtype.fields:
        raise TypeError(f"{name} is a list; an array of {dtype_name(dtype)} is needed")
    try:
        array = numpy.array(values)
        if array.size and not numpy.can_cast(array.dtype, dtype, "same_kind") and array.dtype.kind != "i":
            raise TypeError(f"{name} is a list of {array.dtype}; {dtype_name(dtype)} does not hold that")
        if array.size and dtype.kind in "iu":
            least, most = LIMITS[dtype]
            if array.min() < least or array.max() > most:
                raise ValueError(f"{name} has values beyond {least} to {most}")
        with numpy.errstate(over="raise"):
            return array.astype(dtype)
    except (OverflowError, FloatingPointError):
        raise ValueError(f"{name} has values beyond those of {dtype_name(dtype)}") from None


def written(value, dtype, name):
    """A vector that the call changes where it lies."""
    _vector(value, dtype, name)
    if not value.flags.writeable:
        raise ValueError(f"{name} is read-only")
    if not value.flags.c_contiguous:
        raise ValueError(f"{name} is strided; results go to contiguous arrays")
    if not value.view(dtype).flags.aligned:
        raise ValueError(f"{name} is not aligned to its elements")
    return value


def destination(value, dtype, size, name):
    written(value, dtype, name)
    if value.size != size:
        raise wrong_size(value, size, name)


def wrong_size(value, size, name):
    return ValueError(f"{name} has {value.size} elements, {size} {'is' if size == 1 else 'are'} needed")


def size_of(array, name="out"):
    if not isinstance(array, ndarray):
        raise TypeError(f"{name} is {_described(array)}; an array is needed")
    return array.size


def several(out, count):
    """The destinations of a call that has more than one."""
    if out is None:
        return (None,) * count
    if not isinstance(out, (tuple, list)) or len(out) != count:
        raise TypeError(f"out is a tuple of {count} arrays")
    return tuple(out)


def unknown(name):
    raise TypeError(f"no array tells how many elements are wanted: give {name}= or out=")


def pointers(type_, arrays):
    return new(type_, [cast(type_.item, array.ctypes.data) for array in arrays])


def keep(value):
    """A value that no one changes from outside."""
    return value.copy() if isinstance(value, ndarray) else value


# ---- Numbers ----

REAL = (int, float, numpy.integer, numpy.floating)


def _scalar(value, name, types, wanted):
    if isinstance(value, ndarray) and value.ndim == 0:
        value = value[()]
    if not isinstance(value, types):
        raise TypeError(f"{name} is {_described(value)}; {wanted} is needed")
    return value


def integer(value, name):
    """C's conversion cuts the fraction off numpy's floats, and numpy's integers overflow where sizes are worked out."""
    try:
        return operator.index(value)
    except TypeError:
        raise TypeError(f"{name} is {_described(value)}; an integer is needed") from None


def real(value, name):
    return float(_scalar(value, name, REAL, "a real number"))


def pair(value, name):
    """A complex number as its two parts."""
    value = _scalar(value, name, (int, float, complex, numpy.number), "a number")
    return value.real, value.imag


def whole_pair(value, name):
    """A complex number of integers as its two parts: orbs.int16c and the like, a tuple, or a number of whole parts."""
    parts = value.item() if isinstance(value, numpy.void) else value
    if not isinstance(parts, tuple):
        parts = pair(parts, name)
    if len(parts) != 2 or any(not isinstance(part, REAL) or part % 1 for part in parts):
        raise TypeError(f"{name} is {value}; two whole parts are needed")
    return int(parts[0]), int(parts[1])


def one(value, dtype, name):
    """An array of one element, for what C reads through a pointer."""
    if dtype.kind in "iu":
        value = integer(value, name)
        least, most = LIMITS[dtype]
        if not least <= value <= most:
            raise ValueError(f"{name} is {value}, beyond {least} to {most}")
    elif dtype.kind == "f":
        value = real(value, name)
    elif dtype.kind == "c":
        value = complex(*pair(value, name))
    else:
        value = whole_pair(value, name)
        least, most = LIMITS[dtype["re"]]
        if not least <= min(value) <= max(value) <= most:
            raise ValueError(f"{name} has values beyond {least} to {most}")
    held = empty(1, dtype)
    held[0] = value
    return held


# ---- Sizes ----

def bits_as_bytes(offset, count):
    return max(offset + count + 7, 0) // 8


def packed_bytes(lengths, offset):
    # A loop is faster than numpy's calls for a few.
    total = sum(min(max(n, 0), 32) for n in lengths.tolist()) if lengths.size < 16 else numpy.clip(lengths, 0, 32).sum()
    return bits_as_bytes(offset % 8, int(total))


def kept(length, phase, factor):
    return max(-((int(phase) - length) // max(factor, 1)), 0)


def rate_line(taps, factor):
    return (taps - 1) // max(factor, 1) + 1


def trellis_states(state):
    return state if state in (16, 32) else 64


def room_for(first, count, size):
    if first < 0:
        raise ValueError("the index is below 0")
    return max(size, first + count)


def last(positions, count, first=0):
    """The last of the first `count` positions, which is the highest if they ascend; 0 without any behind `first`."""
    return max(int(positions[first:count].max()), 0) if first < count <= positions.size else 0


# ---- Objects and memory ----

def aligned(size, offset=0):
    """Bytes that begin `offset` behind a multiple of 64."""
    block = zeros(max(size, 0) + 128, "u1")
    start = -block.ctypes.data % 64 + offset
    return block[start:start + max(size, 0)]


def memory(given, size, name):
    if given is None:
        return aligned(size)
    if not (type(given) is ndarray and given.dtype is DTYPES["8u"] and given.ndim == 1 and given.flags.carray):
        written(given, DTYPES["8u"], name)
    if given.size < size:
        raise ValueError(f"{name} has {given.size} bytes, {size} are needed")
    return given


def work_buffer(given, state):
    """Memory that a transform works in; without it the call takes its own."""
    if given is None:
        return NULL
    if "_buf_size" not in vars(state):
        state._buf_size = state.buf_size
    return buffer_of(BYTES, memory(given, state._buf_size, "buffer"))


def member_of(name, pattern, template):
    """The member of a family that another name tells."""
    from . import _members
    return _members.call(re.sub(pattern, template, name.removeprefix("orbs")))


def object_made(name, pointer, block, arguments):
    from . import _objects
    return _objects.made(name, pointer, block, arguments)


def wrong_object(value, wanted):
    return TypeError(f"the object is a {type(value).__name__}; a {wanted.__name__} is needed")


def allocated(pointer, count, name):
    """An array over memory of the library, which goes back to it with the last array that uses it."""
    dtype = DTYPES[name.partition("_")[2]]
    if not pointer:
        raise Error(f"{name}: no memory, or a length below 1", -9)
    held = ffi.gc(pointer, _library.LIBRARY.orbsFree)
    return numpy.frombuffer(ffi.buffer(held, count * dtype.itemsize), dtype)


LibVersion = collections.namedtuple("LibVersion",
                                    "major minor major_build build target_cpu name version build_date")


def told(value):
    """What members tell that return no status."""
    if isinstance(value, int):
        return value
    if ffi.typeof(value) is ffi.typeof("const char *"):
        return ffi.string(value).decode()
    texts = [ffi.string(getattr(value, field)).decode() for field in ("targetCpu", "Name", "Version", "BuildDate")]
    return LibVersion(value.major, value.minor, value.majorBuild, value.build, *texts)
