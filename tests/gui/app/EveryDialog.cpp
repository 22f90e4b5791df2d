// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "EveryDialog.h"

#include <QCheckBox>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <chrono>
#include <numeric>

#include "app/CardDesk.h"
#include "app/RepairOffer.h"
#include "dialogs/AboutVC.h"
#include "dialogs/Alert.h"
#include "dialogs/BatchDialog.h"
#include "dialogs/ExportProgress.h"
#include "dialogs/ExportVC.h"
#include "dialogs/FolderPanel.h"
#include "dialogs/HelpVC.h"
#include "dialogs/IntroductionVC.h"
#include "dialogs/LoudnessField.h"
#include "dialogs/NodeviceVC.h"
#include "dialogs/QueuePanel.h"
#include "dialogs/SavePanel.h"
#include "dialogs/TakeInformation.h"
#include "dialogs/TransferPanel.h"

namespace {

constexpr std::chrono::seconds kElapsed(3);

QPushButton& exportButton(const QWidget& dialog) {
  return *dialog.findChild<QPushButton*>(QStringLiteral("export"));
}

}  // namespace

void EveryDialog::startWithAll() {
  take("R0001.WAV");
  startOnTakes();
  plugIn();
  open("R0001.WAV");
  settle();
}

void EveryDialog::settle() {
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
}

QWidget* EveryDialog::exportDialog() {
  auto* const dialog = new ExportVC(&view());
  dialog->setExporter(std::make_shared<Export>(takes.path() / "R0001.WAV"));
  ExportVC::Extra extra;
  extra.note = ExportVC::tr("Selection only");
  extra.selection = FrameRange{0, 4800};
  dialog->setExtra(extra);
  return dialog;
}

QWidget* EveryDialog::batchDialog() {
  constexpr std::uint32_t kFrames = 480;
  BatchDialog::Takes chosen;
  for (const char* const name :
       {"R0010.WAV", "R0011.WAV", "R0012.WAV", "R0013.WAV", "R0013_Decode.WAV"}) {
    chosen.files.push_back(take(name, kFrames));
  }
  file("R0010_Decode.WAV");
  chosen.files.push_back(file("R0014.WAV"));
  chosen.awaited = {takes.path() / "R0011_Decode.WAV"};
  auto* const dialog = new BatchDialog(chosen, &view());
  waitFor([&] { return exportButton(*dialog).isEnabled(); }, "what becomes of each take");
  return dialog;
}

QWidget* EveryDialog::batchWithoutALoudness() {
  QWidget* const dialog = batchDialog();
  dialog->findChild<QCheckBox*>(QStringLiteral("toLoudness"))->setChecked(true);
  dialog->findChild<LoudnessField*>()->setEditText(QStringLiteral("?"));
  return dialog;
}

QWidget* EveryDialog::queuePanel() {
  using State = QueueModel::State;
  using End = ExportResult::End;
  _queue = std::make_unique<QueueModel>();
  for (int id = 0; id < 6; ++id) {
    const auto name = "R000" + std::to_string(id);
    _queue->add(id, {.source = takes.path() / (name + ".WAV"),
                     .target = takes.path() / (name + "_Decode.WAV")});
  }
  _queue->begin(1);
  _queue->progress(1, 0.25, kElapsed);
  _queue->begin(2);
  _queue->cancelling(2);
  _queue->finish(3, {End::Written, ""});
  _queue->finish(4, {End::Cancelled, ""});
  _queue->finish(5, {End::Failed, "The source cannot be read: Input/output error"});
  EXPECT_EQ(_queue->count(State::Waiting), 1U);
  auto* const panel = new QueuePanel(*_queue, &view());
  panel->refresh(kElapsed);
  return panel;
}

QWidget* EveryDialog::information(const std::filesystem::path& file) {
  constexpr int kWidth = 60;
  constexpr double kGain = -3.5;
  auto* const window = new TakeInformation({file, kWidth, kGain}, &view());
  const QSignalSpy complete(window, &TakeInformation::complete);
  waitFor([&] { return !complete.empty(); }, "all of it");
  return window;
}

QWidget* EveryDialog::rowMenu(int count) {
  FileList& list = *view().browser->tableFile;
  std::vector<int> some(static_cast<std::size_t>(count));
  std::iota(some.begin(), some.end(), 0);
  list.selectRows(some, 0);
  emit list.menuRequested(list.mapToGlobal(QPoint()));
  return shown<QMenu>();
}

QWidget* EveryDialog::repairQuestion() {
  controller().findChild<RepairOffer*>()->look(brokenTake("R0007.WAV"));
  waitFor([] { return shown<QMessageBox>() != nullptr; }, "the question");
  return shown<QMessageBox>();
}

QWidget* EveryDialog::transferPanel(QAction& action) {
  action.trigger();
  return shown<TransferPanel>();
}

QWidget* EveryDialog::verifiedFolder() {
  QWidget* const panel = transferPanel(*view().menu->actionVerifyFolder);
  press(panel, QCoreApplication::translate("CardDesk", "Verify"));
  waitFor([this] { return !controller().cards().isBusy(); }, "the end of it");
  return panel;
}

void EveryDialog::forEachDialog(const std::function<void(QWidget&)>& look) {
  const auto takePath = takes.path() / "R0001.WAV";
  const auto target = takes.path() / "R0001_Decode.WAV";
  const std::vector<std::function<QWidget*()>> makers = {
      [this] { return made<AboutVC>(); },
      [this] { return made<IntroductionVC>(); },
      [this] { return made<NodeviceVC>(); },
      [this] { return made<HelpVC>(view().menu->keys()); },
      [this] { return exportDialog(); },
      [this] { return made<ExportProgress>("R0001.WAV", "R0001_Decode.WAV"); },
      [this] { return made<FolderPanel>(); },
      [&] { return made<SavePanel>(target, takePath); },
      [this] {
        return Alert::show(&view(),
                           QCoreApplication::translate("TakeMessages", "File not supported."));
      },
      [this] { return batchDialog(); },
      [this] { return batchWithoutALoudness(); },
      [this] { return queuePanel(); },
      [&] { return information(takePath); },
      [this] { return information(file("R0014.WAV")); },
      [this] { return rowMenu(1); },
      [this] {
        take("R0002.WAV");
        refresh();
        return rowMenu(2);
      },
      [this] { return repairQuestion(); },
      [this] { return transferPanel(*view().menu->actionCopyCard); },
      [this] { return transferPanel(*view().menu->actionVerifyFolder); },
      [this] { return verifiedFolder(); }};
  for (const auto& make : makers) {
    const std::unique_ptr<QWidget> dialog(make());
    ASSERT_NE(dialog, nullptr);
    dialog->show();
    settle();
    look(*dialog);
    dialog->hide();
  }
}
