#!/usr/bin/python3
"""Makes, or extends, a root folder of copies of packages that this system has: the essential ones, those named, and what
they all depend on. Nothing else is in it, so that what a package forgot to ask for is missed.

usage: small_root.py FOLDER (NAME | FILE.deb)...     of a FILE.deb what it depends on, not itself
"""
import functools
import os
import pathlib
import re
import subprocess
import sys

LEFT_OUT = re.compile(r"/usr/share/(doc|man|info|locale|i18n|lintian|icons)/|/usr/lib/debug/")
FIELDS = "${Package}\t${Architecture}\t${db:Status-Status}\t${Essential}\t${Pre-Depends}\t${Depends}\t${Provides}\n"


def told(*command):
    return subprocess.run(command, check=True, text=True, stdout=subprocess.PIPE).stdout


def clauses(field):
    """'a (>= 1) | b, c:any' gives [['a', 'b'], ['c']]."""
    return [[re.match(r"[^\s:(]+", name.strip())[0] for name in clause.split("|")]
            for clause in field.split(",") if clause.strip()]


def closure(wanted):
    """The installed packages, each as dpkg calls it, that clauses of dependencies lead to. dpkg itself will look at versions."""
    native = told("dpkg", "--print-architecture").strip()
    depends, providers, essential = {}, {}, []
    for line in told("dpkg-query", "-W", "-f", FIELDS).splitlines():
        name, architecture, status, is_essential, *fields = line.split("\t")
        if status == "installed" and architecture in (native, "all"):
            depends[name] = clauses(fields[0]) + clauses(fields[1])
            for provided in [name, *sum(clauses(fields[2]), [])]:
                providers.setdefault(provided, []).append(name)
            if is_essential == "yes":
                essential.append([name])
    found, todo = set(), [*essential, *wanted]
    while todo:
        clause = todo.pop()
        choices = [package for name in clause for package in providers.get(name, [])]
        if not choices:
            sys.exit(f"small_root.py: this system lacks {' | '.join(clause)}")
        if not found.intersection(choices):
            found.add(choices[0])
            todo += depends[choices[0]]
    return sorted(found)


def copy(root, paths):
    """Packages have files in /lib, which is a link to /usr/lib."""
    folder = functools.cache(os.path.realpath)
    real = {os.path.join(folder(os.path.dirname(path)), os.path.basename(path)) for path in paths if os.path.lexists(path)}
    listing = "\0".join(sorted(path[1:] for path in real if not LEFT_OUT.match(path)))
    pack = subprocess.Popen(["tar", "-C", "/", "-c", "--no-recursion", "--ignore-failed-read", "--warning=none", "--null",
                             "-T", "-"], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    unpack = subprocess.Popen(["tar", "-C", str(root), "-x", "--keep-directory-symlink", "--no-same-owner"],
                              stdin=pack.stdout)
    pack.stdin.write(listing.encode())
    pack.stdin.close()
    if unpack.wait() or pack.wait():
        sys.exit("small_root.py: copying failed")


def main(root, names):
    own, wanted = [], []
    for name in names:
        if name.endswith(".deb"):
            package, depends = told("dpkg-deb", "-W", "--showformat=${Package}\t${Depends}", name).split("\t")
            own.append(package)
            wanted += clauses(depends)
        else:
            wanted.append([name])
    dpkg = root / "var/lib/dpkg"
    present = set(re.findall(r"^Package: (.*)", (dpkg / "status").read_text(), re.M)) if dpkg.exists() else set()
    packages = [name for name in closure(c for c in wanted if not set(c) & {*own, *present}) if name not in present]

    paths = {"/bin", "/sbin", "/lib", "/lib32", "/lib64", "/libx32", "/etc/passwd", "/etc/group", "/var/lib/dpkg/info/format",
             "/var/lib/dpkg/triggers/ldconfig"}
    paths.update(told("dpkg-query", "-L", *packages).splitlines())
    # What installing them has left besides: links of alternatives, and what dpkg knows.
    for alternative in pathlib.Path("/var/lib/dpkg/alternatives").iterdir():
        for link in re.findall(r"^/.*", alternative.read_text().split("\n\n")[0], re.M):
            if os.path.islink(link) and os.path.realpath(link) in paths:
                paths.update((link, os.readlink(link)))
    info = pathlib.Path("/var/lib/dpkg/info")
    for name in packages:
        paths.update(str(file) for pattern in (f"{name}.*", f"{name}:*") for file in info.glob(pattern))
    copy(root, paths - {"/."})
    for folder in ("info", "triggers", "updates"):
        (dpkg / folder).mkdir(parents=True, exist_ok=True)
    with open(dpkg / "status", "a") as status:
        status.write("\n" + told("dpkg-query", "-s", *packages) + "\n")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]), sys.argv[2:])
