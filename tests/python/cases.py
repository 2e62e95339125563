"""Arguments for every member, in memory that ends at a page which no one may touch."""
import mmap
import re
import zlib

import cffi
import numpy

import build
import headers
import orbs
import rules
import shapes
from orbs import _runtime

ffi = cffi.FFI()
ffi.cdef("int mprotect(void *address, size_t size, int protection);")
LIBC = ffi.dlopen(None)
PAGE = mmap.PAGESIZE

LIBRARY = headers.library()
MEMBERS = {m.short.removeprefix("orb"): m for _, m in build.calls(LIBRARY)}
WRITERS = {name: shapes.Writer(m) for name, m in MEMBERS.items()}
for writer in WRITERS.values():
    writer.shape()

# The numbers of a call by their names in C, the first row that fits.
NUMBERS = [
    (r"DFT.*|Hilbert.*", "length", 15), (r"DCT.*", "len", 12), (r"FFT.*", "order", 4),
    (r"IIR.*", "order", 3), (r"Malloc.*", "len", 10), (r"Copy_1u", "len", 45), (r"IIRSparse.*", "order\\d", 9),
    (r"WinBlackman.*|WinKaiser.*", "alpha", 0.1), (r"SumWindow.*|FilterMedian.*", "maskSize", 5),
    (r"Goertz.*|Tone.*|Triangle.*|FIRGen.*|IIRGen.*", "rFreq", 0.1), (r".*", "rLowFreq", 0.1), (r".*", "rHighFreq", 0.3),
    (r".*", "rPassbandDb", 1.0), (r".*", "rFreqQ15", 3000), (r".*", "asym(Q15)?", 0), (r".*", "magn", 100),
    (r".*", "level(LT)?", 2), (r".*", "levelGT", 5), (r".*LTInv.*", "level", 1), (r".*", "upFactor|factor", 3),
    (r".*", "downFactor", 2), (r".*", "upPhase|downPhase", 1), (r".*", "tapsLen|nzTapsLen|nzTapsLen1", 5),
    (r".*", "nzTapsLen2", 2), (r".*", "numBq", 2), (r".*", "src1Len", 24), (r".*", "src2Len", 7), (r".*", "nChannels", 3),
    (r".*", "lenLow", 5), (r".*", "lenHigh", 4), (r".*", "state", 32), (r".*", "tblLen", 11), (r"AutoCorr.*", "dstLen", 9),
    (r"CrossCorr.*|ConvBiased.*", "dstLen", 30), (r"RandUniform.*", "high", 90), (r"FIRGen.*", "tapsLen", 21),
    (r".*", "len|lenDst|dstLen|numIters|chanLen|srcLen", 24), (r"(Div|Normalize).*", "val|vDiv", 3),
    (r"SetNumThreads", "numThreads", 2), (r".*", "dlyStep|order1", 2), (r".*", "rndMode|hint|flag", None),
    (r".*", r"(srcB|dstB)itOffset", 3), (r".*", "presentIndex", 4), (r".*", "mu", 0), (r".*", ".*Factor|.*Phase|.*Index", 1), (r".*", ".*", 1),
]


def guarded(array):
    """The same elements, the last of them followed by a page that cannot be read or written."""
    size = (array.nbytes + PAGE - 1) // PAGE * PAGE + PAGE
    block = mmap.mmap(-1, size + PAGE)
    whole = numpy.frombuffer(block, "u1")
    assert LIBC.mprotect(ffi.cast("void *", whole.ctypes.data + size), PAGE, 0) == 0
    place = whole[size - array.nbytes:size].view(array.dtype)
    place[:] = array
    return place


def number(member, argument):
    return next(value for pattern, name, value in NUMBERS
                if re.fullmatch(pattern, member) and re.fullmatch(name, argument))


def dtype_of(role):
    name = role.argument.type.removeprefix("Orb")
    return _runtime.DTYPES["32s" if name == "int" else name]


