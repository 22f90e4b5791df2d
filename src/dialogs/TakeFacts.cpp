// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/TakeFacts.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <variant>

#include "controls/ClockText.h"
#include "controls/Reason.h"
#include "dialogs/PathText.h"

namespace {

QString tr(const char* text) {
  return QCoreApplication::translate("TakeFacts", text);
}

QString yesNo(bool is) {
  return is ? QCoreApplication::translate("TakeFacts", "yes")
            : QCoreApplication::translate("TakeFacts", "no");
}

// The kinds of samples that a description tells, in the window's language.
QString encodingOf(const WaveHeader& header) {
  constexpr std::array kKinds = {
      QT_TRANSLATE_NOOP("TakeFacts", "integer PCM"), QT_TRANSLATE_NOOP("TakeFacts", "IEEE float"),
      QT_TRANSLATE_NOOP("TakeFacts", "extensible"), QT_TRANSLATE_NOOP("TakeFacts", "other")};
  const std::string_view told = WaveDescription::encoding(header);
  const auto* const kind = std::ranges::find(kKinds, told);
  return tr(kind == kKinds.end() ? kKinds.back() : *kind);
}

QString textOf(const WaveDescription::Field& field) {
  if (const auto* const number = std::get_if<std::int64_t>(&field.value)) {
    return QString::number(*number);
  }
  return QString::fromStdString(std::get<std::string>(field.value)).trimmed();
}

}  // namespace

TakeFacts::TakeFacts(const std::filesystem::path& file) : _file(file) {
  _reader = WaveFileReader::openFile(file, _whyNot);
  if (!_reader) return;
  _recognition = Recognition(*_reader);
  _reader->setIsBoMSFormat(_recognition.isRawMidSide());
  _whyNot = _recognition.whyNot();
  if (isRecording()) _warning = WaveDescription::audioWarning(*_reader);
  _chunks = WaveDescription::chunks(*_reader);
  _fields = WaveDescription::bext(*_reader);
}

QString TakeFacts::formatText() const {
  const WaveHeader& header = _reader->header();
  return QCoreApplication::translate("TakeFacts", "%1 channels, %2 Hz, %3-bit %4")
      .arg(header.NumChannels)
      .arg(header.SampleRate)
      .arg(header.BitsPerSample)
      .arg(encodingOf(header));
}

std::vector<TakeFacts::Line> TakeFacts::general() const {
  std::vector<Line> lines = {{tr("Folder"), PathText::textOf(_file.parent_path())}};
  if (_reader) {
    lines.push_back({tr("Of the recorder"), yesNo(isRecording())});
    lines.push_back({tr("Raw M/S"), yesNo(_recognition.isRawMidSide())});
    lines.push_back({tr("Format"), formatText()});
    lines.push_back({tr("Length"), ClockText::of(_reader->durationSeconds())});
    lines.push_back({tr("Frames"), QString::number(_reader->frameCount())});
  }
  for (const std::string& wrong : {_whyNot, _warning}) {
    if (!wrong.empty()) lines.push_back({tr("Note"), Reason::text(wrong)});
  }
  return lines;
}

std::vector<TakeFacts::Line> TakeFacts::chunks() const {
  std::vector<Line> lines;
  for (const WaveDescription::Chunk& chunk : _chunks) {
    QString text = QCoreApplication::translate("TakeFacts", "%1 bytes at %2")
                       .arg(chunk.size)
                       .arg(chunk.position);
    if (chunk.more > 0) {
      text += QCoreApplication::translate("TakeFacts", ", and %1 more of it").arg(chunk.more);
    }
    lines.push_back({QString::fromStdString(chunk.identifier), text});
  }
  return lines;
}

std::vector<TakeFacts::Line> TakeFacts::fields() const {
  std::vector<Line> lines;
  for (const WaveDescription::Field& field : _fields) {
    const QLatin1String name(field.name.data(), static_cast<qsizetype>(field.name.size()));
    lines.push_back({QString(name), textOf(field)});
  }
  return lines;
}
