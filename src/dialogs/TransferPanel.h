// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFormLayout>
#include <QLabel>
#include <QLayout>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <chrono>
#include <filesystem>
#include <functional>
#include <utility>
#include <vector>

#include "base/SteadyTime.h"
#include "dialogs/DialogWindow.h"
#include "dialogs/FolderButton.h"
#include "dialogs/TransferJob.h"

/// Asks for folders, works with their files, shows how far that is, and then what came of it, until
/// it is closed. Not modal. Closed while it works it only hides, and comes back at the end; closed
/// otherwise it deletes itself. Its end cancels the work. Interface thread.
class TransferPanel : public DialogWindow {
  Q_OBJECT

 public:
  struct Words {
    QString title;
    QString begin;  ///< on the button
    QString lines;  ///< what the list of results is called
  };
  using Places = std::vector<std::filesystem::path>;
  /// The work with the folders that were chosen.
  using Maker = std::function<TransferJob::Work(const Places& places)>;

  TransferPanel(const Words& words, Maker make, QWidget* parent);
  void setClock(SteadyTime::Clock clock) { _clock = std::move(clock); }

  /// One more folder to be chosen; before the panel is shown.
  FolderButton& addPlace(const QString& caption);
  [[nodiscard]] bool isBusy() const { return _job.isUnderWay(); }
  void cancel();
  void reject() override;

 signals:
  void begun();
  /// What came of it, in short.
  void ended(const QString& inShort);
  void showInFolderRequested(const std::vector<std::filesystem::path>& files);

 protected:
  void viewWillAppear() override;
  void initWindowUI() override;

 private:
  enum class Stage { Choosing, Working, Done };

  void makeReport(const QString& name);
  QLayout* buttons(const QString& begin);
  void orderTabs();
  [[nodiscard]] Places places() const;
  void showChoice();
  void showStage(Stage stage);
  void begin();
  void showProgress(const TransferJob::Progress& progress);
  [[nodiscard]] QString stateText(const TransferJob::Progress& progress) const;
  void add(const std::vector<TransferJob::Line>& lines);
  void finish(const TransferJob::End& end);
  [[nodiscard]] QString inShort(const TransferJob::End& end) const;
  void showInFolder();

  Words _words;
  Maker _make;
  SteadyTime::Clock _clock;
  std::chrono::milliseconds _began{0};
  QFormLayout* _form;
  std::vector<FolderButton*> _places;
  QLabel* _summary;
  QProgressBar* _bar;
  QLabel* _state;
  QListWidget* _list;
  QLabel* _complaint;
  QPushButton* _show;
  QPushButton* _cancel;  ///< closes where nothing is under way
  QPushButton* _begin;
  TransferJob _job;
};
