// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// What a picture of the sound costs in memory, be the sound steady or not: the program
// itself asks for none, neither for what it computes nor for texts that it would write again. What
// the toolkit asks for while it paints is its own affair, but for that it must not grow.

#include <execinfo.h>
#include <link.h>

#include <QTimer>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <numbers>
#include <set>
#include <string_view>
#include <thread>
#include <vector>

#include "WindowFixture.h"
#include "app/PictureTimer.h"
#include "support/WaveBytes.h"

namespace {

/// Who asked: what stands between them and the allocator, strings and lists of the toolkit too,
/// asks on behalf of others.
enum class Owner { Between, Program, Toolkit };

struct Part {
  std::uintptr_t base;
  std::uintptr_t begin;
  std::uintptr_t end;
  Owner owner;
};

Owner ownerOf(std::string_view file) {
  if (file.empty()) return Owner::Program;
  for (const char* const between : {"libc.so", "libstdc++", "libgcc_s", "ld-linux", "Qt6Core"}) {
    if (file.find(between) != std::string_view::npos) return Owner::Between;
  }
  return Owner::Toolkit;
}

std::vector<Part>& parts() {
  static std::vector<Part> all;
  return all;
}

int addParts(dl_phdr_info* info, std::size_t /*size*/, void* /*data*/) {
  for (int i = 0; i < info->dlpi_phnum; ++i) {
    const auto& segment = info->dlpi_phdr[i];
    const std::uintptr_t begin = info->dlpi_addr + segment.p_vaddr;
    if (segment.p_type != PT_LOAD) continue;
    parts().push_back({info->dlpi_addr, begin, begin + segment.p_memsz, ownerOf(info->dlpi_name)});
  }
  return 0;
}

/// Of this thread alone, while it counts.
thread_local bool isCounting = false;
thread_local long ours = 0;
thread_local long others = 0;
/// Where in the program, for those who mend what fails; as `addr2line` takes it.
thread_local std::array<std::uintptr_t, 64> places{};

void judge(const Part& part, std::uintptr_t address) {
  if (part.owner == Owner::Toolkit) {
    ++others;
    return;
  }
  places[static_cast<std::size_t>(ours) % places.size()] = address - part.base;
  ++ours;
}

[[gnu::noinline]] void note() {
  constexpr int kDeepest = 40;
  constexpr int kOwn = 2;  // this one and the allocator's
  std::array<void*, kDeepest> stack{};
  isCounting = false;
  const int depth = backtrace(stack.data(), kDeepest);
  for (int i = kOwn; i < depth; ++i) {
    const auto address = reinterpret_cast<std::uintptr_t>(stack[static_cast<std::size_t>(i)]);
    const auto part = std::ranges::find_if(
        parts(), [address](const Part& one) { return address >= one.begin && address < one.end; });
    if (part == parts().end() || part->owner == Owner::Between) continue;
    judge(*part, address);
    break;
  }
  isCounting = true;
}

}  // namespace

// Every allocation of the program goes through here, those of libraries too.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* block, std::size_t size);

extern "C" void* malloc(std::size_t size) {
  if (isCounting) note();
  return __libc_malloc(size);
}
extern "C" void* calloc(std::size_t count, std::size_t size) {
  if (isCounting) note();
  return __libc_calloc(count, size);
}
extern "C" void* realloc(void* block, std::size_t size) {
  if (isCounting) note();
  return __libc_realloc(block, size);
}

