// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/ExportFacts.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>
#include <algorithm>
#include <system_error>

#include "controls/NumberText.h"

namespace {

// Why it cannot be of use; empty where it can.
QString obstacleTo(const ExportFacts& facts, bool is24bit, std::optional<std::uint64_t> free) {
  if (facts.oddBits != 0) {
    return QCoreApplication::translate("ExportFacts",
                                       "These %1-bit samples export as noise: the recorder writes "
                                       "24 bits or 32-bit float")
        .arg(facts.oddBits);
  }
  if (!free || *free >= (is24bit ? facts.size24 : facts.size32)) return {};
  return QCoreApplication::translate("ExportFacts", "Only %1 free in this folder")
      .arg(ExportFacts::textOf(*free));
}

}  // namespace

ExportFacts::ExportFacts(const Export& job)
    : isValid(job.IsFileValid() && job.reader() != nullptr && job.reader()->image()),
      source(job.getFilePath()),
      folder(job.getDirPath()),
      gain(job.gain()),
      angle(job.angle()) {
  if (!isValid) return;
  isRawMidSide = job.reader()->isBoMSFormat();
  const WaveHeader& header = job.reader()->header();
  if (!header.hasSound()) oddBits = header.BitsPerSample;
  frames = job.reader()->frameCount();
  size24 = job.outputSize(true);
  size32 = job.outputSize(false);
}

std::filesystem::path ExportFacts::proposal() const {
  return folder / Export::nameFor(source);
}

std::filesystem::path ExportFacts::selectionProposal() const {
  return folder / Export::nameForSelection(source);
}

ExportFacts ExportFacts::only(const FrameRange& range) const {
  constexpr std::uint64_t kBytes24 = 6;
  constexpr std::uint64_t kBytes32 = 8;
  const std::uint64_t away = frames - std::min(frames, range.end - range.first);
  ExportFacts facts = *this;
  facts.frames -= away;
  facts.size24 -= kBytes24 * away;
  facts.size32 -= kBytes32 * away;
  return facts;
}

QString ExportFacts::widthText() const {
  if (!isRawMidSide) return QCoreApplication::translate("ExportFacts", "Channels as recorded");
  return QStringLiteral("%1°").arg(WaveFileReader::wholeAngle(angle));
}

QString ExportFacts::gainText(bool isNormalized) const {
  if (isNormalized) return QCoreApplication::translate("ExportFacts", "To full scale");
  return (gain > 0 ? QStringLiteral("+") : QString()) + NumberText::of(gain) +
         QStringLiteral(" dB");
}

QString ExportFacts::textOf(std::uint64_t bytes) {
  return QLocale().formattedDataSize(static_cast<qint64>(bytes), 1, QLocale::DataSizeSIFormat);
}

QString ExportFacts::sizeText(bool is24bit) const {
  return textOf(is24bit ? size24 : size32);
}

ExportFacts ExportFacts::with(std::uint64_t bytes) const {
  ExportFacts facts = *this;
  facts.size24 += bytes;
  facts.size32 += bytes;
  return facts;
}

QString ExportFacts::warning(bool is24bit, std::optional<std::uint64_t> free) const {
  QStringList lines{obstacleTo(*this, is24bit, free)};
  if (ChunkSizes::isRf64(is24bit ? size24 : size32)) {
    lines << QCoreApplication::translate(
        "ExportFacts", "Over 4 GiB: written as RF64, which not every program reads");
  }
  lines.removeAll(QString());
  return lines.join(u'\n');
}

std::optional<std::uint64_t> ExportFacts::freeIn(const std::filesystem::path& folder) {
  std::error_code error;
  const auto space = std::filesystem::space(folder, error);
  return error ? std::nullopt : std::optional<std::uint64_t>(space.available);
}
