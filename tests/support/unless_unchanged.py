# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""usage: unless_unchanged.py STAMP COMMAND...

Runs a test, unless it has passed before with the very same programs, scripts, data, settings and
installed packages: then it exits with 77, which CTest tells as "Skipped". STAMP keeps what it passed
with. What counts as the same: every program that the command or the environment names in the build
folder, the shared libraries of the tests, whatever is under tests/, fuzz/, resources/, packaging/ and cmake/ but for
sources (they are in the programs), the variables of ours and of the libraries, and the list of
packages. A test that looks at anything else is not run through this.
"""

import hashlib
import os
import subprocess
import sys
from pathlib import Path

UNCHANGED = 77
ROOT = Path(__file__).resolve().parents[2]
FOLDERS = ("tests", "fuzz", "resources", "packaging", "cmake", "docs/pictures")
IN_PROGRAMS = {".cpp", ".h", ".txt", ".md", ".pyc"}
VARIABLES = ("ASAN_", "GTEST_", "LANG", "LC_", "MIXDECK_", "QT_", "TSAN_", "TZ", "UBSAN_")
PACKAGES = Path("/var/lib/dpkg/status")


def files_of(value):
    """The files that a word stands for: itself, or the programs of a folder."""
    path = Path(value)
    if not path.is_absolute() or not path.exists():
        return []
    if path.is_file():
        return [path]
    return sorted(file for file in path.iterdir() if file.is_file() and os.access(file, os.X_OK))


def data_files():
    for folder in FOLDERS:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.is_file() and path.suffix not in IN_PROGRAMS:
                yield path


def fingerprint(command, build):
    words = list(command)
    for name, value in sorted(os.environ.items()):
        ours = value.startswith(str(build))
        if ours or name.startswith(VARIABLES):
            words.append(f"{name}={value}")
        if ours:
            words.append(value)
    files = [file for word in words for file in files_of(word)]
    libraries = sorted((build / "tests" / "support").glob("*.so"))
    digest = hashlib.sha256("\0".join(words).encode())
    for path in [*files, *libraries, *data_files(), PACKAGES]:
        digest.update(f"\0{path}\0".encode())
        digest.update(path.read_bytes() if path.exists() else b"")
    return digest.hexdigest()


def main(stamp, *command):
    stamp = Path(stamp)
    known = fingerprint(command, stamp.parents[1])
    if stamp.exists() and stamp.read_text() == known:
        print("unchanged since it passed")
        return UNCHANGED
    stamp.unlink(missing_ok=True)
    result = subprocess.run(command, check=False).returncode
    if result == 0:
        stamp.parent.mkdir(parents=True, exist_ok=True)
        stamp.write_text(known)
    return result if result >= 0 else 128 - result


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
