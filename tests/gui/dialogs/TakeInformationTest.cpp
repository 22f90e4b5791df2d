// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/TakeInformation.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>

#include "DialogFixture.h"
#include "analysis/TakeAnalyzer.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class TakeInformationTest : public DialogFixture {
 protected:
  /// All that the window tells of the file, once it is all there.
  std::string told(const TakeInformation::Subject& subject) {
    showMainWindow();
    _window = new TakeInformation(subject, _mainWindow.get());
    QSignalSpy complete(_window, &TakeInformation::complete);
    _window->show();
    EXPECT_TRUE(waitUntil([&] { return complete.count() == 1; }));
    return _window->text().toStdString();
  }

  QPointer<TakeInformation> _window;
};

TEST_F(TakeInformationTest, TellsEveryChunkAndFieldAndWhatItMeasures) {
  const auto file = take("a.WAV");
  const std::string text = told({file, 90, 6});
  EXPECT_THAT(text, HasSubstr("Of the recorder: yes\n  Raw M/S: yes\n"
                              "  Format: 2 channels, 48000 Hz, 24-bit integer PCM\n"));
  for (const char* const part :
       {"Frames: 3000", "  fmt : 16 bytes at ", "  bext: ", "  data: 18000", "Originator: TARN J4",
        "CodingHistory: ", "TimeReference: 123456"}) {
    EXPECT_THAT(text, HasSubstr(part));
  }
  std::string whyNot;
  auto reader = WaveFileReader::openFile(file, whyNot);
  reader->setIsBoMSFormat(true);
  const auto analysis = TakeAnalyzer(*reader).wait();
  const QString peak = QString::number(*analysis->at(90, 6).samplePeakDbfs, 'f', 2);
  EXPECT_THAT(text, HasSubstr("Figures at 90° and 6 dB\n"));
  EXPECT_THAT(text, HasSubstr("Sample peak: " + peak.toStdString() + " dBFS"));
  EXPECT_THAT(text, HasSubstr("Integrated loudness: –")) << "it is too short for one";
  const auto& tree = *_window->findChild<QTreeWidget*>();
  const QString shown = QString(peak).replace(u'-', u'−') + " dBFS";
  EXPECT_EQ(tree.findItems(shown, Qt::MatchExactly | Qt::MatchRecursive, 1).size(), 1);
}

TEST_F(TakeInformationTest, TakesAnAnalysisThatIsThere) {
  const auto file = take("a.WAV");
  std::string whyNot;
  const auto other = WaveFileReader::openFile(take("b.WAV", false), whyNot);
  const std::shared_ptr<const TakeAnalysis> analysis = TakeAnalyzer(*other).wait();
  const std::string text = told({file, 0, 0, analysis});
  const QString peak = QString::number(*analysis->at(0, 0).samplePeakDbfs, 'f', 2);
  EXPECT_THAT(text, HasSubstr("Sample peak: " + peak.toStdString() + " dBFS"));
}

TEST_F(TakeInformationTest, TellsWhyAFileIsNoRecording) {
  const std::string text = told({_folder.file("x.WAV", {std::byte{'x'}}), 90, 0});
  EXPECT_THAT(text, HasSubstr("Of the recorder: no"));
  EXPECT_THAT(text, HasSubstr("Note: Not a WAVE file"));
  EXPECT_THAT(text, Not(HasSubstr("Figures")));
  EXPECT_THAT(told({path("gone.WAV"), 90, 0}), HasSubstr("Note: No such file or directory"));
}

TEST_F(TakeInformationTest, IsCopiedAndGoesWhenItIsClosed) {
  const std::string text = told({take("a.WAV"), 90, 6});
  EXPECT_EQ(_window->windowTitle(), "Information");
  EXPECT_EQ(_window->findChild<QTreeWidget*>()->accessibleName(), "Information");
  click(*_window, "Copy");
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), text);
  click(*_window, "Close");
  EXPECT_TRUE(waitUntil([this] { return _window.isNull(); }));
}

TEST_F(TakeInformationTest, MayBeClosedWhileItMeasures) {
  showMainWindow();
  for (int i = 0; i < 3; ++i) {
    _window = new TakeInformation({take("a.WAV"), 90, 6}, _mainWindow.get());
    _window->show();
    _window->close();
    EXPECT_TRUE(waitUntil([this] { return _window.isNull(); }));
  }
}

}  // namespace
