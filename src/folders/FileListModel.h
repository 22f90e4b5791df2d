// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractListModel>
#include <QMimeData>
#include <QStringList>
#include <cstddef>
#include <string>
#include <vector>

#include "folders/RowFacts.h"
#include "folders/WavItem.h"

/// The rows of the file list. Interface thread.
class FileListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  /// Whether the row is the take that is loaded.
  static constexpr int kLoadedRole = Qt::UserRole + 1;
  /// What is known of a recording, as `RowFacts` has it: a text, and whether it was exported.
  static constexpr int kDurationRole = Qt::UserRole + 2;
  static constexpr int kExportedRole = Qt::UserRole + 3;

  /// Of so many files that are not shown, what is known is kept; of more, it goes when others are
  /// shown.
  static constexpr std::size_t kMostUnshown = 20'000;

  /// In which recordings stand, after the folders; those of which nothing is known stand last,
  /// those that are alike by name.
  enum class Order { Name, Recorded, Duration };

  using QAbstractListModel::QAbstractListModel;

  /// Shows these entries, which are in the order of `FolderHelper::isBefore`. Where little has
  /// changed only the rows in question come and go, so that the view stays where it is.
  void show(const std::vector<WavItem>& files);
  /// Counts from the next `show` on.
  void setOrder(Order order) { _order = order; }
  [[nodiscard]] Order order() const { return _order; }
  /// Whether `show` would put anything elsewhere.
  [[nodiscard]] bool wouldMove(const std::vector<WavItem>& files) const {
    return _order == Order::Name ? files != _files : ordered(files) != _files;
  }
  [[nodiscard]] const std::vector<WavItem>& files() const { return _files; }
  /// Marks the row of this file, whenever it is there; an empty path marks none.
  void setLoaded(const std::string& fullPath);
  /// What is known of these files from now on, whenever they are there.
  void addFacts(const RowFactsByPath& facts);
  /// Whether facts were added, be it that nothing is known.
  [[nodiscard]] bool isKnown(const WavItem& item) const { return _facts.contains(item.fullPath); }
  /// Nothing where nothing is known.
  [[nodiscard]] const RowFacts& factsOf(const WavItem& item) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  /// Recordings can be dragged, as the files that they are, to be copied; folders stay.
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
  [[nodiscard]] QStringList mimeTypes() const override;
  [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;

 private:
  [[nodiscard]] std::vector<WavItem> ordered(const std::vector<WavItem>& files) const;
  [[nodiscard]] bool stands(const RowFacts& mine, const RowFacts& other) const;
  [[nodiscard]] QVariant factOf(const WavItem& item, int role) const;
  [[nodiscard]] QString descriptionOf(const WavItem& item, bool isLoaded) const;
  void place(const std::vector<WavItem>& files);
  void forgetOthers();
  void removeMissing(const std::vector<WavItem>& files);
  void insertNew(const std::vector<WavItem>& files);
  void replaceAll(const std::vector<WavItem>& files);

  std::vector<WavItem> _files;
  std::string _loaded;
  RowFactsByPath _facts;
  Order _order = Order::Name;
  Order _shownOrder = Order::Name;  ///< of the rows
};
