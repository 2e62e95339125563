"""What the tests of the programs share: running them, and reading and writing sounds and pictures."""
import math
import os
import pathlib
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib

_program = ""


def program():
    """The path of the program under test."""
    return _program


def main():
    """The tests of the calling script, for the program that its first argument names."""
    global _program
    _program = os.path.abspath(sys.argv.pop(1))
    unittest.main()


def write_floats(path, rate, channels):
    """A WAV file of 32-bit floats."""
    frames = len(channels[0])
    data = struct.pack(f"<{frames * len(channels)}f", *(channel[n] for n in range(frames) for channel in channels))
    form = struct.pack("<HHIIHH", 3, len(channels), rate, rate * 4 * len(channels), 4 * len(channels), 32)
    body = b"WAVEfmt " + struct.pack("<I", len(form)) + form + b"data" + struct.pack("<I", len(data)) + data
    path.write_bytes(b"RIFF" + struct.pack("<I", len(body)) + body)


def read_floats(path):
    """(rate, channels) of a WAV file of 32-bit floats."""
    data = path.read_bytes()
    chunks, place = {}, 12
    while place + 8 <= len(data):
        name, size = struct.unpack_from("<4sI", data, place)
        chunks[name] = data[place + 8 : place + 8 + size]
        place += 8 + size + size % 2
    encoding, count, rate = struct.unpack_from("<HHI", chunks[b"fmt "])
    assert encoding in (3, 0xFFFE), encoding
    samples = struct.unpack(f"<{len(chunks[b'data']) // 4}f", chunks[b"data"])
    return rate, [samples[n::count] for n in range(count)]


def read_picture(path):
    """Rows of (red, green, blue) of an 8-bit RGB PNG file."""
    data = path.read_bytes()
    assert data[:8] == b"\x89PNG\r\n\x1a\n"
    place, packed = 8, b""
    while place < len(data):
        size, name = struct.unpack_from(">I4s", data, place)
        body = data[place + 8 : place + 8 + size]
        if name == b"IHDR":
            width, height, depth, colours = struct.unpack_from(">IIBB", body)
            assert (depth, colours) == (8, 2)
        if name == b"IDAT":
            packed += body
        place += 12 + size
    raw, rows, above = zlib.decompress(packed), [], bytearray(3 * width)
    for y in range(height):
        kind = raw[y * (3 * width + 1)]
        row = bytearray(raw[y * (3 * width + 1) + 1 : (y + 1) * (3 * width + 1)])
        for x in range(3 * width):
            left, up, corner = (row[x - 3] if x >= 3 else 0), above[x], (above[x - 3] if x >= 3 else 0)
            guess = left + up - corner
            paeth = min((left, up, corner), key=lambda value: abs(guess - value))
            row[x] = (row[x] + (0, left, up, (left + up) // 2, paeth)[kind]) & 0xFF
        rows.append([tuple(row[3 * x : 3 * x + 3]) for x in range(width)])
        above = row
    return rows


def tone(frequency, rate, frames, amplitude=0.5):
    return [amplitude * math.sin(2 * math.pi * frequency * n / rate) for n in range(frames)]


class ProgramTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_program(self, *arguments, **more):
        return subprocess.run([program(), *map(os.fspath, arguments)], cwd=self.folder, capture_output=True, text=True,
                              timeout=300, check=False, **more)

    def succeed(self, *arguments):
        result = self.run_program(*arguments)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        return result

    def names(self):
        return sorted(os.fspath(path.relative_to(self.folder)) for path in self.folder.rglob("*"))

    def refuse(self, result, *words):
        """One line that says why, and nothing else."""
        self.assertEqual((result.returncode, result.stdout), (2, ""), result.stderr)
        self.assertRegex(result.stderr, r"\A" + os.path.basename(program()) + r": [^\n]+\n\Z")
        for word in words:
            self.assertIn(word, result.stderr)

    def report(self, result, what):
        """The lines of a kind that a program printed."""
        return [line[10:] for line in result.stdout.splitlines() if line.startswith(what.ljust(10))]

    def refuse_all(self, cases):
        """Each (arguments, word...) is refused with these words, and no file appears or goes."""
        before = self.names()
        for arguments, *words in cases:
            with self.subTest(arguments=arguments):
                self.refuse(self.run_program(*arguments), *words)
                self.assertEqual(self.names(), before)
