# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The file systems of the targets: how they are made, repaired as a system would, and read."""

import os
import subprocess

from table_files import exfat_files, fat32_files

MIB = 1 << 20
ENVIRONMENT = {**os.environ, "PATH": os.environ["PATH"] + ":/usr/sbin:/sbin"}


def call(*command):
    return subprocess.run(command, capture_output=True, env=ENVIRONMENT, check=False)


class FileSystem:
    """Behind it on the disk some room is free, for marks. `sector` is what its disk writes whole."""

    MARKS = MIB

    def __init__(self, name, size, sector, make, repair):
        self.name = name
        self.size = size
        self.sector = sector
        self._make = make
        self._repair = repair

    def make(self, path):
        with open(path, "wb") as file:
            file.truncate(self.size)
        done = call(*self._make, path)
        if done.returncode != 0:
            raise RuntimeError(f"{self._make}: {done.stderr}")
        os.truncate(path, self.size + self.MARKS)

    def files(self, image, path):
        """(name, content) of each file on the disk once it is repaired; fails where it cannot be."""
        with open(path, "wb") as file:
            file.write(image)
        done = call(*self._repair, path)
        if done.returncode not in (0, 1):  # nothing to do, or all repaired
            raise AssertionError(f"no repair: {done.stdout + done.stderr}")
        return self.read(path)

    def read(self, path):
        raise NotImplementedError


class Ext4(FileSystem):
    def __init__(self):
        super().__init__("ext4", 24 * MIB, 4096, ["mkfs.ext4", "-q", "-F"], ["fsck.ext4", "-p"])

    def read(self, path):
        listing = call("debugfs", "-R", "ls -p /", path).stdout.decode()
        files = []
        for line in listing.splitlines():
            parts = line.split("/")
            if len(parts) > 5 and parts[2].startswith("100"):
                content = call("debugfs", "-R", f"cat <{parts[1]}>", path).stdout
                files.append((parts[5], content))
        return files


class Table(FileSystem):
    def __init__(self, *arguments, read):
        super().__init__(*arguments)
        self._read = read

    def read(self, path):
        with open(path, "rb") as file:
            return self._read(file.read())


SYSTEMS = {system.name: system for system in (
    Ext4(),
    Table("vfat", 40 * MIB, 512, ["mkfs.vfat", "-F", "32", "-s", "1"], ["fsck.vfat", "-a"],
          read=fat32_files),
    Table("exfat", 24 * MIB, 512, ["mkfs.exfat"], ["fsck.exfat", "-p"], read=exfat_files),
)}
