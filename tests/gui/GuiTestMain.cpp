// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <QApplication>
#include <QEvent>
#include <QFont>
#include <QObject>
#include <QWidget>

#include "base/FreedMemory.h"
#include "controls/Language.h"

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

}  // namespace

#ifdef __clang__
/// The toolkit counts who shares a text, in code that the thread sanitizer cannot look into: its
/// freeing of one that a thread of ours had let go of would be a race. What the toolkit itself
/// calls of the C library is therefore no access; what it calls of ours is.
extern "C" const char* __tsan_default_suppressions();  // NOLINT(bugprone-reserved-identifier)
const char* __tsan_default_suppressions() {            // NOLINT(bugprone-reserved-identifier)
  return "called_from_lib:libQt6Core.so\n"
         "called_from_lib:libQt6Gui.so\n"
         "called_from_lib:libQt6Widgets.so\n";
}
#endif

int main(int argc, char** argv) {
  FreedMemory::goesBack();  // as in the program
  qputenv("QT_QPA_PLATFORM", "offscreen");
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
