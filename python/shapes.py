"""From a member's declaration to the Python function that calls it.

Members that differ in nothing but their types share a shape: a factory of the generated code, which makes the function
of one member from its C function, its name and its types.
"""
import dataclasses
import re

import rules

# What the count of a member's own elements may be called.
OWN = ("len", "lenDst", "dstLen", "numIters", "chanLen", "srcLen")
STATES = re.compile(r"Orbs\w+(State|Spec)\w*")
READABLE, WRITABLE = 0x101, 0x501  # numpy's flags: one block, aligned; and writable


def python_name(argument):
    """pSrc1: src1; pDlyLine: dly_line; scaleFactor: scale; the count of a member's own elements: n."""
    if argument in ("len", "numIters", "lenDst", "chanLen"):
        return "n"
    name = re.sub(r"^pp?(?=[A-Z])", "", argument).replace("scaleFactor", "scale").replace("ScaleFactor", "Scale")
    return re.sub(r"(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])", "_", name).lower().replace("lambda", "lambda_")


@dataclasses.dataclass
class Role:
    """What one argument of C is to Python."""
    argument: object
    kind: str            # object new memory work sources destinations source inplace update destination
    #                      number pointed given result untold length
    name: str = ""
    size: str = ""       # of an array
    gives: str = ""      # "len = size"
    default: str = None
    nullable: bool = False
    place: int = 0       # among the arguments, and of its type among the types

    @property
    def pair(self):
        """What makes a complex number two parts."""
        kind = re.fullmatch(r"Orb\d+([fs])c", self.argument.type)
        return kind and {"f": "pair", "s": "whole_pair"}[kind[1]]


def roles(member):
    """The arguments of a member, each with its role."""
    own = next((name for name in OWN if any(a.name == name for a in member.arguments)), None)
    has_object = any(STATES.fullmatch(a.type) and a.stars == 1 for a in member.arguments)
    found = [_role(member.short, a, own, has_object) for a in member.arguments]
    given = {r.gives.split(" = ")[0] for r in found if r.gives}
    for place, role in enumerate(found):
        role.place = place
        if role.argument.name == "chanLen":
            role.kind = "derived"
        elif role.kind == "number" and role.argument.name in given:
            role.kind = "length"
    outs = [r for r in found if r.kind in ("destination", "destinations")]
    for role in found:
        role.name = "state" if role.kind in ("object", "new") else python_name(role.argument.name)
        if role.kind in ("destination", "destinations") and len(outs) == 1:
            role.name = "out"
        if role.kind == "object" and any(a.name == "state" for a in member.arguments):
            raise ValueError(f"{member.name}: two arguments called state")
    return found


def _role(short, argument, own, has_object):
    default = rules.find(rules.DEFAULTS, short, argument.name)[0]
    default = default and default[2]
    if rules.find(rules.MEMORY, short, argument.name)[0]:
        return Role(argument, "memory")
    if STATES.fullmatch(argument.type):
        return Role(argument, "object" if argument.stars == 1 else "new")
    if argument.stars == 0:
        return Role(argument, "number", default=default)
    if argument.stars == 2:
        return Role(argument, "sources" if argument.constant else "destinations",
                    gives="nChannels = size")
    if argument.name == "pBuffer":
        return Role(argument, "work")
    row = rules.find(rules.SIZES, short, argument.name)[0]
    if row:
        size, gives = row[2], row[3]
    elif re.fullmatch(r"p(Src|Src1|Src2|Dst|SrcDst)(Re|Im|Magn|Phase|Low|High|BitsLen)?", argument.name):
        size = own or ("state.points" if has_object else None)
        gives = f"{own} = size" if own else ""
    else:
        size = None
    if size is None:
        raise ValueError(f"no rule tells how long {argument.name} of {short} is")
    nullable = bool(rules.find(rules.NULLABLE, short, argument.name)[0])
    role = Role(argument, "", size=size, gives=gives, default="None" if nullable and "Re" not in argument.name
                and "Im" not in argument.name else default, nullable=nullable)
    updated = bool(rules.find(rules.UPDATED, short, argument.name)[0]) and not argument.constant
    if size == "1":
        untold = rules.find(rules.UNTOLD, short, argument.name)[0]
        role.kind = "pointed" if argument.constant else "given" if updated else "untold" if untold else "result"
        role.gives = ""
    elif argument.constant:
        role.kind = "source"
    elif updated:
        role.kind = "inplace" if argument.name.startswith("pSrcDst") else "update"
    else:
        role.kind = "destination"
    return role


