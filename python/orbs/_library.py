"""Finds the shared library and loads it: that of the build, of the install or of the system."""
import os
import pathlib
import subprocess

from ._abi import ffi
from ._tree import TREE

FILES = ("liborbcore.so.5.2", "liborbsv8.so.5.2")
LOADER = "/lib64/ld-linux-x86-64.so.2"


def _tiers():
    """The folders of glibc-hwcaps that the dynamic loader would search, the best first."""
    try:
        told = subprocess.run([LOADER, "--help"], capture_output=True, text=True, check=False).stdout
    except OSError:
        return []
    return [line.split()[0] for line in told.splitlines() if "(supported" in line]


def _in_folder(folder):
    """The files to load from a folder of libraries: those that its loader would take for this processor."""
    folder = pathlib.Path(folder)
    library = folder / FILES[1]
    hwcaps = folder / "glibc-hwcaps"
    if hwcaps.is_dir():
        library = next((path for tier in _tiers() if (path := hwcaps / tier / FILES[1]).exists()), library)
    return [folder / FILES[0], library]


def _of_build(tree):
    """The newest build in a source tree, of those that end in a library for this processor."""
    found = [path for preset in ("release", "dev") if (path := pathlib.Path(tree, "build", preset, "lib") / FILES[1]).exists()]
    return [_in_folder(max(found, key=lambda path: path.stat().st_mtime).parent)] if found else []


def _of_install(package):
    """A library in the prefix that the package is installed in: PREFIX/lib/python3/..., PREFIX/lib/x86_64-linux-gnu."""
    for prefix in package.parents:
        if (prefix / "lib").is_dir() and package.is_relative_to(prefix / "lib"):
            for folder in (prefix / "lib", *sorted((prefix / "lib").glob("*-linux-gnu*")), prefix / "lib64"):
                if (folder / FILES[1]).exists():
                    return [_in_folder(folder)]
    return []


def _places():
    """Lists of files to load one after the other, in the order in which they are tried."""
    named = os.environ.get("ORBS_LIBRARY")
    if named:
        path = pathlib.Path(named)
        return [_in_folder(path) if path.is_dir() else [path.parent / FILES[0], path]]
    package = pathlib.Path(__file__).resolve().parent
    build = _of_build(TREE) if TREE else []
    if TREE and package.is_relative_to(TREE):
        return [*build, list(FILES)]
    return [*_of_install(package), list(FILES), *build]


def _opened(file):
    """It stays to the end of the process: when Python ends, objects are still freed and OpenMP's threads still wait."""
    return ffi.dlopen(str(file), ffi.RTLD_NOW | ffi.RTLD_NODELETE)


def _load():
    faults = []
    for files in _places():
        try:
            # The core first, so that the library finds it loaded; a system's loader finds it by itself.
            if os.path.exists(files[0]):
                _opened(files[0])
            return _opened(files[-1]), _opened(files[0]), str(files[-1])
        except OSError as fault:
            faults.append(f"  {fault}")
    raise ImportError("the orbs library was not found. Install it, build it (cmake --preset release && cmake --build "
                      "--preset release), or set ORBS_LIBRARY to its file or folder. Tried:\n" + "\n".join(faults))


LIBRARY, CORE, PATH = _load()


def function(name):
    """A C function of the library, or of its core, by its whole name."""
    return getattr(LIBRARY if name.startswith("orbs") else CORE, name)
