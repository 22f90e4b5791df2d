// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/FileListModel.h"

#include <QTextDocument>
#include <algorithm>
#include <cstddef>
#include <iterator>

#include "controls/Artwork.h"
#include "folders/FolderHelper.h"

namespace {

// Each change of a row costs the view a pass over all of them.
constexpr std::size_t kFewRows = 32;

QString artworkName(const WavItem& item) {
  return QString::fromLatin1(item.icon.data(), static_cast<qsizetype>(item.icon.size()));
}

// A name may look like markup.
QString asPlainText(const QString& name) {
  return Qt::mightBeRichText(name) ? Qt::convertFromPlainText(name) : name;
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
  if (countMissing(_files, files) > kFewRows || countMissing(files, _files) > kFewRows) {
    return replaceAll(files);
  }
  removeMissing(files);
  insertNew(files);
  // Names that read alike have no order between them.
  if (_files != files) replaceAll(files);
}

void FileListModel::replaceAll(const std::vector<WavItem>& files) {
  beginResetModel();
  _files = files;
  endResetModel();
}

void FileListModel::removeMissing(const std::vector<WavItem>& files) {
  auto other = files.begin();
  for (std::size_t row = 0; row < _files.size();) {
    while (other != files.end() && FolderHelper::isBefore(*other, _files[row])) ++other;
    if (other != files.end() && *other == _files[row]) {
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

int FileListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(_files.size());
}

QVariant FileListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const WavItem& item = _files[static_cast<std::size_t>(index.row())];
  if (role == Qt::DisplayRole) return item.fileName;
  if (role == Qt::ToolTipRole) return asPlainText(item.fileName);
  if (role == Qt::DecorationRole) return Artwork::icon(artworkName(item));
  const bool isLoaded = !_loaded.empty() && item.fullPath == _loaded;
  if (role == kLoadedRole) return isLoaded;
  if (role == Qt::AccessibleDescriptionRole) {
    if (isLoaded) return tr("Recording, loaded");
    return item.isFolder ? tr("Folder") : tr("Recording");
  }
  return {};
}
