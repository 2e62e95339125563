#!/usr/bin/env python3
"""Writes the pages of the reference: one a family, one a room, one of types and statuses.

Everything on them comes from the public headers (scripts/headers.py); what a family is for from the table of tasks in
guides/choosing.md; its example is the program of examples/reference that calls its members most; a picture is shown
with the families that its script names. A family without a task or without an example is an error.

usage: reference.py FOLDER      the folder, new or empty, that gets the pages
"""
import ast
import ctypes
import os
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))
sys.path.insert(0, str(pathlib.Path(__file__).parent))
import headers  # noqa: E402
import prose  # noqa: E402

CHOOSING = ROOT / "docs/guides/choosing.md"
EXAMPLES = ROOT / "examples/reference"
PICTURES = ROOT / "docs/pictures"
ALIGNMENT = {"any": "Vectors may lie at any address.",
             "of the elements": "Vectors lie at multiples of the size of their elements, or of one part of a complex one.",
             "": ""}


class Library:
    """The headers, and what else is told about their families."""

    def __init__(self):
        self.headers = headers.library()
        self.members = {member.name: member for header in self.headers for family in header.families
                        for member in family.members}
        self.families = [family for header in self.headers for family in header.families]
        self.tasks = {id(family): [] for family in self.families}
        self.jobs = {id(family): [] for family in self.families}  # what takes calls of several families
        self.examples = {}
        self.pictures = {id(family): [] for family in self.families}
        self._read_tasks()
        self._read_examples()
        self._read_pictures()

    def named(self, text):
        """The members whose full names stand in a text, in their order."""
        return [self.members[name] for name in re.findall(r"\borbs?[A-Z0-9_]\w*", text) if name in self.members]

    def _named_strictly(self, text, place):
        for name in re.findall(r"\borbs?(?!Sts|Cmp|Rnd|AlgHint|Win(?!\w*_))[A-Z0-9]\w*_\w*", text):
            if name not in self.members and not any(member.startswith(name) for member in self.members):
                raise SystemExit(f"reference.py: {place} names {name}, which no header declares")
        return self.named(text)

    def _read_tasks(self):
        for line in CHOOSING.read_text().splitlines():
            cells = [cell.strip() for cell in line.strip("|").split("|")]
            if not line.startswith("|") or len(cells) != 3 or cells[2] == "---":
                continue
            have, want, call = cells
            if have == "have":
                told = self.jobs if call == "calls" else self.tasks
                continue
            for family in {id(member.family): member.family for member in self._named_strictly(call, "choosing.md")}.values():
                told[id(family)].append((have, want))

    def _read_examples(self):
        best = {}
        for path in sorted(EXAMPLES.glob("*.c")):
            called = self._named_strictly(path.read_text(), path.name)
            for family in {id(member.family): member.family for member in called}.values():
                share = sum(member.family is family for member in called) / len(called)
                if share > best.get(id(family), 0):
                    best[id(family)] = share
                    self.examples[id(family)] = path

    def _read_pictures(self):
        for path in sorted(PICTURES.glob("[a-z]*.py")):
            title, _, rest = ast.get_docstring(ast.parse(path.read_text())).partition("\n")
            for family in {id(member.family): member.family for member in self._named_strictly(rest, path.name)}.values():
                self.pictures[id(family)].append((path.stem, title))

    def complaints(self):
        for family in self.families:
            place = f"{family.header.path.name}, {family.heading}"
            if id(family) not in self.examples:
                yield f"{place}: no program of examples/reference calls a member of it"
            if not self.tasks[id(family)]:
                yield f"{place}: no task of docs/guides/choosing.md calls a member of it"


def title(text, line="="):
    return [prose._escape(text), line * (len(text) + text.count("_") + 2), ""]


def page(family):
    """The place of a family's page within the reference."""
    return f"{family.header.room}/{family.key}"


def purpose(library, family):
    """What a family is for, in a line."""
    return "; ".join(prose.inline(want) for _, want in library.tasks[id(family)])


def picture_lines(name, caption):
    return [line for scheme in ("light", "dark")
            for line in (f".. figure:: /pictures/{name}-{scheme}.svg", f"   :class: only-{scheme}",
                         f"   :figclass: only-{scheme}", f"   :alt: {caption}", "", f"   {caption}", "")]


def example_lines(path):
    code, _, printed = path.read_text().rpartition("/*")
    words, _, code = code.partition("*/")
    return [prose.inline(" ".join(words.replace("*", " ").strip("/ ").split())), "",
            ".. code-block:: c", "", *indented(code.strip()), "", "It prints:", "",
            ".. code-block:: text", "", *indented(printed.rstrip().removesuffix("*/").strip("\n")), ""]


def indented(text):
    return ["   " + line if line else "" for line in text.split("\n")]


def subjects(want):
    """What the index has for a task: the phrases of "the envelope of a signal (Hilbert transform), and back"."""
    phrases = [re.sub(r"^(an?|the|their|another)\s", "", phrase.strip()) for phrase in re.split(r"[,;:()]", want)]
    return [phrase for phrase in phrases
            if len(phrase) > 1 and not re.match(r"(and|or|with|of|in|as|its|made)\b|.*\bit$", phrase)]


def related(library, family):
    """The other families of the room, then those that the block names."""
    named = [member.family for member in library.named(family.text)]
    out = [other for other in family.header.families if other is not family]
    for other in named:
        if other is not family and other not in out:
            out.append(other)
    return out


