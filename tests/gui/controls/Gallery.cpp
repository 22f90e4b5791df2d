// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// usage: controls_gallery FOLDER
// Renders every control in its telling states at scale 1, 1.25, 1.5 and 2, a PNG each, to look at.
// Status 1 if a picture is empty or cannot be written.

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QTextStream>
#include <functional>

#include "controls/AngleViewer.h"
#include "controls/Colors.h"
#include "controls/GainTickTitle.h"
#include "controls/J4GainSlider.h"
#include "controls/J4Slider.h"
#include "controls/J4SliderCell.h"
#include "controls/LevelMeter.h"
#include "controls/PathViewer.h"

namespace {

/// One sheet: controls on the background of the player pane, placed by hand.
class Sheet {
 public:
  Sheet(int width, int height) {
    _page.resize(width, height);
    QPalette palette;
    palette.setColor(QPalette::Window, Colors::AppBGLight());
    _page.setPalette(palette);
    _page.setAutoFillBackground(true);
  }

  template <typename Control>
  Control& put(const QRect& place) {
    auto* control = new Control(&_page);
    control->setGeometry(place);
    return *control;
  }

  bool save(const QString& path, double scale) {
    QImage image((QSizeF(_page.size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Colors::AppBGLight());
    const QImage before = image;
    _page.show();
    QApplication::setActiveWindow(&_page);
    if (QWidget* focused = _page.focusWidget()) {
      focused->clearFocus();
      focused->setFocus(Qt::TabFocusReason);
    }
    _page.render(&image);
    return image != before && image.save(path);
  }

  QWidget& page() { return _page; }

 private:
  QWidget _page;
};

using Fill = std::function<void(Sheet&)>;

void dial(Sheet& sheet, QPoint at, bool enabled, double angle) {
  auto& viewer = sheet.put<AngleViewer>({at, QSize(350, 350)});
  viewer.setEnable(enabled);
  viewer.grab();
  viewer.setNewAngle(angle);
}

void dials(Sheet& sheet) {
  dial(sheet, {0, 0}, false, 90);
  dial(sheet, {350, 0}, true, 0);
  dial(sheet, {700, 0}, true, 90);
  dial(sheet, {1050, 0}, true, 150);
  sheet.page().findChildren<AngleViewer*>().at(2)->setFocus(Qt::TabFocusReason);
}

void bar(Sheet& sheet, const QRect& place, bool enabled, double value) {
  auto& slider = sheet.put<J4Slider>(place);
  slider.cell()->setSliderEnabled(enabled);
  slider.setValue(value);
}

void sliders(Sheet& sheet) {
  int top = 10;
  for (const double value : {0.0, 0.05, 0.34, 0.97, 1.0}) {
    bar(sheet, {10, top, 640, 22}, true, value);
    bar(sheet, {670, top, 110, 22}, true, value);
    bar(sheet, {800, top, 110, 22}, false, value);
    top += 30;
  }
  sheet.page().findChildren<J4Slider*>().at(6)->setFocus(Qt::TabFocusReason);
}

void gain(Sheet& sheet, int left, bool enabled, double value) {
  auto& scale = sheet.put<GainTickTitle>({left, 0, 40, 320});
  scale.setTexts({"+36", "+24", "+12", "0", "-12", "-24", "-36"});
  scale.setEnable(enabled);
  scale.initTick();
  auto& slider = sheet.put<J4GainSlider>({left + 48, 21, 22, 278});
  slider.cell()->setIsVertical(true);
  slider.cell()->setSliderEnabled(enabled);
  slider.setRange(-36, 36);
  slider.setValue(value);
}

void gains(Sheet& sheet) {
  gain(sheet, 0, false, 0);
  gain(sheet, 90, true, 6);
  gain(sheet, 180, true, 36);
  gain(sheet, 270, true, -36);
  sheet.page().findChildren<J4GainSlider*>().at(1)->setFocus(Qt::TabFocusReason);
}

void meters(Sheet& sheet) {
  auto& scale = sheet.put<GainTickTitle>({0, 0, 40, 320});
  scale.setTexts({"+6", "0", "-6", "-12", "-18", "-24", "-36", "-48"});
  scale.setEnable(true);
  scale.initTick();
  int left = 52;
  for (const int level : {0, 6, 24, 36, 42, 48, 54}) {
    auto& meter = sheet.put<LevelMeter>({left, 30, 16, 260});
    meter.setMaxValue(54);
    meter.setLevel(level);
    left += 24;
  }
}

void paths(Sheet& sheet) {
  QPalette light;
  light.setColor(QPalette::Window, Colors::accent());
  sheet.page().setPalette(light);
  sheet.put<PathViewer>({10, 5, 280, 24}).setText("/SD/FOLDER01/");
  sheet.put<PathViewer>({10, 35, 80, 24}).setText("/SD/A long name of a folder");
}

bool saveAll(const QDir& folder, const QString& name, QSize size, const Fill& fill) {
  bool isSaved = true;
  for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
    Sheet sheet(size.width(), size.height());
    fill(sheet);
    const QString file = QString("%1@%2.png").arg(name).arg(scale);
    isSaved = sheet.save(folder.filePath(file), scale) && isSaved;
  }
  return isSaved;
}

struct SheetKind {
  const char* name;
  QSize size;
  void (*fill)(Sheet&);
};

constexpr SheetKind kSheets[] = {{"dial", {1400, 350}, dials},
                                 {"sliders", {920, 160}, sliders},
                                 {"gain", {360, 320}, gains},
                                 {"level", {230, 320}, meters},
                                 {"path", {300, 64}, paths}};

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const QDir folder(argc == 2 ? argv[1] : "");
  if (argc != 2 || !folder.mkpath(".")) {
    QTextStream(stderr) << "usage: controls_gallery FOLDER\n";
    return 2;
  }
  QFont font("Inter");
  font.setPixelSize(13);
  QApplication::setFont(font);
  bool isSaved = true;
  for (const auto& [name, size, fill] : kSheets) {
    isSaved = saveAll(folder, name, size, fill) && isSaved;
  }
  return isSaved ? 0 : 1;
}
