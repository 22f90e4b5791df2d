// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QLayout>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <chrono>
#include <filesystem>
#include <vector>

#include "dialogs/DialogWindow.h"
#include "dialogs/QueueModel.h"

/// The queue of takes that are exported together: how far all and each are, and what came of them,
/// until the panel is closed. Not modal, and it comes without taking the keyboard. Closed while
/// something runs it only hides. Interface thread.
class QueuePanel : public DialogWindow {
  Q_OBJECT

 public:
  /// The model outlives the panel.
  QueuePanel(QueueModel& model, QWidget* parent);

  /// The lines have changed; the queue has been at work for so long.
  void refresh(std::chrono::milliseconds elapsed);

  /// Closing: without anything under way what came of the takes is forgotten.
  void reject() override;

 signals:
  /// These orders are to end.
  void cancelRequested(const std::vector<int>& ids);
  void showInFolderRequested(const std::vector<std::filesystem::path>& files);

 protected:
  void viewWillAppear() override;
  void initWindowUI() override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  using Lines = std::vector<const QueueModel::Line*>;

  void makeList();
  QLayout* buttons();
  [[nodiscard]] Lines selected() const;
  [[nodiscard]] static Lines unended(const Lines& lines);
  [[nodiscard]] QString summary() const;
  void showButtons();
  void cancel(const Lines& lines);
  void cancelAll();
  void showInFolder();

  QueueModel& _model;
  QLabel* _summary;
  QLabel* _timeLeft;
  QProgressBar* _bar;
  QListView* _list;
  QPushButton* _show;
  QPushButton* _cancel;
  QPushButton* _end;  ///< cancels all, or closes where nothing is under way
};
