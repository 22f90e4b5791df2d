// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QKeyEvent>
#include <QObject>

#include "app/FolderBrowser.h"
#include "app/MeasuredTake.h"
#include "app/StatusLine.h"
#include "app/TakeSession.h"
#include "app/WindowMenu.h"
#include "desktop/AddressOpener.h"
#include "dialogs/ExportDesk.h"
#include "queue/ExportQueue.h"

class DialogWindow;

/// Menu, keys, dialogs and help of the window. What a key or an action starts in a pane goes out as
/// a signal. Interface thread.
class WindowCommands : public QObject {
  Q_OBJECT

 public:
  /// Where `showHelp` leads.
  static constexpr const char* kHelpAddress = "https://mixdeck.example/help";

  /// What the commands are about; all of it outlives them.
  struct Place {
    QWidget& window;  ///< dialogs stand over it; its keys are taken
    WindowMenu& menu;
    QAbstractButton& btnExport;
    StatusLine& status;
    ExportQueue& exports;
    ExportDesk& desk;
    const MeasuredTake* measured = nullptr;  ///< spares an export dialog measuring the take
  };

  WindowCommands(const Place& place, TakeSession& take, FolderBrowser& browser,
                 QObject* parent = nullptr);

  /// Looks whether this version has been introduced.
  void readVersion();
  /// Sets the switches of the menu as they were left.
  void readSettings();
  /// Introduces the program once, where that is due.
  void introduce();
  /// Whether that is due, or on the screen.
  [[nodiscard]] bool isIntroducing() const { return _firstIntroDialog || _isIntroducing; }

  void showAbout();
  void showIntroduction();
  /// Shows what keys and pointer do.
  void showKeys();
  /// Opens the help in the browser; where there is none, says where the help is.
  void showHelp();
  void showNoDevice();
  /// Asks how to export the take that is open.
  void askForExport();
  /// Keys that no control has taken; all are taken here.
  void keyDown(const QKeyEvent& event);
  void keyUp(const QKeyEvent& event);

  [[nodiscard]] const QString& versionString() const { return _versionString; }

 signals:
  /// The introduction that was due is over.
  void introduced();
  void openSelectedRequested();
  void openFolderRequested();
  void playRequested();
  void clearPeaksRequested();
  void clearLoopRequested();
  void metersByRuleRequested(bool isByRule);
  void endRequested();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void giveUp();
  bool arrowPressed(const QEvent& event);
  void connectMenu();
  void connectExports();
  void present(DialogWindow* dialog) const;
  DialogWindow* introduce(bool fromMenu);

  AddressOpener _opener;
  QWidget& _window;
  StatusLine& _status;
  ExportQueue& _exports;
  ExportDesk& _desk;
  TakeSession& _take;
  FolderBrowser& _browser;
  WindowMenu& _menu;
  const MeasuredTake* _measured;
  QString _versionString;
  bool _firstIntroDialog = false;
  bool _isIntroducing = false;
  bool _isSpaceDown = false;
};
