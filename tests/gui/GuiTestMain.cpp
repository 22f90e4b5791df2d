// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <QApplication>
#include <QEvent>
#include <QFont>
#include <QObject>
#include <QTemporaryFile>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "base/FreedMemory.h"
#include "controls/Language.h"

#ifdef MIXDECK_THREAD_SANITIZED
#include <sanitizer/tsan_interface.h>
#endif

namespace {

/// Keeps widgets inside of windows from being painted, in the way a covered window's are not. The
/// toolkit paints with threads of its own, whose meeting the thread sanitizer cannot see.
class Covered : public QObject {
 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    const auto* const widget = qobject_cast<QWidget*>(watched);
    return widget != nullptr && !widget->isWindow();
  }
};

/// What the offscreen platform reads: a screen that holds 800 x 800 of the toolkit's pixels at
/// every scale factor, as whoever enlarges everything has a screen for it.
void writeScreen(QTemporaryFile& file) {
  const double scale = std::max(1.0, qEnvironmentVariable("QT_SCALE_FACTOR").toDouble());
  const int side = static_cast<int>(std::lround(800 * scale));
  file.open();
  file.write(
      QStringLiteral(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": %1, "height": %1,
                             "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
          .arg(side)
          .toUtf8());
  file.close();
}

}  // namespace

#ifdef MIXDECK_THREAD_SANITIZED
/// The toolkit counts at the beginning of a text who shares it, also in code that the thread
/// sanitizer cannot look into. Whoever frees it has seen what others did to the count.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer's name
extern "C" void __sanitizer_free_hook(const volatile void* block) {
  __tsan_acquire(const_cast<void*>(block));
}
#endif

int main(int argc, char** argv) {
  FreedMemory::goesBack();  // as in the program
  QTemporaryFile screen;
  writeScreen(screen);
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toUtf8());
  testing::InitGoogleMock(&argc, argv);
  QApplication application(argc, argv);
  Covered covered;
  if (qEnvironmentVariableIsSet("MIXDECK_COVERED")) application.installEventFilter(&covered);
  Language::use(QStringLiteral("en"));
  QFont font(QStringLiteral("Inter"));
  font.setPixelSize(13);
  QApplication::setFont(font);
  return RUN_ALL_TESTS();
}
