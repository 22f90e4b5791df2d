# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
#
# usage: exports.py FOLDER COUNT SYSTEM...
"""In the guest: exports that replace a file, again and again, on the disks vda, vdb and so on.

FOLDER has the takes 0.WAV and 1.WAV and the first target, old.WAV. Behind the file system of each
disk marks are written that go into its log: nothing else tells what was done by when. In the end
each target is written over in place, as no program should: so is shown that a cut would be seen.
"""

import mmap
import os
import subprocess
import sys
import threading

CLI = os.path.join(os.environ["MIXDECK_BIN"], "mixdeck-cli")
BLOCK = 4096


def run(*command):
    subprocess.run(command, check=True)


class Target:
    def __init__(self, device, system, folder):
        self._device = device
        self._system = system
        self._folder = folder
        self._mount = f"/run/{system}"
        self._path = f"{self._mount}/x.WAV"

    def mark(self, text):
        """Past the cache, and without a flush: a mark keeps nothing that would be lost."""
        block = mmap.mmap(-1, BLOCK)
        block.write(f"mark {text}".encode())
        file = os.open(self._device, os.O_WRONLY | os.O_DIRECT)
        try:
            os.lseek(file, -BLOCK, os.SEEK_END)
            os.write(file, block)
        finally:
            os.close(file)

    def prepare(self):
        run("modprobe", "-a", self._system, "nls_cp437", "nls_ascii")
        os.mkdir(self._mount)
        run("mount", "-t", self._system, self._device, self._mount)
        run("cp", f"{self._folder}/old.WAV", self._path)
        run("sync", self._path)  # of the file itself: FAT's sync of all sends the disk no flush
        run("sync", self._mount)
        self.mark("end 0")

    def export(self, number):
        self.mark(f"begin {number}")
        run(CLI, "export", "--force", "--angle", str(number), "--output", self._path,
            f"{self._folder}/{number % 2}.WAV")
        self.mark(f"end {number}")
        print(f"{self._system} {number}", flush=True)

    def write_over(self):
        self.mark("begin wrong")
        with open(self._path, "r+b") as file:
            file.write(bytes(os.path.getsize(self._path)))
        self.mark("end wrong")
        run("sync", "-f", self._mount)

    def carry_out(self, count):
        for number in range(1, count + 1):
            self.export(number)
        self.write_over()
        run("umount", self._mount)


def main():
    folder, count, *systems = sys.argv[1:]
    run("modprobe", "virtio_blk")
    # The system writes soon and often, so that more orders of writes are seen.
    for name in ("dirty_writeback_centisecs", "dirty_expire_centisecs"):
        with open(f"/proc/sys/vm/{name}", "w", encoding="ascii") as file:
            file.write("10")
    targets = [Target(f"/dev/vd{chr(ord('a') + i)}", system, folder)
               for i, system in enumerate(systems)]
    for target in targets:
        target.prepare()
    print("ready", flush=True)
    threads = [threading.Thread(target=target.carry_out, args=(int(count),)) for target in targets]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    print("done", flush=True)


main()
