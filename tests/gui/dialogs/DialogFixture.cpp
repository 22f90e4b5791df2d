// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "DialogFixture.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <vector>

#include "base/EB.h"
#include "base/NotificationCenter.h"
#include "controls/Appearance.h"
#include "support/WaveBytes.h"

namespace {

constexpr std::ptrdiff_t kFirstSample = 748;

}  // namespace

DialogFixture::DialogFixture() : _mainWindow(std::make_unique<QWidget>()) {
  Appearance::apply(*qApp);
  EB::initData();
  NotificationCenter::defaultCenter().addObserver(
      this, [this](const Notification& event) { _told.push_back(event.name); },
      EB::kReloadFileList);
  _held.releaseAll();
  makeDesk();
}

void DialogFixture::makeDesk() {
  _queue = std::make_unique<ExportQueue>(_held.work(), [this] { return _now; });
  _desk = std::make_unique<ExportDesk>(*_queue, *_mainWindow);
  QObject::connect(_desk.get(), &ExportDesk::exported, [this](const std::filesystem::path& path) {
    _told.push_back("exported " + path.string());
  });
  QObject::connect(_desk.get(), &ExportDesk::failed,
                   [this](const QString& why) { _told.push_back("failed " + why.toStdString()); });
}

DialogFixture::~DialogFixture() {
  NotificationCenter::defaultCenter().removeObserver(this);
  _desk.reset();
  _queue.reset();
  _mainWindow.reset();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  // One may own another.
  std::vector<QPointer<QWidget>> left;
  for (QWidget* const widget : QApplication::topLevelWidgets()) left.emplace_back(widget);
  for (const QPointer<QWidget>& widget : left) delete widget.data();
}

QRect DialogFixture::showMainWindow() {
  _mainWindow->setGeometry(100, 60, 601, 451);
  _mainWindow->show();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(_mainWindow.get()));
  return _mainWindow->frameGeometry();
}

QPushButton* DialogFixture::button(QWidget& dialog, const QString& text) {
  for (auto* const button : dialog.findChildren<QPushButton*>()) {
    if (button->text().remove(u'&') == text) return button;
  }
  ADD_FAILURE() << "no button " << text.toStdString();
  return nullptr;
}

void DialogFixture::click(QWidget& dialog, const QString& text) {
  if (QPushButton* const found = button(dialog, text)) QTest::mouseClick(found, Qt::LeftButton);
}

QStringList DialogFixture::labels(const QWidget& dialog) {
  QStringList texts;
  for (const auto* const label : dialog.findChildren<QLabel*>()) {
    if (label->isVisible() && !label->text().isEmpty()) texts << label->text();
  }
  return texts;
}

void DialogFixture::expectInTheMiddle(const QWidget& dialog, const QRect& frame) {
  const QSize spare = frame.size() - dialog.frameGeometry().size();
  EXPECT_EQ(frame.x() + spare.width() / 2, dialog.x());
  EXPECT_EQ(frame.y() + spare.height() / 2, dialog.y());
}

void DialogFixture::expectNothingCut(const QWidget& dialog) {
  for (const auto* const label : dialog.findChildren<QLabel*>()) {
    if (!label->isVisible()) continue;
    const std::string text = label->text().toStdString();
    EXPECT_GE(label->height(), label->heightForWidth(label->width())) << text;
    // What is larger than the screen is scrolled.
    EXPECT_TRUE(label->parentWidget()->rect().contains(label->geometry())) << text;
  }
}

std::filesystem::path DialogFixture::take(const std::string& name, bool isRaw) const {
  std::vector<std::int32_t> samples(2 * 3000);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    samples[i] = static_cast<std::int32_t>((i * 7919) % 4'000'000) - 2'000'000;
  }
  return _folder.file(
      name, WaveBytes().format24().recorderBext(isRaw).data(WaveBytes::samples24(samples)).get());
}

std::shared_ptr<Export> DialogFixture::job(bool isRaw) const {
  auto job = std::make_shared<Export>(take("R0001.WAV", isRaw));
  job->setGain(6);
  job->setAngle(90.7);
  return job;
}

QPointer<ExportVC> DialogFixture::openExport(const std::shared_ptr<Export>& job) {
  showMainWindow();
  _desk->ask(job);
  QPointer<ExportVC> dialog(shown<ExportVC>());
  QApplication::setActiveWindow(dialog);
  return dialog;
}

void DialogFixture::saveAs(ExportVC& dialog, const std::string& path) const {
  click(dialog, "Save");
  const QPointer<SavePanel> panel(waitForShown<SavePanel>());
  auto* const edit = panel->findChild<QLineEdit*>("fileNameEdit");
  edit->setText(QString::fromStdString(path));
  QTest::keyClick(edit, Qt::Key_Return);
  EXPECT_TRUE(waitUntil([&] { return !panel || shown<QMessageBox>() != nullptr; }));
}

std::vector<std::string> DialogFixture::told(const QPointer<ExportVC>& dialog) const {
  EXPECT_TRUE(waitUntil([&] { return dialog.isNull() && !_queue->isBusy(); }));
  return _told;
}

std::vector<std::byte> DialogFixture::samplesOf(const std::filesystem::path& path) const {
  auto bytes = TemporaryFolder::read(path);
  bytes.erase(bytes.begin(), bytes.begin() + std::min(kFirstSample, std::ssize(bytes)));
  return bytes;
}
