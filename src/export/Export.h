// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "export/AtomicFile.h"
#include "export/BwfWriter.h"
#include "export/ChunkSizes.h"
#include "export/Clipping.h"
#include "export/FrameRange.h"
#include "export/KeptMetadata.h"
#include "export/LoudnessGain.h"
#include "wav/BextChunkInfo.h"
#include "wav/FrameStream.h"
#include "wav/WavArray.h"
#include "wav/WaveFileReader.h"

/// One open recording: whether it is the recorder's, and its export as a decoded Left/Right file.
///
/// A job indexes its file but does not hold it: an export streams from the file. Who must not wait
/// for samples, as the meters, has them read ahead by `reader()->follow`. Nothing throws:
/// operations return false, and `failure` tells why in words for people.
///
/// Threads: one thread at a time, but for the cancel flag, which any thread may set. An export has
/// a stream of its own, so it may run on a worker while others read through copies of `reader`.
class Export {
 public:
  /// Told how much of the work is done, 0 to 1, on the thread that exports.
  using Progress = std::function<void(double done)>;

  /// The name that an export of `source` gets where nobody chose one: "<name>_Decode.WAV".
  static std::filesystem::path nameFor(const std::filesystem::path& source);

  /// The same of an export of a stretch, from mark A to mark B: "<name>_Decode_A-B.WAV".
  static std::filesystem::path nameForSelection(const std::filesystem::path& source);

  /// What becomes of an output that 32-bit sizes do not reach.
  enum class LongOutput { Rf64, Refuse };

  explicit Export(const std::filesystem::path& filePath);
  Export(const Export&) = delete;
  Export& operator=(const Export&) = delete;
  ~Export() { cleanUp(); }

  [[nodiscard]] bool IsFileValid() const { return _isFileValid; }

  /// The extension of the output: dated now, version 1, time reference 0; description, originator,
  /// reference and identifier are the source's, the coding history is the export's own.
  /// What `setKeepMetadata` takes over stands in place of date and time reference, and before that
  /// history.
  [[nodiscard]] BextChunkInfo buildBextInfo() const;

  /// Exports to `path`, which appears whole or not at all. The source itself is never replaced.
  bool export2File(const std::filesystem::path& path, bool Is24bit, bool IsNormalize);
  bool export2File(const std::filesystem::path& path);

  /// Why `export2File` would refuse to write to `path` in this width, without writing anything;
  /// empty where nothing stands against it.
  [[nodiscard]] std::string whyNot(const std::filesystem::path& path, bool is24bit) const;

  /// Decodes, scales and writes every frame. Stops early on a cancel or a failure.
  void editAndWriteSample(BwfWriter& writer);

  /// Lets go of the file; nothing is read ahead any more. Waits for nothing where it was.
  void cleanUp();

  /// True when writing to `path` would replace the source: the same text or the same file.
  [[nodiscard]] bool isSource(const std::filesystem::path& path) const;

  [[nodiscard]] const std::string& failure() const { return _failure; }
  [[nodiscard]] bool wasCancelled() const { return _wasCancelled; }
  /// Bytes that an export in this width comes to; 0 where no file could be read.
  [[nodiscard]] std::uint64_t outputSize(bool is24bit) const;

  /// Whether the export takes over when the source was recorded, how it came to be, and its
  /// markers; see `KeptMetadata`. It does not, unless this says otherwise. Waits for the medium.
  void setKeepMetadata(bool on);
  /// Of these what is too large to be taken over; nothing before `setKeepMetadata`.
  [[nodiscard]] const std::vector<KeptMetadata::LeftOut>& leftOut() const {
    return _kept.leftOut();
  }
  /// Bytes that an export grows by that takes them over. Waits for the medium.
  [[nodiscard]] std::uint64_t keptBytes();

  /// Whether an export in this width is written as RF64.
  [[nodiscard]] bool isRf64(bool is24bit) const { return ChunkSizes::isRf64(outputSize(is24bit)); }
  /// It is written as RF64, unless this says otherwise.
  void setLongOutput(LongOutput longOutput) { _longOutput = longOutput; }

  [[nodiscard]] const std::filesystem::path& getFilePath() const { return _filePath; }
  [[nodiscard]] const std::filesystem::path& getDirPath() const { return _dirPath; }
  void setDirPath(const std::filesystem::path& path) { _dirPath = path; }

