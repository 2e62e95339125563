"""Reads the public headers: the one list of members, their documentation and types.

What is made from the headers (the sweep's table, the reference, the bindings) is made from this. Nothing is guessed: a
statement that is neither a member nor a type is kept as not understood, for the reader to refuse.
"""
import dataclasses
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDER = ROOT / "include"

TOKEN = re.compile(r"/\*(?P<comment>.*?)\*/|//[^\n]*|#[^\n]*|ORBS_DECLARATIONS_(?:BEGIN|END)|\s+"
                   r"|(?P<statement>[\w*](?:[^;{}]|\{[^{}]*\})*;)|(?P<stray>.)", re.S)
HEADING = re.compile(r"\s*----\s*(.*?)\s*-*\s*$")
MEMBER = re.compile(r"(?P<result>[\w\s*]+?)\s*(?P<name>\borbs?[A-Z0-9_]\w*)\s*\((?P<arguments>[\w\s*,\[\]]*)\)\s*;")
ARGUMENT = re.compile(r"(?P<const>const\s+)?(?P<type>\w+)\s*(?P<inner>\*\s*const\b\s*)?(?P<stars>\**)\s*(?P<name>\w+)\s*(?:\[(?P<length>\d+)\])?")
TYPE = re.compile(r"(typedef|enum|struct)\b")
COMMENT = re.compile(r"/\*.*?\*/|//[^\n]*", re.S)
# A line of its own in the documentation of every family of vectors: where they may lie.
ALIGNMENT = re.compile(r"Alignment: (any|of the elements)\.")


@dataclasses.dataclass
class Argument:
    type: str        # without const and stars
    name: str
    stars: int       # 1 for a pointer or an array, 2 for a pointer to one
    constant: bool   # the elements pointed at
    fixed: bool      # the pointers to them, of which this is an array
    length: int      # of an array, else 0

    def __str__(self):
        stars = "* const*" if self.fixed else "*" * (self.stars - (self.length > 0))
        return f"{'const ' * self.constant}{self.type}{stars} {self.name}" + f"[{self.length}]" * (self.length > 0)


@dataclasses.dataclass
class Member:
    name: str        # orbsAdd_32f
    result: str
    arguments: list
    family: "Family" = dataclasses.field(repr=False)

    @property
    def short(self):
        """Without the prefix: Add_32f."""
        return self.name.removeprefix("orbs")

    def __str__(self):
        return f"{self.result} {self.name}({', '.join(map(str, self.arguments)) or 'void'});"


@dataclasses.dataclass
class Type:
    name: str        # empty for an enumeration without a name
    declaration: str
    text: str        # the comment before it


@dataclasses.dataclass
class Family:
    heading: str     # as it stands: "Threshold, Threshold_LT, Threshold_GT"
    text: str        # what the block says, without its stars, heading and line of alignment
    alignment: str   # "any", "of the elements" or ""
    header: "Header" = dataclasses.field(repr=False)
    members: list = dataclasses.field(default_factory=list)
    types: list = dataclasses.field(default_factory=list)

    @property
    def key(self):
        """The heading as a word: Threshold_Threshold_LT_Threshold_GT."""
        return re.sub(r"\W+", "_", self.heading).strip("_")


@dataclasses.dataclass
class Header:
    path: pathlib.Path
    title: str                                             # of the header's first line
    text: str = ""                                         # what holds for all of its families
    families: list = dataclasses.field(default_factory=list)
    types: list = dataclasses.field(default_factory=list)
    strays: list = dataclasses.field(default_factory=list)  # what was not understood
    calls: int = 0                                         # of names that look like members, counted in another way

    @property
    def room(self):
        return self.path.stem


def prose(comment):
    """The words of a comment, its lines and their indentation kept."""
    return "\n".join(re.sub(r"^ \* ?", "", line).rstrip() for line in comment.split("\n")).strip()


def _argument(text):
    found = ARGUMENT.fullmatch(text.strip())
    length = int(found["length"] or 0)
    stars = len(found["stars"]) + bool(found["inner"]) + (length > 0)
    return Argument(found["type"], found["name"], stars, bool(found["const"]), bool(found["inner"]), length)


def read(path):
    """The Header of one file."""
    source = pathlib.Path(path).read_text()
    header = Header(pathlib.Path(path), title="")
    comment, family = "", None
    for token in TOKEN.finditer(source):
        if token["comment"] is not None:
            first, _, rest = token["comment"].partition("\n")
            heading = HEADING.match(first)
            of_macro = source[token.end():].lstrip().startswith("#define")
            if heading:
                alignment = ALIGNMENT.search(rest)
                family = Family(heading[1], prose(ALIGNMENT.sub("", rest, count=1)), alignment[1] if alignment else "",
                                header)
                header.families.append(family)
            elif not header.title:
                header.title, _, more = prose(token["comment"]).partition("\n")
                header.text = more.strip()
            elif not (header.families or header.types or of_macro):
                header.text = (header.text + "\n\n" + prose(token["comment"])).strip()
            comment = "" if of_macro else prose(token["comment"])
        elif token["statement"]:
            statement = " ".join(COMMENT.sub(" ", token["statement"]).split())
            member = MEMBER.fullmatch(statement)
            if member:
                words = "" if member["arguments"].strip() == "void" else member["arguments"]
                if not family:
                    family = Family(header.room, "", "", header)
                    header.families.append(family)
                family.members.append(Member(member["name"], member["result"].strip(),
                                             [_argument(word) for word in words.split(",") if word.strip()], family))
            elif TYPE.match(statement):
                name = re.search(r"(\w+);$", statement) if statement.startswith("typedef") else None
                header.types.append(Type(name[1] if name else "", statement, comment))
                if family:
                    family.types.append(header.types[-1])
            elif not statement.startswith("extern "):
                header.strays.append(f"{header.path.name}: {statement}")
        elif token["stray"]:
            header.strays.append(f"{header.path.name}: {token['stray']}")
    header.calls = len(re.findall(r"\borbs[A-Z0-9]\w*\s*\(", COMMENT.sub(" ", source)))
    return header


def rooms(folder=FOLDER):
    """The headers of all rooms, in the order of their names."""
    return [read(path) for path in sorted((pathlib.Path(folder) / "orbs").glob("*.h"))]


def library(folder=FOLDER):
    """All headers: types and statuses, the core library, the rooms."""
    return [read(pathlib.Path(folder) / name) for name in ("orbdefs.h", "orbcore.h")] + rooms(folder)
