// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "EveryDialog.h"

#include <QCheckBox>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QToolButton>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <numeric>
#include <string>

#include "app/RepairOffer.h"
#include "dialogs/AboutVC.h"
#include "dialogs/Alert.h"
#include "dialogs/BatchDialog.h"
#include "dialogs/ExportProgress.h"
#include "dialogs/FolderPanel.h"
#include "dialogs/HelpVC.h"
#include "dialogs/IntroductionVC.h"
#include "dialogs/LoudnessField.h"
#include "dialogs/NodeviceVC.h"
#include "dialogs/QueuePanel.h"
#include "dialogs/TakeInformation.h"
#include "dialogs/TimeLeft.h"
#include "support/LongTake.h"
#include "support/SlowReads.h"
#include "support/WaveBytes.h"

namespace {

constexpr std::chrono::seconds kElapsed(3);

QPushButton& exportButton(const QWidget& dialog) {
  return *dialog.findChild<QPushButton*>(QStringLiteral("export"));
}

QString translated(const char* context, const char* text) {
  return QCoreApplication::translate(context, text);
}

// No figure of it is still to come.
bool isMeasured(const QWidget& dialog) {
  const auto labels = dialog.findChildren<QLabel*>();
  const auto isOpen = [](const QLabel* label) { return label->text() == QStringLiteral("…"); };
  return std::ranges::none_of(labels, isOpen);
}

// Once it is known how often; until then it is a shorter sentence.
bool tellsOfPlaces(const QWidget& dialog) {
  const QString text = dialog.findChild<QLabel*>(QStringLiteral("clipping"))->text();
  return !text.isEmpty() && text != translated("ExportLevels", "Would clip in 24 bit");
}

void check(const QWidget& dialog, const char* name) {
  dialog.findChild<QAbstractButton*>(QLatin1String(name))->setChecked(true);
}

}  // namespace

EveryDialog::~EveryDialog() {
  SlowReads::reset();
  end();
}

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

// With what the program runs on.
QWidget* EveryDialog::about() {
  view().menu->actionAbout->trigger();
  return shown<AboutVC>();
}

QWidget* EveryDialog::alert(const char* context, const char* text) {
  return Alert::show(&view(), translated(context, text));
}

ExportVC& EveryDialog::exportDialog(const std::filesystem::path& file, double gain) {
  auto* const dialog = new ExportVC(&view());
  const auto job = std::make_shared<Export>(file);
  job->setGain(gain);
  dialog->setExporter(job);
  ExportVC::Extra extra;
  extra.note = ExportVC::tr("Selection only");
  extra.selection = FrameRange{0, 4800};
  dialog->setExtra(extra);
  return *dialog;
}

// The selection is so short that it has no loudness.
QWidget* EveryDialog::exportToALoudness(bool isOfSelection) {
  ExportVC& dialog = exportDialog(takes.path() / "R0001.WAV");
  check(dialog, "checkboxLoudness");
  check(dialog, "checkboxKeep");
  if (isOfSelection) check(dialog, "checkboxSelection");
  dialog.show();
  waitFor([&] { return isMeasured(dialog); }, "its figures");
  return &dialog;
}

QWidget* EveryDialog::exportWithoutALoudness() {
  ExportVC& dialog = exportDialog(takes.path() / "R0001.WAV");
  check(dialog, "checkboxLoudness");
  dialog.findChild<LoudnessField*>()->setEditText(QStringLiteral("?"));
  return &dialog;
}

QWidget* EveryDialog::exportThatClips() {
  constexpr double kGain = 20;
  ExportVC& dialog = exportDialog(takes.path() / "R0001.WAV", kGain);
  dialog.show();
  waitFor([&] { return tellsOfPlaces(dialog); }, "what clips");
  return &dialog;
}

