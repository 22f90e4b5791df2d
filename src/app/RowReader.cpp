// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/RowReader.h"

#include <QDateTime>
#include <QLocale>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "controls/NumberText.h"
#include "dialogs/PathText.h"
#include "export/Export.h"
#include "export/Recognition.h"
#include "takes/FileTime.h"
#include "wav/BextLayout.h"
#include "wav/WaveFileReader.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostAtOnce = 500;
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

// The toolkit would have the system look up the time zone anew for each, whose lock all threads
// share and the thread sanitizer does not see.
QDateTime localTime(std::int64_t written) {
  const std::time_t seconds = written;
  std::tm local{};
  localtime_r(&seconds, &local);
  constexpr int kFirstYear = 1900;
  return {QDate(local.tm_year + kFirstYear, local.tm_mon + 1, local.tm_mday),
          QTime(local.tm_hour, local.tm_min, std::min(local.tm_sec, 59)), Qt::UTC};
}

// A gain that was found has many digits: two decimals of them, as the tool tells it.
QString gainText(double decibels) {
  constexpr int kHundredths = 100;
  const double rounded = std::round(decibels * kHundredths) / kHundredths;
  return NumberText::of(rounded == 0 ? 0 : rounded);
}

QString describeExport(const ExportNote& note, bool isRaw) {
  QStringList parts;
  if (isRaw && note.width) parts << RowReader::tr("width %1°").arg(static_cast<int>(*note.width));
  if (note.gain) parts << RowReader::tr("gain %1 dB").arg(gainText(*note.gain));
  parts << QLocale().toString(localTime(note.written), QLocale::ShortFormat);
  const QString name = PathText::nameOf(note.target);
  return RowReader::tr("Exported as %1: %2").arg(name, parts.join(QStringLiteral(", ")));
}

/// What was noted of takes, by their paths.
using Notes = std::multimap<std::string, ExportNote>;

Notes notesIn(const fs::path& folder, TakeKeeper& keeper) {
  Notes notes;
  for (const ExportNote& note : keeper.exportsOf(folder)) notes.emplace(note.source.native(), note);
  return notes;
}

// What was noted, and what bears the name that an export gets where nobody chose one.
std::vector<ExportNote> candidates(const fs::path& take, const Notes& noted) {
  std::vector<ExportNote> notes;
  const auto [first, last] = noted.equal_range(take.native());
  for (auto note = first; note != last; ++note) notes.push_back(note->second);
  for (const fs::path& name : {Export::nameFor(take), Export::nameForSelection(take)}) {
    const fs::path target = take.parent_path() / name;
    const bool isNoted = std::ranges::find(notes, target, &ExportNote::target) != notes.end();
    if (!isNoted && target != take) notes.push_back({take, target, {}, {}, 0});
  }
  return notes;
}

// Whether nobody has written it since it was noted. On FAT the clock of files counts by two
// seconds, which a new file may show only after a while; and what was noted by a former version is
// when it heard of the export, a moment later.
bool isAsNoted(const ExportNote& note, std::int64_t modified) {
  constexpr std::int64_t kCoarsest = 2;
  return modified <= note.written && modified >= note.written - kCoarsest;
}

void lookForExports(const fs::path& take, RowReader::Known& known, const Notes& noted) {
  QStringList lines;
  for (ExportNote& note : candidates(take, noted)) {
    const FileTime now = FileTime::of(note.target);
    if (!now.isThere) continue;
    const std::int64_t modified = now.modified / FileTime::kSecond;
    if (!isAsNoted(note, modified)) note = {note.source, note.target, {}, {}, 0};
    note.written = modified;
    lines << describeExport(note, known.isRawMidSide);
  }
  known.facts.isExported = !lines.isEmpty();
  known.facts.exportNote = lines.join(u'\n');
}

