// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Whatever measures all dialogs knows those that the sources have.

#include <QMessageBox>
#include <QRegularExpression>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "EveryDialog.h"

namespace {

using Names = std::set<QString>;

/// The sources of window and dialogs that end so, one after the other.
QString sourcesOf(const char* ending) {
  std::string all;
  for (const char* const folder : {"app", "dialogs"}) {
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(MIXDECK_SOURCES) / folder)) {
      if (entry.path().extension() != ending) continue;
      std::ifstream file(entry.path());
      all.append(std::istreambuf_iterator<char>(file), {});
    }
  }
  return QString::fromStdString(all);
}

Names matches(const QString& text, const char* expression) {
  Names all;
  auto found = QRegularExpression(QLatin1String(expression)).globalMatch(text);
  while (found.hasNext()) all.insert(found.next().captured(1));
  return all;
}

/// Those that nothing is derived from.
Names dialogClasses() {
  const QString headers = sourcesOf(".h");
  Names all = matches(
      headers, R"(class (\w+)[ a-z]* : public (?:DialogWindow|\w+Panel|Q\w*Dialog|QMessageBox)\b)");
  for (const QString& base : matches(headers, R"( : public (\w+))")) all.erase(base);
  return all;
}

/// What those alerts and questions say whose texts stand where they are shown.
Names alertTexts() {
  static const QRegularExpression kSeam(QStringLiteral("\"\\s*\""));
  Names all;
  for (QString text :
       matches(sourcesOf(".cpp"),
               R"re(Alert::(?:show|question)\([^;"]*tr\(\s*((?:"[^"]*"\s*)+)\))re")) {
    all.insert(text.trimmed().mid(1).chopped(1).remove(kSeam));
  }
  return all;
}

/// Any text that has been put into one of them.
bool isSaid(const QString& text, const Names& said) {
  QString pattern = QRegularExpression::escape(text);
  pattern.replace(QRegularExpression(QStringLiteral("\\\\%[1-9n]")), QStringLiteral(".*"));
  const QRegularExpression whole(QRegularExpression::anchoredPattern(pattern));
  return std::any_of(said.begin(), said.end(),
                     [&](const QString& one) { return whole.match(one).hasMatch(); });
}

class AllDialogs : public EveryDialog {};

TEST_F(AllDialogs, AreLookedAt) {
  const Names classes = dialogClasses();
  const Names texts = alertTexts();
  ASSERT_GE(classes.size(), 12U) << "the sources are read otherwise";
  ASSERT_GE(texts.size(), 3U) << "the sources are read otherwise";
  Names shownClasses;
  Names shownTexts;
  startWithAll();
  forEachDialog([&](const QWidget& dialog) {
    shownClasses.insert(QLatin1String(dialog.metaObject()->className()));
    const auto* const alert = qobject_cast<const QMessageBox*>(&dialog);
    if (alert != nullptr) shownTexts.insert(alert->informativeText());
  });
  for (const QString& name : classes) {
    EXPECT_TRUE(shownClasses.contains(name)) << name.toStdString() << " is not in EveryDialog";
  }
  for (const QString& text : texts) {
    EXPECT_TRUE(isSaid(text, shownTexts)) << text.toStdString() << " is not in EveryDialog";
  }
}

}  // namespace
