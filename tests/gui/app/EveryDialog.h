// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QPointer>
#include <QWidget>
#include <filesystem>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "WindowFixture.h"
#include "dialogs/ExportVC.h"
#include "dialogs/QueueModel.h"
#include "dialogs/SavePanel.h"
#include "dialogs/TransferPanel.h"

/// The whole window, and every dialog with as many of its texts as it may show.
class EveryDialog : public WindowFixture {
 protected:
  ~EveryDialog() override;

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
  using Maker = std::function<QWidget*()>;
  /// What is under way when somebody wants the end.
  struct UnderWay {
    int exports = 0;
    bool isCopying = false;
    bool isSalvaging = false;
  };

  template <class Dialog, class... Arguments>
  QWidget* made(Arguments&&... arguments) {
    return new Dialog(std::forward<Arguments>(arguments)..., &view());
  }
  [[nodiscard]] std::vector<Maker> notes();
  [[nodiscard]] std::vector<Maker> exportDialogs();
  [[nodiscard]] std::vector<Maker> batchesAndQueue();
  [[nodiscard]] std::vector<Maker> filePanels();
  [[nodiscard]] std::vector<Maker> ofTakes();
  [[nodiscard]] std::vector<Maker> transfers();
  [[nodiscard]] std::vector<Maker> endQuestions();
  void lookAt(const Maker& make, const std::function<void(QWidget&)>& look);

  QWidget* about();
  QWidget* alert(const char* context, const char* text);
  ExportVC& exportDialog(const std::filesystem::path& file, double gain = 0);
  QWidget* exportToALoudness(bool isOfSelection);
  QWidget* exportWithoutALoudness();
  QWidget* exportThatClips();
  QWidget* exportOfNoise();
  QWidget* exportBeyondFourGiB();
  QWidget* exportOfALostTake();
  QWidget* progress();
  QWidget* cancelledProgress();
  QWidget* batchWithoutALoudness();
  SavePanel& savePanel(const std::string& name);
  QWidget* replaceQuestion();
  QWidget* newFolderQuestion();
  QWidget* salvageQuestion(const std::filesystem::path& take);
  QWidget* transferPanel(QAction& action);
  /// A folder that has no manifest.
  QWidget* verifiedFolder();
  TransferPanel& copyPanel(const TransferJob::Work& work);
  QWidget* copyUnderWay();
  QWidget* cancelledCopy();
  QWidget* differingCopy();
  /// The medium stands still, and with it all that is under way.
  QWidget* endQuestion(const UnderWay& work);
  void beginCopy();
  void endAllWork();

  TemporaryFolder _card;
  TemporaryFolder _long;
  std::unique_ptr<QueueModel> _queue;
  QPointer<QWidget> _behind;  ///< a dialog that asked the one that is looked at
};
