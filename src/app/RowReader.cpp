// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/RowReader.h"

#include <QDateTime>
#include <QFile>
#include <QLocale>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <utility>

#include "controls/NumberText.h"
#include "export/Export.h"
#include "export/Recognition.h"
#include "takes/FileTime.h"
#include "wav/BextLayout.h"
#include "wav/WaveFileReader.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostKnown = 20'000;  // then it begins anew
constexpr auto kAtOnce = std::chrono::milliseconds(100);

std::string recordedOf(const WaveFileReader& reader) {
  const auto chunk = reader.getBextChunk();
  if (!chunk) return {};
  const WavArray bext = reader.getChunkData(*chunk, bext::kFixedSize);
  if (bext.length < bext::kFixedSize) return {};
  const auto field = [&](BextField place) {
    return WaveFileReader::DecodeAsString(bext.bytes + place.offset, place.size);
  };
  return field(bext::kOriginationDate) + " " + field(bext::kOriginationTime);
}

void readFile(const std::string& path, RowReader::Known& known) {
  std::string whyNot;
  const auto reader = WaveFileReader::openFile(path, whyNot);
  if (!reader || !reader->isValidFile()) return;
  known.facts.seconds = reader->durationSeconds();
  known.facts.recorded = recordedOf(*reader);
  known.isRawMidSide = Recognition(*reader).isRawMidSide();
}

QString describe(const ExportNote& note, bool isRaw) {
  QStringList parts;
  if (isRaw && note.width) parts << RowReader::tr("width %1°").arg(static_cast<int>(*note.width));
  if (note.gain) parts << RowReader::tr("gain %1 dB").arg(NumberText::of(*note.gain));
  const auto when = QDateTime::fromSecsSinceEpoch(note.written);
  parts << QLocale().toString(when, QLocale::ShortFormat);
  const QString name = QFile::decodeName(note.target.filename().c_str());
  return RowReader::tr("Exported as %1: %2").arg(name, parts.join(QStringLiteral(", ")));
}

// What was noted, and what bears the name that an export gets where nobody chose one.
std::vector<ExportNote> candidates(const fs::path& take, TakeKeeper& keeper) {
  std::vector<ExportNote> notes = keeper.exportsOf(take);
  for (const fs::path& name : {Export::nameFor(take), Export::nameForSelection(take)}) {
    const fs::path target = take.parent_path() / name;
    const bool isNoted = std::ranges::find(notes, target, &ExportNote::target) != notes.end();
    if (!isNoted && target != take) notes.push_back({take, target, {}, {}, 0});
  }
  return notes;
}

void lookForExports(const fs::path& take, RowReader::Known& known, TakeKeeper& keeper) {
  QStringList lines;
  for (ExportNote& note : candidates(take, keeper)) {
    const FileTime now = FileTime::of(note.target);
    if (!now.isThere) continue;
    note.written = now.modified / FileTime::kSecond;
    lines << describe(note, known.isRawMidSide);
  }
  known.facts.isExported = !lines.isEmpty();
  known.facts.exportNote = lines.join(u'\n');
}

}  // namespace

RowReader::RowReader(FolderBrowser& browser, ExportQueue& exports,
                     std::shared_ptr<TakeKeeper> keeper, const QAction& remembers, QObject* parent)
    : QObject(parent), _browser(browser), _keeper(std::move(keeper)), _remembers(remembers) {
  connect(&_browser, &FolderBrowser::newRows, this, &RowReader::begin);
  connect(&exports, &ExportQueue::finished, this,
          [this](int /*id*/, const ExportOrder& order, const ExportResult& result) {
            note(order, result);
          });
}

RowReader::Known RowReader::look(const std::string& path, const Known& before, TakeKeeper& keeper) {
  const FileTime now = FileTime::of(path);
  Known known = before;
  if (!now.isThere || now.size != before.size || now.modified != before.modified) {
    known = Known{now.size, now.modified, false, {}};
    readFile(path, known);
  }
  lookForExports(path, known, keeper);
  return known;
}

void RowReader::begin() {
  _errand.giveUp();
  if (_known.size() > kMostKnown) _known.clear();
  _paths.clear();
  _next = 0;
  for (const WavItem& item : _browser.model().files()) {
    if (!item.isFolder) _paths.push_back(item.fullPath);
  }
  readSome();
}

RowReader::KnownByPath RowReader::rest() const {
  KnownByPath wanted;
  for (std::size_t i = _next; i < _paths.size(); ++i) {
    const auto found = _known.find(_paths[i]);
    wanted.emplace(_paths[i], found == _known.end() ? Known() : found->second);
  }
  return wanted;
}

// For a tenth of a second, so that a slow medium shows what it has told by then.
void RowReader::readSome() {
  if (_next == _paths.size()) return void(emit finished());
  const std::vector<std::string> paths(_paths.begin() + static_cast<std::ptrdiff_t>(_next),
                                       _paths.end());
  _errand.begin([this, paths, before = rest(), keeper = _keeper]() -> Errand::Outcome {
    KnownByPath some;
    const auto end = std::chrono::steady_clock::now() + kAtOnce;
    for (const std::string& path : paths) {
      some.emplace(path, look(path, before.at(path), *keeper));
      if (std::chrono::steady_clock::now() >= end) break;
    }
    return [this, some] { take(some); };
  });
}

void RowReader::take(const KnownByPath& some) {
  RowFactsByPath facts;
  for (const auto& [path, known] : some) {
    _known.insert_or_assign(path, known);
    facts.emplace(path, known.facts);
  }
  _next += some.size();
  _browser.addFacts(facts);
  readSome();
}

// The list follows a new file by itself; what is written elsewhere, it does not see.
void RowReader::note(const ExportOrder& order, const ExportResult& result) {
  if (result.end != ExportResult::End::Written) return;
  const bool hasGain = !order.isNormalized && !order.loudness;
  const auto gain = hasGain ? std::optional(order.gain) : std::nullopt;
  const std::int64_t now = QDateTime::currentSecsSinceEpoch();
  if (_remembers.isChecked())
    _keeper->noteExport({order.source, order.target, order.angle, gain, now});
  begin();
}
