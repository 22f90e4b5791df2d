// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "analysis/TakeAnalysis.h"
#include "analysis/TakeLayout.h"
#include "wav/WaveFileReader.h"

/// Analyses of takes, kept in a folder of the user's: a file an analysis, the one that was used
/// longest ago goes where there are too many. Several programs may use the folder at once. What is
/// damaged is removed and counts as not kept.
///
/// Nothing throws but where there is no memory. Any thread; every operation waits for the medium.
class AnalysisCache {
 public:
  /// Some 34 hours of takes at 48 kHz.
  static constexpr std::uint64_t kMostBytes = 256U << 20;

  /// What an analysis is of.
  struct Key {
    std::string take;   ///< its `TakeIdentity`; empty: nothing is kept of it
    FileState file;     ///< whose time of change counts
    TakeLayout layout;  ///< as the channels are analysed

    static Key of(const WaveFileReader& reader);
  };

  explicit AnalysisCache(std::filesystem::path folder = defaultFolder(),
                         std::uint64_t mostBytes = kMostBytes);

  /// "mixdeck/analyses" under $XDG_CACHE_HOME, else under ~/.cache.
  static std::filesystem::path defaultFolder();

  /// The whole analysis; null where none is kept. Of a take that was changed since, none is: a
  /// change in the middle of its sound has to be heard of.
  [[nodiscard]] std::shared_ptr<const TakeAnalysis> find(const Key& key) const;
  /// Keeps a complete analysis, in place of any of the same take. False where it was not kept,
  /// which most need not know.
  bool keep(const Key& key, const TakeAnalysis& analysis) const;  // NOLINT(modernize-use-nodiscard)

 private:
  [[nodiscard]] std::filesystem::path fileOf(const Key& key) const;
  void makeRoom() const;

  std::filesystem::path _folder;
  std::uint64_t _mostBytes;
};
