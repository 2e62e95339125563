"""Makes the sweep's table of members from the public headers, a row a declaration.

usage: generate.py OUTPUT HEADER...

The types are left to the compiler; only names are read here: the member's, its arguments' and, from the documentation
that stands before it, its family's and the line that tells where vectors may lie. What is neither a declaration nor a type is listed as not
understood, and the sweep fails over it.
"""
import pathlib
import re
import sys

TOKEN = re.compile(r"/\*(?P<comment>.*?)\*/|//[^\n]*|#[^\n]*|ORBS_DECLARATIONS_(?:BEGIN|END)|\s+"
                   r"|(?P<statement>[\w*](?:[^;{}]|\{[^{}]*\})*;)|(?P<stray>.)", re.S)
HEADING = re.compile(r"\s*----\s*(.*?)\s*-*\s*$")
MEMBER = re.compile(r"[\w\s*]+?\b(?P<name>orbs[A-Z0-9]\w*)\s*\((?P<arguments>[\w\s*,\[\]]*)\)\s*;")
TYPE = re.compile(r"(typedef|enum|struct)\b")
COMMENT = re.compile(r"/\*.*?\*/|//[^\n]*", re.S)
# A line of its own in the documentation of every family of vectors: where they may lie, and so where the sweep puts them.
ALIGNMENT = re.compile(r"^ \* Alignment: (any|of the elements)\.$", re.M)
VECTOR = re.compile(r"\*\s*p[A-Z]")


def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def read(header):
    """Rows of the table, what was not understood, and a count of declarations made in another way."""
    text = header.read_text()
    rows, strays = [], []
    family = header.stem
    alignment = None
    for token in TOKEN.finditer(text):
        if token["comment"] is not None:
            heading = HEADING.match(token["comment"].split("\n")[0])
            if heading:
                family = re.sub(r"\W+", "_", heading[1]).strip("_")
                alignment = ALIGNMENT.search(token["comment"])
        elif token["statement"]:
            statement = " ".join(COMMENT.sub(" ", token["statement"]).split())
            member = MEMBER.fullmatch(statement)
            if member:
                arguments = "" if member["arguments"] == "void" else member["arguments"]
                if VECTOR.search(arguments) and not alignment:
                    sys.exit(f"{header}: {family} has vectors, and its documentation no line \" * Alignment: any.\" or "
                             "\" * Alignment: of the elements.\"")
                any_byte = "true" if alignment and alignment[1] == "any" else "false"
                rows.append(f'    member({quoted(member["name"])}, {quoted(family)}, {quoted(arguments)}, '
                            f'{member["name"]}, {any_byte}),')
            elif not TYPE.match(statement):
                strays.append(f"{header.name}: {statement}")
        elif token["stray"]:
            strays.append(f"{header.name}: {token['stray']}")
    return rows, strays, len(re.findall(r"\borbs[A-Z0-9]\w*\s*\(", COMMENT.sub(" ", text)))


def main():
    output, headers = pathlib.Path(sys.argv[1]), [pathlib.Path(name) for name in sys.argv[2:]]
    rows, strays, declared = [], [], 0
    for header in headers:
        more = read(header)
        rows += more[0]
        strays += more[1]
        declared += more[2]
    output.write_text("\n".join([
        '#include "orbs.h"', '#include "sweep/members.h"', "", "namespace sweep {", "",
        "const std::vector<Member>& members() {", "    static const std::vector<Member> table = {",
        *rows, "    };", "    return table;", "}", "",
        "const std::vector<std::string>& notUnderstood() {", "    static const std::vector<std::string> table = {",
        *[f"    {quoted(stray)}," for stray in strays], "    };", "    return table;", "}", "",
        f"std::size_t declaredMembers() {{ return {declared}; }}", "", "} // namespace sweep", ""]))


if __name__ == "__main__":
    main()
