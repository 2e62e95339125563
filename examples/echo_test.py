#!/usr/bin/env python3
"""Runs the echo program as its users do. usage: echo_test.py PROGRAM [unittest argument]..."""
import math
import random

from support.program_test import ProgramTest, main, read_floats, read_picture, tone, write_floats

RATE = 8000


def noise(seconds, level, seed):
    numbers = random.Random(seed)
    return [numbers.gauss(0, level) for _ in range(int(seconds * RATE))]


def through(room, samples):
    """Samples behind a room of a few reflections, {delay: strength}."""
    return [sum(strength * samples[n - delay] for delay, strength in room.items() if n >= delay)
            for n in range(len(samples))]


def level(samples):
    return 10 * math.log10(sum(sample * sample for sample in samples) / len(samples) + 1e-20)


class Echo(ProgramTest):
    room = {800: 0.5, 833: -0.3, 1000: 0.2, 1200: 0.1}  # from 100 ms on

    def clear(self, played, heard, *options):
        write_floats(self.folder / "played.wav", RATE, [played])
        write_floats(self.folder / "heard.wav", RATE, [heard])
        result = self.succeed("played.wav", "heard.wav", "out.wav", *options)
        rate, (output,) = read_floats(self.folder / "out.wav")
        self.assertEqual((rate, len(output)), (RATE, len(heard)))
        return result, output

    def test_finds_the_delay_and_removes_the_echo(self):
        played = noise(4, 0.1, 1)
        heard = through(self.room, played)
        result, output = self.clear(played, heard)
        self.assertEqual(self.report(result, "Delay"), ["100.0 ms"])
        self.assertLess(level(output[-RATE:]), level(heard[-RATE:]) - 40)

    def test_keeps_the_voice_that_is_wanted(self):
        played = noise(6, 0.1, 1)
        voice = [0.0] * (4 * RATE) + tone(700, RATE, 2 * RATE, 0.1)
        _, output = self.clear(played, [a + b for a, b in zip(through(self.room, played), voice)])
        rest = [a - b for a, b in zip(output, voice)]
        self.assertLess(level(rest[3 * RATE:4 * RATE]), -50)
        self.assertLess(level(rest[4 * RATE:]), level(voice[4 * RATE:]) - 12)

    def test_learns_anew_when_the_room_changes(self):
        played = noise(8, 0.1, 1)
        heard = through(self.room, played)[:3 * RATE] + through({820: -0.4, 900: 0.3}, played)[3 * RATE:]
        _, output = self.clear(played, heard)
        self.assertLess(level(output[-RATE:]), level(heard[-RATE:]) - 20)

    def test_leaves_alone_what_is_no_echo(self):
        voice = tone(500, RATE, 2 * RATE, 0.2)
        _, output = self.clear([0.0] * len(voice), voice)
        self.assertEqual(list(output), [value for value in read_floats(self.folder / "heard.wav")[1][0]])

    def test_makes_its_own_recordings(self):
        result = self.succeed()
        self.assertEqual(self.names(), ["demo", "demo/loudspeaker.wav", "demo/microphone-clear.png",
                                        "demo/microphone-clear.wav", "demo/microphone.wav"])
        self.assertEqual(self.report(result, "Delay"), ["45.0 ms"])
        self.assertGreater(float(self.report(result, "Echo")[0].split("best by ")[1].split()[0]), 20)
        rows = read_picture(self.folder / "demo/microphone-clear.png")
        self.assertGreater(sum(b - r > 120 and g < 150 for row in rows for r, g, b in row), 2000)

    def test_refuses_what_makes_no_sense(self):
        write_floats(self.folder / "a.wav", RATE, [noise(2, 0.1, 1)])
        write_floats(self.folder / "b.wav", 16000, [noise(2, 0.1, 1)])
        write_floats(self.folder / "short.wav", RATE, [[0.1] * 100])
        write_floats(self.folder / "slow.wav", 500, [[0.1] * 2000])
        self.refuse_all((
            (["slow.wav", "slow.wav"], "1000 or more"),
            (["a.wav"], "one recording"), (["a.wav", "b.wav"], "8000", "16000"), (["a.wav", "short.wav"], "second"),
            (["a.wav", "a.wav", "a.wav"], "destroy"), (["a.wav", "b.wav", "b.wav"], "destroy"),
            (["a.wav", "missing.wav"], "no file"), (["a.wav", "a.wav", "--step", "2"], "--step"),
            (["a.wav", "a.wav", "--tail", "0"], "--tail"), (["a.wav", "a.wav", "--delay", "x"], "'x'"),
            (["a.wav", "a.wav", "o.wav", "p.wav"], "too many")))
        self.assertIn("--tail", self.succeed("--help").stdout)


if __name__ == "__main__":
    main()
