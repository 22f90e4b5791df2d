// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLayout>
#include <QRadioButton>
#include <QWidget>
#include <filesystem>
#include <optional>

#include "dialogs/ChoiceField.h"
#include "dialogs/FolderButton.h"
#include "dialogs/LoudnessField.h"
#include "queue/BatchPlan.h"

/// What can be chosen for the export of several takes: format, level, place, and what becomes of
/// exports that are there. Interface thread.
class BatchChoices : public QWidget {
  Q_OBJECT

 public:
  explicit BatchChoices(QWidget* parent = nullptr);

  /// Where the search for a folder begins.
  void setStart(const std::filesystem::path& folder) { _folder->setStart(folder); }
  /// Offers what is remembered of takes; at first that is not to be seen.
  void offerRemembered();
  [[nodiscard]] bool isAsRemembered() const { return _remembered->isChecked(); }
  /// Puts what is chosen into a wish.
  void putInto(BatchWish& wish) const;
  [[nodiscard]] bool isNormalized() const { return _normalize->isChecked(); }
  /// Whether each take is to be brought to a loudness; which one is none where it is no number.
  [[nodiscard]] bool isToLoudness() const { return _toLoudness->isChecked(); }
  [[nodiscard]] std::optional<double> lufs() const { return _loudness->lufs(); }
  /// Whether all that is chosen can be carried out.
  [[nodiscard]] bool isWhole() const;

 signals:
  void changed();

 private:
  QLayout* formats();
  QLayout* levels();
  QLayout* places();
  QLayout* existing();
  QLabel* heading(const QString& text);
  void chooseLevel(const QCheckBox* changed);
  void choosePlace();
  void takeFolder();

  QRadioButton* _radio24;
  QRadioButton* _radio32;
  QCheckBox* _remembered;
  QCheckBox* _normalize;
  QCheckBox* _toLoudness;
  QCheckBox* _keepMetadata;
  LoudnessField* _loudness;
  QRadioButton* _beside;
  QRadioButton* _into;
  FolderButton* _folder;
  ChoiceField* _existing;
};
