#!/usr/bin/env python3
"""Runs the bandpass program as its users do. usage: bandpass_test.py PROGRAM [unittest argument]..."""
import math
import os
import pathlib
import random
import resource
import signal
import struct
import subprocess
import time

from support.program_test import ProgramTest, main, program, read_floats, read_picture, tone, write_floats


def bessel(x):
    term = total = 1.0
    for k in range(1, 60):
        term *= (x / 2 / k) ** 2
        total += term
    return total


def designed(low, high, rate, taps):
    """The filter by its definition: the ideal band's response times a Kaiser window, gain 1 in the middle."""
    half, beta = taps // 2, 0.1102 * (80 - 8.7)
    response = []
    for n in range(-half, half + 1):
        ideal = 2 * (high - low) / rate if n == 0 else (
            math.sin(2 * math.pi * high / rate * n) - math.sin(2 * math.pi * low / rate * n)) / (math.pi * n)
        response.append(ideal * bessel(beta * math.sqrt(1 - (n / half) ** 2)) / bessel(beta))
    gain = sum(h * math.cos(math.pi * (low + high) / rate * (n - half)) for n, h in enumerate(response))
    return [h / gain for h in response]


class Bandpass(ProgramTest):
    def test_makes_its_own_recording_the_same_every_time(self):
        for folder in ("demo", "again"):
            self.succeed(*([] if folder == "demo" else ["--out", folder]))
        files = ["speech-band.png", "speech-band.wav", "speech.wav"]
        self.assertEqual(self.names(), sorted(["demo", "again"] + [f"{f}/{n}" for f in ("demo", "again") for n in files]))
        for name in files:
            self.assertEqual((self.folder / "demo" / name).read_bytes(), (self.folder / "again" / name).read_bytes())

    def test_keeps_what_lies_in_the_band_in_its_place_and_removes_the_rest(self):
        rate, frames = 44100, 30000
        write_floats(self.folder / "in.wav", rate, [tone(1000, rate, frames),
                                                    [a + b for a, b in zip(tone(50, rate, frames), tone(9000, rate, frames))]])
        self.succeed("in.wav", "out.wav")
        out_rate, (kept, removed) = read_floats(self.folder / "out.wav")
        self.assertEqual((out_rate, len(kept)), (rate, frames))
        # 80 dB of stop band are as much ripple in the pass band; half a filter from the ends the tones are settled.
        settled = slice(800, frames - 800)
        expected = tone(1000, rate, frames)
        self.assertLess(max(abs(a - b) for a, b in zip(kept[settled], expected[settled])), 0.5 * 1e-4)
        self.assertLess(max(map(abs, removed[settled])), 2 * 0.5 * 1e-4)

    def test_is_the_designed_filter_over_all_blocks_ends_and_channels(self):
        noise = random.Random(5)
        rate, frames, taps = 16000, 2 * 8192 + 77, 101
        channels = [[struct.unpack("<f", struct.pack("<f", noise.uniform(-1, 1)))[0] for _ in range(frames)] for _ in range(3)]
        write_floats(self.folder / "in.wav", rate, channels)
        self.succeed("in.wav", "out.wav", "--low=500", "--high", "2000", "--taps", "100")  # the next odd one
        _, cleaned = read_floats(self.folder / "out.wav")
        response = designed(500, 2000, rate, taps)
        bound = taps * 2**-23 * sum(map(abs, response))
        for channel, output in zip(channels, cleaned):
            self.assertEqual(len(output), frames)
            padded = [0.0] * (taps // 2) + channel + [0.0] * (taps // 2)
            for n in [*range(200), *range(8000, 8400), *range(16200, frames)]:
                expected = sum(h * x for h, x in zip(response, padded[n : n + taps]))  # the response is symmetric
                self.assertAlmostEqual(output[n], expected, delta=bound, msg=f"sample {n}")

    def test_short_sounds_and_single_taps(self):
        write_floats(self.folder / "one.wav", 8000, [[0.25]])
        self.succeed("one.wav", "out.wav", "--taps=1", "--low=0", "--high=4000")
        self.assertEqual(read_floats(self.folder / "out.wav"), (8000, [(0.25,)]))
        self.succeed("one.wav", "out.wav", "--taps=65535")
        self.assertEqual(len(read_floats(self.folder / "out.wav")[1][0]), 1)

    def test_the_picture_shows_a_tone_where_it_is(self):
        rate = 48000
        write_floats(self.folder / "in.wav", rate, [tone(1500, rate, rate, amplitude=1)])  # bin 256 of 8192
        self.succeed("in.wav", "out.wav")
        rows = read_picture(self.folder / "out.png")
        self.assertEqual((len(rows[0]), len(rows)), (1400, 800))
        left, right, top, bottom, highest, lowest = 98, 1365, 92, 734, 10, -110
        blue = [(x, y) for y in range(top + 2, bottom) for x in range(left + 2, right)
                if rows[y][x][2] - rows[y][x][0] > 100 and rows[y][x][2] < 180]
        self.assertGreater(len(blue), 500)
        x, y = min(blue, key=lambda place: place[1])
        self.assertAlmostEqual(x, left + (right - left) * math.log(1500 / 20) / math.log(24000 / 20), delta=4)
        self.assertAlmostEqual(y, top + (bottom - top) * (highest - 0) / (highest - lowest), delta=4)
        orange = sum(r > 220 and g < 190 and b < 110 for row in rows[top:bottom] for r, g, b in row[left:right])
        self.assertGreater(orange, 500)

    def test_formats_follow_the_input_or_the_ending(self):
        self.succeed()
        source = self.folder / "demo/speech.wav"
        for name, magic in (("a.flac", b"fLaC"), ("a.ogg", b"OggS"), ("a.AIF", b"FORM"), ("a", b"RIFF")):
            self.succeed(source, name)
            self.assertEqual((self.folder / name).read_bytes()[:4], magic)
        self.succeed("a.flac", "--out", "flac")
        self.assertEqual((self.folder / "flac/a-band.flac").read_bytes()[:4], b"fLaC")

    def test_loud_samples_are_limited_and_told(self):
        write_floats(self.folder / "in.wav", 8000, [tone(1000, 8000, 4000, amplitude=3)])
        result = self.run_program("in.wav", "out.flac")
        self.assertEqual(result.returncode, 0)
        self.assertRegex(result.stderr, r"\Abandpass: note: \d+ samples were too loud[^\n]*\n\Z")

    def test_refuses_what_makes_no_sense(self):
        write_floats(self.folder / "in.wav", 8000, [tone(1000, 8000, 4000)])
        write_floats(self.folder / "nan.wav", 8000, [[0.0] * 100 + [math.nan] + [0.0] * 100])
        write_floats(self.folder / "silent.wav", 8000, [[]])
        (self.folder / "empty.wav").touch()
        (self.folder / "text.wav").write_text("this is no sound\n" * 50)
        (self.folder / "folder").mkdir()
        self.succeed("in.wav", "cut.flac")
        whole = (self.folder / "cut.flac").read_bytes()
        (self.folder / "cut.flac").write_bytes(whole[: len(whole) // 2])
        os.mkfifo(self.folder / "pipe")
        before = self.names()
        for arguments, *words in (
            (["missing.wav"], "missing.wav", "no file"),
            (["new\nline.wav"], "new?line.wav"),
            (["empty.wav"], "empty"),
            (["silent.wav"], "no sound"),
            (["text.wav"], "damaged or no sound file"),
            (["cut.flac"], "damaged"),
            (["nan.wav"], "no number"),
            (["folder"], "folder"),
            (["in.wav", "in.wav"], "destroy the input"),
            (["in.wav", "x.png"], "picture"),
            (["in.wav", "out.txt"], ".txt"),
            (["in.wav", "folder"], "is a folder"),
            (["in.wav", "pipe"], "no ordinary file"),
            (["in.wav", "nowhere/out.wav"], "nowhere"),
            (["in.wav", "--out", "in.wav/sub"], "cannot make the folder"),
            (["in.wav", "out.wav", "--out", "x"], "not both"),
            (["in.wav", "out.wav", "more"], "too many"),
            (["in.wav", ""], "empty"),
            (["in.wav", "--high", "4001"], "4000 Hz"),
            (["--high", "30000"], "speech.wav", "24000 Hz"),
            (["in.wav", "--low", "500", "--high", "500"], "the band is empty"),
            (["in.wav", "--low=-1"], "--low"),
            (["in.wav", "--low", "nan"], "--low"),
            (["in.wav", "--high", "1e999"], "--high"),
            (["in.wav", "--high", "3k"], "'3k'"),
            (["in.wav", "--high"], "needs a value"),
            (["in.wav", "--taps", "0"], "1 to 65535"),
            (["in.wav", "--taps", "65536"], "1 to 65535"),
            (["in.wav", "--taps", "99999999999"], "--taps"),
            (["in.wav", "--taps", "1.5"], "--taps"),
            (["in.wav", "--loud"], "--loud", "--help"),
        ):
            with self.subTest(arguments=arguments):
                self.refuse(self.run_program(*arguments), *words)
                self.assertEqual(self.names(), before)

    def test_a_recording_cut_off_behind_its_header_is_cleaned_as_far_as_it_goes(self):
        write_floats(self.folder / "in.wav", 8000, [tone(1000, 8000, 4000)])
        with open(self.folder / "in.wav", "r+b") as file:
            file.truncate(44 + 4 * 3000)
        result = self.run_program("in.wav", "out.wav")
        self.assertEqual(result.returncode, 0)
        self.assertRegex(result.stderr, r"\Abandpass: note: in.wav is shorter than its header says")
        self.assertEqual(len(read_floats(self.folder / "out.wav")[1][0]), 3000)

    def test_a_full_disk_leaves_nothing_and_harms_nothing(self):
        frames = 100000
        write_floats(self.folder / "in.wav", 8000, [tone(1000, 8000, frames)])
        (self.folder / "out.wav").write_text("the earlier one")
        # Room for nothing, for the beginning of the sound, and for the sound but not for the picture.
        sound = 4 * frames + 1000
        for limit in (0, 200000, sound - 2000):
            with self.subTest(limit=limit):
                result = self.run_program("in.wav", "out.wav",
                                          preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit)))
                self.refuse(result, "out.wav", "File too large")
                self.assertEqual(self.names(), ["in.wav", "out.wav"])
                self.assertEqual((self.folder / "out.wav").read_text(), "the earlier one")
        # On a full file system; the last one has room for the program's own recording, not for what comes of it.
        for size, arguments in (("200k", "in.wav"), (f"{sound // 1024 + 8}k", "in.wav"), ("1200k", "")):
            script = f"mkdir full && mount -t tmpfs -o size={size} none full || exit 77; " \
                     f"\"$0\" {arguments} --out full; status=$?; ls -A full; exit $status"
            result = subprocess.run(["unshare", "-rm", "sh", "-c", script, program()], cwd=self.folder, text=True,
                                    capture_output=True, timeout=300, check=False)
            (self.folder / "full").rmdir()
            if "bandpass" not in result.stderr:
                self.skipTest("no file system of one's own can be mounted here")
            self.refuse(result, "No space left")

    def test_an_unwritable_standard_output_is_told(self):
        for arguments in ([], ["--help"]):
            with open("/dev/full", "w", encoding="utf-8") as full:
                result = subprocess.run([program(), *arguments], cwd=self.folder, stdout=full, stderr=subprocess.PIPE,
                                        text=True, timeout=300, check=False)
            self.assertEqual(result.returncode, 2)
            self.assertIn("standard output", result.stderr)

    def test_an_interrupt_leaves_nothing(self):
        frames = 100_000_000
        write_floats(self.folder / "in.wav", 8000, [[0.0]])
        data = bytearray((self.folder / "in.wav").read_bytes()[:44])
        struct.pack_into("<I", data, 4, 36 + 4 * frames)
        struct.pack_into("<I", data, 40, 4 * frames)
        with open(self.folder / "in.wav", "wb") as file:
            file.write(data)
            file.truncate(44 + 4 * frames)
        with subprocess.Popen([program(), "in.wav", "out.wav"], cwd=self.folder, stderr=subprocess.PIPE, text=True) as process:
            while process.poll() is None and not any(name.startswith(".bandpass") for name in self.names()):
                time.sleep(0.005)
            process.send_signal(signal.SIGINT)
            message = process.communicate(timeout=120)[1]
        self.assertEqual((process.returncode, message), (2, "bandpass: interrupted; nothing was written\n"))
        self.assertEqual(self.names(), ["in.wav"])

    def test_help(self):
        self.assertIn("--taps", self.succeed("--help").stdout)


if __name__ == "__main__":
    main()
