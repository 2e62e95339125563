"""Makes the C++ header orbs.hpp from the public headers.

usage: cpp.py OUTPUT

A member becomes a function template of its name without the types, `I` and `Sfs`, which are told by the arguments, in one
or two forms: with the pointers and lengths of C, and with blocks, which know their lengths. An object becomes a class of
the name of the function that makes it; what takes the object becomes its methods. include/orbs/base.hpp has the rest.
What the tables below do not let it understand stops it.
"""
import pathlib
import re
import sys
from collections import defaultdict

import headers

TYPES = re.compile(r"(?:(?:1|8|16|24|32|64)(?:sc|fc|u|s|f))+$")
PAIR = re.compile(r"Orb\d+[sf]c$")
VECTOR = re.compile(r"p(SrcDst|Src|Dst|Taps|Ref)(1|2|Re|Im|Magn|Phase|Low|High|Idx)?$")
# Names that are no names in C++, or that would be told by types which are one type.
RENAMED = [
    (r"10Log10_.*", "TenLog10"),
    (r"Convert_(16f32f|32f16f)", "ConvertHalf"),
    (r"FIRMR(32fc?)_Direct_16sc?_.*", r"FIRMR\1_Direct"),
]
# Rooms whose members work on `len` elements of each vector, but for some, which have pointers alone.
WITH_BLOCKS = """arith coding convert convolution correlation data design divide elementary extrema generators goertzel
                 logic median norms polar random sorting sums thresholds wavelets windows
                 adaptive fir fixedfir iir""".split()
WITHOUT_BLOCKS = re.compile(r"Copy_1u|PackBits|FindNearest|ConvCyclic|ConvBiased|[FI]IR\w*Direct")
# Vectors of a length that no argument tells: their name, and what must hold. The others are checked against each other.
LENGTHS = [
    (r"Conv(Direct|FFT)?_", {"pDst"}, "pDst.size() + 1 == pSrc1.size() + pSrc2.size()"),
    (r"WTHaarFwd_", {"pDstLow", "pDstHigh"},
     "pDstLow.size() == pSrc.size() - pSrc.size() / 2 && pDstHigh.size() == pSrc.size() / 2"),
    (r"WTHaarInv_", {"pSrcLow", "pSrcHigh"},
     "pSrcLow.size() == pDst.size() - pDst.size() / 2 && pSrcHigh.size() == pDst.size() / 2"),
    (r"WTFwd_", {"pSrc"}, "pSrc.size() == 2 * pDstLow.size()"),
    (r"WTInv_", {"pDst"}, "pDst.size() == 2 * pSrcLow.size()"),
]
MODE = "template <class Mode = Throw> typename Mode::Report"


def stem(member):
    """The name in C++: Add of orbsAdd_16s_Sfs, IIR_BiQuad of orbsIIR32f_BiQuad_16s."""
    for pattern, name in RENAMED:
        if re.fullmatch(pattern, member.short):
            return re.sub(pattern, name, member.short)
    words = [TYPES.sub("", word) for word in member.short.split("_") if word not in ("I", "Sfs", "ISfs")]
    return "_".join(filter(None, words))


def types(text):
    """The words of a name that tell types, in their order and with their underlines: 32f_16s."""
    return "".join(re.findall(r"_?(?:(?:1|8|16|24|32|64)(?:sc|fc|u|s|f))+(?=_|$)", text))


def is_vector(a):
    return a.stars == 1 and not a.length and bool(VECTOR.match(a.name))


