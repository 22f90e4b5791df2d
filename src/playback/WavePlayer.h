// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "dsp/AdjustInfo.h"
#include "dsp/SoloStage.h"
#include "playback/AQPlayer.h"
#include "playback/PlayedSettings.h"
#include "wav/WavArray.h"
#include "wav/WaveFileReader.h"

/// Where a player is.
enum PlayState : std::uint64_t {
  PLAY_STATE_INIT = 0,
  PLAY_STATE_PLAY = 1,
  PLAY_STATE_PAUSE = 2,
  PLAY_STATE_FINISH = 3,
};

/// Who is told about a player. All optional; on the thread of the operation that caused it.
class WavePlayerDelegate {
 public:
  WavePlayerDelegate() = default;
  WavePlayerDelegate(const WavePlayerDelegate&) = delete;
  WavePlayerDelegate& operator=(const WavePlayerDelegate&) = delete;
  virtual ~WavePlayerDelegate() = default;

  /// The state has changed, or was set again.
  virtual void WavePlayerStateChanged() {}
  /// Levels 0 to 1. No player sends it.
  virtual void WavePlayerLevelChanged(double /*left*/, double /*right*/) {}
  /// The sound system has gone while playing; the player is paused where it was and `play` tries
  /// again. `message` is a sentence for people.
  virtual void WavePlayerOutputLost(const std::string& /*message*/) {}
};

/// Plays one recording: transport state, time texts, and the live Mid/Side decode and gain of every
/// buffer on its way to the output.
///
/// The owner makes a player, sets `reader` and `delegate`, calls the transport operations, passes
/// "EB_PLAY_FINISH" on to `playFinish`, and cleans it up before it makes the next one: there is one
/// playing file per process. Nothing is thrown or returned for errors. Owner's thread only.
class WavePlayer {
 public:
  /// Opens the file, unless it is given `opened` already; state INIT, volume 1.0, gain and angle 0.
  explicit WavePlayer(const std::string& filePath, std::unique_ptr<AudioFile> opened = nullptr);
  WavePlayer(const WavePlayer&) = delete;
  WavePlayer& operator=(const WavePlayer&) = delete;
  ~WavePlayer() { cleanUp(); }

  /// A toggle: starts, goes on, starts over after the end, or pauses when playing.
  void play();
  /// Only when playing.
  void pause();
  /// The queue has stopped. Ignored during a seek, which stops the queue too.
  void playFinish();
  /// Goes to a fraction of the file. 1.0 ends it.
  void setPosition(double position);
  /// See `AQPlayer`.
  void setLoop(const std::optional<FrameLoop>& loop);
  /// Linear; ignored outside 0.0 to 1.0.
  void setVolume(double volume);
  void cleanUp();

  [[nodiscard]] PlayState play_state() const { return _play_state; }
  /// Sets the state and tells nobody.
  void changeState(PlayState state);
  void notifyStateChanged();

  /// The file has been read to its end; it may still be heard.
  [[nodiscard]] bool getIsDone() const { return _player->getIsDone(); }
  [[nodiscard]] double duration() const;     ///< whole seconds
  [[nodiscard]] double curremtTime() const;  ///< seconds
  [[nodiscard]] std::string durationString() const;
  /// "" where the time is negative.
  [[nodiscard]] std::string currentTimeString() const;
  [[nodiscard]] std::string getTimeFromPosition(double position) const;
  [[nodiscard]] std::string getZeroTimeString() const { return second2String(0); }
  /// "hh:mm:ss", more digits where the hours need them.
  static std::string second2String(std::int32_t seconds);

  /// dB, positive is louder. Read by the next buffer that is filled; changes glide over 20 ms.
  [[nodiscard]] std::int64_t gain() const { return _gain; }
  void setGain(std::int64_t dB) { _gain = dB; }
  /// Whole degrees of stereo width. Read by the next buffer; changes glide by a degree a frame.
  [[nodiscard]] std::int64_t angle() const { return _angle; }
  void setAngle(std::int64_t degrees) { _angle = degrees; }

  /// What of a raw take is heard. Read by the next buffer; a change fades over 20 ms.
  [[nodiscard]] Solo solo() const { return _solo; }
  void setSolo(Solo solo) { _solo = solo; }

  /// What was set when the frames were filled that are heard now, and those that are heard next.
  [[nodiscard]] const PlayedSettings& played() const { return _played; }

  /// The reader of the same file; only its header and its Mid/Side flag are read.
  [[nodiscard]] const std::shared_ptr<const WaveFileReader>& reader() const { return _reader; }
  void setReader(std::shared_ptr<const WaveFileReader> reader) { _reader = std::move(reader); }
  void setDelegate(const std::weak_ptr<WavePlayerDelegate>& delegate) { _delegate = delegate; }

  /// See `AQPlayer`.
  [[nodiscard]] std::uint64_t underruns() const { return _player->underruns(); }
  [[nodiscard]] const std::string& readFailure() const { return _player->readFailure(); }
  /// Time in ms of a fraction of the file.
  [[nodiscard]] double timeFromPosition(double position) const {
    return _player->timeFromPosition(position);
  }

  // What belongs to the interface of a player although no program calls it.
  /// As it was opened.
  [[nodiscard]] const std::string& fileUrl() const { return _fileUrl; }
  [[nodiscard]] double volume() const { return _volume; }
  /// "STATE NOT FOUND" for a value that is none.
  static std::string state2Str(PlayState state);

  // The steps of a buffer's way; nobody but the player itself calls them in a program.
  /// Decodes and scales one buffer in place: 24-bit integers and 32-bit floats; all else is left
  /// untouched. No allocation once the scratch is large enough.
  void processSampleBuffer(AudioQueueBuffer& buffer, const AudioFormat& info,
                           std::int64_t curPackage);
  /// Makes room for the buffer's frames in the scratch.
  static void prepareFloatBuffer(const AudioQueueBuffer& buffer);
  /// 24-bit stereo to floats in the scratch. The step from sample to sample is the reader's;
  /// without a reader every frame is read from the first sample.
  void convertByte24bit2Float(const AudioQueueBuffer& buffer) const;
  /// The scratch back to 24-bit stereo. The left channel is clipped, the right one wraps around,
  /// and exactly +1.0 becomes negative full scale: all kept on purpose.
  static void convertFloat2Byte24Bit(AudioQueueBuffer& buffer);
  /// Interleaved floats of the buffer under way, shared by all players; it only grows.
  static WavArrayFloat32& floatScratch();

 private:
  void processFrames(std::span<float> frames);
  void setState(PlayState state);
  void startOver();
  void outputLost(const std::string& why);

  std::string _fileUrl;
  std::unique_ptr<AQPlayer> _player;
  AdjustDBInfo _dbinfo;
  AdjustAngleInfo _angleinfo;
  double _setPositionOldVal = -1.0;  ///< -1.0: none, or ended by itself
  bool _isSeeking = false;
  double _volume = 1.0;
  PlayState _play_state = PLAY_STATE_INIT;
  std::int64_t _gain = 0;
  std::int64_t _angle = 0;
  Solo _solo = Solo::None;
  Solo _soloBefore = Solo::None;  ///< of the buffer before
  std::optional<FrameLoop> _loop;
  PlayedSettings _played;
  std::shared_ptr<const WaveFileReader> _reader;
  std::weak_ptr<WavePlayerDelegate> _delegate;
  std::shared_ptr<WavePlayer*> _self;  ///< callbacks hold it weakly
};
