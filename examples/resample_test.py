#!/usr/bin/env python3
"""Runs the resample program as its users do. usage: resample_test.py PROGRAM [unittest argument]..."""
from support.program_test import ProgramTest, main, read_floats, read_picture, tone, write_floats


class Resample(ProgramTest):
    def test_keeps_tones_in_their_place_at_every_ratio(self):
        for before, after, frequency in ((44100, 48000, 997), (48000, 44100, 15000), (8000, 48000, 3000),
                                         (48000, 8000, 3000)):
            frames = before // 4
            write_floats(self.folder / "in.wav", before, [tone(frequency, before, frames), [0.0] * frames])
            self.succeed("in.wav", "out.wav", "--rate", str(after), "--tones=4")
            rate, (kept, silent) = read_floats(self.folder / "out.wav")
            self.assertEqual((rate, len(kept)), (after, -(-frames * after // before)))
            expected = tone(frequency, after, len(kept))
            settled = slice(after // 20, len(kept) - after // 20)
            # 150 dB below the tone, and the rounding of the samples on both sides.
            self.assertLess(max(abs(a - b) for a, b in zip(kept[settled], expected[settled])), 2e-7)
            self.assertEqual(set(silent), {0.0})

    def test_removes_what_would_come_back_mirrored(self):
        write_floats(self.folder / "in.wav", 48000, [tone(4100, 48000, 24000)])
        self.succeed("in.wav", "out.wav", "--rate=8000", "--tones=4")
        _, (output,) = read_floats(self.folder / "out.wav")
        self.assertLess(max(map(abs, output[400:-400])), 1e-7)

    def test_says_its_noise_floor_beside_the_others(self):
        result = self.succeed()
        noise = {line.split(": ")[1].split(",")[0]: float(line.split(" dB")[0]) for line in self.report(result, "Noise")}
        self.assertEqual(set(noise), {"orbs", "soxr", "libsamplerate"})
        self.assertLess(noise["orbs"], -148)
        self.assertLess(noise["orbs"], noise["libsamplerate"])
        self.assertTrue(all(-160 < floor < -100 for floor in noise.values()), noise)
        self.assertEqual(self.names(), ["demo", "demo/speech-resampled.png", "demo/speech-resampled.wav", "demo/speech.wav"])
        rows = read_picture(self.folder / "demo/speech-resampled.png")
        blue = sum(b - r > 120 and g < 150 for row in rows for r, g, b in row)
        self.assertGreater(blue, 2000)

    def test_refuses_what_makes_no_sense(self):
        write_floats(self.folder / "in.wav", 8000, [tone(1000, 8000, 4000)])
        write_floats(self.folder / "odd.wav", 44101, [tone(1000, 44101, 4000)])
        write_floats(self.folder / "slow.wav", 500, [[0.1] * 2000])
        self.refuse_all((
            (["slow.wav"], "500 samples"),
            (["in.wav", "--rate", "8000"], "8000", "already"), (["odd.wav", "--rate", "767999"], "taps", "767999"),
            (["in.wav", "--rate", "999"], "1000 to 768000"), (["in.wav", "--rate", "48k"], "'48k'"),
            (["in.wav", "in.wav"], "destroy"), (["missing.wav"], "no file"), (["in.wav", "out.txt"], ".txt")))
        self.assertIn("--rate", self.succeed("--help").stdout)


if __name__ == "__main__":
    main()
