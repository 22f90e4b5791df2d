# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What tests know of every export of the program's, whoever made it and when."""

import re

DATE = slice(376, 394)  # of origination, in the broadcast extension
LEFT = re.compile(r"\.mixdeck-[0-9a-f]{16}\.part")  # what a kill may leave beside it


def undated(content):
    """As many bytes, without when it was made."""
    return content[:DATE.start] + bytes(DATE.stop - DATE.start) + content[DATE.stop:]
