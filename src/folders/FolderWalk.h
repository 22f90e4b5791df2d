// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <filesystem>
#include <memory>
#include <vector>

#include "folders/FileListModel.h"
#include "folders/FolderLister.h"

/// Goes from folder to folder, back and forward, as a panel does; knows no widget.
///
/// Nothing waits for the medium. The rows of a folder come when they have been read; until then
/// there are none. Interface thread, which has an event loop.
class FolderWalk : public QObject {
  Q_OBJECT

 public:
  enum class Rows { All, Folders };

  explicit FolderWalk(Rows rows, FolderLister::Look look = FolderLister::answerTo);

  /// Goes there, whether or not anything is there.
  void open(const std::filesystem::path& folder);
  void goUp();
  /// Nothing where `canGoBack` is false.
  void back();
  void forward();
  [[nodiscard]] bool canGoBack() const { return !_before.empty(); }
  [[nodiscard]] bool canGoForward() const { return !_after.empty(); }

  /// Absolute, in the file system's own bytes; empty at first.
  [[nodiscard]] const std::filesystem::path& folder() const { return _folder; }
  [[nodiscard]] FileListModel& model() { return _model; }
  /// Why the folder could not be read, a phrase for people; empty when it could, and until then.
  [[nodiscard]] const QString& failure() const { return _failure; }

 signals:
  /// It is another folder, which has no rows yet.
  void moved();
  /// The rows take long enough to be told of.
  void stillReading();
  void listed();

 private:
  void show(const FolderLister::Answer& answer);
  void moveTo(const std::filesystem::path& folder);

  Rows _rows;
  std::filesystem::path _folder;
  std::vector<std::filesystem::path> _before;
  std::vector<std::filesystem::path> _after;
  QString _failure;
  FileListModel _model;
  QTimer _slow;
  FolderLister _lister;
};
