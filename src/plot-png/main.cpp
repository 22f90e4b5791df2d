// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Reads a picture in SVG from standard input and writes it as PNG to standard output, without a
// display. `mixdeck-cli` starts it where it is asked for a PNG.

#include <QFile>
#include <QGuiApplication>
#include <cstdio>

#include "plot-png/SvgPicture.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // What the toolkit misses of a desktop is nobody's concern; the tool tells what goes wrong.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  const QGuiApplication application(argc, argv);
  QFile in;
  QFile out;
  if (!in.open(stdin, QIODevice::ReadOnly) || !out.open(stdout, QIODevice::WriteOnly)) return 1;
  const QByteArray png = SvgPicture::toPng(in.readAll());
  return !png.isEmpty() && out.write(png) == png.size() && out.flush() ? 0 : 1;
}
