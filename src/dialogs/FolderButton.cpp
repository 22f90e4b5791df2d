// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/FolderButton.h"

#include "controls/Appearance.h"
#include "controls/PlainText.h"
#include "dialogs/FolderPanel.h"
#include "dialogs/PathText.h"

namespace {

constexpr int kFolderWidth = 180;

}  // namespace

FolderButton::FolderButton(const QString& name, QWidget* parent)
    : QPushButton(tr("Choose…"), parent) {
  setAccessibleName(name);
  setAutoDefault(false);
  connect(this, &QPushButton::clicked, this, &FolderButton::ask);
}

void FolderButton::setFolder(const std::filesystem::path& folder) {
  _folder = folder;
  const QString path = PathText::textOf(folder);
  const QString name = folder.has_filename() ? PathText::textOf(folder.filename()) : path;
  const int width = Appearance::lineWidth(kFolderWidth, font());
  // One alone would underline the letter after it.
  setText(
      fontMetrics().elidedText(name, Qt::ElideMiddle, width).replace(u'&', QLatin1String("&&")));
  setToolTip(PlainText::of(path));
  setAccessibleDescription(path);
  emit chosen(folder);
}

void FolderButton::ask() {
  auto* const panel = new FolderPanel(this);
  panel->openFolder(_folder.empty() ? _start : _folder);
  connect(panel, &FolderPanel::chosen, this, &FolderButton::setFolder);
  panel->open();
}
