// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QUrl>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>

/// What a desktop controls from afar; whoever plays implements it. It knows no bus. Times are in
/// microseconds, as desktops count them. Interface thread.
class RemotePlayer : public QObject {
  Q_OBJECT

 public:
  enum class Status { Stopped, Playing, Paused };
  Q_ENUM(Status)

  /// What is loaded. Another number is another take, be it the same file once more.
  struct Take {
    std::uint64_t number = 0;
    QString title;
    QUrl address;
    std::int64_t length = 0;

    friend bool operator==(const Take&, const Take&) = default;
  };

  /// What came of a file that was to be opened; `GivenUp` for another one meanwhile.
  enum class Opened { Begun, NoFile, GivenUp };
  using Told = std::function<void(Opened what)>;

  using QObject::QObject;

  [[nodiscard]] virtual Status status() const = 0;
  /// None where nothing is loaded.
  [[nodiscard]] virtual std::optional<Take> take() const = 0;
  [[nodiscard]] virtual std::int64_t position() const = 0;
  /// Linear, 0 to 1.
  [[nodiscard]] virtual double volume() const = 0;
  [[nodiscard]] virtual bool hasNext() const = 0;
  [[nodiscard]] virtual bool hasPrevious() const = 0;

  // What cannot be done is left undone.

  virtual void play() = 0;
  virtual void pause() = 0;
  /// The take stays, at its beginning.
  virtual void stop() = 0;
  virtual void next() = 0;
  virtual void previous() = 0;
  virtual void goTo(std::int64_t position) = 0;
  virtual void setVolume(double volume) = 0;
  /// Opens this file, which then plays. Nothing waits for the medium: `told` is called once it is
  /// known whether it is there, or from inside of this; never once this has gone.
  virtual void open(const std::filesystem::path& file, const Told& told) = 0;

 signals:
  /// Anything of the above but the position may be another one.
  void changed();
  /// The position is not where playing alone would have brought it.
  void jumped();
};
