// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/FileListModel.h"

#include <QByteArray>
#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <utility>

#include "base/FileAddress.h"
#include "controls/Artwork.h"
#include "controls/PlainText.h"
#include "folders/FolderHelper.h"

namespace {

// Each change of a row costs the view a pass over all of them.
constexpr std::size_t kFewRows = 32;

constexpr const char* kFileAddresses = "text/uri-list";

QString artworkName(const WavItem& item) {
  return QString::fromLatin1(item.icon.data(), static_cast<qsizetype>(item.icon.size()));
}

// Entries of `a` that are not in `b`, as far as `kFewRows` + 1.
std::size_t countMissing(const std::vector<WavItem>& a, const std::vector<WavItem>& b) {
  std::size_t count = 0;
  auto other = b.begin();
  for (auto item = a.begin(); item != a.end() && count <= kFewRows; ++item) {
    while (other != b.end() && FolderHelper::isBefore(*other, *item)) ++other;
    if (other != b.end() && *other == *item) {
      ++other;
    } else {
      ++count;
    }
  }
  return count;
}

}  // namespace

void FileListModel::show(const std::vector<WavItem>& files) {
  place(files);
  forgetOthers();
}

// Where rows go one by one, a view's selection goes on to the next each time.
void FileListModel::place(const std::vector<WavItem>& files) {
  const bool isByName = _order == Order::Name && _shownOrder == Order::Name;
  _shownOrder = _order;
  if (!isByName || files.empty()) return replaceAll(ordered(files));
  if (countMissing(_files, files) > kFewRows || countMissing(files, _files) > kFewRows) {
    return replaceAll(files);
  }
  removeMissing(files);
  insertNew(files);
}

// A day goes through many folders; who goes back to one is told of its rows again.
void FileListModel::forgetOthers() {
  if (_facts.size() <= _files.size() + kMostUnshown) return;
  RowFactsByPath kept;
  for (const WavItem& item : _files) {
    if (auto fact = _facts.extract(item.fullPath)) kept.insert(std::move(fact));
  }
  _facts = std::move(kept);
}

bool FileListModel::stands(const RowFacts& mine, const RowFacts& other) const {
  if (_order == Order::Recorded) {
    if (other.recorded.empty()) return !mine.recorded.empty();
    return !mine.recorded.empty() && mine.recorded < other.recorded;
  }
  if (!other.seconds) return mine.seconds.has_value();
  return mine.seconds && *mine.seconds < *other.seconds;
}

// What is alike stays in the order of its name. Facts are looked up once a row, not once a look.
std::vector<WavItem> FileListModel::ordered(const std::vector<WavItem>& files) const {
  if (_order == Order::Name) return files;
  const auto first = std::ranges::find(files, false, &WavItem::isFolder);
  std::vector<std::pair<const RowFacts*, const WavItem*>> takes;
  for (auto item = first; item != files.end(); ++item) takes.emplace_back(&factsOf(*item), &*item);
  std::ranges::stable_sort(
      takes, [this](const auto& a, const auto& b) { return stands(*a.first, *b.first); });
  std::vector<WavItem> all(files.begin(), first);
  for (const auto& [facts, item] : takes) all.push_back(*item);
  return all;
}

void FileListModel::replaceAll(const std::vector<WavItem>& files) {
  beginResetModel();
  _files = files;
  endResetModel();
}

// What stays stands in the order of `files`, be it names that read alike: only rows are lacking
// then.
void FileListModel::removeMissing(const std::vector<WavItem>& files) {
  auto other = files.begin();
  for (std::size_t row = 0; row < _files.size();) {
    while (other != files.end() && FolderHelper::isBefore(*other, _files[row])) ++other;
    if (other != files.end() && *other == _files[row]) {
      ++other;
      ++row;
      continue;
    }
    beginRemoveRows({}, static_cast<int>(row), static_cast<int>(row));
    _files.erase(_files.begin() + static_cast<std::ptrdiff_t>(row));
    endRemoveRows();
  }
}

void FileListModel::insertNew(const std::vector<WavItem>& files) {
  for (std::size_t row = 0; row < files.size(); ++row) {
    if (row < _files.size() && _files[row] == files[row]) continue;
    beginInsertRows({}, static_cast<int>(row), static_cast<int>(row));
    _files.insert(_files.begin() + static_cast<std::ptrdiff_t>(row), files[row]);
    endInsertRows();
  }
}

void FileListModel::setLoaded(const std::string& fullPath) {
  if (fullPath == _loaded) return;
  _loaded = fullPath;
  if (!_files.empty()) emit dataChanged(index(0), index(rowCount() - 1));
}

// Only what is another than it was is worth a repaint.
void FileListModel::addFacts(const RowFactsByPath& facts) {
  bool isAnyNew = false;
  for (const auto& [path, known] : facts) {
    const auto [mine, isAdded] = _facts.try_emplace(path);
    isAnyNew = isAnyNew || isAdded || mine->second != known;
    mine->second = known;
  }
  if (isAnyNew && !_files.empty()) emit dataChanged(index(0), index(rowCount() - 1));
}

const RowFacts& FileListModel::factsOf(const WavItem& item) const {
  static const RowFacts kNone;
  const auto found = _facts.find(item.fullPath);
  return found == _facts.end() ? kNone : found->second;
}

QVariant FileListModel::factOf(const WavItem& item, int role) const {
  const RowFacts& facts = factsOf(item);
  if (role == kDurationRole) return facts.durationText();
  if (role == kExportedRole) return facts.isExported;
  if (facts.exportNote.isEmpty()) return PlainText::of(item.fileName);
  return PlainText::of(item.fileName + u'\n' + facts.exportNote);
}

QString FileListModel::descriptionOf(const WavItem& item, bool isLoaded) const {
  if (item.isFolder) return tr("Folder");
  const RowFacts& facts = factsOf(item);
  QStringList parts{isLoaded ? tr("Recording, loaded") : tr("Recording")};
  if (facts.seconds) parts << facts.durationText();
  if (facts.isExported) parts << tr("exported");
  return parts.join(QStringLiteral(", "));
}

int FileListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(_files.size());
}

QVariant FileListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const WavItem& item = _files[static_cast<std::size_t>(index.row())];
  if (role == Qt::DisplayRole) return item.fileName;
  const bool isFact = role == Qt::ToolTipRole || role == kDurationRole || role == kExportedRole;
  if (isFact) return factOf(item, role);
  if (role == Qt::DecorationRole) return Artwork::icon(artworkName(item));
  const bool isLoaded = !_loaded.empty() && item.fullPath == _loaded;
  if (role == kLoadedRole) return isLoaded;
  if (role == Qt::AccessibleDescriptionRole) return descriptionOf(item, isLoaded);
  return {};
}

Qt::ItemFlags FileListModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractListModel::flags(index);
  const bool isTake = index.isValid() && !_files[static_cast<std::size_t>(index.row())].isFolder;
  return isTake ? flags | Qt::ItemIsDragEnabled : flags;
}

QStringList FileListModel::mimeTypes() const {
  return {QLatin1String(kFileAddresses)};
}

QMimeData* FileListModel::mimeData(const QModelIndexList& indexes) const {
  std::vector<std::filesystem::path> takes;
  for (const QModelIndex& index : indexes) {
    const WavItem& item = _files[static_cast<std::size_t>(index.row())];
    if (!item.isFolder) takes.emplace_back(item.fullPath);
  }
  std::ranges::sort(takes);
  auto* const data = new QMimeData;
  data->setData(QLatin1String(kFileAddresses),
                QByteArray::fromStdString(FileAddress::listOf(takes)));
  return data;
}
