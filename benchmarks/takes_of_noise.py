# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""A card of takes for benchmarks: of noise, so that nothing can be packed."""

import os

import numpy

HISTORY = b"A=PCM,F=48000,W=24,M=stereo,T=J4;VERSION=1.00;MSRAW=ON;"
BYTES_PER_SECOND = 288_000


def make_takes(folder, count, minutes):
    """Takes of the recorder's in a new folder; no two are alike."""
    folder.mkdir()
    noise = numpy.random.default_rng(1)
    minute = noise.integers(-1 << 20, 1 << 20, 48000 * 60 * 2, dtype="<i4").reshape(-1, 1).view("u1")[:, :3].tobytes()
    size = int(minutes * 60 * BYTES_PER_SECOND) // 6 * 6
    for number in range(count):
        date = f"2026-05-{number % 28 + 1:02}10:{number % 60:02}:00".encode()
        bext = bytes(256) + b"TARN J4".ljust(64, b"\0") + date + bytes(602 - 320 - len(date)) + HISTORY
        bext += bytes(len(bext) % 2)  # which the recorder counts
        head = (b"WAVEbext" + len(bext).to_bytes(4, "little") + bext + b"fmt " +
                (16).to_bytes(4, "little") + (1).to_bytes(2, "little") + (2).to_bytes(2, "little") +
                (48000).to_bytes(4, "little") + BYTES_PER_SECOND.to_bytes(4, "little") +
                (6).to_bytes(2, "little") + (24).to_bytes(2, "little") + b"data" + size.to_bytes(4, "little"))
        with open(folder / f"R{number:04}.WAV", "wb") as file:
            file.write(b"RIFF" + (len(head) + size).to_bytes(4, "little") + head)
            shift, left = 6 * number, size
            while left > 0:
                left -= file.write(minute[shift:shift + left])
                shift = 0
    os.sync()


def drop(*folders):
    """Takes the files of folders out of the cache; they have been written."""
    for folder in folders:
        for path in folder.rglob("*"):
            if path.is_file():
                with open(path, "rb") as file:
                    os.fsync(file.fileno())
                    os.posix_fadvise(file.fileno(), 0, 0, os.POSIX_FADV_DONTNEED)
