// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/FolderPanel.h"

#include <utility>

FolderPanel::FolderPanel(QWidget* parent, FolderLister::Look look)
    : FilePanel(FolderWalk::Rows::Folders, tr("Choose"), tr("Folders"), parent, std::move(look)) {
  setWindowTitle(tr("Choose a file"));
}

void FolderPanel::accept() {
  if (name().text().isEmpty()) return choose(folder());
  const std::filesystem::path path = named();
  look(path, path, [this, path](const std::optional<Found>& found) {
    if (!found || found->isFolder) return choose(path);
    say(tr("“%1” is no folder.").arg(name().text()));
  });
}

void FolderPanel::choose(const std::filesystem::path& folder) {
  emit chosen(folder);
  done(QDialog::Accepted);
}
