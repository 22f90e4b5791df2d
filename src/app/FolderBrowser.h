// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "base/Errand.h"
#include "folders/FileListModel.h"
#include "folders/FolderLister.h"

/// Which folder was asked for, which one is shown, and its rows; knows no widget.
///
/// The folder that was asked for stays so while it is gone and the Desktop is shown in its place,
/// or the home folder where there is none.
/// It is remembered in the settings, and listed again every five seconds from the first one on.
/// Nothing waits for the medium: `begin`, `goUp` and `choose` have one look on another thread
/// whether something is there, and go on when it is known, unless something else was asked for
/// meanwhile. Until another folder's listing has come, the rows are not its own: they cannot be
/// chosen, and go when it takes long. Interface thread, which has an event loop.
class FolderBrowser : public QObject {
  Q_OBJECT

 public:
  explicit FolderBrowser(QObject* parent = nullptr,
                         FolderLister::Look look = FolderLister::answerTo);

  /// Opens a folder to begin with, or chooses a recording in its folder, where it is selected
  /// together with those of `others` that are there too. Without a path it is the folder of the
  /// last time, or the Desktop.
  void begin(const std::filesystem::path& start,
             const std::vector<std::filesystem::path>& others = {});
  /// What came of a file that somebody named.
  enum class Named { Chosen, NoFile, GivenUp };
  /// Chooses this recording in its folder, as `begin` does, but leaves everything as it is where
  /// there is no such file. `told` is called once: from the event loop, or from inside of this
  /// where no thread can be had.
  void beginWithFile(const std::filesystem::path& file,
                     const std::function<void(Named what)>& told);
  void openFolder(const std::filesystem::path& folder);
  /// Lists again, in the background.
  void refresh();
  /// Opens the folder above the one that is shown or about to be, if there is one.
  void goUp();
  /// Goes into the folder in this row, or tells of the recording in it. Where that has gone, it
  /// lists again.
  void choose(int row);
  /// Gives up a look that is under way.
  void lookNoMore();
  /// Wishes for this file to be selected as soon as its folder shows it. Another folder ends the
  /// wish.
  void wishFor(const std::filesystem::path& file) { wishFor(std::vector{file}); }
  /// The same for several files, as far as they are in the folder of the first, which becomes the
  /// current one.
  void wishFor(const std::vector<std::filesystem::path>& files);

  [[nodiscard]] const std::filesystem::path& requestedFolder() const { return _requested; }
  /// The folder that is shown, or about to be.
  [[nodiscard]] const std::filesystem::path& place() const;
  /// It is not known yet whether something is there.
  [[nodiscard]] bool isLooking() const { return _look.isUnderWay(); }
  /// Null until the first listing has come.
  [[nodiscard]] const std::shared_ptr<const FolderHelper>& listing() const { return _listing; }
  [[nodiscard]] FileListModel& model() { return _model; }
  /// Puts the rows in another order, or in their place where more is known of them.
  void setOrder(FileListModel::Order order);
  void addFacts(const RowFactsByPath& facts);
  /// Why the folder that is shown could not be read, a sentence for people; empty when it could.
  [[nodiscard]] QString failure() const;

 signals:
  /// What to call the folder that is shown, or about to be.
  void named(const QString& name);
  void rowsAboutToChange();
  void rowsChanged(bool isSameFolder);
  /// There are other entries than before.
  void newRows();
  /// The wish for files has come true; the rows are in order, and `current` is one of them.
  void wishGranted(const std::vector<int>& rows, int current);
  /// The rows are what the folder held a moment ago.
  void listed();
  void takeChosen(const WavItem& take);
  /// A look takes long enough to be shown.
  void stillLooking(const QString& name);
  /// It is known, or was given up.
  void lookedFor();

 private:
  enum class Kind { Nothing, Something, Folder };
  using Then = std::function<void(Kind kind)>;

  /// Files by name together with the folder in which they are meant.
  struct Wish {
    std::filesystem::path folder;
    std::set<QString> names;
    QString first;
  };

  void chooseInFolder(const std::filesystem::path& path,
                      const std::vector<std::filesystem::path>& files);
  void lookAt(const std::filesystem::path& path, const Then& then);
  static Kind kindOf(const std::filesystem::path& path);
  void showAnswer(const FolderLister::Answer& answer);
  void forgetRows();
  void replaceRows(const std::shared_ptr<const FolderHelper>& listing);
  void rearrange();
  void lookForWish();
  [[nodiscard]] std::vector<int> wishedRows() const;
  [[nodiscard]] int currentOf(const Wish& wish, const std::vector<int>& rows) const;

  std::filesystem::path _requested;
  bool _isAwaited = false;    ///< no listing of the requested folder has come
  bool _isForgotten = false;  ///< the rows have gone meanwhile
  std::shared_ptr<const FolderHelper> _listing;
  FileListModel _model;
  FolderLister _lister;
  std::optional<Wish> _wish;
  Errand _look;
  std::function<void(Named what)> _told;  ///< who waits for the look; may be nobody
  std::filesystem::path _lookedAt;
  bool _isClimbing = false;  ///< the look is for `goUp`
  QTimer _timerLooking{this};
  QTimer _timerUpdateFolder{this};
  QTimer _timerForgetRows{this};
};
