// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/SavePanel.h"

#include <QInputDialog>
#include <QLayout>
#include <QMessageBox>
#include <QPushButton>
#include <climits>
#include <string>
#include <system_error>
#include <utility>

#include "controls/Appearance.h"
#include "controls/Reason.h"
#include "dialogs/Alert.h"
#include "dialogs/PathText.h"

namespace {

constexpr int kNameWidth = 300;

const QLatin1String kSuffix(".WAV");

// Why the folder is not there; empty when it is.
QString makeAt(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::create_directory(folder, error);
  return error ? QString::fromStdString(error.message()) : QString();
}

}  // namespace

SavePanel::SavePanel(std::filesystem::path proposal, std::filesystem::path source, QWidget* parent,
                     FolderLister::Look look)
    : FilePanel(FolderWalk::Rows::All, tr("Save"), tr("Folders and recordings"), parent,
                std::move(look)),
      _proposal(std::move(proposal)),
      _source(std::move(source)) {
  setWindowTitle(tr("Saving checkboard..."));
  setMessage(tr("Please select a path where to save decoded wav."));
  auto* const make =
      addWay("newFolderButton", QStringLiteral("new_folder"), tr("Create new folder"));
  connect(make, &QToolButton::clicked, this, &SavePanel::askForNewFolder);
  openFolder(_proposal.parent_path());
  name().setText(PathText::textOf(_proposal.stem()));
  name().selectAll();
}

QString SavePanel::withSuffix(const QString& path) {
  if (path.size() <= kSuffix.size()) return path + kSuffix;
  return path.right(kSuffix.size()).toUpper() == kSuffix ? path : path + kSuffix;
}

void SavePanel::pick(const WavItem& item) {
  if (!item.isFolder) FilePanel::pick(item);
}

// Names are typed as text, in which bytes that are no UTF-8 are lost: where it is that of what the
// panel began with, that is what is meant.
std::filesystem::path SavePanel::target() const {
  if (picked()) return named();
  const QString whole = withSuffix(name().text());
  if (whole == PathText::textOf(_proposal.filename())) return folder() / _proposal.filename();
  return PathText::within(folder(), whole);
}

void SavePanel::accept() {
  if (name().text().isEmpty()) return;
  const std::filesystem::path typed = named();
  const std::filesystem::path path = target();
  if (path.filename().native().size() > NAME_MAX) return say(tr("The name is too long."));
  look(typed, path,
       [this, typed, path](const std::optional<Found>& found) { end(typed, path, found); });
}

// Where nobody could look, the export itself refuses to replace a file.
void SavePanel::end(const std::filesystem::path& typed, const std::filesystem::path& path,
                    const std::optional<Found>& found) {
  if (found && found->isFolder) return goInto(typed);
  if (found && found->isFile && path != _source) return askToReplace(path);
  choose(path, AtomicFile::Existing::Refuse);
}

void SavePanel::goInto(const std::filesystem::path& folder) {
  openFolder(folder);
  name().setText(PathText::textOf(_proposal.stem()));
  name().selectAll();
}

void SavePanel::askToReplace(const std::filesystem::path& path) {
  const QString name = fontMetrics().elidedText(PathText::textOf(path.filename()), Qt::ElideMiddle,
                                                Appearance::lineWidth(kNameWidth, font()));
  QMessageBox* const question = Alert::question(this, tr("“%1” exists. Replace it?").arg(name));
  question->setWindowTitle(windowTitle());
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

void SavePanel::askForNewFolder() {
  auto* const question = new QInputDialog(this);
  question->setAttribute(Qt::WA_DeleteOnClose);
  question->setWindowTitle(tr("New folder"));
  question->setLabelText(tr("Name of the new folder:"));
  connect(question, &QInputDialog::textValueSelected, this, &SavePanel::makeFolder);
  question->open();
  question->layout()->setContentsMargins(28, 24, 28, 20);  // which is there from now on
}

void SavePanel::makeFolder(const QString& name) {
  if (name.isEmpty()) return;
  const std::filesystem::path path = PathText::within(folder(), name);
  const Errand::Work work = [this, path] {
    return [this, path, failure = makeAt(path)] { showMade(path, failure); };
  };
  const auto failed = [this, path](const std::string& why) {
    showMade(path, QString::fromStdString(why));
  };
  if (!begin(work, tr("Making “%1”…").arg(name), failed))
    showMade(path, QStringLiteral("no thread can be had"));
}

void SavePanel::showMade(const std::filesystem::path& folder, const QString& failure) {
  rest();
  if (failure.isEmpty()) return openFolder(folder);
  say(tr("“%1” cannot be made: %2")
          .arg(PathText::textOf(folder.filename()), Reason::text(failure)));
}
