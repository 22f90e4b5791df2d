// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

/// A file system that counts no links to its files, as some that programs serve: whoever looks at
/// an open file finds none. It stands before the C library. Any thread.
class UncountedLinks {
 public:
  UncountedLinks();
  UncountedLinks(const UncountedLinks&) = delete;
  UncountedLinks& operator=(const UncountedLinks&) = delete;
  ~UncountedLinks();
};
