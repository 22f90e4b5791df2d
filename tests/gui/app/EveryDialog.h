// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QWidget>
#include <filesystem>
#include <functional>
#include <memory>
#include <utility>

#include "WindowFixture.h"
#include "dialogs/QueueModel.h"

/// The whole window, and every dialog with as many of its texts as it may show.
class EveryDialog : public WindowFixture {
 protected:
  ~EveryDialog() override { end(); }

  /// The window with a take and a recorder.
  void startWithAll();
  static void settle();
  /// As somebody would see them, one after the other; menus of rows and questions too.
  void forEachDialog(const std::function<void(QWidget&)>& look);

  /// A queue with an export in every state.
  QWidget* queuePanel();
  /// Of so many rows that are selected.
  QWidget* rowMenu(int count);
  QWidget* repairQuestion();
  /// Of a take, once all is known of it.
  QWidget* information(const std::filesystem::path& file);
  /// Takes of which some will be exported and others will not, each for another reason.
  QWidget* batchDialog();

 private:
  template <class Dialog, class... Arguments>
  QWidget* made(Arguments&&... arguments) {
    return new Dialog(std::forward<Arguments>(arguments)..., &view());
  }
  QWidget* exportDialog();
  QWidget* batchWithoutALoudness();
  QWidget* transferPanel(QAction& action);
  /// A folder that has no manifest.
  QWidget* verifiedFolder();

  std::unique_ptr<QueueModel> _queue;
};
