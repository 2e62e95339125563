"""Turns the words of a header's block into reStructuredText.

The headers are written to be read as they are: paragraphs, lines that begin with a term and a colon, indented lists in
one or two columns, formulas, and the statuses in the order of their tests. Each becomes what it is on a page.
"""
import re

# What reads as code within a sentence: names of the library, arguments, endings of names, elements, powers.
CODE = re.compile(r"""
    (?<![\w`*])(?:
      `[^`]+`
    | \*?pp?[A-Z]\w*(?:\[[^\]]*\])?       # arguments that are pointers, and their elements
    | orbs?_?[A-Z0-9_]\w* | Orbs?\d\w* | OrbsS?\w+ | ORB_\w+ | threads_omp_of_n_orb
    | orbs/\w+\.h | docs/\w+\.md | orb(?:s|core|defs)\.h
    | (?:[A-Za-z]\w*)?_(?:\d+[a-z]+\d*\w*|I|Sfs|ISfs|A\d\d)\b   # names of members, and their endings
    | \d+(?:sc|fc|[fsu])(?:_\d+\w+)?\b           # types in names
    | [a-z]\w*\[[^\]]+\](?:\^\d)?                # elements
    | (?:2|10|\w+)\^(?:-?\w+|\([^)]*\))          # powers
    | [a-z]+[A-Z0-9]\w*(?<!\d[a-z])              # other arguments
    | len\b
    )""", re.X)
STATUS = re.compile(r"orbSts\w+")
STATUS_LIST = re.compile(r"(?:^|(?<=\. ))(Statuses[^:.]*|Tests|Tested in this order|Order of the tests[^:]*):\s*")
TERM = re.compile(r"(?P<term>[^.:;=(]{1,48}): (?P<text>.+)", re.S)
# What such a term is: a word, or words in a row, or one of the kinds that the headers speak of.
IS_TERM = re.compile(r"[\w.\[\]]+(?:(?:,| and) [\w.\[\] ]+)*|(?:Integers of|Scale factor|Encoding of|Through|16-bit) .*")
# A line that begins with one begins a paragraph.
STARTS = re.compile(r"\s*[A-Z_\d][\w.]*(?:, [\w.]+)*: ")
# Behind a sentence of such a paragraph: the next term.
NEXT_TERM = re.compile(r"(?<=\.)\s+(?=(?!Statuses|Tests)[A-Z_][\w.]*: )")


def inline(text):
    """One paragraph: code marked as such, all else escaped; a first word that would number a list, too."""
    parts, end = ["\\" if re.match(r"\(?\w+[.)]\s|[-+*]\s", text) else ""], 0
    for code in CODE.finditer(text):
        parts.append(_escape(text[end:code.start()]))
        parts.append(f"\\ ``{code[0].strip('`')}``\\ ")
        end = code.end()
    parts.append(_escape(text[end:]))
    return re.sub(r"(^|\s)\\ (?=``)", r"\1", re.sub(r"(?<=``)\\ (?=\s|$)", "", "".join(parts)))


def _escape(text):
    return re.sub(r"([\\`*_|])", r"\\\1", text)


def status_items(text):
    """The tests of "null pSrc: orbStsNullPtrErr; len below 1: orbStsSizeErr. ..." in their order, and what follows."""
    end = re.search(r"\.(?=\s+[A-Z*]|$)", text)
    while end and not STATUS.search(text[:end.start()]):
        end = re.compile(r"\.(?=\s+[A-Z*]|$)").search(text, end.end())
    head, rest = (text[:end.start()], text[end.end():].strip()) if end else (text, "")
    if re.search(r";", head):
        items = head.split(";")
    else:
        items = re.split(r"(?:(?<=\))|(?<=Err)|(?<=Zero)|(?<=Arg)),\s+", head)
    if len(items) == 1 and ", then " in head:
        first, _, last = head.rpartition(", then ")
        items = [*first.split(", "), f"then {last}"]
    return [item.strip() for item in items if item.strip()], rest


def _numbered(items, indent):
    return [f"{indent}#. {inline(item)}" for item in items]


def _statuses(text, indent=""):
    items, rest = status_items(text)
    if not any(STATUS.search(item) for item in items) or len(items) < 2:
        return [indent + inline(text)]
    return _numbered(items, indent) + (["", indent + inline(rest)] if rest else [])


