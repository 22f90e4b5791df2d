// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "app/HeardSound.h"
#include "base/Errand.h"
#include "export/Export.h"
#include "playback/AudioFile.h"
#include "playback/FrameLoop.h"
#include "playback/WavePlayer.h"
#include "wav/WaveFileReader.h"

/// The take that is open: its player and its export job, what can be done with it, and what happens
/// to it. Whatever shows, measures, remembers or remotely controls a take sees only this; it knows
/// no widget.
///
/// Nothing here waits for the medium. A take opens between `opening` and either `opened` or
/// `failed` and `closed`, which come from the event loop, or from inside `open` where no
/// thread can be had; whoever asks for it relies on them, not
/// on the return of `open`. Another `open` or `close` gives up what is opening. Commands without an
/// open take do nothing. Volume, gain and width belong to the session: they stay from take to take.
/// Interface thread, which has an event loop.
class TakeSession : public QObject, public WavePlayerDelegate {
  Q_OBJECT

 public:
  enum class State { Closed, Opening, Opened, Playing, Paused, Finished };
  Q_ENUM(State)
  enum class Failure {
    Unsupported,  ///< the file is not the recorder's, or cannot be opened
    Reading,      ///< the medium fails; the take stays open
    Output        ///< the sound system has gone; the take is paused
  };
  Q_ENUM(Failure)

  /// Seconds that a loop lasts at least.
  static constexpr double kLeastLoop = 0.05;

  explicit TakeSession(QObject* parent = nullptr);
  /// Lets the take go and tells nobody.
  ~TakeSession() override;

  /// Closes the take that is open, begins to open this one, and plays it once it is. `name` is what
  /// people call it.
  void open(const QString& name, const std::filesystem::path& file);
  void close();
  /// A toggle: plays, goes on, starts over after the end, or pauses.
  void play();
  /// Goes to a fraction of the take; 1.0 ends it.
  void seek(double position);
  /// Goes to exactly this frame.
  void seekToFrame(std::uint64_t frame);
  /// Plays these frames over and over from now on, or no more; goes nowhere for it. Cut to the
  /// take; one that is too short is made longer. Another take has none.
  void setLoop(const std::optional<FrameLoop>& loop);
  /// What of a raw take is heard; an export is always decoded. Another take has no solo, and one
  /// that is not raw never.
  void setSolo(Solo solo);
  /// Linear, 0.0 to 1.0; 0.0 while muted.
  void setVolume(double volume);
  void setGain(std::int64_t dB);  ///< positive is louder
  /// Stereo width in degrees; player and export take the whole ones. Not a number is ignored.
  void setAngle(double degrees);
  /// The queue of the playing file has stopped, as "EB_PLAY_FINISH" tells.
  void playFinish();

  [[nodiscard]] State state() const;
  [[nodiscard]] bool isOpen() const { return _player != nullptr; }
  /// Of the take that is open or opening; empty without one.
  [[nodiscard]] const QString& name() const { return _name; }
  [[nodiscard]] const std::filesystem::path& file() const { return _file; }
  /// A reader of the take for the caller alone, over the same image; null without a take.
  [[nodiscard]] std::unique_ptr<WaveFileReader> reader() const;
  /// Whether the channels are raw Mid and Side, so that the width counts.
  [[nodiscard]] bool isRawMidSide() const;

  [[nodiscard]] double duration() const;  ///< whole seconds
  [[nodiscard]] double time() const;      ///< seconds, not beyond the duration
  /// The player's own time in seconds, which may lie beyond either end.
  [[nodiscard]] double playedTime() const;
  /// Time as a fraction of the duration; not a number in a take shorter than a second.
  [[nodiscard]] double position() const { return time() / duration(); }
  /// "hh:mm:ss"; of the current time "" where that is negative.
  [[nodiscard]] QString timeText() const;
  [[nodiscard]] QString durationText() const;
  [[nodiscard]] QString textAt(double position) const;
  [[nodiscard]] QString zeroText() const;

  [[nodiscard]] const std::optional<FrameLoop>& loop() const { return _loop; }
  [[nodiscard]] Solo solo() const { return _solo; }
  /// All of what is heard but the volume.
  [[nodiscard]] HeardSound heardSound() const;
  [[nodiscard]] double volume() const { return _volume; }
  [[nodiscard]] std::int64_t gain() const { return _gain; }
  [[nodiscard]] double angle() const { return _angle; }
  /// Whether gain, width or solo are others than when the take was opened or last stopped.
  [[nodiscard]] bool hasSoundChanged() const;

  /// The export job of the take with gain and width as they are heard; null without a take.
  [[nodiscard]] std::shared_ptr<Export> jobToExport() const;

  /// For the window's own names; everybody else uses the session.
  [[nodiscard]] WavePlayer* player() const { return _player.get(); }
  [[nodiscard]] const std::shared_ptr<Export>& job() const { return _job; }

  void WavePlayerStateChanged() override;
  void WavePlayerLevelChanged(double left, double right) override;
  void WavePlayerOutputLost(const std::string& message) override;

 signals:
  /// A take is about to go; it can still be asked.
  void closing();
  void closed();
  void opening();
  /// It takes long enough to be shown.
  void stillOpening();
  /// A take is there and about to be played.
  void opened();
  /// It plays, pauses or has finished; or was set to do so again.
  void stateChanged();
  /// Gain, width or solo are others than they were.
  void soundChanged();
  /// It plays on from elsewhere, as somebody wished.
  void jumped();
  void volumeChanged();
  /// There is another loop, or none.
  void loopChanged();
  /// `why` is a phrase or a sentence for people. A reading failure is told once, until `readAgain`.
  void failed(TakeSession::Failure failure, const QString& why);
  /// What could not be read is read again: a card is back, or another part of the take is played.
  void readAgain();
  /// Linear levels that a player has sent. None does.
  void levelsSent(double left, double right);

 private:
  struct Found;

  void takeOver(Found& found);
  void makePlayer(std::unique_ptr<AudioFile> audio);
  void refuse(const std::string& why);
  void release();
  void rememberSound();
  [[nodiscard]] std::optional<FrameLoop> fitted(const FrameLoop& loop) const;
  void showState();
  void checkReading();

  QString _name;
  std::filesystem::path _file;
  std::shared_ptr<Export> _job;
  std::unique_ptr<WavePlayer> _player;
  Errand _errand;             ///< opens the take
  std::uint64_t _opened = 0;  ///< how many takes have been asked for
  double _volume = 1.0;
  std::int64_t _gain = 0;
  double _angle = 0.0;
  std::optional<FrameLoop> _loop;
  Solo _solo = Solo::None;
  Solo _soloBeforePause = Solo::None;
  std::int64_t _gain_before_pause = 0;
  double _stereo_before_pause = 0.0;
  QString _toldFailure;
  QTimer _timerReading{this};
  QTimer _timerOpening{this};
  std::shared_ptr<WavePlayerDelegate> _self;  ///< owns nothing; the player holds it weakly
};
