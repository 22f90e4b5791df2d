// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <array>
#include <string_view>

#include "WindowFixture.h"
#include "midi/simulator/RecorderScript.h"

namespace {

/// Whether a recorder is connected, from the beginning to its being unplugged: each change.
using Connections = std::vector<bool>;

void note(Connections& connections, bool isConnected) {
  if (connections.back() != isConnected) connections.push_back(isConnected);
}

/// Window and tool over the same scripts, which end by unplugging the recorder.
class DeviceAgreement : public WindowFixture, public testing::WithParamInterface<const char*> {
 protected:
  /// What the label says.
  Connections ofWindow(double seconds) {
    std::string fault;
    RecorderScript script = RecorderScript::parse(GetParam(), fault);
    EXPECT_EQ(fault, "");
    startOnTakes();
    script.play(link);
    Connections connections{false};
    constexpr double kStep = 0.1;
    for (double time = 0; time < seconds; time += kStep) {
      midiClock->advance(kStep);
      const QString text = view().device->lblConnect->text();
      EXPECT_TRUE(text == "Connected" || text == "Disconnected") << text.toStdString();
      note(connections, text == "Connected");
    }
    return connections;
  }

  /// What the tool prints, in the time that the script takes.
  static Connections ofTool() {
    QProcess tool;
    tool.start(QStringLiteral(MIXDECK_TOOL),
               {"device", "watch", "--json", QStringLiteral("--simulate=%1").arg(GetParam())});
    Connections connections{false};
    for (bool isThere = true; isThere;) {
      const QJsonObject told = nextLine(tool);
      EXPECT_TRUE(told.contains("connected")) << tool.readAllStandardError().toStdString();
      note(connections, told["connected"].toBool());
      isThere = told["connected"].toBool() || told["step"].isDouble();
    }
    tool.terminate();
    EXPECT_TRUE(tool.waitForFinished());
    return connections;
  }

 private:
  static QJsonObject nextLine(QProcess& tool) {
    constexpr int kMinute = 60'000;
    QElapsedTimer waited;
    waited.start();
    while (!tool.canReadLine() && waited.elapsed() < kMinute) {
      if (!tool.waitForReadyRead(kMinute)) break;
    }
    return QJsonDocument::fromJson(tool.readLine()).object();
  }
};

std::string scriptName(const testing::TestParamInfo<const char*>& script) {
  constexpr std::array kNames{"Whole", "Stopped", "Late"};
  return kNames.at(script.index);
}

INSTANTIATE_TEST_SUITE_P(OfHandshakes, DeviceAgreement,
                         testing::Values("report@3,unplug@4", "silent@start,report@6,unplug@6.5",
                                         "slow@card,unplug@7"),
                         scriptName);

TEST_P(DeviceAgreement, HoldsOverAScript) {
  constexpr double kLongest = 8;
  const Connections window = ofWindow(kLongest);
  EXPECT_EQ(window, ofTool());
  const bool isWhole = std::string_view(GetParam()).find("silent") == std::string_view::npos;
  EXPECT_EQ(window, isWhole ? (Connections{false, true, false}) : Connections{false});
}

}  // namespace
