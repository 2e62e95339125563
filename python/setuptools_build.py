"""What `pip install .` does beyond copying: the package is made from the headers."""
import pathlib
import subprocess
import sys

from setuptools.command.build_py import build_py


class BuildPy(build_py):
    def run(self):
        maker = pathlib.Path(__file__).resolve().with_name("build.py")
        subprocess.run([sys.executable, str(maker), self.build_lib], check=True)
