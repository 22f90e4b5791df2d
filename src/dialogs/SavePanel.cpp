// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/SavePanel.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeView>
#include <utility>

namespace {

constexpr QSize kSize(720, 480);

const QLatin1String kSuffix(".WAV");

}  // namespace

SavePanel::SavePanel(const QString& folder, const QString& name, std::filesystem::path source,
                     QWidget* parent)
    : QFileDialog(parent), _source(std::move(source)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
  setWindowTitle(tr("Saving checkboard..."));
  setAcceptMode(QFileDialog::AcceptSave);
  setFileMode(QFileDialog::AnyFile);
  setNameFilter(tr("WAV files (*.wav)"));
  setDirectory(folder);
  selectFile(name);
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

void SavePanel::accept() {
  const QStringList named = selectedFiles();
  if (named.size() != 1 || QFileInfo(named.first()).isDir()) {
    QFileDialog::accept();
    return;
  }
  const QString path = withSuffix(named.first());
  const bool isSource = _source == QFile::encodeName(path).toStdString();
  if (!isSource && QFileInfo(path).isFile()) {
    askToReplace(path);
  } else {
    choose(path, AtomicFile::Existing::Refuse);
  }
}

void SavePanel::askToReplace(const QString& path) {
  auto* const question = new QMessageBox(this);
  question->setAttribute(Qt::WA_DeleteOnClose);
  question->setWindowTitle(windowTitle());
  question->setTextFormat(Qt::PlainText);
  question->setText(tr("“%1” exists. Replace it?").arg(QFileInfo(path).fileName()));
  QPushButton* const replace = question->addButton(tr("Replace"), QMessageBox::AcceptRole);
  question->setDefaultButton(question->addButton(QMessageBox::Cancel));
  connect(question, &QMessageBox::buttonClicked, this, [this, path, replace](QAbstractButton* it) {
    if (it == static_cast<QAbstractButton*>(replace)) choose(path, AtomicFile::Existing::Replace);
  });
  question->open();
}

void SavePanel::choose(const QString& path, AtomicFile::Existing existing) {
  emit chosen(path, existing);
  done(QDialog::Accepted);
}
