// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QString>
#include <QVariantMap>
#include <optional>

#include "desktop/RemotePlayer.h"

/// `org.mpris.MediaPlayer2.Player`: what plays, and what can be done with it. Interface thread.
class MprisPlayer : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
  Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
  Q_PROPERTY(double Rate READ rate WRITE setRate)
  Q_PROPERTY(QVariantMap Metadata READ metadata)
  Q_PROPERTY(double Volume READ volume WRITE setVolume)
  Q_PROPERTY(qlonglong Position READ position)
  Q_PROPERTY(double MinimumRate READ rate)
  Q_PROPERTY(double MaximumRate READ rate)
  Q_PROPERTY(bool CanGoNext READ canGoNext)
  Q_PROPERTY(bool CanGoPrevious READ canGoPrevious)
  Q_PROPERTY(bool CanPlay READ canPlay)
  Q_PROPERTY(bool CanPause READ canPlay)
  Q_PROPERTY(bool CanSeek READ canPlay)
  Q_PROPERTY(bool CanControl READ canControl)

 public:
  /// The player outlives it.
  MprisPlayer(RemotePlayer& player, QObject* parent)
      : QDBusAbstractAdaptor(parent), _player(player) {}
  /// What is answered later goes over this bus.
  void answerOver(const QDBusConnection& bus) { _bus = bus; }

  [[nodiscard]] QString playbackStatus() const;
  [[nodiscard]] static double rate() { return 1.0; }
  /// There is one rate; 0 pauses, as the interface has it.
  void setRate(double rate);
  [[nodiscard]] QVariantMap metadata() const;
  [[nodiscard]] double volume() const { return _player.volume(); }
  void setVolume(double volume) { _player.setVolume(volume); }
  [[nodiscard]] qlonglong position() const { return _player.position(); }
  [[nodiscard]] bool canGoNext() const { return _player.hasNext(); }
  [[nodiscard]] bool canGoPrevious() const { return _player.hasPrevious(); }
  [[nodiscard]] bool canPlay() const { return _player.take().has_value(); }
  [[nodiscard]] static bool canControl() { return true; }

  /// All that is told when it changes: everything but the position.
  [[nodiscard]] QVariantMap told() const;

 public slots:  // NOLINT(readability-redundant-access-specifiers): slots are what the bus may call.
  // NOLINTBEGIN(readability-identifier-naming): the names on the bus.
  void Next() { _player.next(); }
  void Previous() { _player.previous(); }
  void Pause() { _player.pause(); }
  void PlayPause();
  void Stop() { _player.stop(); }
  void Play() { _player.play(); }
  /// By so much; beyond the end is the next take.
  void Seek(qlonglong offset);
  /// Nothing where another take has come meanwhile, or outside of it.
  void SetPosition(const QDBusObjectPath& track, qlonglong position);
  /// A file of this machine that is there; anything else is an error and changes nothing.
  void OpenUri(const QString& address, const QDBusMessage& message);
  // NOLINTEND(readability-identifier-naming)

 signals:
  // NOLINTNEXTLINE(readability-identifier-naming)
  void Seeked(qlonglong position);

 private:
  [[nodiscard]] QDBusObjectPath track() const;
  void answer(const QDBusMessage& answer) const;

  RemotePlayer& _player;
  std::optional<QDBusConnection> _bus;
};
