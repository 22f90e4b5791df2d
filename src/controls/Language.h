// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// The language that the window speaks. Texts are compiled in (translations/*.ts), those of the
/// toolkit come with the toolkit. Interface thread.
class Language {
 public:
  /// What there is, as `QLocale` names it: "de", "en", "es", "fr", "ja", "zh_CN".
  static const QStringList& all();
  /// The one of `all` for somebody with these wishes ("de-AT", "zh_TW", "C"), the dearest first;
  /// English where it has none of them.
  static QString best(const QStringList& wishes);
  /// What the desktop asks for.
  static QStringList wishes();

  /// Texts that are made from now on are in this language, numbers are written as its country does;
  /// without one it is as the desktop asks. A desktop of that language has its own say about
  /// numbers. `tag` is one of `all`.
  static void use(const QString& tag = {});
};
