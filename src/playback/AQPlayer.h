// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "playback/AQPlayerState.h"

class PlayingFile;

/// Plays one WAVE file through an output queue with three buffers of a tenth of a second.
///
/// There is one playing file per process (`PlayingFile`): it belongs to whichever player was made
/// last, and the one before is cleaned up first. Fires "EB_PLAY_FINISH" whenever the queue has
/// stopped, at the end and in every seek. Errors are logged and kept (`readFailure`), or told
/// (`setLostCB`): a file that cannot be opened plays nothing. Owner's thread only, which has an
/// event loop; the data callback and the event come on it too, and may delete the player and make
/// another. Times are milliseconds, `duration` is seconds.
class AQPlayer {
 public:
  /// Waits for the medium, unless the file is given `opened` already.
  explicit AQPlayer(std::string filePath, std::unique_ptr<AudioFile> opened = nullptr);
  AQPlayer(const AQPlayer&) = delete;
  AQPlayer& operator=(const AQPlayer&) = delete;
  ~AQPlayer();

  /// The end of a file, as a fraction of it.
  static constexpr double kEnd = 1.0;

  /// Starts at packet 0, or goes on where the queue is. After the output was lost it goes on, with
  /// a new one, where it was heard last.
  void play(bool resume);
  void pause();
  /// Goes to a fraction of the file, 0.0 to 1.0, with a queue made anew.
  void setPosition(double position, bool play);
  /// Plays these packets over and over, or no more: exactly so from now on, wherever it is. Before
  /// and in the loop it turns at the loop's end; after it, it plays on.
  void setLoop(const std::optional<FrameLoop>& loop);
  [[nodiscard]] double timeFromPosition(double position) const;
  [[nodiscard]] double duration() const;
  [[nodiscard]] double currentTime() const;
  [[nodiscard]] bool getIsDone() const;
  /// Linear, passed on as it is.
  void setVolume(double volume);
  void setDataCB(AQDataCallback callback);
  /// Ends at once and closes the file, unless another player has been made meanwhile.
  void cleanUp();

  /// Told, with a sentence for people, when the sound system has gone or was never there. Nothing
  /// plays then until the next `play`.
  void setLostCB(std::function<void(const std::string& why)> callback);
  /// How often the output had nothing to play since the file was opened.
  [[nodiscard]] std::uint64_t underruns() const;
  /// Why the file could not be opened or read to its end; empty when it could, and again once a
  /// later read brings something.
  [[nodiscard]] const std::string& readFailure() const;

 private:
  [[nodiscard]] AQPlayerState& state() const;
  void seekTo(std::int64_t packet);
  void recover(bool resume);
  [[nodiscard]] double heardPackets() const;
  [[nodiscard]] bool isQueuedInOrder(std::uint64_t heard) const;
  void requeue(std::uint64_t packet);

  std::string _filePath;
  PlayingFile& _playing;
  std::uint64_t _number;  ///< by which the playing file knows whose it is
  double _seek_time = 0;  ///< ms from the start of the file to where the queue began
};
