# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""A medium that stands still whenever a test wants: a file system of the kernel's that a process here
answers for (FUSE), over a folder of the disk.

As a program it is that process: `stalling.py FOLDER MOUNT` mounts, says "mounted", and takes the lines
"stall", "go" and nothing more (the end). `stalling.py --try` tells by its status whether it can. It needs /dev/fuse and the right to mount, be it in a
namespace of its own.
"""

import ctypes
import errno
import os
import select
import stat
import struct
import subprocess
import sys
import tempfile
import threading

REQUEST = struct.Struct("<IIQQIIII")
ANSWER = struct.Struct("<IiQ")
ATTRIBUTES = struct.Struct("<6Q10I")
ENTRY = struct.Struct("<4Q2I")
INIT = struct.Struct("<IIIIHHIIHHI28x")
SPACE = struct.Struct("<5Q4I24x")
ROOT = 1
LARGEST_WRITE = 1 << 17
NO_ANSWER = (2, 36, 42)  # forget, interrupt, forget many
SECOND = 1_000_000_000


class FileSystem:
    """Answers the kernel's requests about the files of a folder: bytes, or an OSError."""

    def __init__(self, folder):
        self.paths = {ROOT: os.fsencode(folder)}
        self.nodes = {self.paths[ROOT]: ROOT}
        self.calls = {1: self.lookup, 3: self.attributes, 4: self.set_attributes, 9: self.make_folder,
                      10: self.unlink, 11: self.rmdir, 12: self.rename, 14: self.open, 15: self.read,
                      16: self.write, 17: self.space, 18: self.release, 20: self.sync, 25: self.nothing,
                      26: self.begin, 27: self.open_folder, 28: self.read_folder, 29: self.nothing,
                      30: self.nothing, 34: self.nothing, 35: self.create, 38: self.nothing,
                      45: self.rename_with_flags}

    def answer(self, kind, node, body):
        if kind not in self.calls:
            raise OSError(errno.ENOSYS, "not of this file system")
        return self.calls[kind](node, body)

    def _at(self, node, name):
        return self.paths[node] + b"/" + name.split(b"\0")[0]

    def _node(self, path):
        node = self.nodes.setdefault(path, len(self.paths) + 1)
        self.paths[node] = path
        return node

    def _attributes(self, path):
        at = os.lstat(path)
        times = (at.st_atime_ns, at.st_mtime_ns, at.st_ctime_ns)
        return ATTRIBUTES.pack(at.st_ino, at.st_size, at.st_blocks, *(time // SECOND for time in times),
                               *(time % SECOND for time in times), at.st_mode, at.st_nlink, at.st_uid,
                               at.st_gid, 0, 4096, 0)

    def _entry(self, path):
        return ENTRY.pack(self._node(path), 0, 0, 0, 0, 0) + self._attributes(path)

    def begin(self, _node, body):
        major, minor, ahead, _flags = struct.unpack_from("<4I", body)
        return INIT.pack(major, min(minor, 31), ahead, 0, 12, 9, LARGEST_WRITE, 1, 0, 0, 0)

    def nothing(self, _node, _body):
        return b""

    def lookup(self, node, body):
        return self._entry(self._at(node, body))

    def attributes(self, node, _body):
        return struct.pack("<QII", 0, 0, 0) + self._attributes(self.paths[node])

    def set_attributes(self, node, body):
        valid, _, _file, size = struct.unpack_from("<IIQQ", body)
        if valid & 1:
            os.chmod(self.paths[node], stat.S_IMODE(struct.unpack_from("<I", body, 68)[0]))
        if valid & 8:
            os.truncate(self.paths[node], size)
        return self.attributes(node, body)

    def make_folder(self, node, body):
        path = self._at(node, body[8:])
        os.mkdir(path, struct.unpack_from("<I", body)[0])
        return self._entry(path)

    def unlink(self, node, body):
        os.unlink(self._at(node, body))
        return b""

    def rmdir(self, node, body):
        os.rmdir(self._at(node, body))
        return b""

    def _rename(self, node, folder, names):
        old, new = names.split(b"\0")[:2]
        before, after = self._at(node, old), self._at(folder, new)
        os.rename(before, after)
        moved = self.nodes.pop(before, None)
        if moved is not None:
            self.nodes[after] = moved
            self.paths[moved] = after
        return b""

    def rename(self, node, body):
        return self._rename(node, struct.unpack_from("<Q", body)[0], body[8:])

    def rename_with_flags(self, node, body):
        folder, flags = struct.unpack_from("<QI", body)
        if flags & 1 and os.path.lexists(self._at(folder, body[16:].split(b"\0")[1])):
            raise FileExistsError(errno.EEXIST, "it is there")
        return self._rename(node, folder, body[16:])

    def open(self, node, body):
        flags = struct.unpack_from("<I", body)[0] & (os.O_ACCMODE | os.O_TRUNC)
        return struct.pack("<QII", os.open(self.paths[node], flags), 0, 0)

    def create(self, node, body):
        flags, mode = struct.unpack_from("<II", body)
        path = self._at(node, body[16:])
        file = os.open(path, flags & (os.O_ACCMODE | os.O_EXCL) | os.O_CREAT, mode)
        return self._entry(path) + struct.pack("<QII", file, 0, 0)

    def read(self, _node, body):
        file, at, size = struct.unpack_from("<QQI", body)
        return os.pread(file, size, at)

    def write(self, _node, body):
        file, at, size = struct.unpack_from("<QQI", body)
        return struct.pack("<II", os.pwrite(file, body[40:40 + size], at), 0)

    def release(self, _node, body):
        os.close(struct.unpack_from("<Q", body)[0])
        return b""

    def sync(self, _node, body):
        os.fsync(struct.unpack_from("<Q", body)[0])
        return b""

    def space(self, node, _body):
        at = os.statvfs(self.paths[node])
        return SPACE.pack(at.f_blocks, at.f_bfree, at.f_bavail, at.f_files, at.f_ffree, at.f_bsize,
                          at.f_namemax, at.f_frsize, 0)

    def open_folder(self, _node, _body):
        return struct.pack("<QII", 0, 0, 0)

    def read_folder(self, node, body):
        _file, begin, room = struct.unpack_from("<QQI", body)
        names = [b".", b".."] + sorted(os.listdir(self.paths[node]))
        listing = b""
        for number, name in enumerate(names[begin:], begin + 1):
            mode = os.lstat(self._at(node, name)).st_mode
            entry = struct.pack("<QQII", number, number, len(name), mode >> 12) + name
            entry += bytes(-len(entry) % 8)
            if len(listing) + len(entry) > room:
                break
            listing += entry
        return listing


class Server:
    """Between the kernel and a file system; while it is stalled, it answers nothing."""

    def __init__(self, folder, place):
        self.files = FileSystem(folder)
        self.device = os.open("/dev/fuse", os.O_RDWR)
        self.held = []
        self.is_stalled = False
        options = f"fd={self.device},rootmode=40000,user_id={os.getuid()},group_id={os.getgid()}"
        library = ctypes.CDLL(None, use_errno=True)
        if library.mount(b"stalling", os.fsencode(place), b"fuse", 0, options.encode()) != 0:
            raise OSError(ctypes.get_errno(), os.strerror(ctypes.get_errno()))

    def serve(self, orders):
        while True:
            ready = select.select([self.device, orders], [], [])[0]
            if orders in ready and not self.obey(orders.readline().strip()):
                return
            if self.device in ready:
                self.take(os.read(self.device, LARGEST_WRITE + 4096))

    def obey(self, order):
        if order in ("stall", "go"):
            self.is_stalled = order == "stall"
            held, self.held = self.held, []
            for request in held:
                self.take(request)
            print("held" if order == "stall" else "gone on", flush=True)
        return order != ""

    def take(self, request):
        _, kind, number, node, *_ = REQUEST.unpack_from(request)
        if self.is_stalled:
            self.held.append(request)
            print("held one", file=sys.stderr, flush=True)
        elif kind not in NO_ANSWER:
            self.reply(number, kind, node, request[REQUEST.size:])

    def reply(self, number, kind, node, body):
        try:
            error, content = 0, self.files.answer(kind, node, body)
        except OSError as failure:
            error, content = -failure.errno, b""
        try:
            os.write(self.device, ANSWER.pack(ANSWER.size + len(content), error, number) + content)
        except FileNotFoundError:
            pass  # who asked has gone


class StallingMedium:
    """`folder` as it is seen at `place`, an empty folder; to be used in a `with`."""

    def __init__(self, folder, place):
        self.place = place
        self.held = 0  # requests that stood still
        self.server = subprocess.Popen([sys.executable, "-B", __file__, folder, place],
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                       stderr=subprocess.PIPE, text=True)

    def __enter__(self):
        if self.server.stdout.readline() != "mounted\n":
            raise OSError(self.server.stderr.read())
        threading.Thread(target=self._count, daemon=True).start()
        return self

    def __exit__(self, *_):
        self.server.kill()  # what was held fails then
        self.server.wait()
        subprocess.run(["umount", "--lazy", self.place], check=True)

    def _count(self):
        for _ in self.server.stderr:
            self.held += 1

    def _order(self, order):
        self.server.stdin.write(order + "\n")
        self.server.stdin.flush()
        self.server.stdout.readline()

    def stall(self):
        """From now on nothing is answered."""
        self._order("stall")

    def go_on(self):
        """What was held is answered, and what follows."""
        self._order("go")


def try_it():
    """Fails where such a file system cannot be had."""
    with tempfile.TemporaryDirectory() as place:
        Server(place, place)
        subprocess.run(["umount", "--lazy", place], check=True)


if __name__ == "__main__":
    if sys.argv[1:] == ["--try"]:
        sys.exit(try_it())
    server = Server(*sys.argv[1:])
    print("mounted", flush=True)
    server.serve(sys.stdin)
