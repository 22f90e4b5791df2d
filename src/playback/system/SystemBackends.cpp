// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/system/SystemBackends.h"

#include "playback/AudioBackends.h"
#include "playback/ReadAheadFile.h"
#include "playback/pulse/PulseOutput.h"
#include "playback/wave/WaveAudioFile.h"

void SystemBackends::choose() {
  AudioBackends::addFile(
      "wave", [] { return std::make_unique<ReadAheadFile>(std::make_unique<WaveAudioFile>()); });
  AudioBackends::addOutput(
      "pulse",
      [](const AudioOutput::Format& format) { return std::make_unique<PulseOutput>(format); },
      PulseOutput::library());
  AudioBackends::chooseFile("wave");
  AudioBackends::chooseOutput("pulse");
}
