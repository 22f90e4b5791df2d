// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The keys that the player knows.
enum class Key { Space, Left, Right, Up, Down, Narrower, Wider, Quit };

/// Makes keys out of what a terminal sends, also where an arrow key's sequence arrives in pieces.
/// One thread.
class KeyReader {
 public:
  /// The keys that end within `bytes`; others are passed over.
  std::vector<Key> read(std::string_view bytes);

 private:
  std::string _pending;  ///< the start of a sequence
};