class Form:
    """A function or method: what stands between its parentheses, and what it hands on to C."""

    def __init__(self, arguments, blocks=False, lengths=(frozenset(), "true")):
        exempt, condition = lengths
        vectors = [a.name for a in arguments if blocks and is_vector(a) and a.name not in exempt]
        self.tied = defaultdict(list)
        for vector in vectors:
            self.tied[length_of(vector, arguments)].append(vector)
        self.parameters, self.handed = [], []
        for a in arguments:
            if a.name in self.tied:
                self.handed.append(f"length({condition}, {', '.join(self.tied[a.name])})")
                condition = "true" # is looked at once
            elif blocks and is_vector(a):
                self.take(f"Block<{'const ' * a.constant}{a.type}>", a, f"{a.name}.data()")
            elif blocks and a.stars == 1 and not a.length and not a.constant and a.name != "pBuffer":
                self.take(f"Reference<{a.type}>" if PAIR.match(a.type) else f"{a.type}&", a, f"&{a.name}")
            elif PAIR.match(a.type) and a.stars == 1 and not a.length:
                self.take(f"Pointer<{'const ' * a.constant}{a.type}>", a)
            elif PAIR.match(a.type) and not a.stars:
                self.take(f"Value<{a.type}>", a)
            else:
                self.parameters.append(str(a))
                self.handed.append(a.name)
        last = arguments[-1] if arguments else None
        if last and (last.name == "pBuffer" or last.name == "pDlyLine" and last.constant):  # null has a meaning
            self.parameters[-1] += " = nullptr"

    def take(self, kind, argument, handed=None):
        self.parameters.append(f"{kind} {argument.name}")
        self.handed.append(handed or argument.name)

    @property
    def understood(self):
        """All vectors have a length that an argument tells."""
        return bool(self.tied) and None not in self.tied

    @property
    def signature(self):
        return tuple(re.sub(r"\w+( = nullptr)?$", "", parameter.split("[")[0]) for parameter in self.parameters)


def length_of(vector, arguments):
    """The name of the argument that tells the length of a vector, or None."""
    names = {a.name for a in arguments if not a.stars}
    part = vector[1].lower() + vector[2:]
    side = re.match("(src(?!Dst)|dst|taps)?", part)[0]
    return next((name for name in (part + "Len", side + "Len", "len", "numIters") if name in names), None)


def forms(member, arguments, changes_rate=False):
    """Those that a member has: with pointers, and with blocks where its lengths are understood."""
    found = [Form(arguments)]
    if member.family.header.room in WITH_BLOCKS and not WITHOUT_BLOCKS.match(member.short) and not changes_rate:
        rules = [rule[1:] for rule in LENGTHS if re.match(rule[0], member.short)]
        blocks = Form(arguments, True, *rules)
        if blocks.understood:
            found.append(blocks)
    return found


def functions(member, taken):
    for form in forms(member, member.arguments):
        key = stem(member), form.signature
        if key in taken:
            sys.exit(f"cpp.py: {member.name} and {taken[key]} are one to C++: a row of RENAMED tells them apart")
        taken[key] = member.name
        yield (f"{MODE} {stem(member)}({', '.join(form.parameters)}) "
               f"{{ return Mode::report({member.name}({', '.join(form.handed)})); }}")