def family_page(library, family):
    header = family.header
    include = f"orbs/{header.path.name}" if header.path.parent.name == "orbs" else header.path.name
    out = title(family.heading)
    tasks, jobs = library.tasks[id(family)], library.jobs[id(family)]
    if tasks or jobs:
        out += [".. container:: orbs-tasks", "", *(f"   - {prose.inline(have)}: {prose.inline(want)}" for have, want in tasks),
                *(f"   - with others, {prose.inline(have)}: {prose.inline(want)}" for have, want in jobs), ""]
        out += [f".. index:: {subject}" for have, want in tasks + jobs for subject in subjects(want)] + [""]
    out += prose.rst(family.text) if family.text else []
    if ALIGNMENT[family.alignment]:
        out += [ALIGNMENT[family.alignment], ""]
    for name, caption in library.pictures[id(family)]:
        out += picture_lines(name, caption)
    if id(family) in library.examples:
        out += title("Example", "-") + example_lines(library.examples[id(family)])
    out += title("Declarations", "-") + [".. code-block:: c", "", f"   #include <{include}>   // or <orbs.h>", ""]
    for kind in family.types:
        if kind.name:
            out += [f".. c:type:: {kind.name}", ""]
    for member in family.members:
        out += [f".. c:function:: {str(member).rstrip(';')}", ""]
    if header.text:
        out += title(f"In all of {include}", "-") + prose.rst(header.text)
    others = related(library, family)
    if others:
        out += title("Related", "-")
        out += [f"- :doc:`{prose._escape(other.heading)} </reference/{page(other)}>`: {purpose(library, other)}"
                for other in others] + [""]
    return out


def sentence(header):
    return header.title.partition(": ")[2].rstrip(".")


def constants(kind):
    """The values of an enumeration that belongs to a whole room."""
    return prose.rst(kind.text) + [line for name, value in re.findall(r"(\w+) = (-?\d+)", kind.declaration)
                                   for line in (f".. c:enumerator:: {name} = {value}", "")]


def room_page(library, header):
    words = sentence(header)
    out = title(words[0].upper() + words[1:]) + prose.rst(header.text)
    out += [".. toctree::", "   :hidden:", "", *(f"   {family.key}" for family in header.families), ""]
    of_families = [kind for family in header.families for kind in family.types]
    out += [line for kind in header.types if kind not in of_families for line in constants(kind)]
    out += [line for family in header.families
            for line in (f":doc:`{prose._escape(family.heading)} <{family.key}>` ({len(family.members)})",
                         "   " + purpose(library, family), "")]
    return out


def status_text():
    """The library's own text for a status."""
    build = pathlib.Path(os.environ.get("ORBS_LIBRARY_DIR", ROOT / "build/dev/lib"))
    core = ctypes.CDLL(str(build / "liborbcore.so.5.2"))
    core.orbGetStatusString.restype = ctypes.c_char_p
    return lambda status: core.orbGetStatusString(status).decode()


def types_page(header):
    out = title("Types, statuses, flags") + prose.rst(header.text)
    text_of, told = status_text(), ""
    for kind in header.types:
        if kind.text != told and kind.text not in header.text:
            out += prose.rst(kind.text)
        told = kind.text
        values = re.findall(r"(\w+) = (-?\d+)", kind.declaration)
        for name, value in values:
            out += [f".. c:enumerator:: {name} = {value}", ""]
            out += ["   " + prose.inline(text_of(int(value))), ""] if name.startswith("orbSts") else []
        if not values:
            word = kind.declaration.split()[1]
            plain = re.fullmatch(r"typedef ([\w ]+) (\w+);", kind.declaration)
            out += [f".. c:type:: {plain[1]} {plain[2]}" if plain and word != "struct" else f".. c:struct:: {kind.name}", ""]
            if not plain:
                out += [f"   ``{kind.declaration.partition('{')[2].rpartition('}')[0].strip()}``", ""]
    return out


def front_page(library):
    rooms = [header for header in library.headers if header.families]
    count = sum(len(header.families[n].members) for header in rooms for n in range(len(header.families))
                if header.path.parent.name == "orbs")
    out = title("Reference")
    out += [f"{count:,} primitives in {sum(len(header.families) for header in rooms)} families. The search box finds a "
            "member by its name, a family by a word; :ref:`the index <genindex>` has all names in a row.", "",
            ".. toctree::", "   :hidden:", "", "   types", *(f"   {header.room}/index" for header in rooms), ""]
    for header in rooms:
        names = ", ".join(f":doc:`{prose._escape(family.heading)} <{page(family)}>`" for family in header.families)
        words = sentence(header)
        out += [f":doc:`{words[0].upper() + words[1:]} <{header.room}/index>`", f"   {names}", ""]
    return out + [":doc:`types`", "   Types of elements, statuses and their texts, flags.", ""]


def write(path, lines):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text("\n".join(lines) + "\n")


def main(folder):
    library = Library()
    complaints = list(library.complaints())
    if complaints:
        raise SystemExit("reference.py: " + "\nreference.py: ".join(complaints))
    folder = pathlib.Path(folder)
    for header in library.headers:
        if header.families:
            write(folder / header.room / "index.rst", room_page(library, header))
        for family in header.families:
            write(folder / f"{page(family)}.rst", family_page(library, family))
    write(folder / "types.rst", types_page(library.headers[0]))
    write(folder / "index.rst", front_page(library))


if __name__ == "__main__":
    main(sys.argv[1])
