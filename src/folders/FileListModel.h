// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractListModel>
#include <string>
#include <vector>

#include "folders/WavItem.h"

/// The rows of the file list. Interface thread.
class FileListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  /// Whether the row is the take that is loaded.
  static constexpr int kLoadedRole = Qt::UserRole + 1;

  using QAbstractListModel::QAbstractListModel;

  /// Shows these entries, which are in the order of `FolderHelper::isBefore`. Where little has
  /// changed only the rows in question come and go, so that the view stays where it is.
  void show(const std::vector<WavItem>& files);
  [[nodiscard]] const std::vector<WavItem>& files() const { return _files; }
  /// Marks the row of this file, whenever it is there; an empty path marks none.
  void setLoaded(const std::string& fullPath);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  void removeMissing(const std::vector<WavItem>& files);
  void insertNew(const std::vector<WavItem>& files);
  void replaceAll(const std::vector<WavItem>& files);

  std::vector<WavItem> _files;
  std::string _loaded;
};
