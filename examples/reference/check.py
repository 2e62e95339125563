#!/usr/bin/env python3
"""Runs an example of the reference and compares what it prints with the comment at the end of its source.

usage: check.py PROGRAM SOURCE
"""
import difflib
import pathlib
import subprocess
import sys


def lines(text):
    return [line.rstrip() for line in text.strip("\n").split("\n")]


def main(program, source):
    comment = pathlib.Path(source).read_text().rpartition("/*")[2].rstrip()
    if not comment.endswith("*/") or not comment.removesuffix("*/").strip():
        raise SystemExit(f"{source}: no comment with the printed result at its end")
    printed = subprocess.run([program], check=True, capture_output=True, text=True, timeout=50).stdout
    if lines(printed) != lines(comment.removesuffix("*/")):
        print(*difflib.unified_diff(lines(comment.removesuffix("*/")), lines(printed), source, "printed", lineterm=""), sep="\n")
        raise SystemExit(1)


if __name__ == "__main__":
    main(*sys.argv[1:])
