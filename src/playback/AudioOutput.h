// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

/// Where an output takes its frames from.
class AudioSource {
 public:
  struct Pulled {
    std::size_t frames = 0;     ///< 0: nothing there now
    bool isBufferFree = false;  ///< the listener has something to refill
  };

  AudioSource() = default;
  AudioSource(const AudioSource&) = delete;
  AudioSource& operator=(const AudioSource&) = delete;
  virtual ~AudioSource() = default;

  /// Puts the next frames into `to`: interleaved floats, full scale 1.0, whole frames. Called on
  /// the output's own thread; takes no lock and allocates nothing.
  virtual Pulled pull(std::span<float> to) = 0;
};

/// Who is told what happened. Everything comes on the thread that owns the output, from its event
/// loop, never from inside an operation of the output. A call may delete the output.
class AudioOutputListener {
 public:
  AudioOutputListener() = default;
  AudioOutputListener(const AudioOutputListener&) = delete;
  AudioOutputListener& operator=(const AudioOutputListener&) = delete;
  virtual ~AudioOutputListener() = default;

  /// The source has given away all of a buffer.
  virtual void outputProgressed() = 0;
  /// What `drain` asked for is done: the last frame has been heard.
  virtual void outputDrained() = 0;
  /// The output is gone for good, or was never there; `why` is a sentence for people. The object
  /// plays nothing any more; another one may be made at any time.
  virtual void outputLost(const std::string& why) = 0;
};

/// The seam to the sound system: one stream of floats, stopped at first.
///
/// All operations belong to the thread that made the object, never wait for the sound system and
/// throw nothing. What is not there, cannot be started or does not take the format is reported
/// through `outputLost`. Only a format that is nothing needs no sound system: there is no frame to
/// play, and each drain is done at once.
class AudioOutput {
 public:
  /// What an output holds of what is not heard yet, in seconds: usually, and where the source has
  /// less than that ready, for whose owner may be late for as long as ever.
  static constexpr double kSecondsAhead = 0.05;
  static constexpr double kSecondsAheadOfShort = 0.3;

  /// What a stream needs to know.
  struct Format {
    double sampleRate = 0;  ///< frames per second; the sound system converts where it has another
    std::uint32_t channels = 0;
    std::uint32_t channelMask = 0;  ///< speakers, as in `AudioFormat`
    std::uint32_t framesReady =
        0;  ///< the most that the source ever has ready; 0: it does not tell

    /// Of a file that could not be opened.
    [[nodiscard]] bool isNothing() const { return !(sampleRate > 0) || channels == 0; }

    /// What the source ever has ready lasts, in seconds; 0 where it is not known.
    [[nodiscard]] double secondsReady() const {
      return sampleRate > 0 ? framesReady / sampleRate : 0;
    }
    /// The source has less ready than an output usually holds.
    [[nodiscard]] bool isShort() const { return framesReady > 0 && secondsReady() < kSecondsAhead; }
    /// What an output is to hold of what is not heard yet, in seconds.
    [[nodiscard]] double secondsAhead() const {
      return isShort() ? kSecondsAheadOfShort : kSecondsAhead;
    }
  };

  AudioOutput() = default;
  AudioOutput(const AudioOutput&) = delete;
  AudioOutput& operator=(const AudioOutput&) = delete;
  virtual ~AudioOutput() = default;

  /// Plays from `source` and tells `listener` from now on; null: from and to nobody. When it
  /// returns, the former ones are no longer in use.
  virtual void attach(AudioSource* source, AudioOutputListener* listener) = 0;
  /// Begins to play or goes on.
  virtual void start() = 0;
  /// Halts; what has been handed over is kept and played after the next `start`.
  virtual void pause() = 0;
  /// Throws away what has been handed over and not been heard, and a pending drain; the clock
  /// begins at 0 again. Does not start or pause.
  virtual void flush() = 0;
  /// Once the source has nothing more, plays out what was handed over, then tells the listener.
  virtual void drain() = 0;
  /// The source, which had nothing, has frames again.
  virtual void wake() = 0;
  /// Frames really heard since the last `flush`, the sound system's delay taken off. Never goes
  /// back; counts nothing while paused; after a drain it is exactly the number handed over.
  [[nodiscard]] virtual double framesPlayed() const = 0;
  /// Linear gain on this stream alone; 1.0 leaves samples as they are. Changes glide, the whole way
  /// from 0 to 1 in 10 ms.
  virtual void setVolume(float volume) = 0;
  /// How often the source had nothing to play although nothing was draining.
  [[nodiscard]] virtual std::uint64_t underruns() const = 0;
};