QWidget* EveryDialog::exportOfNoise() {
  const std::vector<std::byte> samples(64'000);
  const auto path = takes.file(
      "R0015.WAV", WaveBytes().recorderBext(true).format(1, 2, 48000, 16).data(samples).get());
  return &exportDialog(path);
}

QWidget* EveryDialog::exportBeyondFourGiB() {
  constexpr std::uint32_t kSamples = 3'600'000'000;  // bytes, which grow by a third
  ExportVC& dialog = exportDialog(LongTake::make(_long, "R0016.WAV", kSamples));
  check(dialog, "radio32");
  return &dialog;
}

QWidget* EveryDialog::exportOfALostTake() {
  const auto path = _card.path() / "R0017.WAV";
  std::filesystem::rename(take("R0017.WAV"), path);
  ExportVC& dialog = exportDialog(path);
  check(dialog, "checkboxLoudness");
  SlowReads::share(_card.path().string(), 0);
  SlowReads::pullOut();
  dialog.show();
  waitFor([&] { return isMeasured(dialog); }, "that it is lost");
  return &dialog;
}

QWidget* EveryDialog::progress() {
  constexpr double kDone = 0.25;
  constexpr double kSeconds = 200;
  auto* const dialog = new ExportProgress("R0001.WAV", "R0001_Decode.WAV", &view());
  dialog->update(kDone, TimeLeft::text(kSeconds, kDone));
  return dialog;
}

QWidget* EveryDialog::cancelledProgress() {
  auto* const dialog = new ExportProgress("R0001.WAV", "R0001_Decode.WAV", &view());
  dialog->reject();
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
  const auto isPlanned = [dialog] {
    return exportButton(*dialog).text() != translated("BatchDialog", "Export");
  };
  waitFor(isPlanned, "what becomes of each take");
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

SavePanel& EveryDialog::savePanel(const std::string& name) {
  auto* const panel = new SavePanel(takes.path() / name, takes.path() / "R0001.WAV", &view());
  panel->show();
  _behind = panel;
  return *panel;
}

QWidget* EveryDialog::replaceQuestion() {
  savePanel(file("R0020.WAV").filename().string()).accept();
  waitFor([] { return shown<QMessageBox>() != nullptr; }, "the question");
  return shown<QMessageBox>();
}

QWidget* EveryDialog::newFolderQuestion() {
  savePanel("R0021.WAV").findChild<QToolButton*>(QStringLiteral("newFolderButton"))->click();
  return shown<QInputDialog>();
}

QWidget* EveryDialog::repairQuestion() {
  return salvageQuestion(brokenTake("R0007.WAV"));
}

QWidget* EveryDialog::salvageQuestion(const std::filesystem::path& take) {
  controller().findChild<RepairOffer*>()->look(take);
  waitFor([] { return shown<QMessageBox>() != nullptr; }, "the question");
  return shown<QMessageBox>();
}

std::vector<EveryDialog::Maker> EveryDialog::notes() {
  return {[this] { return about(); },
          [this] { return made<IntroductionVC>(); },
          [this] { return made<NodeviceVC>(); },
          [this] { return made<HelpVC>(view().menu->keys()); },
          [this] { return alert("TakeMessages", "File not supported."); },
          [this] { return alert("ExportDesk", "Fail to save."); },
          [this] { return alert("ExportDesk", "Fail to open."); },
          [this] {
            const QString text =
                translated("WindowCommands", "No browser could be opened. Help is at %1");
            return Alert::show(&view(), text.arg(QLatin1String(WindowCommands::kHelpAddress)));
          }};
}

std::vector<EveryDialog::Maker> EveryDialog::exportDialogs() {
  return {[this] { return &exportDialog(takes.path() / "R0001.WAV"); },
          [this] { return exportToALoudness(false); },
          [this] { return exportToALoudness(true); },
          [this] { return exportWithoutALoudness(); },
          [this] { return exportThatClips(); },
          [this] { return exportOfNoise(); },
          [this] { return exportBeyondFourGiB(); },
          [this] { return exportOfALostTake(); },
          [this] { return progress(); },
          [this] { return cancelledProgress(); }};
}

std::vector<EveryDialog::Maker> EveryDialog::batchesAndQueue() {
  return {[this] { return batchDialog(); }, [this] { return batchWithoutALoudness(); },
          [this] { return queuePanel(); }};
}

std::vector<EveryDialog::Maker> EveryDialog::filePanels() {
  return {[this] { return made<FolderPanel>(); },
          [this] {
            return made<SavePanel>(takes.path() / "R0001_Decode.WAV", takes.path() / "R0001.WAV");
          },
          [this] { return replaceQuestion(); }, [this] { return newFolderQuestion(); }};
}

std::vector<EveryDialog::Maker> EveryDialog::ofTakes() {
  return {[this] { return information(takes.path() / "R0001.WAV"); },
          [this] { return information(file("R0014.WAV")); }, [this] { return rowMenu(1); },
          [this] {
            take("R0002.WAV");
            refresh();
            return rowMenu(2);
          },
          [this] { return repairQuestion(); }};
}

void EveryDialog::lookAt(const Maker& make, const std::function<void(QWidget&)>& look) {
  {
    const std::unique_ptr<QWidget> dialog(make());
    ASSERT_NE(dialog, nullptr);
    dialog->show();
    settle();
    look(*dialog);
    dialog->hide();
  }
  endAllWork();
  delete _behind.data();
}

void EveryDialog::forEachDialog(const std::function<void(QWidget&)>& look) {
  for (const auto& makers : {notes(), exportDialogs(), batchesAndQueue(), filePanels(), ofTakes(),
                             transfers(), endQuestions()}) {
    for (const Maker& make : makers) lookAt(make, look);
  }
}