namespace {

using testing::IsEmpty;

/// A take that plays, all of it measured, with a loop whose marks are in view; its sound is steady
/// unless told otherwise.
class Frames : public WindowFixture {
 protected:
  void SetUp() override {
    parts().clear();
    dl_iterate_phdr(addParts, nullptr);
    std::array<void*, 1> first{};
    backtrace(first.data(), 1);  // which loads what it needs
    take("R0001.WAV");
    music("R0002.WAV");
    startOnTakes();
    begin("R0001.WAV");
  }
  void begin(const char* name) {
    open(name);
    controller().findChild<QTimer*>("timerUpdateFolder")->stop();
    const auto& whole = *stage().field->wholeTake;
    waitFor([&] { return whole.figure() && whole.note().isEmpty(); }, "the whole take");
    pictures = {stage().field->scope,  stage().field->correlation, stage().lvlLeft,
                stage().lvlRight,      stage().clipLeft,           stage().clipRight,
                stage().lblImageValue, view().player->waveform};
    scope = controller().findChild<PictureTimer*>("timerScope");
    levels = controller().findChild<QTimer*>("timerLevel");
    waveform = controller().findChild<QTimer*>("timerWaveform");
    controller().take().setLoop(FrameLoop{24'000, 240'000});
    play(1000);
    letLevelsArrive();
  }
  /// Side swells and fades each second, and with it levels and correlation.
  void music(const char* name) const {
    constexpr double kRate = 48'000;
    constexpr double kHalf = 0x400000;
    std::vector<std::int32_t> samples;
    for (int i = 0; i < 480'000; ++i) {
      const double second = 2 * std::numbers::pi * i / kRate;
      samples.push_back(static_cast<std::int32_t>(kHalf * std::sin(440 * second)));
      const double side = kHalf * std::cos(440 * second) * (1 + std::sin(second)) / 2;
      samples.push_back(static_cast<std::int32_t>(side));
    }
    takes.file(name, WaveBytes()
                         .bext("TARN J4", "MSRAW=ON")
                         .format24()
                         .data(WaveBytes::samples24(samples))
                         .get());
  }
  /// Computes and paints the picture of the moment, and waits for the next.
  void frame() {
    scope->timeout();
    for (QTimer* const timer : {levels, waveform}) {
      QTimerEvent event(timer->timerId());
      QCoreApplication::sendEvent(timer, &event);
    }
    for (QWidget* const picture : pictures) picture->repaint();
  }
  /// As many pictures of what plays; only what they cost is counted.
  void count(int frames) {
    ours = 0;
    others = 0;
    for (int i = 0; i < frames; ++i) {
      play(33);
      letLevelsArrive();
      isCounting = true;
      frame();
      isCounting = false;
      captions.insert(stage().lblImageValue->text());
    }
  }
  /// Once everything has been written and painted once, the program asks for nothing.
  void expectNothingIn(int frames) {
    count(frames);
    count(frames);
    EXPECT_THAT(found(), IsEmpty());
    EXPECT_EQ(ours, 0);
    const long before = others;
    count(frames);
    EXPECT_LE(others, before + before / 4) << "what the toolkit asks for does not grow";
  }

  std::vector<QWidget*> pictures;
  PictureTimer* scope = nullptr;
  QTimer* levels = nullptr;
  QTimer* waveform = nullptr;
  std::set<QString> captions;  ///< that were counted

  /// Where in the program memory was asked for.
  static std::vector<std::string> found() {
    std::set<std::uintptr_t> some(places.begin(),
                                  places.begin() + std::min<long>(ours, places.size()));
    std::vector<std::string> lines;
    for (const std::uintptr_t place : some)
      lines.push_back(QString::number(place, 16).toStdString());
    return lines;
  }
};

TEST_F(Frames, WhatIsAskedForIsCountedAndKnownByWhoAsks) {
  ours = 0;
  others = 0;
  isCounting = true;
  const auto block = std::make_unique<std::vector<int>>(1000);
  const QString text = QStringLiteral("%1").arg(block->size());
  isCounting = false;
  EXPECT_GE(ours, 3) << "a vector, what is in it, a text";
  EXPECT_EQ(others, 0);
  isCounting = true;
  stage().field->momentary->repaint();
  isCounting = false;
  EXPECT_GE(others, 1);
}

TEST_F(Frames, OfASteadySoundTakeNoMemory) {
  constexpr int kSome = 15;
  expectNothingIn(kSome);
  RecordProperty("allocations_of_the_toolkit_a_frame", static_cast<int>(others / kSome));
}

// The greatest levels come in the first second that is heard at the new width.
TEST_F(Frames, OfMusicTakeNoMemory) {
  constexpr int kSecond = 31;
  begin("R0002.WAV");
  stage().sliderStereo->setNewAngle(90);
  play(400);  // the buffers that were full at the old one
  letLevelsArrive();
  expectNothingIn(kSecond);
  EXPECT_GT(captions.size(), 10U) << "the correlation is told anew with each picture";
}

}  // namespace
