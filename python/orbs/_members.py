"""The functions of the members, each made from its shape at its first use."""
import functools

from . import _library, _shapes, _texts
from ._abi import ffi
from ._runtime import DTYPES
from ._table import ALIASES, MEMBERS


def _bind(token):
    """What an argument is tested against, and its type in C."""
    mark, type_ = token[0], token[1:]
    if mark == "@":
        from . import _objects
        return _objects.class_of(ALIASES.get(type_, type_)), None
    if mark == "&":
        return None, ffi.typeof(type_ + " * *")
    if mark == "#":
        return DTYPES["8u"], ffi.typeof(type_ + " *")
    if mark == "*":
        return DTYPES[type_], ffi.typeof(f"Orb{type_} *[]")
    if token not in DTYPES:          # void
        return None, None
    return DTYPES[token], ffi.typeof(f"Orb{token}[]")


def text_of(name):
    heading, header, family = _texts.TEXTS[MEMBERS[name][3]]
    return f"{MEMBERS[name][4]}\n\n{heading}\n\n{family}" + (f"\n\n{header}" if header else "")


@functools.lru_cache(maxsize=None)
def call(name):
    """The function of a member by its name without the prefix."""
    whole, number, types, _, _ = MEMBERS[name]
    try:
        c = _library.function(whole)
    except AttributeError:
        raise AttributeError(f"{_library.PATH} has no {whole}") from None
    bound = [part for token in types.split() for part in _bind(token)]
    function = getattr(_shapes, f"shape{number}")(c, name, *bound)
    function.__name__ = function.__qualname__ = name
    function.__module__ = "orbs"
    function.__doc__ = text_of(name)
    return function
