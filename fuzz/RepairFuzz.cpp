// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Arbitrary bytes as a take that broke off. An input is the file; see WaveRecipe.h.

#include <string>

#include "FuzzInput.h"
#include "WaveRecipe.h"
#include "support/TemporaryFolder.h"
#include "transfer/TakeRepair.h"
#include "wav/WaveFileReader.h"

namespace {

using State = TakeDiagnosis::State;

std::shared_ptr<const WaveImage> imageOf(const std::vector<std::byte>& file) {
  return WaveImage::fromBytes(file);
}

void checkDiagnosis(const TakeDiagnosis& found, std::size_t size) {
  require((found.state == State::Hopeless) == !found.whyHopeless.empty(), "no hope has a reason");
  require((found.state == State::Broken) <= !found.findings.empty(), "broken has a reason");
  if (found.state == State::Hopeless) return;
  require(found.frameBytes > 0 && found.keptBytes % found.frameBytes == 0, "frames are whole");
  require(found.dataAt + found.keptBytes <= size, "what is kept is there");
  require(found.tailBytes == 0 || found.tailAt + found.tailBytes <= size, "so is what follows");
}

void checkRepair(const std::vector<std::byte>& file, const TakeDiagnosis& found) {
  const TemporaryFolder folder;
  const auto target = folder.path() / "out.WAV";
  TakeRepair repair(imageOf(file), found);
  require(repair.save(target, AtomicFile::Existing::Refuse), "what is broken can be salvaged");
  const auto saved = TemporaryFolder::read(target);
  require(saved.size() == repair.size(), "the size is as announced");
  const TakeDiagnosis again = TakeDiagnosis::of(*imageOf(saved));
  require(again.state == State::Sound, "what was salvaged is sound");
  require(again.keptBytes == found.keptBytes, "every frame is there");
  const auto was = std::span(file).subspan(found.dataAt, found.keptBytes);
  const auto is = std::span(saved).subspan(again.dataAt, again.keptBytes);
  require(std::ranges::equal(was, is), "the samples are untouched");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const auto file = recipe::takeFile(input);
  const TakeDiagnosis found = TakeDiagnosis::of(*imageOf(file));
  checkDiagnosis(found, file.size());
  if (found.state == State::Broken) checkRepair(file, found);
  return 0;
}
