"""Filters, transforms and generators: objects of the library as Python's."""
import functools
import inspect
import operator

import numpy

from . import _library
from ._abi import ffi
from ._members import call
from ._runtime import aligned
from ._table import CLASSES, FREE, PROPERTIES

MAKERS = {maker: name for name, (_, _, maker, _) in CLASSES.items()}


class Object:
    """An object of the library. Its memory goes back by itself; a copy, or what pickle makes of it, goes on where it is."""

    _block = 0          # bytes of an object that is moved as a block; 0: one that is made again
    _memory = None      # the array that it lies in, if that is not the library's

    def copy(self):
        build, arguments = self.__reduce__()
        return build(*arguments)

    __copy__ = copy

    def __deepcopy__(self, memo):
        return self.copy()

    def __reduce__(self):
        if self._block is None or self._block:
            start = int(ffi.cast("uintptr_t", self._pointer))
            size = self._block or self._memory.ctypes.data + self._memory.size - start
            block = bytes(ffi.buffer(ffi.cast("char *", self._pointer), size))
            return _moved, (type(self).__name__, block, start % 64, self._block)
        return _made_again, (self._maker, self._now(), self._past())

    def free(self):
        """Gives the object back before its time."""
        self._forget()

    def _now(self):
        """The arguments that make this object as it is."""
        if type(self).__name__.startswith("FirLms"):     # their taps move
            return {**self._arguments, "taps": self.get_taps()}
        return self._arguments

    def _past(self):
        line = self.get_dly_line() if hasattr(self, "get_dly_line") else ()
        return line if isinstance(line, tuple) else (line,)

    def _forget(self):
        if self._memory is None:
            ffi.gc(self._pointer, None)
        self.__dict__.clear()
        self.__class__ = Freed


class Freed:
    """What is left of an object that was given back."""


def _made_again(maker, arguments, line):
    made_ = call(maker)(**arguments)
    if line:
        made_.set_dly_line(*line)
    return made_


def _moved(name, block, offset, size):
    moved = object.__new__(class_named(name))
    moved._memory = aligned(len(block), offset)
    moved._memory[:] = numpy.frombuffer(block, "u1")
    moved._pointer = ffi.cast(f"{CLASSES[name][0]} *", moved._memory.ctypes.data)
    moved._block = size
    moved._arguments = {}
    return moved


def made(maker, pointer, memory, arguments):
    """The object that a member has made, in the array `memory` or in the library's own memory."""
    name = MAKERS.get(maker) or MAKERS[maker.replace("Init", "InitAlloc")]
    state = object.__new__(class_named(name))
    state._memory = memory
    state._pointer = pointer if memory is not None else ffi.gc(pointer, _library.function("orbs" + FREE[CLASSES[name][0]]))
    state._maker = maker
    state._arguments = arguments
    return state


def _property(name, reader, writer):
    if reader:
        def tell(self):
            return getattr(self, reader)()
    else:
        def tell(self):
            return numpy.array(self._arguments[name])

    def take(self, value):
        getattr(self, writer)(*(value if isinstance(value, tuple) else (value,)))

    return property(tell, take if writer else None, doc=f"{reader or 'as given'}, {writer or 'to be read only'}")


@functools.lru_cache(maxsize=None)
def class_named(name):
    c_type, base, maker, methods = CLASSES[name]

    def __new__(cls, *arguments, **named):
        return call(maker)(*arguments, **named)

    body = {method: _Method(member) for method, member in methods.items()}
    body.update({word: _property(word, *pair) for word, pair in PROPERTIES[name].items()})
    made_ = type(name, (class_named(base) if base else Object,), body)
    made_.__new__ = __new__
    made_.__module__ = "orbs"
    made_.__doc__ = _OfMaker(maker, operator.attrgetter("__doc__"))
    made_.__signature__ = _OfMaker(maker, inspect.signature)
    return made_


class _OfMaker:
    """What a class has from the member that makes its objects, when it is asked for."""

    def __init__(self, maker, tell):
        self.maker, self.tell = maker, tell

    def __get__(self, instance, owner):
        return self.tell(call(self.maker))


class _Method:
    """A member as a method: found at its first use, so that a class is made without its members."""

    def __init__(self, member):
        self.member = member

    def __set_name__(self, owner, name):
        self.name = name

    def __get__(self, instance, owner):
        function = call(self.member)
        setattr(owner, self.name, function)
        return function if instance is None else function.__get__(instance, owner)


def class_of(c_type):
    """The class of all objects of a type in C."""
    return class_named(next(name for name, row in CLASSES.items() if row[0] == c_type))
