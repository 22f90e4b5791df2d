// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string>
#include <string_view>

/// One entry of the folder that is shown. Plain data.
struct WavItem {
  bool isFolder = false;
  QString fileName;       ///< as people read it
  std::string_view icon;  ///< name of its artwork
  std::string fullPath;   ///< absolute, in the file system's own bytes

  friend bool operator==(const WavItem&, const WavItem&) = default;
};