@dataclasses.dataclass
class Shape:
    """The Python function of a member: its parameters, and its code but for the types."""
    parameters: list     # (name, default or None, role)
    keywords: list       # those that can only be given by name
    returns: list        # roles of what comes back
    code: str


class Writer:
    def __init__(self, member):
        self.member = member
        self.roles = roles(member)
        self.names = {r.argument.name: r.name for r in self.roles}
        self.lines = []

    def of(self, *kinds):
        return [r for r in self.roles if r.kind in kinds]

    def python(self, expression, size=""):
        """An expression of the rules with the names of Python. A name that is none of the member's is a KeyError."""
        expression = re.sub(r"\bstate\.(\w+)", r"state._\1", expression)
        expression = re.sub(r"(?<![.\w])size\b", "@", expression)
        known = {**self.names, **{word: word for word in ("if", "else", "state", "None")}}
        expression = re.sub(r"(?<![.\w])[A-Za-z]\w*\b(?![\w(])", lambda m: known[m[0]], expression)
        return expression.replace("@", size)

    def line(self, text, depth=2):
        self.lines.append("    " * depth + text)

    def shape(self):
        parameters, keywords = self.signature()
        self.check_objects()
        self.take_numbers()
        self.take_arrays()
        self.take_lengths()
        self.check_sizes()
        self.make_results()
        call = self.call()
        returns = self.finish(call)
        head = ", ".join(n if d is None else f"{n}={d}" for n, d, _ in parameters)
        tail = ", ".join(f"{n}={d}" for n, d, _ in keywords)
        signature = ", ".join(part for part in (head, "*" if tail else "", tail) if part)
        types = "".join(f", D{r.place}, T{r.place}" for r in self.roles if r.argument.stars)
        code = "\n".join([f"    def call({signature}):", *self.lines, "    return call"])
        return Shape(parameters, keywords, returns, f"(c, name{types}):\n{code}\n")

    def signature(self):
        given = self.of("object") + [r for r in self.roles if r.kind in
                                     ("number", "source", "sources", "inplace", "update", "pointed", "given")]
        late = [r for r in given if r.default is not None]
        parameters = [(r.name, None, r) for r in given if r.default is None]
        # What follows from other arguments by default is worked out in the call.
        parameters += [(r.name, r.default if re.fullmatch(r"-?\d+|None", r.default) else "None", r) for r in late]
        keywords = [(r.name, "None", r) for r in self.of("length") if not self.definers(r)]
        if len({r.name for r in self.of("destination", "destinations")}) > 0:
            keywords.append(("out", "None", None))
        keywords += [(r.name, "None", r) for r in self.of("memory", "work")]
        return parameters, keywords

    def definers(self, length):
        """The arrays that must be given and tell this length."""
        return [r for r in self.of("source", "sources", "inplace", "update")
                if r.gives.startswith(length.argument.name + " = ") and r.default is None]

    def check_objects(self):
        for r in self.of("object"):
            self.line(f"if not isinstance(state, D{r.place}): raise wrong_object(state, D{r.place})")

    def take_numbers(self):
        for r in self.of("number", "length"):
            if r.pair or r.kind == "length" and self.definers(r):
                continue
            type_, how = ("float", "real") if re.fullmatch(r"Orb\d+f", r.argument.type) else ("int", "integer")
            absent = " and {r.name} is not None" if r.kind == "length" or r.default and not r.default.isdigit() else ""
            self.line(f"if type({r.name}) is not {type_}{absent.format(r=r)}: {r.name} = {how}({r.name}, \"{r.name}\")")

    def is_plain(self, name, place, flags):
        return (f"type({name}) is ndarray and {name}.dtype is D{place} and {name}.ndim == 1"
                f" and {name}.flags.num & {flags} == {flags}")

    def take_arrays(self):
        for r in self.of("source", "inplace", "update"):
            absent = f"{r.name} is not None and " if r.nullable or r.default == "None" else ""
            how, flags = ("source", READABLE) if r.kind == "source" else ("written", WRITABLE)
            self.line(f"if {absent}not ({self.is_plain(r.name, r.place, flags)}):"
                      f" {r.name} = {how}({r.name}, D{r.place}, \"{r.name}\")")
        for r in self.of("sources"):
            self.line(f"{r.name} = [source(one, D{r.place}, \"{r.name}\") for one in {r.name}]")
            self.line(f"if not {r.name}: raise ValueError(\"{r.name} holds no array\")")

    def take_lengths(self):
        outs = self.of("destination")
        for length in self.of("length"):
            name, word = length.name, length.argument.name
            definers = self.definers(length)
            if definers:
                first = definers[0]
                if first.kind == "sources":
                    self.line(f"{name} = len({first.name})")
                    continue
                told = self.python(first.gives.split(" = ")[1], f"{first.name}.size")
                if first.nullable:
                    other = definers[1].name
                    self.line(f"{name} = size_of({other} if {first.name} is None else {first.name}, \"both {first.name} and {other}\")")
                else:
                    self.line(f"{name} = {told}")
                continue
            teller = next((r for r in outs if r.gives.startswith(word + " = ")), None)
            many = len(outs) > 1
            position = f"[{outs.index(teller)}]" if many and teller else ""
            default = self.python(length.default) if length.default else f"unknown(\"{name}\")"
            if teller:
                told = self.python(teller.gives.split(" = ")[1], f"size_of(out{position})")
                self.line(f"if {name} is None: {name} = {told} if out is not None else {default}")
            elif self.of("destinations"):
                self.line(f"if {name} is None: {name} = len(out) if out is not None else {default}")
            else:
                self.line(f"if {name} is None: {name} = {default}")
        for r in self.of("number"):
            if r.default and not re.fullmatch(r"-?\d+", r.default):
                self.line(f"if {r.name} is None: {r.name} = {self.python(r.default)}")
        for r in self.of("derived"):
            arrays = self.of("sources")
            self.line(f"{r.name} = {arrays[0].name}[0].size" if arrays else
                      f"{r.name} = {self.of('source')[0].name}.size // max(n_channels, 1)")

    def check_sizes(self):
        for r in self.of("given"):
            self.line(f"{r.name} = one({r.name}, D{r.place}, \"{r.name}\")")
        for r in self.of("pointed"):
            self.line(f"{r.name} = one({r.name}, D{r.place}, \"{r.name}\")")
        for r in self.of("source", "inplace", "update"):
            size = self.python(self.given_values(r.size), f"{r.name}.size")
            first = next((self.definers(x)[0] for x in self.of("length") if self.definers(x)
                          and r.gives.startswith(x.argument.name + " = ")), None)
            if first is r and r.gives.endswith("= size") and not r.nullable:
                continue
            if r.default == "None" and r.kind == "update":
                self.line(f"if {r.name} is None: {r.name} = zeros({size}, D{r.place})")
                self.line(f"elif {r.name}.size != {size}: raise wrong_size({r.name}, {size}, \"{r.name}\")")
                continue
            absent = f"{r.name} is not None and " if r.nullable else ""
            self.line(f"if {absent}{r.name}.size != {size}: raise wrong_size({r.name}, {size}, \"{r.name}\")")
        for r in self.of("sources"):
            self.line(f"for one_of in {r.name}:")
            self.line(f"if one_of.size != n: raise wrong_size(one_of, n, \"{r.name}\")", 3)

    def given_values(self, expression):
        """Numbers that are read and changed stand in arrays of one."""
        for r in self.of("given"):
            expression = re.sub(rf"\b{r.argument.name}\b", f"{r.argument.name}[0]", expression)
        return expression

    def make_results(self):
        outs = self.of("destination")
        if len(outs) > 1:
            self.line(f"{', '.join(r.name for r in outs)} = several(out, {len(outs)})")
        fresh = "zeros" if rules.find(rules.PARTIAL, self.member.short)[0] else "empty"
        for r in outs:
            size = self.python(self.given_values(r.size), "0")
            self.line(f"if {r.name} is None: {r.name} = {fresh}({size}, D{r.place})")
            self.line(f"elif not ({self.is_plain(r.name, r.place, WRITABLE)} and {r.name}.size == {size}):"
                      f" destination({r.name}, D{r.place}, {size}, \"{r.name}\")")
        for r in self.of("destinations"):
            self.line(f"if out is None: out = [empty(n, D{r.place}) for _ in range(n_channels)]")
            self.line("elif len(out) != n_channels: raise ValueError(f\"out has {len(out)} arrays, {n_channels} are needed\")")
            self.line(f"for one_of in out: destination(one_of, D{r.place}, n, \"out\")")
        for r in self.of("result", "untold"):
            self.line(f"{r.name} = {fresh}(1, D{r.place})")
        for r in self.of("memory"):
            row, found = rules.find(rules.MEMORY, self.member.short, r.argument.name)
            numbers = row[3] if row[3] != "..." else ", ".join(
                x.argument.name for x in self.roles if x.kind in ("number", "length"))
            index = "" if row[4] is None else f"[{row[4]}]"
            teller = f"member_of(name, {row[0]!r}, {row[2]!r})"
            self.line(f"{r.name} = memory({r.name}, {teller}({self.python(numbers)}){index}, \"{r.name}\")")
        for r in self.of("new"):
            self.line(f"made = new(T{r.place})")

    def call(self):
        words = []
        for r in self.roles:
            name, pointer = r.name, f"buffer_of(T{r.place}, {r.name})"
            if r.kind in ("source", "inplace", "update") and (r.nullable):
                words.append(f"NULL if {name} is None else {pointer}")
            elif r.argument.name == "pSrc2" and self.member.short.startswith("ConvBiased"):
                words.append(f"{pointer} + bias")
            elif r.kind == "object":
                words.append("state._pointer")
            elif r.kind == "new":
                words.append("made")
            elif r.kind == "memory":
                words.append(pointer if not STATES.fullmatch(r.argument.type) else f"cast(T{r.place}, {name}.ctypes.data)")
            elif r.kind == "work":
                words.append(f"work_buffer({name}, state)")
            elif r.kind in ("sources", "destinations"):
                words.append(f"pointers(T{r.place}, {name})")
            elif r.argument.stars:
                words.append(pointer)
            else:
                words.append(f"{r.pair}({name}, \"{name}\")" if r.pair else name)
        return f"c({', '.join(words)})"

    def finish(self, call):
        short = self.member.short
        if short.startswith("Malloc"):
            self.line(f"return allocated({call}, n, name)")
            return ["array"]
        if self.member.result != "OrbStatus":
            self.line(f"return told({call})")
            return ["told"]
        if "Free" in short:
            self.line("state.free()")
            return []
        self.line(f"status = {call}")
        always = rules.find(rules.ALWAYS, short)[0]
        self.line("if status: report(status, name)" if not always else
                  f"if status != {always[1]}: report(status, name)")
        if re.search(r"Set(Taps|Mu)", short):
            kept = [r for r in self.roles if r.kind in ("source", "number")]
            self.line(f"state._arguments.update({', '.join(f'{r.name}=keep({r.name})' for r in kept)})")
        news = [r for r in self.roles if r.kind == "new" or r.kind == "memory" and STATES.fullmatch(r.argument.type)]
        if news:
            self.made(news[0])
            return ["state"]
        returns = self.of("inplace", "destination", "destinations", "given", "result")
        returns.sort(key=lambda r: r.place)
        words = [f"{r.name}[0]" if r.kind in ("given", "result") else r.name for r in returns]
        if words:
            self.line(f"return {', '.join(words)}")
        return returns

    def made(self, new):
        row = rules.find(rules.REMEMBERED, self.member.short)[0]
        memory = next((r.name for r in self.of("memory") if r.argument.name != "pMemInit"), "None")
        pointer = "made[0]" if new.kind == "new" else f"cast(T{new.place}, {memory}.ctypes.data)"
        kept = ", ".join(f"{n}=keep({n})" for n, _, r in self.signature()[0])
        self.line(f"state = object_made(name, {pointer}, {memory}, dict({kept}))")
        for word, expression in row[1].items():
            self.line(f"state._{word} = {self.python(expression)}")
        self.line("return state")
