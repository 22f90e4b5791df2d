// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <sqlite3.h>
#include <sys/utsname.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLibrary>
#include <QLibraryInfo>
#include <string>

#include "WindowFixture.h"
#include "base/Version.h"
#include "dialogs/AboutVC.h"
#include "playback/AudioBackends.h"

namespace {

// Of a library that the program has loaded, as it tells it itself.
std::string versionOf(const char* library, int number, const char* function) {
  using Teller = const char* (*)();
  const QFunctionPointer found = QLibrary(QLatin1String(library), number).resolve(function);
  return found == nullptr ? "?" : reinterpret_cast<Teller>(found)();
}

std::string kernel() {
  utsname name{};
  EXPECT_EQ(uname(&name), 0);
  return std::string(name.sysname) + " " + name.release;
}

std::string textOf(const AboutVC& about, const char* label) {
  return about.findChild<QLabel*>(QLatin1String(label))->text().toStdString();
}

class About : public WindowFixture {
 protected:
  /// With what the program plays with on a real system.
  AboutVC& show() {
    AudioBackends::chooseOutput("pulse");
    startOnTakes();
    view().menu->actionAbout->trigger();
    return *shown<AboutVC>();
  }
  /// A line each.
  static std::string truth() {
    return "Qt " + QLibraryInfo::version().toString().toStdString() + " (" +
           QGuiApplication::platformName().toStdString() + ")\n" + "libpulse " +
           versionOf("pulse", 0, "pa_get_library_version") + "\nalsa-lib " +
           versionOf("asound", 2, "snd_asoundlib_version") + "\nSQLite " + sqlite3_libversion() +
           "\n" + kernel();
  }
};

TEST_F(About, ShowsTheVersionsOfWhatItRunsOn) {
  const AboutVC& about = show();
  EXPECT_EQ(textOf(about, "details"), truth());
  EXPECT_THAT(textOf(about, "version"), testing::HasSubstr(kVersion));
}

TEST_F(About, CopiesThem) {
  AboutVC& about = show();
  press(&about, QStringLiteral("Copy details"));
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
            std::string(kProduct) + " " + textOf(about, "version") + "\n" + truth() + "\n");
}

}  // namespace