class Object:
    """A class: how its objects are made, freed and called."""

    def __init__(self, kind, makers, users):
        self.kind = kind
        self.alloc = next((m for m in makers if "InitAlloc" in m.name), None)
        self.init = next((m for m in makers if "InitAlloc" not in m.name), None)
        self.maker = self.alloc or self.init
        self.name = re.sub(r"Init(Alloc)?", "", self.maker.short, count=1)
        self.stem = stem(self.maker).replace("InitAlloc", "").replace("Init", "")
        self.types = types(self.maker.short)
        frees = sorted((m for m in users if "Free" in m.name), key=lambda m: types(m.short) != self.types)
        self.free = frees[0] if frees else None
        verb, _, self.tail = re.sub("InitAlloc|Init", " ", stem(self.maker), count=1).partition(" ")
        self.verb = stem(self.free).partition("Free")[0] if self.free else verb
        self.users = [m for m in users if "Free" not in m.name]
        self.changes_rate = self.stem == "FIRMR"

    def leave_to(self, others):
        """Keeps the methods of its own types, and none of those that have another class's name."""
        stems = {other.stem for other in others if len(other.stem) > len(self.verb)} - {self.stem}
        foreign = {other.types for other in others} - {self.types}
        self.users = [m for m in self.users if types(m.short) not in foreign
                      and not any(re.match(rf"{name}(?![a-z])", stem(m)) for name in stems)]

    def method(self, member):
        name = stem(member)
        for prefix in (self.stem, self.verb):
            if name.startswith(prefix):
                return name[len(prefix):].removesuffix(self.tail).strip("_") or "Run"
        sys.exit(f"cpp.py: {member.name} takes an object of {self.name}: what is the method's name?")

    def chosen(self):
        """Its methods, a member and a form each. Where members of two names are one, it is that of the class's name."""
        taken = {}
        for member in sorted(self.users, key=lambda m: not stem(m).startswith(self.stem)):
            own = [a for a in member.arguments if a.type != self.kind]
            for form in forms(member, own, self.changes_rate):
                if taken.setdefault((self.method(member), form.signature), member) is member:
                    yield member, form

    def methods(self):
        for member, form in self.chosen():
            handed = iter(form.handed)
            call = ", ".join("this->object_" if a.type == self.kind else next(handed) for a in member.arguments)
            const = " const" * next(a.constant for a in member.arguments if a.type == self.kind)
            yield (f"{MODE} {self.method(member)}({', '.join(form.parameters)}){const} "
                   f"{{ return Mode::report({member.name}({call})); }}")

    def made_from(self, member, memory=()):
        """The forms of what makes an object: with a pointer to the taps, and with a block of them."""
        own = [a for a in member.arguments if a.type != self.kind and a.name not in memory]
        found = [Form(own)]
        if any(a.name == "tapsLen" for a in own):
            found.append(Form(own, True, ({"pDlyLine"}, "true")))
        for form in found:
            yield dict(zip((a.name for a in own), form.handed)), form

    def cycle(self, sizes):
        if self.free:
            yield f"static void release(Object* object) {{ {self.free.name}(object); }}"
        if self.alloc:
            for handed, form in self.made_from(self.alloc):
                yield (f"static OrbStatus make({', '.join(['Object** made', *form.parameters])}) "
                       f"{{ return {self.alloc.name}({', '.join(['made', *handed.values()])}); }}")
        if not self.init or not sizes:
            return
        memory = {"pBuffer": "memory", "pMemSpec": "memory", "pMemInit": "work"}
        told = {"pBufferSize": "&sizes.object", "pSize": "&sizes.object", "pStateSize": "&sizes.object",
                "pSpecSize": "&sizes.object", "pSpecBufferSize": "&sizes.work"}
        if "pSpecSize" in (a.name for a in sizes.arguments):
            told["pBufferSize"] = "&sizes.buffer"
        for handed, form in self.made_from(self.init, memory):
            extra = [a for a in sizes.arguments if a.name not in handed and a.name not in told]
            given = form.parameters + [str(a) for a in extra]
            if extra:
                given = [parameter.removesuffix(" = nullptr") for parameter in given]
            asked = {**told, **handed, **{a.name: a.name for a in extra}}
            yield unused(f"static OrbStatus measure({', '.join(['Sizes& sizes', *given])}) "
                         f"{{ return {sizes.name}({', '.join(asked[a.name] for a in sizes.arguments)}); }}")
            place = {**memory, **handed}
            first = self.init.arguments[0]
            built = "made" if first.stars == 2 else "*made = reinterpret_cast<Object*>(memory)"
            arguments = ", ".join([built] + [place[a.name] for a in self.init.arguments[1:]])
            yield unused(f"static OrbStatus place({', '.join(['Object** made', 'Orb8u* memory', 'Orb8u* work', *given])}) "
                         f"{{ return {self.init.name}({arguments}); }}")

    def text(self, sizes):
        owner = "Owned" if self.alloc else "Placed"
        return [f"class {self.name}_Calls : public Access<{self.kind}> {{",
                "public:", *(f"    {line}" for line in self.methods()),
                "", "protected:", *(f"    {line}" for line in self.cycle(sizes)),
                "};", f"using {self.name} = {owner}<{self.name}_Calls>;"]


