"""The type stubs: a declaration for every member, class and constant."""
import re

DTYPES = {"8u": "uint8", "8s": "int8", "16u": "uint16", "16s": "int16", "16f": "float16", "32u": "uint32",
          "32s": "int32", "64u": "uint64", "64s": "int64", "32f": "float32", "64f": "float64", "32fc": "complex64",
          "64fc": "complex128"}
HEAD = '''# Made from the public headers by python/build.py.
from typing import Any, NamedTuple, Sequence, SupportsIndex
import numpy as np
from numpy.typing import NDArray

int8c: np.dtype[np.void]
int16c: np.dtype[np.void]
int32c: np.dtype[np.void]
int64c: np.dtype[np.void]
int24: np.dtype[np.void]
uint24: np.dtype[np.void]

class Error(RuntimeError):
    status: int
class StatusWarning(RuntimeWarning):
    status: int
class LibVersion(NamedTuple):
    major: int
    minor: int
    major_build: int
    build: int
    target_cpu: str
    name: str
    version: str
    build_date: str
class Object:
    def free(self) -> None: ...
    def copy(self: _S) -> _S: ...
def library_path() -> str: ...
'''


def scalar(role):
    """Of what numpy calls the elements."""
    c = role.argument.type
    return "np." + DTYPES.get({"int": "32s"}.get(c, c.removeprefix("Orb")), "void")


def given(role, owner):
    kind, c = role.kind, role.argument.type
    if kind == "object":
        return owner(c)
    if kind in ("source",):
        text = f"NDArray[{scalar(role)}] | Sequence[Any]"
        return text + " | None" if role.nullable else text
    if kind in ("inplace", "update"):
        return f"NDArray[{scalar(role)}]" + (" | None" if role.default == "None" else "")
    if kind == "sources":
        return f"Sequence[NDArray[{scalar(role)}]]"
    if kind in ("memory", "work"):
        return "NDArray[np.uint8] | None"
    if re.fullmatch(r"Orb\d+fc", c):
        return "complex | np.number[Any]"
    if re.fullmatch(r"Orb\d+sc", c):
        return "complex | np.number[Any] | tuple[int, int] | np.void"
    return "float | np.floating[Any] | np.integer[Any]" if re.fullmatch(r"Orb(32|64)f", c) else "SupportsIndex"


def returned(role, owner):
    if role == "state":
        return owner(None)
    if role == "array":
        return "NDArray[Any]"
    if role == "told":
        return "Any"
    if role.kind == "destinations":
        return f"list[NDArray[{scalar(role)}]]"
    return scalar(role) if role.kind in ("given", "result") else f"NDArray[{scalar(role)}]"


def signature(member, writer, shape, owner, bound=False):
    words = []
    for name, default, role in shape.parameters:
        if bound and role.kind == "object":
            words.append("self")
            continue
        type_ = given(role, owner)
        if default == "None" and "None" not in type_:
            type_ += " | None"
        words.append(f"{name}: {type_}" + ("" if default is None else " = ..."))
    if shape.keywords:
        words.append("*")
    for name, _, role in shape.keywords:
        if name == "out":
            outs = writer.of("destination")
            if not outs:
                type_ = f"Sequence[NDArray[{scalar(writer.of('destinations')[0])}]]"
            else:
                types = [f"NDArray[{scalar(r)}]" for r in outs]
                type_ = types[0] if len(types) == 1 else f"tuple[{', '.join(types)}]"
            words.append(f"out: {type_} | None = ...")
        else:
            words.append(f"{name}: {'SupportsIndex | None' if role.kind == 'length' else given(role, owner)} = ...")
    results = [returned(role, owner) for role in shape.returns]
    result = "None" if not results else results[0] if len(results) == 1 else f"tuple[{', '.join(results)}]"
    return f"({', '.join(words)}) -> {result}: ..."


def text(described, objects, constants):
    by_name = {member.short: (member, writer, shape) for member, writer, shape in described}
    of_type = {}
    for name, (c_type, base, maker, _) in objects.items():
        if base is None:
            of_type[c_type] = name
    makers = {maker: name for name, (_, _, maker, _) in objects.items()}

    def owner_in(member):
        def owner(c_type):
            if c_type is None:
                c_type = next(a.type for a in member.arguments if a.type.startswith("Orbs"))
                return makers.get(member.short) or of_type.get(c_type, "Object")
            return of_type.get(c_type, "Object")
        return owner

    lines = [HEAD.replace("import numpy", "from typing import TypeVar\nimport numpy", 1)
             .replace("\nint8c", "\n_S = TypeVar(\"_S\")\n\nint8c", 1)]
    lines += [f"{name}: int\n" for name in constants]
    for member, writer, shape in described:
        name = member.short.removeprefix("orb")
        if name.isidentifier():
            lines.append(f"def {name}{signature(member, writer, shape, owner_in(member))}\n")
    for name, (c_type, base, maker, methods) in objects.items():
        lines.append(f"class {name}({base or 'Object'}):\n")
        member, writer, shape = by_name[maker]
        made = signature(member, writer, shape, owner_in(member))
        made = re.sub(r"^\(", "(self, ", made)
        lines.append("    def __init__" + re.sub(r" -> .*: \.\.\.$", " -> None: ...", made) + "\n")
        for method, called in methods.items():
            member, writer, shape = by_name[called]
            inherited = objects[base][3].get(method) if base else None
            if inherited != called:
                ignore = "  # type: ignore[override]" if inherited else ""
                lines.append(f"    def {method}{signature(member, writer, shape, owner_in(member), True)}{ignore}\n")
        for word in dict.fromkeys(m[4:] for m in methods if m.startswith(("get_", "set_")) and m != "get_dly_val"):
            lines.append(f"    {word}: Any\n")
    return "".join(lines)
