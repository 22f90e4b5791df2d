// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/FolderBrowser.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <utility>

#include "base/Utility.h"
#include "controls/Reason.h"

namespace {

constexpr int kFolderRefresh = 5000;  // ms
// Rows of another folder stay that long, so that going through folders does not flicker.
constexpr int kForgetRows = 300;  // ms
constexpr int kLookingShows = 300;

std::filesystem::path homeFolder() {
  return QFile::encodeName(QDir::homePath()).toStdString();
}

std::filesystem::path desktopFolder() {
  return homeFolder() / "Desktop";
}

QString lastComponent(const std::filesystem::path& folder) {
  const std::filesystem::path name = folder.filename();
  return QFile::decodeName((name.empty() ? folder : name).c_str());
}

// As it is stored: absolute and without a slash at its end.
std::filesystem::path tidy(const std::filesystem::path& path) {
  std::error_code error;
  std::filesystem::path whole = std::filesystem::absolute(path, error).lexically_normal();
  return whole.has_filename() || !whole.has_relative_path() ? whole : whole.parent_path();
}

}  // namespace

FolderBrowser::FolderBrowser(QObject* parent, FolderLister::Look look)
    : QObject(parent),
      _lister([this](const FolderLister::Answer& answer) { showAnswer(answer); }, std::move(look)) {
  _timerUpdateFolder.setObjectName(QStringLiteral("timerUpdateFolder"));
  connect(&_timerUpdateFolder, &QTimer::timeout, this, &FolderBrowser::refresh);
  _timerLooking.setSingleShot(true);
  connect(&_timerLooking, &QTimer::timeout, this,
          [this] { emit stillLooking(lastComponent(_lookedAt)); });
  _timerForgetRows.setSingleShot(true);
  connect(&_timerForgetRows, &QTimer::timeout, this, &FolderBrowser::forgetRows);
}

void FolderBrowser::begin(const std::filesystem::path& start,
                          const std::vector<std::filesystem::path>& others) {
  if (start.empty()) {
    const auto last = Utility::getStringValue(Utility::kLastOpenFolder);
    return openFolder(last ? std::filesystem::path(*last) : desktopFolder());
  }
  const std::filesystem::path path = tidy(start);
  std::vector<std::filesystem::path> files = {path};
  files.insert(files.end(), others.begin(), others.end());
  lookAt(path, [this, path, files](Kind kind) {
    if (kind == Kind::Folder) return openFolder(path);
    chooseInFolder(path, files);
  });
}

void FolderBrowser::chooseInFolder(const std::filesystem::path& path,
                                   const std::vector<std::filesystem::path>& files) {
  openFolder(path.parent_path());
  wishFor(files);
  emit takeChosen({false, lastComponent(path), FolderHelper::kFileIcon, path});
}

void FolderBrowser::beginWithFile(const std::filesystem::path& file,
                                  const std::function<void(Named what)>& told) {
  const std::filesystem::path path = tidy(file);
  lookAt(path, [this, path, told](Kind kind) {
    if (kind != Kind::Something) return told(Named::NoFile);
    chooseInFolder(path, {path});
    told(Named::Chosen);
  });
  if (_look.isUnderWay()) _told = told;
}

// Where no thread can be had it is taken to be there: who opens it tells what is wrong.
void FolderBrowser::lookAt(const std::filesystem::path& path, const Then& then) {
  lookNoMore();
  _lookedAt = path;
  const bool hasBegun = _look.begin([this, path, then] {
    return [this, then, kind = kindOf(path)] {
      _told = {};  // `then` tells
      lookNoMore();
      then(kind);
    };
  });
  if (!hasBegun) return then(Kind::Something);
  _timerLooking.start(kLookingShows);
}

void FolderBrowser::lookNoMore() {
  _look.giveUp();
  _isClimbing = false;
  _timerLooking.stop();
  if (const auto told = std::exchange(_told, {})) told(Named::GivenUp);
  emit lookedFor();
}

FolderBrowser::Kind FolderBrowser::kindOf(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  if (std::filesystem::is_directory(status)) return Kind::Folder;
  // Of what cannot be looked at, who opens it tells why.
  const bool isGone = status.type() == std::filesystem::file_type::not_found;
  return isGone ? Kind::Nothing : Kind::Something;
}

void FolderBrowser::openFolder(const std::filesystem::path& folder) {
  if (folder.empty()) return;
  lookNoMore();
  _requested = tidy(folder);
  _isAwaited = !_listing || _listing->folderPath() != _requested;
  if (_isAwaited) _timerForgetRows.start(kForgetRows);
  Utility::store(Utility::kLastOpenFolder, _requested.native());
  emit named(lastComponent(_requested));
  if (!_timerUpdateFolder.isActive()) _timerUpdateFolder.start(kFolderRefresh);
  refresh();
}

