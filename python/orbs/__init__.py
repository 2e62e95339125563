"""orbs: signal-processing primitives on numpy arrays.

Every member of the C library is here under its name without `orbs`: Add_32f(a, b), FIRInitAlloc_32f(taps). Arrays are
vectors of the type in the name; lengths come from them. Results are new arrays, or go to `out=`. Objects are classes too:

    >>> smooth = orbs.Fir32f([0.25, 0.5, 0.25])
    >>> smooth(block)

help(orbs.Add_32f) tells what the header says. Errors are orbs.Error, warnings orbs.StatusWarning.
"""
from . import _library, _members, _objects
from ._objects import Object
from ._runtime import DTYPES as _DTYPES, Error, LibVersion, StatusWarning
from ._table import CLASSES as _CLASSES, CONSTANTS as _CONSTANTS, MEMBERS as _MEMBERS, REFUSED as _REFUSED

globals().update(_CONSTANTS)
int8c, int16c, int32c, int64c = (_DTYPES[f"{bits}sc"] for bits in (8, 16, 32, 64))
int24, uint24 = _DTYPES["24s"], _DTYPES["24u"]


def library_path():
    """The file of the library that is used."""
    return _library.PATH


def __getattr__(name):
    # 10Log10 begins with a digit, which no name in Python does: _10Log10.
    word = name[1:] if name[:1] == "_" and name[1:2].isdigit() else name
    if word in _MEMBERS:
        found = _members.call(word)
    elif name in _CLASSES:
        found = _objects.class_named(name)
    elif name in _REFUSED:
        raise AttributeError(f"{name} is not for Python: {_REFUSED[name]}")
    else:
        raise AttributeError(f"orbs has no {name}")
    globals()[name] = found
    return found


def __dir__():
    members = ("_" + name if name[0].isdigit() else name for name in _MEMBERS)
    return sorted({*members, *_CLASSES, *(name for name in globals() if name[0] != "_")})


__all__ = ["Error", "LibVersion", "Object", "StatusWarning", "int16c", "int24", "int32c", "int64c", "int8c",
           "library_path", "uint24", *_CONSTANTS, *_CLASSES,
           *("_" + name if name[0].isdigit() else name for name in _MEMBERS)]
