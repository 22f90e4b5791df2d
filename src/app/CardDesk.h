// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <filesystem>
#include <functional>
#include <vector>

#include "app/FolderBrowser.h"
#include "app/StatusLine.h"
#include "base/Errand.h"
#include "dialogs/TransferPanel.h"

/// Brings the takes of a card home, and holds folders to their manifests: what the menu says, in a
/// panel each. Looks every five seconds, on a thread of its own, whether a card has been plugged
/// in, and says so in the quiet line. Interface thread, which has an event loop.
class CardDesk : public QObject {
  Q_OBJECT

 public:
  /// What it works on; all of it outlives this.
  struct Place {
    QWidget& window;
    QAction& copyCard;
    QAction& verifyFolder;
    StatusLine& status;
    FolderBrowser& browser;
  };
  /// Which folders are cards. On a thread of its own, one call at a time.
  using Find = std::function<std::vector<std::filesystem::path>()>;

  explicit CardDesk(const Place& place, QObject* parent = nullptr);

  /// In place of the volumes that are mounted.
  void setFind(const Find& find) { _find = find; }
  /// Looks whether there is a card.
  void look();
  /// The card that was found last and is still there; empty for none.
  [[nodiscard]] const std::filesystem::path& card() const { return _card; }
  /// Whether something is being copied or verified.
  [[nodiscard]] bool isBusy() const;
  [[nodiscard]] bool isCopying() const;
  /// Tells what is under way to end.
  void cancel();

 signals:
  void busyChanged();
  /// A copy or a verify has ended, and what came of it, in short.
  void ended(const QString& inShort);
  void showInFolderRequested(const std::vector<std::filesystem::path>& files);
  /// It is known which card there is.
  void looked();

 private:
  void copyCard();
  void choosePlaces(FolderButton& card, FolderButton& home);
  void verifyFolder();
  void present(TransferPanel& panel);
  void found(const std::vector<std::filesystem::path>& cards);

  Place _place;
  Find _find;
  QTimer _timer;
  Errand _errand;
  std::filesystem::path _card;
  std::filesystem::path _destination;  ///< that was chosen last
  QPointer<TransferPanel> _copying;
  QPointer<TransferPanel> _verifying;
};
