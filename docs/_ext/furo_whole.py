"""Completes the files of the theme as Debian packages it.

Its script is two modules that were meant to be bundled, which a page from a file cannot load: they are joined. Its style
sheet has the dark colours for readers who chose them by the button alone: they are given to those, too, whose system is dark.
A theme that is whole stays as it is.
"""
import pathlib
import re

DARK = re.compile(r"@media not print \{(.*?)\n\n", re.S)


def join_scripts(static):
    script = static / "scripts/furo.js"
    text = script.read_text()
    module = re.match(r'import Gumshoe from "\./(.*?)";\n', text)
    if module:
        script.write_text((script.parent / module[1]).read_text() + text[module.end():])


def add_dark(static):
    sheet = static / "styles/furo.css"
    text = sheet.read_text()
    dark = DARK.search(text)
    if dark and "prefers-color-scheme" not in text:
        rules = dark[1].replace('[data-theme="dark"]', ':not([data-theme="light"])')
        sheet.write_text(f"{text}\n@media screen and (prefers-color-scheme: dark) {{{rules}\n")


def complete(app, failure):
    static = pathlib.Path(app.outdir) / "_static"
    if not failure and app.builder.format == "html" and (static / "scripts/furo.js").exists():
        join_scripts(static)
        add_dark(static)


def setup(app):
    app.connect("build-finished", complete)
    return {"parallel_read_safe": True, "parallel_write_safe": True}
