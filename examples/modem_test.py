#!/usr/bin/env python3
"""Runs the modem program as its users do. usage: modem_test.py PROGRAM [unittest argument]..."""
import math
import os
import re
import signal
import subprocess
import time

from support.program_test import ProgramTest, main, program, read_picture


class Modem(ProgramTest):
    def rates(self, result):
        """{(states, dB): (measured, theory, without a code)}"""
        found = {}
        for line in self.report(result, "Rate"):
            numbers = re.fullmatch(r"(\d+) states at ([\d.]+) dB: measured (\S+), theory (\S+), no code (\S+)", line)
            found[int(numbers[1]), float(numbers[2])] = tuple(float(numbers[n]) for n in (3, 4, 5))
        return found

    def test_error_rates_are_those_of_theory(self):
        rates = self.rates(self.succeed("--symbols", "40000"))
        self.assertEqual({states for states, _ in rates}, {16, 32, 64})
        # Where errors are seen often enough, and the bound is near: measured lies below it, and not by far.
        for states in (16, 32, 64):
            measured, theory, _ = rates[states, 3.5]
            self.assertLess(measured, theory)
            self.assertGreater(measured, theory / 6)
            self.assertLess(rates[states, 3.75][0], rates[states, 3.0][0] / 4)
        for decibels in (3.0, 3.25):  # more states err less often
            self.assertGreater(rates[16, decibels][0], rates[64, decibels][0] * 1.2)
        self.assertLess(rates[64, 3.5][0], rates[64, 3.5][2] / 10)

    def test_theory_at_low_noise_is_that_of_the_codes_distance(self):
        # The squared distance of 16 states is 4 steps, with 24 neighbours there, all of them parallel paths.
        rates = self.rates(self.succeed("--symbols", "4000"))
        snr = 10 ** 0.525
        deviation = math.sqrt(math.sqrt(2) / (12 * snr))
        nearest = 24 * math.erfc(math.sqrt(4) / (2 * deviation) / math.sqrt(2)) / 2
        _, theory, uncoded = rates[16, 5.25]
        self.assertGreater(theory, nearest)
        self.assertLess(theory, 10 * nearest)
        q = math.erfc(math.sqrt(3 * snr / 2)) / 2
        self.assertAlmostEqual(uncoded, 1 - (1 - 2 * q) ** 4, delta=6e-6) # three digits

    def test_the_same_results_however_many_processors_work(self):
        first = self.succeed("--symbols", "8000")
        allowed = os.sched_getaffinity(0)
        second = self.run_program("--symbols", "8000", preexec_fn=lambda: os.sched_setaffinity(0, {min(allowed)}))
        self.assertEqual(self.report(first, "Rate"), self.report(second, "Rate"))
        self.assertEqual(self.names(), ["demo", "demo/modem.png"])
        rows = read_picture(self.folder / "demo/modem.png")
        self.assertGreater(sum(b - r > 120 and g < 150 for row in rows for r, g, b in row), 500)

    def test_an_interrupt_or_a_missing_gnuplot_leaves_nothing(self):
        with subprocess.Popen([program(), "--symbols", "100000000"], cwd=self.folder, stderr=subprocess.PIPE, text=True) as process:
            while process.poll() is None and not self.names():
                time.sleep(0.005)
            time.sleep(0.2)
            process.send_signal(signal.SIGINT)
            message = process.communicate(timeout=60)[1]
        self.assertEqual((process.returncode, message), (2, "modem: interrupted; nothing was written\n"))
        self.assertEqual(self.names(), [])
        self.refuse(self.run_program("--symbols", "4000", env=os.environ | {"PATH": "/nowhere"}), "gnuplot-nox")
        self.assertEqual(self.names(), [])

    def test_refuses_what_makes_no_sense(self):
        self.refuse_all(((["--symbols", "10"], "4000"), (["--symbols", "many"], "'many'"), (["in.wav"], "too many"),
                         (["--noise"], "--noise")))
        self.assertIn("--symbols", self.succeed("--help").stdout)


if __name__ == "__main__":
    main()
