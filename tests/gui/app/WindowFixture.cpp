// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "WindowFixture.h"

#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <cstddef>
#include <string_view>
#include <thread>

#include "base/Utility.h"
#include "base/Version.h"
#include "controls/Appearance.h"
#include "playback/AudioBackends.h"
#include "playback/PlayingFile.h"
#include "playback/system/SystemBackends.h"
#include "support/EventLoop.h"
#include "support/WaveBytes.h"

WindowFixture::WindowFixture(MIDIPacketKind kind) : link(kind, midiClock) {
  Appearance::apply(*qobject_cast<QApplication*>(QCoreApplication::instance()));
  SystemBackends::choose();
  AudioBackends::addOutput("memory", [this](const AudioOutput::Format& format) {
    auto made = std::make_unique<MemoryOutput>(clock, format);
    output = made.get();
    ++outputsMade;
    return made;
  });
  AudioBackends::chooseOutput("memory");
  link.install();
  manager = std::make_unique<MIDIManager>();
  sequences = std::make_unique<MIDISequenceManager>();
  // The takes of these tests are alike, so that one would be known by what another was heard with.
  Utility::store(Utility::kRememberTakes, "off");
}

WindowFixture::~WindowFixture() {
  end();
  SystemBackends::choose();
}

void WindowFixture::startWith(const std::vector<std::filesystem::path>& files) {
  window = std::make_unique<WindowController>();
  view().resize(WindowController::kSize);  // the screen of these tests is smaller
  controller().open(files);
  window->show();
  waitFor([this] { return controller().folderHelper() != nullptr; }, "the first listing");
}

void WindowFixture::startOnTakes() {
  Utility::store(Utility::kDoNotShowAgain, std::string(kVersion) + "." + kBuildNumber);
  Utility::store(Utility::kLastOpenFolder, takes.path().string());
  start();
}

void WindowFixture::end() {
  window.reset();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::filesystem::path WindowFixture::take(const std::string& name, std::uint32_t frames, bool isRaw,
                                          bool isFloat) const {
  WaveBytes wave;
  wave.bext("TARN J4", isRaw ? "MSRAW=ON" : "MSRAW=OFF");
  if (isFloat) {
    std::vector<float> samples(2 * std::size_t{frames}, 0.5F);
    for (std::size_t i = 1; i < samples.size(); i += 2) samples[i] = 0.25F;
    return takes.file(name, wave.formatFloat().data(WaveBytes::samplesFloat(samples)).get());
  }
  constexpr std::int32_t kHalf = 0x400000;
  std::vector<std::int32_t> samples(2 * std::size_t{frames}, kHalf);
  for (std::size_t i = 1; i < samples.size(); i += 2) samples[i] = kHalf / 2;
  return takes.file(name, wave.format24().data(WaveBytes::samples24(samples)).get());
}

std::filesystem::path WindowFixture::brokenTake(const std::string& name) const {
  auto bytes = TemporaryFolder::read(take(name));
  const std::string_view mark = "data";
  const auto found = std::search(bytes.begin(), bytes.end(), mark.begin(), mark.end(),
                                 [](std::byte a, char b) { return a == std::byte(b); });
  std::fill_n(found + 4, 4, std::byte{0});
  std::fill_n(bytes.begin() + 4, 4, std::byte{0});
  return takes.file(name, bytes);
}

std::filesystem::path WindowFixture::file(const std::string& name) const {
  return takes.file(name, {std::byte{'x'}});
}

std::filesystem::path WindowFixture::folder(const std::string& name) const {
  std::filesystem::create_directories(takes.path() / name);
  return takes.path() / name;
}

void WindowFixture::waitFor(const std::function<bool()>& condition, const char* what) {
  ASSERT_TRUE(EventLoop::runUntil(condition)) << what;
}

void WindowFixture::waitForLook() {
  waitFor([this] { return !controller().browser().isLooking(); }, "whether it is there");
}

void WindowFixture::refresh() {
  const QSignalSpy answers(&controller(), &ViewController::listed);
  controller().updateFileBrowser();
  waitFor([&] { return answers.count() > 0; }, "a new listing");
}

std::vector<std::string> WindowFixture::rows() const {
  std::vector<std::string> names;
  const QAbstractItemModel& model = *view().browser->tableFile->model();
  for (int row = 0; row < model.rowCount(); ++row) {
    names.push_back(model.index(row, 0).data().toString().toStdString());
  }
  return names;
}

int WindowFixture::rowOf(const std::string& name) const {
  const auto names = rows();
  return static_cast<int>(std::ranges::find(names, name) - names.begin());
}

std::string WindowFixture::selected() const {
  const int row = view().browser->tableFile->selectedRow();
  return row < 0 ? "" : rows()[static_cast<std::size_t>(row)];
}

std::vector<std::string> WindowFixture::allSelected() const {
  std::vector<std::string> names;
  for (const int row : view().browser->tableFile->selectedRows()) {
    names.push_back(rows()[static_cast<std::size_t>(row)]);
  }
  return names;
}

void WindowFixture::clickRow(const std::string& name) {
  FileList& list = *view().browser->tableFile;
  const QModelIndex index = list.model()->index(rowOf(name), 0);
  list.scrollTo(index);
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(index).center());
}

void WindowFixture::doubleClickRow(const std::string& name) {
  clickRow(name);
  FileList& list = *view().browser->tableFile;
  const QModelIndex index = list.model()->index(rowOf(name), 0);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(index).center());
}

void WindowFixture::open(const std::string& name) {
  waitForTake([&] { doubleClickRow(name); });
  ASSERT_NE(controller().wavPlayer(), nullptr) << name << " was not opened";
}

void WindowFixture::waitForTake(const std::function<void()>& open) {
  const QSignalSpy opened(&controller().take(), &TakeSession::opened);
  const QSignalSpy closed(&controller().take(), &TakeSession::closed);
  open();
  waitFor([&] { return !opened.empty() || !closed.empty(); }, "the take");
}

void WindowFixture::play(int milliseconds) {
  constexpr int kStep = 20;
  const auto& waiting = PlayingFile::get().state().waiting;
  for (int rest = milliseconds; rest > 0; rest -= kStep) {
    if (isMediumFast) waitFor([&] { return waiting.empty(); }, "what is to be heard");
    clock.advance(std::min(rest, kStep));
    QCoreApplication::processEvents();
  }
}

void WindowFixture::letLevelsArrive() {
  WaveFileReader& reader = *controller().exportJob()->reader();
  const double time = player().curremtTime();
  while (!reader.follow(time, time + 1.0)) std::this_thread::yield();
}

void WindowFixture::plugIn() {
  link.plugIn();
  constexpr double kGraceAndHandshake = 1.5;
  midiClock->advance(kGraceAndHandshake);
}

void WindowFixture::pullOut() {
  link.pullOut();
}

void WindowFixture::press(QWidget* dialog, const QString& text) {
  ASSERT_NE(dialog, nullptr);
  for (auto* const button : dialog->findChildren<QAbstractButton*>()) {
    if (button->text().remove(u'&') == text) return QTest::mouseClick(button, Qt::LeftButton);
  }
  FAIL() << "no button " << text.toStdString();
}

void WindowFixture::closeAlert(const QString& text) {
  auto* const alert = shown<QMessageBox>();
  ASSERT_NE(alert, nullptr) << "no alert";
  EXPECT_EQ(alert->informativeText(), text);
  EXPECT_EQ(alert->text(), "");
  EXPECT_EQ(alert->icon(), QMessageBox::NoIcon);
  press(alert, QStringLiteral("Ok"));
}
