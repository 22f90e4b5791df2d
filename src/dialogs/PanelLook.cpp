// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/PanelLook.h"

#include <QAbstractFileIconProvider>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QToolButton>
#include <array>
#include <utility>

#include "controls/Artwork.h"

namespace {

using Named = std::pair<const char*, const char*>;

constexpr std::array<Named, 4> kPictures = {{{"backButton", "back"},
                                             {"forwardButton", "forward"},
                                             {"toParentButton", "go_up"},
                                             {"newFolderButton", "new_folder"}}};

/// Folders and recordings, as in the window's list. Asked on a thread of the toolkit's, so both
/// pictures are made before.
class Pictures : public QAbstractFileIconProvider {
 public:
  [[nodiscard]] QIcon icon(IconType type) const override {
    return type == File ? _recording : _folder;
  }
  [[nodiscard]] QIcon icon(const QFileInfo& info) const override {
    return info.isDir() ? _folder : _recording;
  }

 private:
  QIcon _folder = Artwork::icon(QStringLiteral("folder"));
  QIcon _recording = Artwork::icon(QStringLiteral("wav_file"));
};

// Panels do not own it, and their threads may outlive them.
Pictures* pictures() {
  static auto* const kOnly = new Pictures;
  return kOnly;
}

}  // namespace

void PanelLook::apply(QFileDialog& panel) {
  panel.setIconProvider(pictures());
  panel.setViewMode(QFileDialog::Detail);
  for (const auto& [name, picture] : kPictures) {
    auto* const button = panel.findChild<QToolButton*>(QLatin1String(name));
    if (button != nullptr) button->setIcon(Artwork::icon(QLatin1String(picture)));
  }
  for (const char* const name : {"listModeButton", "detailModeButton"}) {
    if (auto* const button = panel.findChild<QToolButton*>(QLatin1String(name))) button->hide();
  }
  auto* const buttons = panel.findChild<QDialogButtonBox*>();
  if (buttons == nullptr) return;
  for (const auto which : {QDialogButtonBox::Save, QDialogButtonBox::Open}) {
    if (QPushButton* const end = buttons->button(which)) end->setProperty("primary", true);
  }
}