  [[nodiscard]] bool normalize() const { return _normalize; }
  /// The gain in dB that the last normalised export came to; none where the take is silent, or
  /// before one.
  [[nodiscard]] const std::optional<double>& normalizeGain() const { return _normalizeGain; }
  /// What the last export cut off, in 24 bits; nothing in floats.
  [[nodiscard]] const Clipping& clipping() const { return _clipping; }
  /// dB, positive is louder; no part in a normalised export.
  [[nodiscard]] double gain() const { return _gain; }
  void setGain(double dB) { _gain = dB; }
  /// A loudness to bring the take to, in place of gain and normalisation; none for no target. A
  /// take without loudness fails.
  void setLoudness(const std::optional<LoudnessTarget>& target) { _loudness = target; }
  /// What the last export towards a loudness did; none before one has.
  [[nodiscard]] const std::optional<LoudnessGain>& loudnessGain() const { return _loudnessGain; }
  /// The analysis of what is exported, where there is one: it spares normalisation and loudness
  /// their first pass. One of another file, another state of it, or other frames is not used.
  void setAnalysis(std::shared_ptr<const TakeAnalysis> analysis) {
    _analysis = std::move(analysis);
  }
  /// Exports these frames alone, as if there were no others; none for all. Cut to the file. The
  /// analysis is then one of these frames, and that of others is let go.
  void setRange(const std::optional<FrameRange>& range);
  /// Stereo width in degrees, 0 to 150; whole degrees count.
  [[nodiscard]] double angle() const { return _angle; }
  void setAngle(double degrees) { _angle = degrees; }
  /// The source's reader; null where the file could not be read.
  [[nodiscard]] WaveFileReader* reader() const { return _reader.get(); }

  void setProgress(Progress progress) { _progress = std::move(progress); }
  /// The export stops soon after `*cancel` becomes true and leaves nothing behind.
  void setCancelFlag(const std::atomic<bool>* cancel) { _cancel = cancel; }
  /// Whether an existing target may be replaced; it may, unless this says otherwise.
  void setExisting(AtomicFile::Existing existing) { _existing = existing; }

  // No program calls what follows; it belongs to the system's interface.

  /// Takes `data` as the source: true for a WAVE file with a bext chunk of at least 602 bytes whose
  /// originator contains "TARN J4". Sets the reader, and its `isBoMSFormat` where the coding
  /// history contains "MSRAW=ON", and what `IsFileValid` says.
  bool checkFileValid(std::span<const std::byte> data);
  /// For the `export2File` that is not told.
  void setNormalize(bool on) { _normalize = on; }

 private:
  struct Attenuation {
    double left;
    double right;
  };
  struct Factors {
    float side;
    float left;  ///< what is divided by
    float right;
  };

  bool recognise();
  [[nodiscard]] std::string whyNotAtAll(const std::filesystem::path& path, bool is24bit) const;
  bool prepare(const std::filesystem::path& path, BwfWriter& writer);
  Attenuation attenuation();
  [[nodiscard]] unsigned passes() const;
  [[nodiscard]] bool isAnalysed() const;
  bool analyse();
  Attenuation towardsLoudness();
  float firstPass();
  [[nodiscard]] FrameRange range() const;
  [[nodiscard]] FrameStream stream() const;
  /// Frames; 0 where none could be read.
  std::uint64_t recode(FrameStream& source, const Factors& factors, BwfWriter& writer);
  std::uint64_t edit(FrameStream& source, const Factors& factors, BwfWriter& writer);
  [[nodiscard]] bool mayGoOn(const FrameStream& source);
  void failToRead(const FrameStream& source);
  [[nodiscard]] float sideGain() const;
  void report(std::uint64_t framesDone);
  bool fail(const std::string& reason);
  [[nodiscard]] bool stopped() const { return _wasCancelled || !_failure.empty(); }

  WavArray _bextChunk;
  std::filesystem::path _dirPath;
  bool _isFileValid = false;
  bool _isExport24Bit = false;
  bool _normalize = false;
  double _gain = 0;
  double _angle = 0;
  std::filesystem::path _filePath;
  std::unique_ptr<WaveFileReader> _reader;
  std::optional<FrameRange> _range;
  std::optional<LoudnessTarget> _loudness;
  std::optional<LoudnessGain> _loudnessGain;
  std::optional<double> _normalizeGain;
  Clipping _clipping;
  std::shared_ptr<const TakeAnalysis> _analysis;

  Progress _progress;
  const std::atomic<bool>* _cancel = nullptr;
  AtomicFile::Existing _existing = AtomicFile::Existing::Replace;
  bool _keepsMetadata = false;
  KeptMetadata _kept;
  LongOutput _longOutput = LongOutput::Rf64;
  std::uint64_t _framesToDo = 0;  ///< of all passes
  std::uint64_t _framesDone = 0;
  bool _wasCancelled = false;
  std::string _failure;
};
