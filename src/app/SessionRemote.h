// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "app/FolderBrowser.h"
#include "app/TakeSession.h"
#include "desktop/RemotePlayer.h"

/// The take that is open, and its neighbours in the folder that is shown, for a desktop that
/// controls them from afar. Knows no widget. Interface thread.
class SessionRemote : public RemotePlayer {
  Q_OBJECT

 public:
  /// Milliseconds from one look for the turn of a loop to the next: that of the shortest loop.
  static constexpr int kLook = 50;

  /// Both outlive it.
  SessionRemote(TakeSession& take, FolderBrowser& browser, QObject* parent = nullptr);

  [[nodiscard]] Status status() const override;
  [[nodiscard]] std::optional<Take> take() const override { return _loaded; }
  [[nodiscard]] std::int64_t position() const override;
  [[nodiscard]] double volume() const override { return _take.volume(); }
  [[nodiscard]] bool hasNext() const override { return neighbour(1).has_value(); }
  [[nodiscard]] bool hasPrevious() const override { return neighbour(-1).has_value(); }

  void play() override;
  void pause() override;
  void stop() override;
  void next() override { choose(neighbour(1)); }
  void previous() override { choose(neighbour(-1)); }
  void goTo(std::int64_t position) override;
  void setVolume(double volume) override;
  void open(const std::filesystem::path& file, const Told& told) override;

 private:
  void load();
  void unload();
  void showState();
  void look();
  /// The row of the take so many takes further in the list than the one that was opened last, or
  /// was refused; of the first one where that is not there.
  [[nodiscard]] std::optional<int> neighbour(int step) const;
  void choose(std::optional<int> row);

  TakeSession& _take;
  FolderBrowser& _browser;
  std::optional<Take> _loaded;
  std::uint64_t _number = 0;
  double _rate = 0;
  bool _isStopped = false;       ///< paused at the beginning, as somebody stopped it
  double _heard = 0;             ///< seconds, at the last look
  std::filesystem::path _asked;  ///< the file that was to be opened last
  QTimer _timerLook{this};
};