void FolderBrowser::refresh() {
  _lister.list({_requested, {desktopFolder(), homeFolder()}, _listing});
}

// Of what is in the window: while the folder that was asked for is gone, it is the one in its
// place.
const std::filesystem::path& FolderBrowser::place() const {
  return _listing && !_isAwaited ? _listing->folderPath() : _requested;
}

void FolderBrowser::goUp() {
  const std::filesystem::path folder = _isClimbing ? _lookedAt : place();
  const std::filesystem::path parent = folder.parent_path();
  if (parent == folder) return;
  lookAt(parent, [this, parent](Kind kind) {
    if (kind != Kind::Nothing) openFolder(parent);
  });
  _isClimbing = _look.isUnderWay();
}

void FolderBrowser::choose(int row) {
  if (_isAwaited || row < 0 || row >= _model.rowCount()) return;
  const WavItem item = _model.files()[static_cast<std::size_t>(row)];
  lookAt(item.fullPath, [this, item](Kind kind) {
    if (kind == Kind::Nothing) return refresh();
    if (item.isFolder) return openFolder(item.fullPath);
    emit takeChosen(item);
  });
}

void FolderBrowser::wishFor(const std::vector<std::filesystem::path>& files) {
  if (files.empty()) return;
  const std::filesystem::path first = tidy(files.front());
  _wish = Wish{first.parent_path(), {}, lastComponent(first)};
  for (const std::filesystem::path& file : files) {
    const std::filesystem::path path = tidy(file);
    if (path.parent_path() == _wish->folder) _wish->names.insert(lastComponent(path));
  }
}

QString FolderBrowser::failure() const {
  if (!_listing || _listing->failure().empty()) return {};
  return tr("“%1” cannot be read: %2")
      .arg(lastComponent(_listing->folderPath()), Reason::text(_listing->failure()));
}

void FolderBrowser::showAnswer(const FolderLister::Answer& answer) {
  _isAwaited = false;
  _timerForgetRows.stop();
  emit named(lastComponent(answer.listing->folderPath()));
  if (answer.isSame && !_isForgotten) {
    _listing = answer.listing;
  } else {
    replaceRows(answer.listing);
  }
  lookForWish();
  emit listed();
}

void FolderBrowser::forgetRows() {
  if (std::exchange(_isForgotten, true)) return;
  emit rowsAboutToChange();
  _model.show({});
}

void FolderBrowser::replaceRows(const std::shared_ptr<const FolderHelper>& listing) {
  const bool isSameFolder = _listing && _listing->folderPath() == listing->folderPath();
  if (!std::exchange(_isForgotten, false)) emit rowsAboutToChange();
  _listing = listing;
  _model.show(_listing->files());
  emit rowsChanged(isSameFolder);
  emit newRows();
}

void FolderBrowser::setOrder(FileListModel::Order order) {
  _model.setOrder(order);
  rearrange();
}

void FolderBrowser::addFacts(const RowFactsByPath& facts) {
  _model.addFacts(facts);
  rearrange();
}

void FolderBrowser::rearrange() {
  if (!_listing || _isForgotten || !_model.wouldMove(_listing->files())) return;
  emit rowsAboutToChange();
  _model.show(_listing->files());
  emit rowsChanged(true);
}

std::vector<int> FolderBrowser::wishedRows() const {
  std::vector<int> rows;
  const auto& files = _model.files();
  for (std::size_t row = 0; row < files.size(); ++row) {
    if (_wish->names.contains(files[row].fileName)) rows.push_back(static_cast<int>(row));
  }
  return rows;
}

// The first one may be none that is listed.
int FolderBrowser::currentOf(const Wish& wish, const std::vector<int>& rows) const {
  const auto isFirst = [&](int row) {
    return _model.files()[static_cast<std::size_t>(row)].fileName == wish.first;
  };
  const auto found = std::ranges::find_if(rows, isFirst);
  return found == rows.end() ? rows.front() : *found;
}

// A file that was written while the folder was listed is in the listing that follows.
void FolderBrowser::lookForWish() {
  if (!_wish) return;
  const bool isItsFolder = _wish->folder == _listing->folderPath();
  const std::vector<int> rows = isItsFolder ? wishedRows() : std::vector<int>();
  const bool isGranted = !rows.empty() && rows.size() >= _wish->names.size();
  const bool isOver = isGranted || !isItsFolder || !_lister.isListing();
  if (!isOver) return;
  const Wish wish = *std::exchange(_wish, std::nullopt);
  if (!rows.empty()) emit wishGranted(rows, currentOf(wish, rows));
}
