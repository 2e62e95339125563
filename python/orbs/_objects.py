"""Filters, transforms and generators: objects of the library as Python's."""
import copy
import functools
import inspect
import operator

import numpy

from . import _library
from ._abi import ffi
from ._members import call
from ._runtime import aligned, dtype_name
from ._table import CLASSES, FREE, PROPERTIES

MAKERS = {maker: name for name, (_, _, maker, _) in CLASSES.items()}


class Object:
    """An object of the library. Its memory goes back by itself; a copy, or what pickle makes of it, goes on where it is."""

    _block = 0          # bytes of an object that is moved as a block; 0: one that is made again
    _memory = None      # the array that it lies in, if that is not the library's

    def copy(self):
        return copy.copy(self)

    def __reduce__(self):
        own = {name: value for name, value in vars(self).items() if not name.startswith("_")}
        if self._block is None or self._block:
            start = int(ffi.cast("uintptr_t", self._pointer))
            size = self._block or self._memory.ctypes.data + self._memory.size - start
            block = bytes(ffi.buffer(ffi.cast("char *", self._pointer), size))
            return _moved, (type(self), block, start % 64, self._block, self._arguments), own
        return _made_again, (type(self), self._maker, self._now(), self._past()), own

    def free(self):
        """Gives the object back before its time. Its memory goes when the last call that runs on it ends."""
        vars(self).clear()

    def __getattr__(self, name):
        if "_pointer" in vars(self) or name.endswith("_"):
            return object.__getattribute__(self, name)
        raise ValueError(f"this {type(self).__name__} was freed, or never made")

    def __repr__(self):
        words = [f"{name}={_short(value)}" for name, value in vars(self).get("_arguments", {}).items()]
        return f"<orbs.{type(self).__name__} {', '.join(words) if '_pointer' in vars(self) else 'freed'}>"

    def _now(self):
        """The arguments that make this object as it is."""
        if self._maker.startswith("FIRLMS"):     # their taps move
            return {**self._arguments, "taps": self.get_taps()}
        return self._arguments

    def _past(self):
        line = self.get_dly_line() if hasattr(self, "get_dly_line") else ()
        return line if isinstance(line, tuple) else (line,)


def _short(value):
    return f"{dtype_name(value.dtype)}[{value.size}]" if isinstance(value, numpy.ndarray) else repr(value)


def _made_again(class_, maker, arguments, line):
    again = class_.__new__(class_)
    vars(again).update(vars(call(maker)(**arguments)))
    if line:
        again.set_dly_line(*line)
    return again


def _moved(class_, block, offset, size, arguments):
    moved = class_.__new__(class_)
    moved._memory = aligned(len(block), offset)
    moved._memory[:] = numpy.frombuffer(block, "u1")
    c_type = next(CLASSES[base.__name__][0] for base in class_.__mro__ if base.__name__ in CLASSES)
    moved._pointer = _lying_in(moved._memory, ffi.cast(f"{c_type} *", moved._memory.ctypes.data))
    moved._block = size
    moved._arguments = arguments
    return moved


def _lying_in(memory, pointer):
    """The pointer, which now keeps the memory: a call that has the one has the other, whatever happens to the object."""
    return ffi.gc(pointer, lambda _: memory)


def made(maker, pointer, memory, arguments):
    """The object that a member has made, in the array `memory` or in the library's own memory."""
    name = MAKERS.get(maker) or MAKERS[maker.replace("Init", "InitAlloc")]
    state = object.__new__(class_named(name))
    state._memory = memory
    if memory is None:
        state._pointer = ffi.gc(pointer, _library.function("orbs" + FREE[CLASSES[name][0]]))
    else:
        state._pointer = _lying_in(memory, pointer)
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

    def __init__(self, *arguments, **named):
        vars(self).update(vars(call(maker)(*arguments, **named)))

    body = {method: _Method(member) for method, member in methods.items()}
    body.update({word: _property(word, *pair) for word, pair in PROPERTIES[name].items()})
    made_ = type(name, (class_named(base) if base else Object,), body)
    made_.__init__ = __init__
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
