# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What an emulated disk was told, and what it may hold after a power cut.

The log is the one of QEMU's driver "blklogwrites" (the format of Linux's dm-log-writes): a sector
with the head, then for each request a sector that describes it and what was written.
"""

import random
import struct

MAGIC = 0x6A736677736872
FLUSH, FUA, DISCARD = 1, 2, 4


class Write:
    """Bytes that the disk was given; no bytes are a flush: all before it are kept."""

    def __init__(self, position, data, is_kept=False):
        self.position = position
        self.data = data
        self.is_kept = is_kept


def read_log(path):
    """The requests of a log, also of one whose writer was killed: its head is old then."""
    with open(path, "rb") as file:
        log = file.read()
    magic, _, _, sector = struct.unpack_from("<QQQI", log)
    if magic != MAGIC:
        raise ValueError("no log of writes")
    requests = []
    at = sector
    while at + sector <= len(log):
        first, count, flags, size = struct.unpack_from("<QQQQ", log, at)
        at += sector
        if (first, count, flags, size) == (0, 0, 0, 0):
            break  # never written
        if flags & FLUSH:
            requests.append(Write(0, b""))
        if flags & DISCARD:
            size = 0
        data = log[at:at + count * sector] if size or not flags else b""
        if len(data) < size:
            break  # the end of a kill
        if data:
            requests.append(Write(first * sector, data, bool(flags & FUA)))
        at += len(data)
    return requests


class Disk:
    """A disk on the way through its log. What it was given since the last flush may get lost."""

    def __init__(self, content, sector):
        self._sector = sector
        self._kept = bytearray(content)
        self._loose = []

    def take(self, request):
        if not request.data:
            for write in self._loose:
                self._put(self._kept, write, 0, len(write.data))
            self._loose = []
        elif request.is_kept:
            self._put(self._kept, request, 0, len(request.data))
        else:
            self._loose.append(request)

    @staticmethod
    def _put(image, write, begin, end):
        image[write.position + begin:write.position + end] = write.data[begin:end]

    def cut(self, chance):
        """What it may hold now: of the loose writes all, none, some or parts."""
        image = bytearray(self._kept)
        share = chance.choice((0, 0.1, 0.5, 0.9, 1))
        is_torn = chance.random() < 0.5
        for write in self._loose:
            if is_torn:
                self._tear(image, write, chance, share)
            elif chance.random() < share:
                self._put(image, write, 0, len(write.data))
        return image

    def _tear(self, image, write, chance, share):
        """Sectors are whole: that is what a disk promises."""
        begin = 0
        while begin < len(write.data):
            end = begin + self._sector - (write.position + begin) % self._sector
            end = min(end, len(write.data))
            if chance.random() < share:
                self._put(image, write, begin, end)
            begin = end


def cuts(disk, requests, first, last, count, seed):
    """`count` times a number of requests, `first` to `last`, and what the disk may hold when it has
    just been told them."""
    chance = random.Random(seed)
    places = sorted(chance.randint(first, last) for _ in range(count))
    taken = 0
    for place in places:
        while taken < place:
            disk.take(requests[taken])
            taken += 1
        yield place, disk.cut(chance)
