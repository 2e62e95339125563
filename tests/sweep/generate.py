"""Makes the sweep's table of members from the public headers, a row a declaration.

usage: generate.py OUTPUT HEADER...

The types are left to the compiler; only names are taken from the text: the member's, its arguments', and, from the
documentation that stands before it, its family's and the line that tells where vectors may lie. What is neither a declaration
nor a type is listed as not understood, and the sweep fails over it.
"""
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
import headers


def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def row(member):
    family = member.family
    if not family.alignment and any(a.stars == 1 and a.name[0] == "p" and a.name[1:2].isupper()
                                    for a in member.arguments):
        sys.exit(f"{family.header.path}: {family.heading} has vectors, and its documentation no line "
                 "\" * Alignment: any.\" or \" * Alignment: of the elements.\"")
    arguments = ", ".join(map(str, member.arguments))
    any_byte = "true" if family.alignment == "any" else "false"
    return (f"    member({quoted(member.name)}, {quoted(family.key)}, {quoted(arguments)}, {member.name}, "
            f"{any_byte}),")


def main():
    output, read = pathlib.Path(sys.argv[1]), [headers.read(name) for name in sys.argv[2:]]
    members = [member for header in read for family in header.families for member in family.members]
    output.write_text("\n".join([
        '#include "orbs.h"', '#include "sweep/members.h"', "", "namespace sweep {", "",
        "const std::vector<Member>& members() {", "    static const std::vector<Member> table = {",
        *map(row, members), "    };", "    return table;", "}", "",
        "const std::vector<std::string>& notUnderstood() {", "    static const std::vector<std::string> table = {",
        *[f"    {quoted(stray)}," for header in read for stray in header.strays], "    };", "    return table;", "}",
        "", f"std::size_t declaredMembers() {{ return {sum(header.calls for header in read)}; }}", "",
        "} // namespace sweep", ""]))


if __name__ == "__main__":
    main()
