// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/Language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <algorithm>
#include <array>

static void initialiseTranslations() {
  Q_INIT_RESOURCE(translations);
}

namespace {

const QString& english() {
  static const QString kEnglish = QStringLiteral("en");
  return kEnglish;
}

// The writing counts as well: traditional Chinese is another language to who reads.
bool isSame(const QLocale& one, const QLocale& other) {
  return one.language() == other.language() && one.script() == other.script();
}

// As the C library has it: in a plain "C" nothing is translated, whatever else is wished for.
bool isPlain() {
  constexpr std::array kDecide = {"LC_ALL", "LC_MESSAGES", "LANG"};
  const auto* const said = std::ranges::find_if(
      kDecide, [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
  if (said == kDecide.end()) return true;
  const QString locale = qEnvironmentVariable(*said).section(u'.', 0, 0);
  return locale == u"C" || locale == u"POSIX";
}

// Gone with the application, which they belong to.
QTranslator& translator(const char* name) {
  auto* const application = QCoreApplication::instance();
  auto* found = application->findChild<QTranslator*>(QLatin1String(name));
  if (found == nullptr) {
    found = new QTranslator(application);
    found->setObjectName(QLatin1String(name));
  }
  return *found;
}

void install(const char* name, const QString& file, const QString& folder) {
  QTranslator& texts = translator(name);
  QCoreApplication::removeTranslator(&texts);
  if (texts.load(file, folder)) QCoreApplication::installTranslator(&texts);
}

}  // namespace

const QStringList& Language::all() {
  static const QStringList kAll = QStringLiteral("de en es fr ja zh_CN").split(u' ');
  return kAll;
}

QString Language::best(const QStringList& wishes) {
  for (const QString& wish : wishes) {
    const QLocale wished(wish);
    const auto found = std::ranges::find_if(
        all(), [&](const QString& tag) { return isSame(QLocale(tag), wished); });
    if (found != all().end()) return *found;
  }
  return english();
}

QStringList Language::wishes() {
  return isPlain() ? QStringList(english()) : QLocale::system().uiLanguages();
}

void Language::use(const QString& tag) {
  initialiseTranslations();
  const QLocale system = QLocale::system();
  const QString language = tag.isEmpty() ? best(wishes()) : tag;
  const bool isAsDesktop = tag.isEmpty() || isSame(QLocale(tag), system);
  QLocale::setDefault(isAsDesktop ? system : QLocale(tag));
  install("toolkitTexts", QStringLiteral("qtbase_") + language,
          QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  install("programTexts", QStringLiteral("mixdeck_") + language, QStringLiteral(":/translations"));
}
