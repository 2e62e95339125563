"""The classes of objects: one for each way to make one, with the members of its family as methods."""
import re

import rules
from shapes import STATES

TYPES = re.compile(r"(?:_[CR]_|_)?\d+[a-z]+(?:\d+[a-z]+)*(?:_\d+[a-z]+(?:\d+[a-z]+)*)?")
DIRECTIONS = {"Fwd_CToC": "forward", "Inv_CToC": "inverse", "Fwd_RToCCS": "forward_ccs", "Inv_CCSToR": "inverse_ccs",
              "Fwd_RToPack": "forward_pack", "Inv_PackToR": "inverse_pack", "Fwd_RToPerm": "forward_perm",
              "Inv_PermToR": "inverse_perm"}


def split(short):
    """FIRGetTaps32f_16s: FIR, GetTaps, 32f_16s, nothing; IIR_32f_I: IIR, nothing, 32f, I."""
    words = max((word for word in rules.CLASSES if short.startswith(word)), key=len)
    rest = re.sub(r"Q15|_BiQuad", "", short.removeprefix(words))
    types = TYPES.search(rest)
    if not types:                    # ToneFree
        return words, rest, "", ""
    ending = rest[types.end():].lstrip("_")
    return words, rest[:types.start()], types[0].lstrip("_").replace("C_", "C").replace("R_", "R"), ending


def method_of(short):
    """How a class calls a member: () for the call of the object itself; None if it is no method."""
    _, verb, _, ending = split(short)
    if re.match(r"GetSize|GetStateSize|Init|Free", verb):
        return None
    if verb.startswith(("Fwd", "Inv")):
        name = DIRECTIONS[verb]
    else:
        name = re.sub(r"(?<=[a-z])(?=[A-Z])", "_", verb).lower()
    if ending in ("I", "ISfs"):
        name = f"{name}_in_place" if name else "in_place"
    return name or "__call__"


def state_type(member):
    return next((a for a in member.arguments if STATES.fullmatch(a.type)), None)


def classes(headers):
    """name: (type in C, class of the same type that it extends, member that makes it, {method: member})."""
    aliases = dict(found.group(2, 1) for header in headers for t in header.types
                   if (found := re.fullmatch(r"typedef (Orbs\w+) (Orbs\w+);", t.declaration)))
    members = [m for header in headers for family in header.families for m in family.members
               if state_type(m) and not rules.find(rules.REFUSED, m.short)[0]]
    table = {}
    by_type = {}
    for m in members:
        words, verb, types, _ = split(m.short)
        alloc = any(other.short == m.short.replace("Init", "InitAlloc") for other in members)
        if verb != "InitAlloc" and (verb != "Init" or alloc or not state_type(m)):
            continue
        c_type = aliases.get(state_type(m).type, state_type(m).type)
        name = rules.CLASSES[words] + ("BiQuad" if "_BiQuad" in m.short else "") + types
        methods = {}
        for other in members:
            if aliases.get(state_type(other).type, state_type(other).type) != c_type:
                continue
            method = method_of(other.short)
            fits = split(other.short)[2] in (types, "")
            if method and (fits or method not in methods) and not other.short.startswith("FIRMR_"):
                methods[method] = other.short
        by_type.setdefault(c_type, name)
        forward = next((w for w in ("forward", "forward_ccs") if w in methods), None)
        if forward:
            methods["__call__"] = methods[forward]
        table[name] = (c_type, by_type[c_type] if by_type[c_type] != name else None, m.short, methods)
    return table, aliases


def free_members(headers, aliases):
    """type in C: the member that frees it."""
    found = {}
    for header in headers:
        for family in header.families:
            for m in family.members:
                if "Free" in m.short and state_type(m):
                    found.setdefault(aliases.get(state_type(m).type, state_type(m).type), m.short)
    return found


def properties(methods):
    """taps: (reader or None, writer or None): what objects tell or take without arguments."""
    found = {}
    for method in methods:
        if method.startswith(("get_", "set_")) and method != "get_dly_val":
            found.setdefault(method[4:], [None, None])[method.startswith("set_")] = method
    return {name: tuple(pair) for name, pair in found.items()}
