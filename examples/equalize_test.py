#!/usr/bin/env python3
"""Runs the equalize program as its users do. usage: equalize_test.py PROGRAM [unittest argument]..."""
import cmath
import math

from support.program_test import ProgramTest, main, read_floats, read_picture, tone, write_floats

RATE = 48000


def analog(shape, frequency, decibels, q, at):
    """The response of the analog section that a band stands for, at the frequency that the bilinear transform maps there."""
    g = 10 ** (decibels / 40)
    s = 1j * math.tan(math.pi * at / RATE) / math.tan(math.pi * frequency / RATE)
    if shape == "--peak":
        return (s * s + s * g / q + 1) / (s * s + s / (g * q) + 1)
    if shape == "--high-shelf":
        s = 1 / s
    return g * (s * s + s * math.sqrt(g) / q + g) / (g * s * s + s * math.sqrt(g) / q + 1)


def butterworth(frequency, at):
    s = math.tan(math.pi * frequency / RATE) / (1j * math.tan(math.pi * at / RATE))
    return 1 / math.prod(s - cmath.exp(1j * math.pi * (2 * k + 5) / 8) for k in range(4))


class Equalize(ProgramTest):
    def gain(self, at, *options):
        """What becomes of a tone, after a second to settle."""
        frames = RATE + 4800
        write_floats(self.folder / "in.wav", RATE, [tone(at, RATE, frames, 0.01)])
        self.succeed("in.wav", "out.wav", *options)
        _, (output,) = read_floats(self.folder / "out.wav")
        tail = range(RATE, frames)  # whole periods of multiples of 10 Hz
        product = sum(output[n] * cmath.exp(-2j * math.pi * at * n / RATE) for n in tail)
        return 20 * math.log10(abs(product) * 2 / len(tail) / 0.01)

    def test_bands_are_those_of_their_analog_models(self):
        for shape, frequency, decibels, q in (("--low-shelf", 250, -12, 0.71), ("--peak", 2800, 9, 3.0),
                                              ("--high-shelf", 6000, -6, 0.5), ("--peak", 100, -20, 0.7)):
            for at in (60, 250, 2800, 12000):
                expected = 20 * math.log10(abs(analog(shape, frequency, decibels, q, at)))
                self.assertAlmostEqual(self.gain(at, shape, f"{frequency}:{decibels}:{q}"), expected, delta=0.01,
                                       msg=f"{shape} {frequency}:{decibels}:{q} at {at} Hz")

    def test_bands_add_up_and_come_with_high_pass_and_volume(self):
        expected = 3 + 20 * math.log10(abs(butterworth(120, 200) * analog("--peak", 300, 6, 1, 200) *
                                           analog("--low-shelf", 400, -5, math.sqrt(0.5), 200)))
        self.assertAlmostEqual(self.gain(200, "--peak", "300:6", "--low-shelf=400:-5", "--rumble", "120", "--volume=3"),
                               expected, delta=0.01)

    def test_streams_of_channels_are_independent_and_whole(self):
        left, right = tone(440, RATE, 20000), tone(2000, RATE, 20000)
        options = ("--peak", "1000:6", "--high-shelf", "5000:-3")
        outputs = {}
        for name, channels in (("both", [left, right]), ("left", [left]), ("right", [right])):
            write_floats(self.folder / "in.wav", RATE, channels)
            self.succeed("in.wav", "out.wav", *options)
            outputs[name] = read_floats(self.folder / "out.wav")[1]
        self.assertEqual(outputs["both"], outputs["left"] + outputs["right"])
        self.assertEqual(len(outputs["left"][0]), 20000)

    def test_the_picture_shows_the_response(self):
        self.succeed("--peak", "1000:12:2", "--volume=-12")
        self.assertEqual(self.names(), ["demo", "demo/speech-equalized.png", "demo/speech-equalized.wav", "demo/speech.wav"])
        rows = read_picture(self.folder / "demo/speech-equalized.png")
        left, right = 98, 1365
        red = [(x, y) for y in range(118, 450) for x in range(left + 2, right)
               if rows[y][x][0] > 190 and rows[y][x][1] < 120 and rows[y][x][2] < 60]
        highest = min(y for _, y in red)
        middle = [x for x, y in red if y <= highest + 1]
        self.assertAlmostEqual(sum(middle) / len(middle),
                               left + (right - left) * math.log(1000 / 20) / math.log(24000 / 20), delta=6)

    def test_loud_samples_are_limited_and_told(self):
        write_floats(self.folder / "in.wav", RATE, [tone(1000, RATE, 9000, 0.9)])
        result = self.run_program("in.wav", "out.flac", "--volume", "6")
        self.assertEqual(result.returncode, 0)
        self.assertRegex(result.stderr, r"\Aequalize: note: \d+ samples were too loud")

    def test_by_itself_it_takes_telephone_speech(self):
        write_floats(self.folder / "in.wav", 8000, [tone(1000, 8000, 4000)])
        self.assertNotIn("high shelf", self.report(self.succeed("in.wav"), "Bands")[0])

    def test_refuses_what_makes_no_sense(self):
        write_floats(self.folder / "in.wav", 8000, [tone(1000, 8000, 4000)])
        self.refuse_all((
            (["in.wav", "--peak", "4000:3"], "4000"), (["in.wav", "--peak", "1000"], "HZ:DB"),
            (["in.wav", "--peak", "1000:3:1:2"], "HZ:DB"), (["in.wav", "--peak", "1000:x"], "'x'"),
            (["in.wav", "--low-shelf", "100:50"], "-40 to 40"), (["in.wav", "--high-shelf", "100:5:0"], "Q"),
            (["in.wav", "--peak=-5:3"], "above 0"), (["in.wav", "--rumble", "0"], "--rumble"),
            (["in.wav", "--volume", "loud"], "--volume"), (["in.wav", "in.wav"], "destroy")))
        self.assertIn("--peak HZ:DB", self.succeed("--help").stdout)


if __name__ == "__main__":
    main()
