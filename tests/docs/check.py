#!/usr/bin/python3
"""Looks at a built reference: every member is found by the index, every word of the headers stands on the page of its
family, every link within leads to a place that exists, and the search finds what it must.

usage: check.py FOLDER      build/docs/html
"""
import collections
import html.parser
import json
import pathlib
import re
import sys
import urllib.parse

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
import headers  # noqa: E402

# What the search is asked, and the page that must be among its answers.
SEARCHES = {"limited reciprocal": "reference/thresholds/Threshold_LTInv", "echo cancelling": "reference/adaptive/FIRLMS",
            "argsort": "reference/sorting/SortIndexAscend_SortIndexDescend", "dtmf": "reference/goertzel/Goertz_GoertzTwo",
            "stereo interleaved": "reference/convert/Join_JoinScaled_SplitScaled", "hum removed": "reference/design/FIRGen",
            "moving average": "reference/speech/SumWindow", "find a peak": "reference/extrema/Min_Max_MinMax"}


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.places, self.links, self.text = set(), [], []
        self.feed(path.read_text())

    def handle_starttag(self, tag, attributes):
        for name, value in attributes:
            if name == "id":
                self.places.add(value)
            elif name in ("href", "src") and value and not re.match(r"[a-z]+:", value):
                self.links.append(urllib.parse.unquote(value))

    def handle_data(self, data):
        self.text.append(data)


def dead_links(folder, pages):
    for path, page in pages.items():
        for link in page.links:
            file, _, place = link.partition("#")
            target = (path.parent / file.partition("?")[0]).resolve() if file else path
            if not target.exists():
                yield f"{path.relative_to(folder)}: no file {link}"
            elif place and target in pages and place not in pages[target].places:
                yield f"{path.relative_to(folder)}: no place {link}"


def words(text):
    return collections.Counter(re.findall(r"[A-Za-z0-9]+", text))


def lost(folder, pages):
    """Members without a declaration, and words of blocks that are not on their page."""
    for header in headers.library():
        for family in header.families:
            path = (folder / f"reference/{header.room}/{family.key}.html").resolve()
            page = pages[path]
            for member in family.members:
                if f"c.{member.name}" not in page.places:
                    yield f"{path.name}: {member.name} is not declared"
            missing = words(f"{family.heading} {family.text} {header.text}") - words(" ".join(page.text))
            if missing:
                yield f"{path.name}: lacks {dict(missing)}"
            if "example" not in page.places:
                yield f"{path.name}: has no example"


def not_found(folder):
    """What the search index does not answer. Words are stemmed by cutting: an entry that begins alike is the one.
    What the index has for a page is asked for as docs/_ext/search.js does it."""
    index = json.loads(re.fullmatch(r"Search\.setIndex\((.*)\);?\s*", (folder / "searchindex.js").read_text(), re.S)[1])

    def pages_of(word):
        found = set()
        for table in ("terms", "titleterms"):
            for term, places in index[table].items():
                if word.startswith(term[:max(len(term) - 1, 4)]) and len(term) >= 4:
                    found.update(places if isinstance(places, list) else [places])
        for entry, places in index["indexentries"].items():
            if word in entry.split():
                found.update(place[0] for place in places)
        return {index["docnames"][place] for place in found}

    for query, page in SEARCHES.items():
        if page not in set.intersection(*map(pages_of, query.split())):
            yield f'the search for "{query}" does not find {page}'
    objects = {entry[4] for entries in index["objects"].values() for entry in entries} if isinstance(
        next(iter(index["objects"].values())), list) else set(index["objects"][""])
    for header in headers.library():
        for family in header.families:
            for member in family.members:
                if member.name not in objects:
                    yield f"the search does not know {member.name}"


def main(folder):
    folder = pathlib.Path(folder).resolve()
    pages = {path: Page(path) for path in folder.rglob("*.html")}
    faults = [*dead_links(folder, pages), *lost(folder, pages), *not_found(folder)]
    print(f"{len(pages)} pages, {sum(len(page.links) for page in pages.values())} links, {len(faults)} faults")
    print(*faults[:100], sep="\n")
    return bool(faults)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
