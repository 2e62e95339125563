"""Makes a program that looks whether every overload and method of orbs.hpp ends in the member that it is made for.

usage: overloads.py OUTPUT

Each member of C is defined anew to return its number in the list, and called through C++ with arguments of its types:
with pointers, with std::complex where it has pairs, and with vectors where it takes blocks.
"""
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
import cpp
import headers


def given(parameter, complex_numbers):
    """An argument for a parameter of a form."""
    parameter = re.sub(r"\s*=.*", "", parameter)
    wrapped = re.match(r"(Block|Pointer|Reference|Value)<(const )?(\w+)>", parameter)
    if not wrapped:
        kind = re.sub(r"(\w+)(\[\d+\])?$", lambda m: "*" * bool(m[2]), parameter).strip()
        if kind.endswith("&"):
            return f"some<{kind[:-1]}>"
        return f"static_cast<{kind}>({'nullptr' if kind.endswith('*') else 0})"
    form, const, element = wrapped.groups()
    if complex_numbers and cpp.PAIR.match(element):
        element = f"orbs::Twin<{element}>::type"
    if form == "Block":
        return f"some<{const or ''}std::vector<{element}>>"
    return f"static_cast<{const or ''}{element}*>(nullptr)" if form == "Pointer" else f"some<{element}>"


def main():
    members = [m for room in headers.rooms() for family in room.families for m in family.members]
    number = {m.name: n for n, m in enumerate(members, 1) if m.result == "OrbStatus"}
    lines = ["#include <orbs.hpp>", "#include <cstdio>", "#include <vector>", "",
             "template <class T>", "T some{};", "int wrong = 0;",
             "void expect(orbs::Result found, int number, const char* call) {",
             "    if (found.code() == number) return;",
             '    std::printf("%s calls number %d, not %d\\n", call, found.code(), number);',
             "    ++wrong;", "}", ""]
    for m in members:
        if m.name in number:
            lines.append(f"{m.result} {m.name}({', '.join(map(cpp.without_name, m.arguments))}) {{ return {number[m.name]}; }}")
    calls, called = [], set()

    def add(name, form, member, owner=""):
        for complex_numbers in (False, True):
            arguments = ", ".join(given(p, complex_numbers) for p in form.parameters)
            call = f"{owner or 'orbs::'}{name}<orbs::Return>({arguments})"
            if call not in called:
                calls.append(f'    expect({call}, {number[member.name]}, "{member.name}");')
                called.add(call)

    plain, objects, _ = cpp.contents()
    for member in plain:
        for form in cpp.forms(member, member.arguments):
            add(cpp.stem(member), form, member)
    for one in objects:
        for member, form in one.chosen():
            add(one.method(member), form, member, f"some<orbs::{one.name}>.")
    # In functions of a hundred calls: one of thousands takes compilers long.
    parts = [calls[n:n + 100] for n in range(0, len(calls), 100)]
    for n, part in enumerate(parts):
        lines += [f"void part{n}() {{", *part, "}"]
    lines += ["int main() {", *(f"    part{n}();" for n in range(len(parts))),
              f'    std::printf("{len(calls)} calls, %d wrong\\n", wrong);', "    return wrong != 0;", "}", ""]
    pathlib.Path(sys.argv[1]).write_text("\n".join(lines))


if __name__ == "__main__":
    main()
