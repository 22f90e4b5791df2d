// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "playback/AQPlayerState.h"

/// The playing file of the process: the one `AQPlayerState`, which player it belongs to, and what
/// happens between file and queue.
///
/// There is one object of this class, so there is one playing file: a player that is made takes it
/// over from the one before. It outlives every thread and event loop. Owner's thread only.
class PlayingFile {
 public:
  static PlayingFile& get();

  PlayingFile(const PlayingFile&) = delete;
  PlayingFile& operator=(const PlayingFile&) = delete;

  /// Forgets the file, queue and output that were there; the state is new. Returns the number by
  /// which the player that took over is known: an address may soon be another player's.
  std::uint64_t takeOver();
  [[nodiscard]] bool belongsTo(std::uint64_t player) const { return _player == player; }
  /// There is a queue, and it is this player's.
  [[nodiscard]] bool isReadyFor(std::uint64_t player) const {
    return belongsTo(player) && _state.isInitialized;
  }
  /// Disposes of queue and output, closes the file and drops the callbacks.
  void cleanUp();

  AQPlayerState& state() { return _state; }

  /// Opens it, or takes it `opened`: whether that went well, the file's failure tells.
  void AQOpenFile(const std::string& path, std::unique_ptr<AudioFile> opened = nullptr);
  /// A queue made anew on the output, which is made anew too where there is none or it was lost.
  /// None without a back end for file or output.
  void AQSetUpQueue();
  /// Fills all three buffers from the current packet on; those whose frames are late are filled
  /// when these have come. The data callback may end it.
  void prime();
  void setVolume(float volume);
  /// Milliseconds that this many frames last; 0 without an open file.
  [[nodiscard]] double milliseconds(double frames) const;
  /// Of all outputs since the state is new.
  [[nodiscard]] std::uint64_t underruns() const;

  /// Bytes of one buffer: a tenth of a second of packets, between 16 KiB and 64 KiB.
  static std::uint32_t bufferByteSize(std::uint32_t maxPacketSize, double sampleRate,
                                      std::uint32_t framesPerPacket);

 private:
  PlayingFile() = default;

  void AQOutputCallback(AudioQueueBuffer& buffer);
  void AQFileArrived();
  bool process(AudioQueueBuffer& buffer);
  void AQIsRunningListener();
  void AQOutputLost(const std::string& why);
  void failToOpen(const std::string& why);
  [[nodiscard]] AudioOutput::Format outputFormat() const;
  void makeOutput();
  void measureBuffers();
  void tellShortBuffers() const;
  void fill(AudioQueueBuffer& buffer);
  bool advance(AudioQueueBuffer& buffer, std::uint32_t packets);
  AudioFile::Read readPackets(const AudioQueueBuffer& buffer);

  AQPlayerState _state;
  std::uint64_t _player = 0;  ///< number of the player whose file it is
  std::uint64_t _queues = 0;  ///< how many there have been
};
