# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Exports of the demo recording against values computed anew, in exact single precision."""

import os
import unittest

from mixdeck import Case, decoded, samples_of, single, stored24, unpack24, unpack_floats


class DemoGoldenTest(Case):
    """Every 97th frame of the recording."""

    def test_demo_exports(self):
        self.expect(0, "demo", "--output-dir", ".")
        values = unpack24(self.read("R0001.WAV")[748:])
        picked = range(0, 960000, 97)
        source = [values[2 * i + channel] / 8388608 for i in picked for channel in (0, 1)]
        for angle, gain in ((120, 0.0), (0, -6.0), (45, 4.5), (150, 12.0)):
            self.expect(0, "export", "--force", "--angle", angle, f"--gain={gain}", "R0001.WAV")
            ours = unpack24(samples_of(self.path("R0001_Decode.WAV")))
            self.assertEqual([ours[2 * i + channel] for i in picked for channel in (0, 1)],
                             [stored24(sample) for sample in decoded(source, angle, gain)])

    def test_normalized_demo_reaches_full_scale(self):
        self.expect(0, "demo", "--output-dir", ".")
        self.expect(0, "export", "--normalize", "--format", "float32", "R0002.WAV")
        loudest = max(map(abs, unpack_floats(samples_of(self.path("R0002_Decode.WAV")))))
        self.assertAlmostEqual(loudest, 1.0, delta=2e-7)
        self.assertEqual(single(loudest), loudest)
        self.assertTrue(os.path.exists(self.path("R0002.WAV")))


if __name__ == "__main__":
    unittest.main()
