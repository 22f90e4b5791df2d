# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Reads the files in the root folder of a FAT32 or exFAT image, trusting nothing but the image."""

import struct

ENTRY = 32


class Chains:
    """Clusters, and the table that chains them."""

    def __init__(self, image, table, heap, cluster, end):
        self._image = image
        self._table = table
        self._heap = heap
        self._cluster = cluster
        self._end = end

    def read(self, first, size=None, is_contiguous=False):
        """What the chain holds, or `size` bytes of it: less where it ends before."""
        data = bytearray()
        seen = set()
        while 2 <= first < self._end and first not in seen and (size is None or len(data) < size):
            seen.add(first)
            begin = self._heap + (first - 2) * self._cluster
            data += self._image[begin:begin + self._cluster]
            if is_contiguous:
                first += 1
            else:
                first = struct.unpack_from("<I", self._image, self._table + first * 4)[0]
                first &= 0x0FFFFFFF if self._end < 0x0FFFFFF0 else 0xFFFFFFFF
        return bytes(data if size is None else data[:size])


def entries(folder):
    for at in range(0, len(folder), ENTRY):
        if folder[at] == 0:
            return
        yield folder[at:at + ENTRY]


def fat32_files(image):
    """(name, content) of each file."""
    sector, per_cluster, reserved, tables = struct.unpack_from("<HBHB", image, 11)
    table_sectors, = struct.unpack_from("<I", image, 36)
    root, = struct.unpack_from("<I", image, 44)
    heap = (reserved + tables * table_sectors) * sector
    cluster = sector * per_cluster
    chains = Chains(image, reserved * sector, heap, cluster, 2 + (len(image) - heap) // cluster)
    files = []
    long_name = b""
    for entry in entries(chains.read(root)):
        attributes = entry[11]
        if entry[0] == 0xE5:
            long_name = b""
        elif attributes == 0x0F:
            long_name = entry[1:11] + entry[14:26] + entry[28:32] + long_name
        else:
            if not attributes & 0x18:
                high, low = struct.unpack_from("<H", entry, 20) + struct.unpack_from("<H", entry, 26)
                size, = struct.unpack_from("<I", entry, 28)
                files.append((fat_name(entry, long_name), chains.read(high << 16 | low, size)))
            long_name = b""
    return files


def fat_name(entry, long_name):
    if long_name:
        return long_name.decode("utf-16-le").split("\0")[0]
    name, ending = entry[:8].decode("latin-1").strip(), entry[8:11].decode("latin-1").strip()
    return f"{name}.{ending}" if ending else name


def exfat_files(image):
    """(name, content) of each file."""
    table, _, heap, count, root = struct.unpack_from("<IIIII", image, 80)
    sector = 1 << image[108]
    chains = Chains(image, table * sector, heap * sector, sector << image[109], 2 + count)
    files = []
    folder = list(entries(chains.read(root)))
    for i, entry in enumerate(folder):
        if entry[0] != 0x85 or struct.unpack_from("<H", entry, 4)[0] & 0x10:
            continue
        rest = folder[i + 1:i + 1 + entry[1]]
        streams = [other for other in rest if other[0] == 0xC0]
        name = b"".join(other[2:] for other in rest if other[0] == 0xC1).decode("utf-16-le")
        for stream in streams[:1]:
            size, = struct.unpack_from("<Q", stream, 24)
            first, = struct.unpack_from("<I", stream, 20)
            files.append((name[:stream[3]], chains.read(first, size, bool(stream[1] & 2))))
    return files