def elements(role, member, count):
    """Something that any member can work on, the same in every run: small, above 0, in ascending order where that matters."""
    dtype, random = dtype_of(role), numpy.random.default_rng(zlib.crc32(f"{member}{role.name}".encode()))
    if "NZTapPos" in role.argument.name:
        return numpy.array([0, 2, 3, 7, 8, 4, 6][:count], dtype)
    if role.argument.name == "pTable":
        return numpy.arange(count).astype(dtype)
    if dtype.fields:
        return random.integers(1, 90, (count, dtype.itemsize)).astype("u1").reshape(-1).view(dtype)
    if dtype.kind in "iu":
        return random.integers(1, 90, count).astype(dtype)
    values = random.uniform(0.1, 0.9, count)
    return (values + 1j * random.uniform(0.1, 0.9, count) if dtype.kind == "c" else values).astype(dtype)


class Case:
    """A call of one member: `arguments` by name, `roles` that tell what they are."""

    def __init__(self, name, state=None, place=guarded):
        self.name, self.writer, self.state, self.place = name, WRITERS[name], state, place
        self.roles = {r.name: r for r in self.writer.roles}
        self.numbers = {r.argument.name: number(name, r.argument.name) for r in self.writer.roles
                        if r.argument.stars == 0}
        self.numbers["pPhase"] = 0
        for hidden in ("tapsLen", "nChannels", "nzTapsLen2"):
            self.numbers.setdefault(hidden, number(name, hidden))
        if state is None and self.writer.of("object"):
            self.state = object_for(name)
        self.arrays = {}
        self.arguments = {parameter: self.value(role) for parameter, default, role in self.signature()
                          if self.wanted(default, role)}
        self.lengths = {n: self.numbers[r.argument.name] for n, _, r in self.writer.signature()[1]
                        if r is not None and r.kind == "length"}

    def signature(self):
        # Arrays first: sizes of others are worked out from them.
        return sorted(self.writer.signature()[0], key=lambda p: p[2].argument.stars == 0)

    def wanted(self, default, role):
        return default is None or role.argument.name in ("rndMode", "upPhase") and self.numbers[role.argument.name] is not None

    def size(self, role):
        text = re.sub(r"\bstate\.", "state_._", role.size)
        helpers = {name: getattr(_runtime, name) for name in _runtime.__all__}
        return eval(text, helpers, {**self.numbers, **self.arrays, "state_": self.state, "size": 60})

    def value(self, role):
        if role.kind == "object":
            return self.state
        if role.kind == "sources":
            return [self.place(elements(role, self.name, 24)) for _ in range(self.numbers["nChannels"])]
        if role.kind in ("pointed", "given"):
            return elements(role, self.name, 1)[0] if dtype_of(role).kind != "V" else (3, 4)
        if role.argument.stars == 0:
            value = self.numbers[role.argument.name]
            return (value, 0) if role.pair == "whole_pair" else complex(value) if role.pair else value
        array = self.place(elements(role, self.name, self.size(role)))
        self.arrays[role.argument.name] = array
        return array

    def out(self, place=guarded):
        """Destinations of the sizes that the rules tell."""
        outs = self.writer.of("destination")
        made = [place(numpy.zeros(self.size(r), dtype_of(r))) for r in outs]
        if self.writer.of("destinations"):
            r = self.writer.of("destinations")[0]
            return [place(numpy.zeros(24, dtype_of(r))) for _ in range(self.numbers["nChannels"])]
        return made[0] if len(made) == 1 else tuple(made) or None

    def call(self, **more):
        return getattr(orbs, ("_" if self.name[0].isdigit() else "") + self.name)(**{**self.arguments, **more})


MAKERS = {row[2]: name for name, row in orbs._CLASSES.items()}


def object_for(name):
    """An object that a member works on: of its own types if there is such a class, else of its type in C."""
    methods = [maker for maker, made in MAKERS.items() if name in orbs._CLASSES[made][3].values()]
    if not methods:
        c_type = next(a.type for a in MEMBERS[name].arguments if shapes.STATES.fullmatch(a.type))
        from orbs._table import ALIASES
        c_type = ALIASES.get(c_type, c_type)
        methods = [maker for maker, made in MAKERS.items() if orbs._CLASSES[made][0] == c_type]
    return Case(methods[0]).call()


def plain(result):
    """What a call has given, as bytes."""
    parts = result if isinstance(result, (tuple, list)) else [result]
    return [numpy.asarray(part).tobytes() if not isinstance(part, orbs.Object) else type(part).__name__ for part in parts]


__all__ = ["Case", "LIBRARY", "MAKERS", "MEMBERS", "dtype_of", "guarded", "plain", "rules"]
