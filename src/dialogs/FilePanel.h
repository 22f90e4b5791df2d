// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <filesystem>
#include <functional>
#include <optional>

#include "base/Errand.h"
#include "controls/ElidedLabel.h"
#include "folders/FileList.h"
#include "folders/FolderWalk.h"

/// What the panels that ask for a place have in common: a folder's rows, ways to other folders, a
/// field for a name or a path, a line that tells what is going on.
///
/// No file is touched on the interface thread. What a medium does not answer is told of, and can be
/// left by every way to another folder and by closing the panel, which deletes itself then.
/// Interface thread.
class FilePanel : public QDialog {
  Q_OBJECT

 public:
  /// Goes to this folder.
  void openFolder(const std::filesystem::path& folder) { _walk.open(folder); }
  /// The one that is shown, or about to be.
  [[nodiscard]] const std::filesystem::path& folder() const { return _walk.folder(); }

 protected:
  /// `end` is on the button that takes what is named, `rows` what the list is called.
  FilePanel(FolderWalk::Rows kind, const QString& end, const QString& rows, QWidget* parent,
            FolderLister::Look look);

  /// What is at two paths; nothing at all where nobody could look.
  struct Found {
    bool isFolder = false;  ///< at the first one
    bool isFile = false;    ///< a plain one, at the second one
  };
  using Then = std::function<void(const std::optional<Found>& found)>;

  /// A sentence over everything.
  void setMessage(const QString& text);
  /// Looks on another thread, and gives up the look before. Another name gives this one up: what
  /// was taken is not what is named any more.
  void look(const std::filesystem::path& folder, const std::filesystem::path& file,
            const Then& then);
  /// Begins what waits for a medium, and tells of it by `goesOn` where it takes long. Its outcome
  /// calls `rest` first.
  bool begin(const Errand::Work& work, const QString& goesOn, const Errand::Failed& failed);
  void rest();
  void say(const QString& text) { _status->setText(text); }

  /// The field's text as a path; what was picked keeps its bytes.
  [[nodiscard]] std::filesystem::path named() const;
  /// The recording or folder that was picked, while the field has its name.
  [[nodiscard]] std::optional<WavItem> picked() const;
  [[nodiscard]] QLineEdit& name() const { return *_name; }
  [[nodiscard]] QToolButton* addWay(const char* name, const QString& artwork, const QString& text);

  /// A row was selected. Its name goes into the field, unless told otherwise.
  virtual void pick(const WavItem& item);
  /// A row was opened. A folder is gone into; a recording is taken.
  void openRow(int row);
  /// Another folder is shown.
  virtual void forgetName() { _name->clear(); }

  /// Return opens a folder of the list, and takes what is named everywhere else.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void addWays();
  void makeList(const QString& rows);
  void makeName();
  QLayout* bar();
  QLayout* ends(const QString& end);
  void layOut(const QString& end);
  void showMove();
  void showListing();
  void pickCurrent();

  FolderWalk _walk;
  QToolButton* _back = nullptr;
  QToolButton* _forward = nullptr;
  QToolButton* _up = nullptr;
  QHBoxLayout* _ways = nullptr;
  ElidedLabel* _place = nullptr;
  FileList* _files = nullptr;
  QLineEdit* _name = nullptr;
  QLabel* _status = nullptr;
  std::optional<WavItem> _picked;
  Errand _errand;
  bool _isLooking = false;  ///< is what the errand is about
  QTimer _slow;
  QString _goesOn;
};
