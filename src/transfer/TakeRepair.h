// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>

#include "export/AtomicFile.h"
#include "transfer/TakeDiagnosis.h"
#include "wav/WaveImage.h"

/// Saves what can be had of a broken take into a new file: the chunks before the sound, every whole
/// frame and the chunks after it byte for byte as they are, under sizes that fit. What passes
/// 32-bit sizes becomes RF64. Nothing throws; one thread at a time.
class TakeRepair {
 public:
  /// Told how much of the work is done, 0 to 1, on the thread that saves.
  using Progress = std::function<void(double done)>;

  /// "<name>_Repaired.WAV", beside the take.
  static std::filesystem::path nameFor(const std::filesystem::path& take);

  /// The diagnosis is that of the image, and says that it is broken.
  TakeRepair(std::shared_ptr<const WaveImage> image, TakeDiagnosis diagnosis);

  void setProgress(Progress progress) { _progress = std::move(progress); }
  /// The work stops soon after `*cancel` becomes true and leaves nothing behind.
  void setCancelFlag(const std::atomic<bool>* cancel) { _cancel = cancel; }

  /// Bytes of the new file.
  [[nodiscard]] std::uint64_t size() const;
  /// Why no file could be saved to `path`, as far as that is known without making one; empty where
  /// nothing stands against it.
  [[nodiscard]] std::string whyNot(const std::filesystem::path& path,
                                   AtomicFile::Existing existing) const;
  /// Saves it whole or not at all, and on the disk. Where no more than the sync of its name fails,
  /// the file is there, but a power cut may take it. Waits for the medium.
  bool save(const std::filesystem::path& path, AtomicFile::Existing existing);

  /// Why the last save failed; empty when it did not, or was cancelled.
  [[nodiscard]] const std::string& failure() const { return _failure; }
  [[nodiscard]] bool wasCancelled() const { return _wasCancelled; }

 private:
  [[nodiscard]] std::vector<std::byte> header();
  void fitSizes(std::vector<std::byte>& head, std::uint64_t fileSize) const;
  [[nodiscard]] bool isLong() const;
  [[nodiscard]] bool hasRoomForSizes() const;
  bool copy(AtomicFile& file, std::uint64_t from, std::uint64_t count);
  bool fail(const std::string& reason);

  std::shared_ptr<const WaveImage> _image;
  TakeDiagnosis _diagnosis;
  std::uint32_t _identifier;      ///< of the file
  std::uint32_t _firstChunk;      ///< identifier and
  std::uint32_t _firstChunkSize;  ///< size field of what may hold the sizes
  Progress _progress;
  const std::atomic<bool>* _cancel = nullptr;
  std::uint64_t _done = 0;  ///< bytes that are written
  bool _wasCancelled = false;
  std::string _failure;
};
