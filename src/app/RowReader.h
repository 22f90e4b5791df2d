// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QObject>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/FolderBrowser.h"
#include "base/Errand.h"
#include "folders/RowFacts.h"
#include "queue/ExportQueue.h"
#include "takes/TakeKeeper.h"

/// Finds out what the list tells of each recording beside its name: its duration, when it was
/// recorded, and whether an export of it is there. On a thread of its own, some rows at a time; a
/// file whose size and time of change are as they were is not read again. Notes what is exported,
/// and looks at that row again. While nothing is to be remembered exports are known by their names
/// alone, and what was noted is not read. Interface thread, which has an event loop.
class RowReader : public QObject {
  Q_OBJECT

 public:
  /// What is known of a file, and of which state of it.
  struct Known {
    std::uint64_t size = 0;
    std::int64_t modified = 0;  ///< nanoseconds
    bool isRawMidSide = false;
    RowFacts facts;
  };
  /// Exports are noted with their width and gain, and notes are read, while `remembers` is checked.
  /// What is handed in outlives it.
  RowReader(FolderBrowser& browser, ExportQueue& exports, std::shared_ptr<TakeKeeper> keeper,
            const QAction& remembers, QObject* parent = nullptr);

 signals:
  /// Some rows are known, for which what is remembered was asked where it may be.
  void someRead();
  /// All rows are known.
  void finished();

 private:
  struct Row {
    std::string path;
    Known known;
  };

  void begin();
  void beginAnew();
  void forgetOthers();
  void readSome();
  void take(const std::vector<Row>& some);
  void note(const ExportOrder& order, const ExportResult& result);
  void readAgain(const std::string& path);
  [[nodiscard]] std::vector<std::string> shown() const;
  [[nodiscard]] std::vector<Row> next() const;

  FolderBrowser& _browser;
  std::shared_ptr<TakeKeeper> _keeper;
  const QAction& _remembers;
  std::map<std::string, Known> _known;
  std::vector<std::string> _paths;  ///< to be read, in this order
  std::size_t _next = 0;            ///< of these, the first that has not been read
  std::filesystem::path _folder;    ///< that they are in
  bool _isBehind = false;           ///< other rows have come since
  Errand _errand;
};
