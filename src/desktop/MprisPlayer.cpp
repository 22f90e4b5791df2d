// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/MprisPlayer.h"

#include <QDBusError>
#include <QPointer>
#include <algorithm>

#include "base/FileAddress.h"

namespace {

constexpr const char* kGone = "org.freedesktop.DBus.Error.FileNotFound";

QDBusMessage answerTo(const QDBusMessage& question, const QString& address,
                      RemotePlayer::Opened what) {
  switch (what) {
    case RemotePlayer::Opened::Begun:
      return question.createReply();
    case RemotePlayer::Opened::NoFile:
      return question.createErrorReply(QLatin1String(kGone),
                                       QStringLiteral("There is no such file: ") + address);
    default:
      return question.createErrorReply(QDBusError::Failed,
                                       QStringLiteral("Something else was asked for meanwhile"));
  }
}

}  // namespace

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

void MprisPlayer::OpenUri(const QString& address, const QDBusMessage& message) {
  message.setDelayedReply(true);
  const auto files = FileAddress::pathsIn(address.toStdString());
  if (files.size() != 1) {
    const QString why = QStringLiteral("Not a file on this machine: ") + address;
    return answer(message.createErrorReply(QDBusError::InvalidArgs, why));
  }
  _player.open(files.front(), [self = QPointer(this), message, address](RemotePlayer::Opened what) {
    if (self) self->answer(answerTo(message, address, what));
  });
}

void MprisPlayer::answer(const QDBusMessage& answer) const {
  if (_bus) _bus->send(answer);
}