// Of one file, where `before` is what was known of it.
RowReader::Known look(const std::string& path, const RowReader::Known& before, const Notes& noted) {
  const FileTime now = FileTime::of(path);
  RowReader::Known known = before;
  if (!now.isThere || now.size != before.size || now.modified != before.modified) {
    known = {now.size, now.modified, false, {}};
    readFile(path, known);
  }
  lookForExports(path, known, noted);
  return known;
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
  connect(&_remembers, &QAction::toggled, this, &RowReader::beginAnew);
}

// A pass through the rows is gone on with, and followed by another one, where other rows come
// meanwhile: rows that come all the time, as exports do, would keep the last ones waiting for ever.
void RowReader::begin() {
  if (!_errand.isUnderWay() || _browser.place() != _folder) return beginAnew();
  _isBehind = true;
  const std::set<std::string> waiting(_paths.begin() + static_cast<std::ptrdiff_t>(_next),
                                      _paths.end());
  for (const std::string& path : shown()) {
    if (!_known.contains(path) && !waiting.contains(path)) _paths.push_back(path);
  }
}

void RowReader::beginAnew() {
  _errand.giveUp();
  _isBehind = false;
  _folder = _browser.place();
  _paths = shown();
  _next = 0;
  forgetOthers();
  readSome();
}

std::vector<std::string> RowReader::shown() const {
  std::vector<std::string> paths;
  for (const WavItem& item : _browser.model().files()) {
    if (!item.isFolder) paths.push_back(item.fullPath);
  }
  return paths;
}

void RowReader::forgetOthers() {
  if (_known.size() <= _paths.size() + FileListModel::kMostUnshown) return;
  std::map<std::string, Known> kept;
  for (const std::string& path : _paths) {
    if (auto known = _known.extract(path)) kept.insert(std::move(known));
  }
  _known = std::move(kept);
}

std::vector<RowReader::Row> RowReader::next() const {
  std::vector<Row> rows;
  for (std::size_t i = _next; i < std::min(_paths.size(), _next + kMostAtOnce); ++i) {
    const auto found = _known.find(_paths[i]);
    rows.push_back({_paths[i], found == _known.end() ? Known() : found->second});
  }
  return rows;
}

// For a tenth of a second, so that a slow medium shows what it has told by then.
void RowReader::readSome() {
  if (_next == _paths.size()) return _isBehind ? beginAnew() : void(emit finished());
  const auto keeper = _remembers.isChecked() ? _keeper : nullptr;
  const auto work = [this, folder = _folder, rows = next(), keeper]() -> Errand::Outcome {
    std::vector<Row> some;
    const auto end = std::chrono::steady_clock::now() + kAtOnce;
    const Notes noted = keeper ? notesIn(folder, *keeper) : Notes();
    for (const Row& row : rows) {
      some.push_back({row.path, look(row.path, row.known, noted)});
      if (std::chrono::steady_clock::now() >= end) break;
    }
    return [this, some] { take(some); };
  };
  _errand.begin(work, [this](const std::string& /*why*/) { emit finished(); });
}

void RowReader::take(const std::vector<Row>& some) {
  RowFactsByPath facts;
  for (const Row& row : some) {
    _known.insert_or_assign(row.path, row.known);
    facts.insert_or_assign(row.path, row.known.facts);
  }
  _next += some.size();
  emit someRead();
  _browser.addFacts(facts);
  readSome();
}

// The list follows a new file by itself; what is written elsewhere, it does not see. What was
// replaced may have been an export of another take.
void RowReader::note(const ExportOrder& order, const ExportResult& result) {
  if (result.end != ExportResult::End::Written) return;
  if (_remembers.isChecked())
    _keeper->noteExport({order.source, order.target, order.angle, result.gain, result.modified});
  const bool replaces = order.existing == AtomicFile::Existing::Replace && !order.isOfBatch;
  replaces ? begin() : readAgain(order.source.native());
}

void RowReader::readAgain(const std::string& path) {
  if (!std::ranges::count(_browser.model().files(), path, &WavItem::fullPath)) return;
  _paths.push_back(path);
  if (!_errand.isUnderWay()) readSome();
}
