# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""HangingCalls does hang what it says: each call, by the name that a program calls it by."""

import os
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

from hanging import KINDS, HangingMedium

# Kind, name, arguments. `file` is a descriptor, `folder` one of the folder, `room` 4096 bytes.
CALLS = (
    ("open", "open", "path, 0"), ("open", "open64", "path, 0"),
    ("open", "__open_2", "path, 0"), ("open", "__open64_2", "path, 0"),
    ("open", "openat", "folder, b'file', 0"), ("open", "openat64", "folder, b'file', 0"),
    ("open", "__openat_2", "folder, b'file', 0"), ("open", "__openat64_2", "folder, b'file', 0"),
    ("open", "fopen", "path, b'r'"), ("open", "mkdir", "path + b'.d', 0o700"),
    ("read", "read", "file, room, 1"), ("read", "__read_chk", "file, room, 1, 4096"),
    ("read", "pread", "file, room, 1, 0"), ("read", "__pread_chk", "file, room, 1, 0, 4096"),
    ("read", "pread64", "file, room, 1, 0"), ("read", "__pread64_chk", "file, room, 1, 0, 4096"),
    ("write", "write", "file, b'x', 1"), ("write", "pwrite", "file, b'x', 1, 0"),
    ("write", "ftruncate", "file, 1"),
    ("stat", "stat", "path, room"), ("stat", "lstat", "path, room"), ("stat", "fstat", "file, room"),
    ("stat", "fstatat", "folder, b'file', room, 0"),
    ("stat", "statx", "folder, b'file', 0, 0x7ff, room"), ("stat", "access", "path, 0"),
    ("stat", "readlink", "path, room, 64"), ("stat", "__readlink_chk", "path, room, 64, 4096"),
    ("stat", "__readlinkat_chk", "folder, b'file', room, 64, 4096"),
    ("stat", "realpath", "path, room"), ("stat", "__realpath_chk", "path, room, 4096"),
    ("space", "statvfs", "path, room"), ("space", "fstatfs", "file, room"),
    ("list", "opendir", "parent"),
    ("rename", "rename", "path, path"), ("rename", "unlink", "path + b'.none'"),
    ("rename", "rmdir", "path + b'.none'"),
    ("sync", "fsync", "file"), ("sync", "fdatasync", "file"),
    ("lock", "flock", "file, 1"), ("lock", "lockf", "file, 1, 0"),
    ("lock", "fcntl", "file, 6, lock"), ("lock", "fcntl", "file, 7, lock"),
    ("lock", "fcntl64", "file, 38, lock"),
    ("close", "close", "os.dup(file)"), ("close", "fclose", "stream"),
    ("attribute", "futimens", "file, None"), ("attribute", "utimensat", "folder, b'file', None, 0"),
    ("attribute", "utimensat", "file, None, None, 0"),
    ("attribute", "chmod", "path, 0o600"), ("attribute", "fchmod", "file, 0o600"),
    ("attribute", "fchmodat", "folder, b'file', 0o600, 0"), ("attribute", "chown", "path, -1, -1"),
    ("attribute", "fchown", "file, -1, -1"),
    ("attribute", "fchownat", "folder, b'file', -1, -1, 0"),
    ("attribute", "posix_fadvise", "file, 0, 0, 0"),
    ("attribute", "posix_fadvise64", "file, 0, 0, 0"),
)
PROGRAM = """
import ctypes, os, struct, sys
library = ctypes.CDLL(None)
for name in ("fopen", "opendir", "realpath", "__realpath_chk", "fdopen"):
    getattr(library, name).restype = ctypes.c_void_p
path = sys.argv[1].encode()
parent = os.path.dirname(path)
file, folder = os.open(path, os.O_RDWR), os.open(parent, os.O_RDONLY)
room = ctypes.create_string_buffer(4096)
lock = struct.pack("hhqqi", 1, 0, 0, 0, 0)
stream = ctypes.c_void_p(library.fdopen(os.dup(file), b"r"))
print("ready", flush=True)
sys.stdin.readline()
result = library.{name}({arguments})
print("done", flush=True)
"""


class HangingCallsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="mixdeck-hanging-")
        self.addCleanup(folder.cleanup)
        self.place = Path(folder.name).resolve() / "medium"
        self.place.mkdir()
        (self.place / "file").write_bytes(b"some bytes")
        self.medium = HangingMedium(self.place, self.place.parent / "board")

    def call(self, name, arguments):
        program = subprocess.Popen(
            [sys.executable, "-c", PROGRAM.format(name=name, arguments=arguments),
             self.place / "file"], env=os.environ | self.medium.environment,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.addCleanup(program.kill)
        self.assertEqual(program.stdout.readline(), "ready\n")
        return program

    def test_each_call_hangs_under_its_kind_and_goes_on(self):
        for kind, name, arguments in CALLS:
            with self.subTest(name=name, arguments=arguments):
                before = self.medium.calls()
                program = self.call(name, arguments)
                self.medium.hang(kind)
                program.stdin.write("\n")
                program.stdin.flush()
                while self.medium.calls() == before and program.poll() is None:
                    time.sleep(0.001)
                self.assertEqual(self.medium.main_calls()[kind], before[kind] + 1)
                self.medium.hang()
                self.assertEqual(program.communicate()[0], "done\n")

    def test_what_lies_elsewhere_does_not(self):
        (self.place.parent / "medium-2").write_bytes(b"")
        self.medium.hang(*KINDS)
        outside = self.place.parent / "medium-2"
        done = subprocess.run([sys.executable, "-c", "import os, sys; os.stat(sys.argv[1])", outside],
                              env=os.environ | self.medium.environment, check=False)
        self.assertEqual(done.returncode, 0)
        self.assertEqual(sum(self.medium.calls().values()), 0)


if __name__ == "__main__":
    unittest.main()
