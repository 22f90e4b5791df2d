// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/SavePanel.h"

#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeView>
#include <system_error>
#include <utility>

#include "dialogs/PanelLook.h"

namespace {

constexpr QSize kSize(720, 480);

constexpr int kNameWidth = 300;

const QLatin1String kSuffix(".WAV");

QString textOf(const std::filesystem::path& path) {
  return QFile::decodeName(path.c_str());
}

std::filesystem::path bytesOf(const QString& text) {
  return QFile::encodeName(text).toStdString();
}

// The folder itself, or the first one above that the panel has a name for.
std::filesystem::path nearestNamed(std::filesystem::path folder) {
  while (bytesOf(textOf(folder)) != folder) folder = folder.parent_path();
  return folder;
}

}  // namespace

SavePanel::SavePanel(std::filesystem::path proposal, std::filesystem::path source, QWidget* parent)
    : QFileDialog(parent), _proposal(std::move(proposal)), _source(std::move(source)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
  setWindowTitle(tr("Saving checkboard..."));
  setAcceptMode(QFileDialog::AcceptSave);
  setFileMode(QFileDialog::AnyFile);
  setNameFilter(tr("WAV files (*.wav)"));
  setDirectory(textOf(nearestNamed(_proposal.parent_path())));
  selectFile(textOf(_proposal.stem()));
  PanelLook::apply(*this);
  addMessage();
  giveRoom();
}

// All files are of one type; their dates are worth more room.
void SavePanel::giveRoom() {
  resize(kSize);
  auto* const files = findChild<QTreeView*>(QStringLiteral("treeView"));
  if (files == nullptr) return;
  constexpr int kTypeColumn = 2;
  files->hideColumn(kTypeColumn);
  files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  files->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

// The toolkit's panel has no message of its own; its layout has a place above everything.
void SavePanel::addMessage() {
  auto* const message = new QLabel(tr("Please select a path where to save decoded wav."), this);
  message->setContentsMargins(layout()->contentsMargins().left(), 10, 10, 0);
  layout()->setMenuBar(message);
}

QString SavePanel::withSuffix(const QString& path) {
  if (path.size() <= kSuffix.size()) return path + kSuffix;
  return path.right(kSuffix.size()).toUpper() == kSuffix ? path : path + kSuffix;
}

// The panel names files by text, in which bytes that are no UTF-8 are lost: where its text is that
// of what it began with, that is what is meant.
std::filesystem::path SavePanel::pathOf(const QString& named) const {
  const QFileInfo whole(withSuffix(named));
  const std::filesystem::path folder = _proposal.parent_path();
  const std::filesystem::path name = _proposal.filename();
  const bool isFolder = whole.path() == textOf(folder);
  const bool isName = whole.fileName() == textOf(name);
  return (isFolder ? folder : bytesOf(whole.path())) / (isName ? name : bytesOf(whole.fileName()));
}

void SavePanel::accept() {
  const QStringList named = selectedFiles();
  if (named.size() != 1 || QFileInfo(named.first()).isDir()) {
    QFileDialog::accept();
    return;
  }
  const std::filesystem::path path = pathOf(named.first());
  std::error_code error;
  if (_source != path && std::filesystem::is_regular_file(path, error)) {
    askToReplace(path);
  } else {
    choose(path, AtomicFile::Existing::Refuse);
  }
}

void SavePanel::askToReplace(const std::filesystem::path& path) {
  auto* const question = new QMessageBox(this);
  question->setAttribute(Qt::WA_DeleteOnClose);
  question->setWindowTitle(windowTitle());
  question->setTextFormat(Qt::PlainText);
  question->ensurePolished();
  const QString name = textOf(path.filename());
  question->setText(
      tr("“%1” exists. Replace it?")
          .arg(question->fontMetrics().elidedText(name, Qt::ElideMiddle, kNameWidth)));
  QPushButton* const replace = question->addButton(tr("Replace"), QMessageBox::AcceptRole);
  question->setDefaultButton(question->addButton(QMessageBox::Cancel));
  connect(question, &QMessageBox::buttonClicked, this, [this, path, replace](QAbstractButton* it) {
    if (it == static_cast<QAbstractButton*>(replace)) choose(path, AtomicFile::Existing::Replace);
  });
  question->open();
}

void SavePanel::choose(const std::filesystem::path& path, AtomicFile::Existing existing) {
  emit chosen(path, existing);
  done(QDialog::Accepted);
}
