// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/MprisPlayer.h"

#include <algorithm>

QString MprisPlayer::playbackStatus() const {
  switch (_player.status()) {
    case RemotePlayer::Status::Playing:
      return QStringLiteral("Playing");
    case RemotePlayer::Status::Paused:
      return QStringLiteral("Paused");
    default:
      return QStringLiteral("Stopped");
  }
}

void MprisPlayer::setRate(double rate) {
  if (rate == 0.0) _player.pause();
}

QDBusObjectPath MprisPlayer::track() const {
  const auto take = _player.take();
  if (!take) return QDBusObjectPath("/org/mpris/MediaPlayer2/TrackList/NoTrack");
  return QDBusObjectPath(QStringLiteral("/example/mixdeck/mixdeck/take/%1").arg(take->number));
}

QVariantMap MprisPlayer::metadata() const {
  QVariantMap told{{QStringLiteral("mpris:trackid"), QVariant::fromValue(track())}};
  if (const auto take = _player.take()) {
    told[QStringLiteral("mpris:length")] = static_cast<qlonglong>(take->length);
    told[QStringLiteral("xesam:title")] = take->title;
    told[QStringLiteral("xesam:url")] = take->address.toString(QUrl::FullyEncoded);
  }
  return told;
}

QVariantMap MprisPlayer::told() const {
  return {{QStringLiteral("PlaybackStatus"), playbackStatus()},
          {QStringLiteral("Metadata"), metadata()},
          {QStringLiteral("Volume"), volume()},
          {QStringLiteral("CanGoNext"), canGoNext()},
          {QStringLiteral("CanGoPrevious"), canGoPrevious()},
          {QStringLiteral("CanPlay"), canPlay()},
          {QStringLiteral("CanPause"), canPlay()},
          {QStringLiteral("CanSeek"), canPlay()}};
}

void MprisPlayer::PlayPause() {
  if (_player.status() == RemotePlayer::Status::Playing) return _player.pause();
  _player.play();
}

void MprisPlayer::Seek(qlonglong offset) {
  const auto take = _player.take();
  if (!take) return;
  const qlonglong now = position();
  if (offset > take->length - now) return _player.next();
  _player.goTo(now + std::max(offset, -now));
}

void MprisPlayer::SetPosition(const QDBusObjectPath& track, qlonglong position) {
  const auto take = _player.take();
  const bool isMeant = take && track == this->track();
  if (isMeant && position >= 0 && position <= take->length) _player.goTo(position);
}
