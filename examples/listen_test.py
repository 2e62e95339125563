#!/usr/bin/env python3
"""Runs the listen program as its users do. usage: listen_test.py PROGRAM [unittest argument]..."""
import math
import random

from support.program_test import ProgramTest, main, read_picture, tone, write_floats

ROWS, COLUMNS, KEYS = (697, 770, 852, 941), (1209, 1336, 1477, 1633), "123A456B789C*0#D"


def call(number, rate, on=0.08, off=0.08, noise=0.0, twist=1.0, tuning=1.0):
    """A dialled number: pairs of tones of `on` seconds, the columns' ones `twist` times as strong, over noise."""
    random_numbers = random.Random(1)
    samples = [0.0] * int(0.1 * rate)
    for key in number:
        row, column = divmod(KEYS.index(key), 4)
        low, high = (tone(frequency * tuning, rate, int(on * rate), level)
                     for frequency, level in ((ROWS[row], 0.2), (COLUMNS[column], 0.2 * twist)))
        samples += [a + b for a, b in zip(low, high)] + [0.0] * int(off * rate)
    return [sample + random_numbers.gauss(0, noise) for sample in samples]


class Listen(ProgramTest):
    def heard(self, path):
        return self.report(self.succeed(path), "Number")[0]

    def test_reads_every_key_at_every_rate_and_in_noise(self):
        for rate, more in ((8000, {}), (44100, {"noise": 0.05}), (11025, {"twist": 0.4, "on": 0.05, "off": 0.05}), (8000, {"twist": 2.5, "on": 0.05}),
                           (16000, {"tuning": 1.015}), (8000, {"tuning": 0.985, "on": 0.05})):
            write_floats(self.folder / "in.wav", rate, [call(KEYS, rate, **more)])
            self.assertEqual(self.heard("in.wav"), KEYS, f"{rate} Hz, {more}")

    def test_hears_no_digit_where_there_is_none(self):
        rate = 8000
        noise = random.Random(2)
        for samples in (call("5", rate, on=0.02),                           # too short
                        call("5", rate, twist=0.2),                         # one tone far weaker
                        call("5", rate, tuning=1.035),                      # too far out of tune
                        tone(697, rate, rate, 0.3),                         # one tone only
                        [noise.gauss(0, 0.2) for _ in range(rate)],
                        [0.0] * rate):
            write_floats(self.folder / "in.wav", rate, [samples])
            self.assertEqual(self.heard("in.wav"), "none was dialled")
        write_floats(self.folder / "slow.wav", 50, [[0.1] * 300])
        self.assertEqual(self.heard("slow.wav"), "none was dialled")

    def test_tells_when_digits_sound(self):
        write_floats(self.folder / "in.wav", 8000, [call("77", 8000, on=0.1, off=0.2)])
        for line, begin in zip(self.report(self.succeed("in.wav"), "Digit"), (0.1, 0.4), strict=True):
            key, begins, _, ends, _ = line.split()
            self.assertEqual(key, "7")
            self.assertAlmostEqual(float(begins), begin, delta=0.03)
            self.assertAlmostEqual(float(ends), begin + 0.1, delta=0.03)

    def test_the_picture_is_dark_where_a_tone_is(self):
        rate, frequency = 8000, 3000
        write_floats(self.folder / "in.wav", rate, [tone(frequency, rate, 2 * rate)])
        self.succeed("in.wav")
        rows = read_picture(self.folder / "demo/in-spectrogram.png")
        left, right, top, bottom = 100, 1278, 94, 732
        dark = [y for y in range(top, bottom) if sum(rows[y][(left + right) // 2]) < 250]
        self.assertTrue(dark)
        self.assertAlmostEqual(sum(dark) / len(dark), bottom - (bottom - top) * frequency / (rate / 2), delta=5)
        self.assertLess(len(dark), 40)

    def test_samples_beyond_all_measure_are_drawn(self):
        write_floats(self.folder / "in.wav", 8000, [tone(1000, 8000, 4000, 1e30)])
        self.assertEqual(self.heard("in.wav"), "none was dialled")

    def test_dials_by_itself(self):
        result = self.succeed("--number", "*0A9#")
        self.assertEqual(self.report(result, "Number"), ["*0A9#"])
        self.assertEqual(self.names(), ["demo", "demo/call-spectrogram.png", "demo/call.wav"])
        self.assertEqual(self.heard("demo/call.wav"), "*0A9#")
        self.assertIn("--number", self.succeed("--help").stdout)

    def test_refuses_what_makes_no_sense(self):
        write_floats(self.folder / "in.wav", 8000, [tone(1000, 8000, 4000)])
        write_floats(self.folder / "short.wav", 8000, [[0.0] * 50])
        write_floats(self.folder / "nan.wav", 8000, [[0.0] * 1000 + [math.nan]])
        self.refuse_all((
            (["missing.wav"], "missing.wav", "no file"), (["short.wav"], "too short"), (["nan.wav"], "no number"),
            (["in.wav", "x.wav"], "too many"), (["in.wav", "--high", "4001"], "4000"), (["--number", "12x"], "'12x'"),
            (["--number="], "--number"), (["in.wav", "--high", "0"], "--high"), (["--loud"], "--loud")))


if __name__ == "__main__":
    main()