def _wrapped(lines, width):
    """Lines joined to paragraphs: one ends where the next word would still have fitted behind it."""
    paragraphs, current = [], ""
    for number, line in enumerate(lines):
        current = f"{current} {line.strip()}".strip()
        following = lines[number + 1] if number + 1 < len(lines) else None
        fits = following and len(line) + 1 + len(following.split()[0]) <= width
        if not following or (current[-1] == "." and (fits or STARTS.match(following))):
            paragraphs.append(current)
            current = ""
    return paragraphs


def _columns(lines):
    """The rows (term, text) of a list in two columns, or None."""
    base = min(len(line) - len(line.lstrip()) for line in lines)
    heads = [line for line in lines if line[base] != " "]
    gaps = [re.match(r"\s*\S(?:.*?\S)? {2,}(?=\S)", line) for line in heads]
    places = [gap.end() for gap in gaps if gap]
    if len(places) * 2 <= len(heads) or len(set(places)) != 1:
        return None
    column, rows = places[0], []
    for line in lines:
        indent = len(line) - len(line.lstrip())
        if indent == base and len(line) > column and line[column - 1] == " ":
            term, text = line[:column].strip(), line[column:].strip()
            if rows and rows[-1][0].endswith(","):
                rows[-1] = (f"{rows[-1][0]} {term}", f"{rows[-1][1]} {text}")
            else:
                rows.append((term, text))
        elif indent == base and len(line) <= column and rows:
            rows[-1] = (f"{rows[-1][0]} {line.strip()}", rows[-1][1])
        elif indent >= column and rows:
            rows[-1] = (rows[-1][0], f"{rows[-1][1]} {line.strip()}")
        else:
            return None
    return rows


def _definitions(rows, statuses):
    out = []
    for term, text in rows:
        out += [inline(term), *(_statuses(text, "   ") if statuses else ["   " + inline(text)]), ""]
    return out


def _literal(lines):
    base = min(len(line) - len(line.lstrip()) for line in lines)
    return [".. code-block:: text", "", *("   " + line[base:] for line in lines), ""]


def _indented(lines, width, statuses):
    """A group of indented lines."""
    rows = _columns(lines)
    tabular = sum(bool(re.search(r"\S {3,}\S.*\S {3,}\S", line)) for line in lines)
    formulas = sum(" = " in term or bool(re.search(r"\S {3,}\S", text)) for term, text in rows or [])
    numbers = sum(bool(re.fullmatch(r"[-\d ]+", text)) for _, text in rows or [])
    if tabular * 2 >= len(lines) or (rows and max(formulas, numbers) * 2 > len(rows)):
        return _literal(lines)
    if rows:
        return _definitions(rows, statuses)
    base = min(len(line) - len(line.lstrip()) for line in lines)
    heads = [line for line in lines if line[base] != " "]
    if any(line[base] == " " for line in lines):
        items = []
        for line in lines:
            if line[base] != " ":
                items.append(line.strip())
            else:
                items[-1] += " " + line.strip()
    else:
        items = _wrapped(lines, width)
    terms = [TERM.fullmatch(item) for item in items]
    if all(terms):
        return _definitions([(term["term"], term["text"]) for term in terms], statuses)
    if sum(" = " in line for line in heads) * 2 >= len(heads) or len(lines) == 1 or not re.search(r"[a-z]{4,} [a-z]+ [a-z]+", " ".join(lines)):
        return _literal(lines)
    return [line for item in items for line in (f"- {inline(item)}", "")]


def _paragraph(text):
    """One paragraph, the list of statuses within it as a list."""
    found = STATUS_LIST.search(text)
    if not found:
        term = TERM.fullmatch(text)
        if term and IS_TERM.fullmatch(term["term"]):
            return [line for part in NEXT_TERM.split(text) for name, _, words in [part.partition(": ")]
                    for line in (inline(name), "   " + inline(words), "")]
        return [inline(text), ""]
    out = [inline(text[:found.start()].strip()), ""] if found.start() else []
    out += [f".. rubric:: {_escape(found[1])}", ""]
    return out + ([*_statuses(text[found.end():]), ""] if text[found.end():].strip() else [])


def rst(text):
    """The lines of reStructuredText for what a block says."""
    lines = text.split("\n")
    width = max(map(len, lines))
    out, group, statuses = [], [], False

    def flush():
        nonlocal statuses
        if not group:
            return
        if group[0].startswith(" "):
            out.extend(_indented(group, width, statuses))
            statuses = False
        else:
            for paragraph in _wrapped(group, width):
                out.extend(_paragraph(paragraph))
                statuses = bool(STATUS_LIST.search(paragraph))
        group.clear()

    for line in lines:
        if not line or (group and group[0].startswith(" ") != line.startswith(" ")):
            flush()
        if line:
            group.append(line)
    flush()
    return out
