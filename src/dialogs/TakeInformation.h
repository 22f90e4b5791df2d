// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>
#include <filesystem>
#include <memory>
#include <vector>

#include "analysis/TakeAnalysis.h"
#include "analysis/TakeAnalyzer.h"
#include "base/Errand.h"
#include "dialogs/DialogWindow.h"
#include "dialogs/TakeFacts.h"

/// All that is known of one take: the file, its chunks, the fields of its broadcast extension, and
/// what it measures at a width and gain. Read and measured by workers while the window is there.
/// Not modal; deletes itself when it is closed. Interface thread.
class TakeInformation : public DialogWindow {
  Q_OBJECT

 public:
  struct Subject {
    std::filesystem::path file;
    int width = 0;    ///< whole degrees
    double gain = 0;  ///< dB
    /// Of the whole take, where somebody has it.
    std::shared_ptr<const TakeAnalysis> analysis = nullptr;
  };

  TakeInformation(Subject subject, QWidget* parent);

  /// Whether its figures are those at this width and gain.
  [[nodiscard]] bool isAt(int width, double gain) const {
    return _subject.width == width && _subject.gain == gain;
  }
  /// All of it, a line a thing.
  [[nodiscard]] QString text() const;

 signals:
  /// All is known.
  void complete();

 protected:
  void initWindowUI() override;

 private:
  void layOut();
  void read();
  void showNote(const QString& note);
  void showFacts(const TakeFacts& facts);
  void measure(const WaveFileReader& reader);
  void collect();
  void showFigures();
  QTreeWidgetItem* addGroup(const QString& title, const std::vector<TakeFacts::Line>& lines);
  void copy() const;

  Subject _subject;
  QTreeWidget* _tree;
  QTreeWidgetItem* _figures = nullptr;
  std::unique_ptr<TakeAnalyzer> _analyzer;  ///< while it works
  QTimer _timer{this};
  Errand _errand;
};
