// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/FilePanel.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <string>
#include <system_error>
#include <utility>

#include "controls/Artwork.h"
#include "dialogs/PathText.h"

namespace {

constexpr QSize kSize(720, 480);
constexpr int kGoesOnShows = 300;  // ms
constexpr int kPicture = 20;

QString nameOf(const std::filesystem::path& path) {
  return PathText::textOf(path.has_filename() ? path.filename() : path);
}

}  // namespace

FilePanel::FilePanel(FolderWalk::Rows kind, const QString& end, const QString& rows,
                     QWidget* parent, FolderLister::Look look)
    : QDialog(parent), _walk(kind, std::move(look)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setSizeGripEnabled(true);
  addWays();
  makeList(rows);
  makeName();
  layOut(end);
  resize(kSize);
  _slow.setSingleShot(true);
  connect(&_slow, &QTimer::timeout, this, [this] { say(_goesOn); });
  connect(&_walk, &FolderWalk::moved, this, &FilePanel::showMove);
  connect(&_walk, &FolderWalk::listed, this, &FilePanel::showListing);
  connect(&_walk, &FolderWalk::stillReading, this,
          [this] { say(tr("Reading “%1”…").arg(nameOf(folder()))); });
}

QToolButton* FilePanel::addWay(const char* name, const QString& artwork, const QString& text) {
  auto* const way = new QToolButton(this);
  way->setObjectName(QLatin1String(name));
  way->setIcon(Artwork::icon(artwork));
  way->setIconSize({kPicture, kPicture});
  way->setAutoRaise(true);
  way->setAccessibleName(text);
  way->setToolTip(text);
  _ways->addWidget(way);
  if (_up != nullptr) setTabOrder(_up, way);
  return way;
}

void FilePanel::addWays() {
  _ways = new QHBoxLayout;
  _back = addWay("backButton", QStringLiteral("back"), tr("Back"));
  _forward = addWay("forwardButton", QStringLiteral("forward"), tr("Forward"));
  _up = addWay("toParentButton", QStringLiteral("go_up"), tr("Parent folder"));
  _back->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Left));
  _forward->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Right));
  _up->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Up));
  connect(_back, &QToolButton::clicked, &_walk, &FolderWalk::back);
  connect(_forward, &QToolButton::clicked, &_walk, &FolderWalk::forward);
  connect(_up, &QToolButton::clicked, &_walk, &FolderWalk::goUp);
}

void FilePanel::makeList(const QString& rows) {
  _files = new FileList(this);
  _files->setModel(&_walk.model());
  _files->setAccessibleName(rows);
  connect(_files, &QListView::doubleClicked, this,
          [this](const QModelIndex& index) { openRow(index.row()); });
  connect(_files->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &FilePanel::pickCurrent);
}

void FilePanel::makeName() {
  _name = new QLineEdit(this);
  _name->setObjectName(QStringLiteral("fileNameEdit"));
  _name->setAccessibleName(tr("Name"));
  connect(_name, &QLineEdit::textChanged, this, [this] {
    if (_isLooking) rest();
  });
}

void FilePanel::layOut(const QString& end) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(28, 24, 28, 20);
  layout->addLayout(bar());
  layout->addWidget(_files, 1);
  layout->addWidget(_name);
  layout->addLayout(ends(end));
  _name->setFocus();
}

QLayout* FilePanel::bar() {
  auto* const bar = new QHBoxLayout;
  _place = new ElidedLabel(this);
  _place->setTextFormat(Qt::PlainText);
  _place->setProperty("role", "heading");
  bar->addLayout(_ways);
  bar->addWidget(_place, 1);
  return bar;
}

QLayout* FilePanel::ends(const QString& end) {
  auto* const ends = new QHBoxLayout;
  _status = new ElidedLabel(this);
  _status->setTextFormat(Qt::PlainText);
  _status->setProperty("role", "dim");
  auto* const cancel = new QPushButton(tr("Cancel"), this);
  auto* const take = new QPushButton(end, this);
  cancel->setAutoDefault(false);
  take->setDefault(true);
  take->setProperty("primary", true);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(take, &QPushButton::clicked, this, &QDialog::accept);
  ends->addWidget(_status, 1);
  ends->addWidget(cancel);
  ends->addWidget(take);
  return ends;
}

void FilePanel::setMessage(const QString& text) {
  static_cast<QVBoxLayout*>(layout())->insertWidget(0, new QLabel(text, this));
}

void FilePanel::showMove() {
  rest();
  _picked.reset();
  _place->setText(PathText::textOf(folder()));
  _back->setEnabled(_walk.canGoBack());
  _forward->setEnabled(_walk.canGoForward());
  _up->setEnabled(folder().has_relative_path());
  forgetName();
}

void FilePanel::showListing() {
  if (_errand.isUnderWay()) return;
  const QString& why = _walk.failure();
  say(why.isEmpty() ? QString() : tr("“%1” cannot be read: %2").arg(nameOf(folder()), why));
}

void FilePanel::pickCurrent() {
  const int row = _files->selectedRow();
  if (row >= 0) pick(_walk.model().files()[static_cast<std::size_t>(row)]);
}

void FilePanel::pick(const WavItem& item) {
  _picked = item;
  _name->setText(item.fileName);
}

std::optional<WavItem> FilePanel::picked() const {
  return _picked && _picked->fileName == _name->text() ? _picked : std::nullopt;
}

std::filesystem::path FilePanel::named() const {
  const auto item = picked();
  return item ? std::filesystem::path(item->fullPath) : PathText::within(folder(), _name->text());
}

void FilePanel::openRow(int row) {
  const WavItem item = _walk.model().files()[static_cast<std::size_t>(row)];
  if (item.isFolder) return openFolder(item.fullPath);
  pick(item);
  accept();
}

void FilePanel::look(const std::filesystem::path& folder, const std::filesystem::path& file,
                     const Then& then) {
  const Errand::Work work = [this, folder, file, then] {
    std::error_code error;
    const Found found{.isFolder = std::filesystem::is_directory(folder, error),
                      .isFile = std::filesystem::is_regular_file(file, error)};
    return [this, then, found] {
      rest();
      then(found);
    };
  };
  const auto failed = [this, then](const std::string& /*why*/) {
    rest();
    then(std::nullopt);
  };
  _isLooking = begin(work, tr("Looking for “%1”…").arg(nameOf(file)), failed);
  if (!_isLooking) then(std::nullopt);
}

bool FilePanel::begin(const Errand::Work& work, const QString& goesOn,
                      const Errand::Failed& failed) {
  rest();
  _goesOn = goesOn;
  if (!_errand.begin(work, failed)) return false;
  _slow.start(kGoesOnShows);
  return true;
}

void FilePanel::rest() {
  _errand.giveUp();
  _isLooking = false;
  _slow.stop();
  say({});
}

void FilePanel::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const int row = _files->selectedRow();
  if (isReturn && _files->hasFocus() && row >= 0) return openRow(row);
  QDialog::keyPressEvent(event);
}