def unused(function):
    """Takes the names of parameters away that a function does not look at."""
    head, _, body = function.partition(" { ")
    begin, _, parameters = head.partition("(")
    named = []
    for parameter in parameters[:-1].split(", "):
        bare = parameter.removesuffix(" = nullptr")
        name = re.search(r"\w+$", bare)[0]
        named.append(parameter if re.search(rf"\b{name}\b", body) else
                     bare.removesuffix(name).rstrip() + parameter[len(bare):])
    return f"{begin}({', '.join(named)}) {{ {body}"


def without_name(argument):
    """The type of an argument, as a declaration has it."""
    return re.sub(r"\w+(?=(\[\d+\])?$)", "", str(argument)).replace(" [", "[")


def contents():
    """The members without an object, the classes, and what tells the sizes of objects, by the name without GetSize."""
    rooms = headers.rooms()
    members = [m for header in rooms for family in header.families for m in family.members]
    kinds = [t.name for header in rooms for t in header.types if re.match(r"Orbs\w+(State|Spec)", t.name)]
    objects, of_objects = [], set()
    for kind in kinds:
        makers, users = defaultdict(list), []
        for member in members:
            if all(a.type != kind for a in member.arguments):
                continue
            of_objects.add(member.name)
            if re.search(r"Init(?!ial)", member.name):
                makers[re.sub(r"InitAlloc|Init", "", member.name)].append(member)
            else:
                users.append(member)
        classes = [Object(kind, made, users) for made in makers.values()]
        for one in classes:
            one.leave_to(classes)
        objects += classes
    sizes = {re.sub(r"Get(State)?Size", "", m.name): m for m in members if re.search(r"Get(State)?Size", m.name)}
    plain = [m for m in members if m.result == "OrbStatus" and m.name not in of_objects and m not in sizes.values()]
    return plain, objects, sizes


def main():
    plain, objects, sizes = contents()
    taken, lines, family = {}, [], None
    for member in plain:
        if member.family is not family:
            family = member.family
            lines += ["", f"// ---- {family.heading} (orbs/{family.header.room}.h) ----"]
        lines += functions(member, taken)
    for one in objects:
        lines += ["", f"// ---- {one.name} (orbs/{one.maker.family.header.room}.h) ----",
                  *one.text(sizes.get(re.sub("InitAlloc|Init", "", one.maker.name)))]
    pathlib.Path(sys.argv[1]).write_text("\n".join([*PROLOGUE, *lines, "", "} // namespace orbs", ""]))


PROLOGUE = '''\
// orbs.hpp: orbs for C++17 and later, made from the C headers, which tell what each function does.
//
//     std::vector<float> noisy(4096), smooth(4096);
//     orbs::FIR_32f filter(std::array{0.25f, 0.5f, 0.25f});   // frees itself
//     filter.Run(noisy, smooth);                              // orbsFIR_32f
//     orbs::Add(noisy, smooth);                               // orbsAdd_32f_I: smooth[n] += noisy[n]
//
// A function has the name of its members without the prefix, the types, I and Sfs: arguments tell which is called. It
// takes what the member takes, pointers and lengths; in most families also blocks - arrays, vectors, spans - which know
// their lengths, and references to what else is written. Blocks of other lengths than the member asks for are refused
// with orbStsSizeErr. Where C has a pair, std::complex may stand as well.
//
// An error is thrown as an orbs::Error, and a warning returned; orbs::Add<orbs::Return>(...) returns either.
//
// An object is a class of the name of what makes it, without the prefix and InitAlloc: IIR_BiQuad_32f, FFT_R_64f. It is
// constructed from the arguments of that function, moves, and frees itself; Copyable<IIR_BiQuad_32f> copies, too, as do
// all that C has an Init for. Methods are what is left of a member's name: SetTaps, Fwd_RToCCS, and Run for orbsIIR_32f
// itself.
#pragma once

#include "orbs/base.hpp"

namespace orbs {'''.split("\n")


if __name__ == "__main__":
    main()
