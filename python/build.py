#!/usr/bin/env python3
"""Makes the Python package from the public headers.

usage: python3 python/build.py [--installed] FOLDER
Writes FOLDER/orbs, ready to be imported. An installed package knows nothing of the tree that it was made in.
"""
import pathlib
import re
import shutil
import sys

import cffi
from cffi import recompiler

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent
sys.path[:0] = [str(HERE), str(ROOT / "scripts")]

import classes  # noqa: E402
import headers  # noqa: E402
import rules    # noqa: E402
import shapes   # noqa: E402
import stubs    # noqa: E402

MADE = "# Made from the public headers by python/build.py.\n"


def token(role):
    """The types of an argument for the table: orbs/_members.py reads them."""
    type_ = {"int": "32s"}.get(role.argument.type, role.argument.type.removeprefix("Orb"))
    if role.kind == "object":
        return "@" + role.argument.type
    if role.kind == "new":
        return "&" + role.argument.type
    if role.kind == "memory" and shapes.STATES.fullmatch(role.argument.type):
        return "#" + role.argument.type
    if role.kind in ("sources", "destinations"):
        return "*" + type_
    return type_


def constants(library):
    """AlgHintFast, FFT_SCALE_INV, StsDivByZero: the names of the headers without their prefixes."""
    found = {}
    for header in library:
        for type_ in header.types:
            if type_.declaration.startswith("enum"):
                for name, value in re.findall(r"(\w+) = (-?\d+)", type_.declaration):
                    found[re.sub(r"^(orb|ORB_)", "", name)] = int(value)
    return found


def calls(library):
    """All members that Python calls, in the order of the headers; those of the core library first."""
    for header in library:
        for family in header.families:
            if family.heading == "For the libraries that stand on this one":
                continue
            for member in family.members:
                if not rules.find(rules.REFUSED, member.short)[0]:
                    yield family, member


def write_abi(library, path):
    ffi = cffi.FFI()
    text = [t.declaration for header in library for t in header.types]
    text += [str(m).replace("const* ", "const *") for header in library for f in header.families for m in f.members]
    ffi.cdef("\n".join(text))
    recompiler.make_py_source(ffi, "orbs._abi", str(path))


def write(folder, tree):
    library = headers.library()
    strays = [stray for header in library for stray in header.strays]
    if strays:
        sys.exit("build.py: not understood: " + "; ".join(strays))
    package = pathlib.Path(folder) / "orbs"
    package.mkdir(parents=True, exist_ok=True)
    for source in (HERE / "orbs").iterdir():
        if source.is_file():
            shutil.copyfile(source, package / source.name)
    write_abi(library, package / "_abi.py")

    codes, table, texts, described = {}, {}, {}, []
    for family, member in calls(library):
        writer = shapes.Writer(member)
        shape = writer.shape()
        number = codes.setdefault(shape.code, len(codes))
        types = " ".join(token(r) for r in writer.roles if r.argument.stars)
        table[member.name] = (number, types, texts.setdefault(family.key, (len(texts), family))[0], str(member))
        described.append((member, writer, shape))
    objects, aliases = classes.classes(library)
    refused = {m.short: rules.find(rules.REFUSED, m.short)[0][1] for header in library for f in header.families
               for m in f.members if rules.find(rules.REFUSED, m.short)[0]}
    with open(package / "_shapes.py", "w") as out:
        out.write(f'{MADE}"""One factory for each shape of members: types in, a function out."""\n'
                  "from ._runtime import *  # noqa: F403\n")
        for code, number in codes.items():
            out.write(f"\n\ndef shape{number}{code}")
    with open(package / "_table.py", "w") as out:
        out.write(f'{MADE}"""The members: shape, types of their arguments, family, declaration."""\n\n')
        out.write("MEMBERS = {\n" + "".join(f"    {re.sub('^orbs?', '', name)!r}: {row!r},\n"
                                            for name, row in ((n, (n, *r)) for n, r in table.items())) + "}\n")
        for name, value in (("CONSTANTS", constants(library)), ("REFUSED", refused), ("CLASSES", objects),
                            ("ALIASES", aliases), ("FREE", classes.free_members(library, aliases)),
                            ("PROPERTIES", {n: classes.properties(row[3]) for n, row in objects.items()})):
            out.write(f"\n{name} = {{\n" + "".join(f"    {k!r}: {v!r},\n" for k, v in value.items()) + "}\n")
    with open(package / "_texts.py", "w") as out:
        out.write(f'{MADE}"""What the headers say of each family."""\n\nTEXTS = [\n')
        for _, family in texts.values():
            out.write(f"    {(family.heading, family.header.text, family.text)!r},\n")
        out.write("]\n")
    (package / "__init__.pyi").write_text(stubs.text(described, objects, constants(library)))
    (package / "_tree.py").write_text(f'{MADE}"""The source tree that this package was made in, if it may look there."""\n'
                                      f"\nTREE = {tree!r}\n")
    return len(table)


if __name__ == "__main__":
    arguments = [word for word in sys.argv[1:] if word != "--installed"]
    if len(arguments) != 1 or arguments[0].startswith("-"):
        print(__doc__.strip(), file=sys.stderr)
        sys.exit(2)
    count = write(arguments[0], None if "--installed" in sys.argv else str(ROOT))
    print(f"{count} members in {arguments[0]}/orbs")
