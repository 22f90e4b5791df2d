#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The include check finds what it is there to find."""

import unittest

from check_includes import faults


class IncludeCheck(unittest.TestCase):
    def count(self, folder, line):
        return len(list(faults(folder, line)))

    def test_with_the_arrows(self):
        self.assertEqual(0, self.count("export", '#include "wav/WaveFileReader.h"'))
        self.assertEqual(0, self.count("wav", '#include "wav/WavArray.h"'))
        self.assertEqual(0, self.count("dsp", "#include <vector>"))

    def test_against_the_arrows(self):
        self.assertEqual(1, self.count("wav", '#include "export/Export.h"'))
        self.assertEqual(1, self.count("dsp", '  #  include "wav/WavArray.h"'))

    def test_qt_where_it_does_not_belong(self):
        self.assertEqual(1, self.count("dsp", "#include <QString>"))
        self.assertEqual(1, self.count("export", "#include <QtCore/QFile>"))
        self.assertEqual(0, self.count("playback", "#include <QTimer>"))

    def test_header_without_its_folder(self):
        self.assertEqual(1, self.count("wav", '#include "WavArray.h"'))


if __name__ == "__main__":
    unittest.main()
