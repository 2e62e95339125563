"""The package as it was built into ORBS_PACKAGE (default: build/python), and what made it."""
import os
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path[:0] = [os.environ.get("ORBS_PACKAGE", str(ROOT / "build" / "python")), str(ROOT / "python"), str(ROOT / "scripts")]
