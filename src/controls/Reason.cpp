// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/Reason.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <optional>

namespace {

constexpr std::array kKnown = {
    // Of reading.
    QT_TRANSLATE_NOOP("Reason", "Not a WAVE file: %1"),
    QT_TRANSLATE_NOOP("Reason", "shorter than 48 bytes"),
    QT_TRANSLATE_NOOP("Reason", "not a RIFF file"),
    QT_TRANSLATE_NOOP("Reason", "a RIFF file, but not WAVE"),
    QT_TRANSLATE_NOOP("Reason", "an RF64 file without its sizes (ds64 chunk)"),
    QT_TRANSLATE_NOOP("Reason", "more chunks than a recording has"),
    QT_TRANSLATE_NOOP("Reason", "no format chunk"), QT_TRANSLATE_NOOP("Reason", "no data chunk"),
    QT_TRANSLATE_NOOP("Reason", "No broadcast extension (bext chunk)"),
    QT_TRANSLATE_NOOP("Reason", "The broadcast extension has %1 bytes, fewer than %2"),
    QT_TRANSLATE_NOOP("Reason", "Not a recording of the %1: its originator is \"%2\""),
    QT_TRANSLATE_NOOP("Reason", "Not a regular file"),
    QT_TRANSLATE_NOOP("Reason", "The file became shorter"),
    QT_TRANSLATE_NOOP("Reason", "The file has been deleted"),
    QT_TRANSLATE_NOOP("Reason",
                      "No audio: the data chunk states %1 bytes, the file holds %2 after "
                      "it"),
    QT_TRANSLATE_NOOP("Reason", "Cut short: the data chunk states %1 bytes, the file holds %2"),
    QT_TRANSLATE_NOOP("Reason",
                      "%1 channels of %2-bit samples with format tag %3 do not decode to useful "
                      "sound; the recorder writes 2 channels, 24-bit integer or 32-bit float (tag "
                      "3)"),
    // Of exporting.
    QT_TRANSLATE_NOOP("Reason", "No recording is open"),
    QT_TRANSLATE_NOOP("Reason", "The target is the source itself"),
    QT_TRANSLATE_NOOP("Reason", "The export would take %1 bytes; a WAVE file ends at 4 GiB"),
    QT_TRANSLATE_NOOP("Reason", "The source cannot be read: %1"),
    QT_TRANSLATE_NOOP("Reason",
                      "The recording has no loudness at this width: it is silent or "
                      "shorter than 0.4 s"),
    QT_TRANSLATE_NOOP("Reason", "Sample bytes have been written already"),
    QT_TRANSLATE_NOOP("Reason", "The file was dropped before it was saved"),
    QT_TRANSLATE_NOOP("Reason", "The file has been saved already"),
    QT_TRANSLATE_NOOP("Reason", "The file was written for another place"),
    QT_TRANSLATE_NOOP("Reason", "Markers and descriptions of the recording cannot be read"),
    // Of salvaging: what is found, and why nothing can be had.
    QT_TRANSLATE_NOOP("Reason", "The take cannot be read: %1"),
    QT_TRANSLATE_NOOP("Reason", "the data chunk states %1 bytes, the file holds %2"),
    QT_TRANSLATE_NOOP("Reason", "1 byte of half a frame at the end"),
    QT_TRANSLATE_NOOP("Reason", "%1 bytes of half a frame at the end"),
    QT_TRANSLATE_NOOP("Reason", "%1 zero bytes at the end, where no sound was written"),
    QT_TRANSLATE_NOOP("Reason", "the file states %1 bytes, and has %2"),
    QT_TRANSLATE_NOOP("Reason", "%1 zero bytes after the end of the take"),
    QT_TRANSLATE_NOOP("Reason", "it does not begin as a WAVE file"),
    QT_TRANSLATE_NOOP("Reason", "its format has no frames"),
    QT_TRANSLATE_NOOP("Reason", "there is no format chunk before the sound"),
    QT_TRANSLATE_NOOP("Reason", "no sound is found in it (data chunk)"),
    QT_TRANSLATE_NOOP("Reason", "no sound was written to it"),
    // Of cards, copies and manifests.
    QT_TRANSLATE_NOOP("Reason", "The card cannot be read: %1"),
    QT_TRANSLATE_NOOP("Reason", "The card is no folder"),
    QT_TRANSLATE_NOOP("Reason", "The card is never written to, but holds the folder"),
    QT_TRANSLATE_NOOP("Reason", "The card holds no takes"),
    QT_TRANSLATE_NOOP("Reason", "The card is gone"),
    QT_TRANSLATE_NOOP("Reason", "The folder cannot be made: %1"),
    QT_TRANSLATE_NOOP("Reason", "The folder cannot be written to: %1"),
    QT_TRANSLATE_NOOP("Reason", "The folder cannot be read: %1"),
    QT_TRANSLATE_NOOP("Reason", "Another copy is at work there"),
    QT_TRANSLATE_NOOP("Reason", "A copy is at work there"),
    QT_TRANSLATE_NOOP("Reason", "The folder is being verified"),
    QT_TRANSLATE_NOOP("Reason", "The manifest cannot be read: %1"),
    QT_TRANSLATE_NOOP("Reason", "The manifest cannot be written: %1"),
    QT_TRANSLATE_NOOP("Reason", "It has no manifest (%1)"),
    QT_TRANSLATE_NOOP("Reason", "The takes and their manifest need %1 bytes, and %2 are free"),
    QT_TRANSLATE_NOOP("Reason", "Its name is not UTF-8, and cannot stand in a manifest"),
    QT_TRANSLATE_NOOP("Reason", "What is there is no file"),
    QT_TRANSLATE_NOOP("Reason", "The take has %1 bytes, the file that is there %2"),
    QT_TRANSLATE_NOOP("Reason", "The file that is there has another content"),
    QT_TRANSLATE_NOOP("Reason", "It was changed while it was read"),
    QT_TRANSLATE_NOOP("Reason", "What was written does not read back as it was"),
    QT_TRANSLATE_NOOP("Reason", "the manifest has no hash of it that is known here"),
    QT_TRANSLATE_NOOP("Reason", "%1 bytes, not %2"), QT_TRANSLATE_NOOP("Reason", "another content"),
    QT_TRANSLATE_NOOP("Reason", "it cannot be listed"),
    QT_TRANSLATE_NOOP("Reason", "it is not well-formed"),
    QT_TRANSLATE_NOOP("Reason", "it is no such list"),
    QT_TRANSLATE_NOOP("Reason", "a path in it leads out of the folder"),
    QT_TRANSLATE_NOOP("Reason", "it cannot be read"), QT_TRANSLATE_NOOP("Reason", "it is missing"),
    QT_TRANSLATE_NOOP("Reason", "it is not in the chain"),
    QT_TRANSLATE_NOOP("Reason", "it was changed after it was written"),
    // Of playing.
    QT_TRANSLATE_NOOP("Reason", "No file can be read"),
    QT_TRANSLATE_NOOP("Reason", "Samples of %1 bits in format %2 cannot be played"),
    QT_TRANSLATE_NOOP("Reason", "There are no channels"),
    QT_TRANSLATE_NOOP("Reason", "There is no sample rate"),
    QT_TRANSLATE_NOOP("Reason", "No sound server was found (%1)."),
    QT_TRANSLATE_NOOP("Reason", "The sound server has gone (%1)."),
    QT_TRANSLATE_NOOP("Reason", "The sound server did not answer."),
    QT_TRANSLATE_NOOP("Reason", "The sound output was not there (%1)."),
    QT_TRANSLATE_NOOP("Reason", "The sound output has stopped."),
    QT_TRANSLATE_NOOP("Reason", "The sound output could not be started (%1)."),
    QT_TRANSLATE_NOOP("Reason", "The sound output does not take %1 channels at %2 Hz."),
    QT_TRANSLATE_NOOP("Reason", "There are too many channels, or too many frames a second."),
    // Of the recorder.
    QT_TRANSLATE_NOOP("Reason", "There is no ALSA sequencer here (%1)."),
    QT_TRANSLATE_NOOP("Reason", "No permission to use the ALSA sequencer (%1)."),
    QT_TRANSLATE_NOOP("Reason", "The ALSA sequencer cannot be used (%1: %2)."),
    QT_TRANSLATE_NOOP("Reason", "The ALSA sequencer has gone (%1)."),
    QT_TRANSLATE_NOOP("Reason",
                      "This kernel or alsa-lib has no Universal MIDI Packets, which were "
                      "asked for."),
    // Of the system, which knows more of them in the desktop's language.
    QT_TRANSLATE_NOOP("Reason", "no thread can be had"),
    QT_TRANSLATE_NOOP("Reason", "There is not enough memory"),
    QT_TRANSLATE_NOOP("Reason", "No such file or directory"),
    QT_TRANSLATE_NOOP("Reason", "Permission denied"),
    QT_TRANSLATE_NOOP("Reason", "Operation not permitted"),
    QT_TRANSLATE_NOOP("Reason", "Input/output error"),
    QT_TRANSLATE_NOOP("Reason", "No space left on device"),
    QT_TRANSLATE_NOOP("Reason", "Disk quota exceeded"),
    QT_TRANSLATE_NOOP("Reason", "Read-only file system"),
    QT_TRANSLATE_NOOP("Reason", "File exists"), QT_TRANSLATE_NOOP("Reason", "File too large"),
    QT_TRANSLATE_NOOP("Reason", "File name too long"),
    QT_TRANSLATE_NOOP("Reason", "Is a directory"), QT_TRANSLATE_NOOP("Reason", "Not a directory"),
    QT_TRANSLATE_NOOP("Reason", "Invalid argument"), QT_TRANSLATE_NOOP("Reason", "No such device"),
    QT_TRANSLATE_NOOP("Reason", "Stale file handle"),
    QT_TRANSLATE_NOOP("Reason", "Too many open files"),
    QT_TRANSLATE_NOOP("Reason", "Connection refused"),
    QT_TRANSLATE_NOOP("Reason", "Connection terminated")};

// The known reason as a pattern: what differs is caught.
QRegularExpression madePattern(const char* known) {
  QString pattern = QRegularExpression::escape(QLatin1String(known));
  for (const char16_t* const place : {u"%1", u"%2", u"%3"}) {
    const QString told = QString::fromUtf16(place);
    pattern.replace(QRegularExpression::escape(told), QStringLiteral("(.+)"));
  }
  return QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                            QRegularExpression::DotMatchesEverythingOption);
}

// Made once: a folder may have a reason for each of its files. Kept for the life of the process:
// workers may ask until its end.
const std::vector<QRegularExpression>& patterns() {
  static const auto* const kAll = [] {
    auto* const all = new std::vector<QRegularExpression>;
    std::ranges::transform(kKnown, std::back_inserter(*all), madePattern);
    return all;
  }();
  return *kAll;
}

QString filledIn(const QString& said, const QRegularExpressionMatch& match) {
  // A reason may have another one inside.
  if (match.lastCapturedIndex() == 1) return said.arg(Reason::text(match.captured(1)));
  if (match.lastCapturedIndex() == 2) return said.arg(match.captured(1), match.captured(2));
  if (match.lastCapturedIndex() == 0) return said;
  return said.arg(match.captured(1), match.captured(2), match.captured(3));
}

// A pattern is compiled when it is first matched: all of them take as long as a tenth of the
// window's start.
bool beginsAs(const QString& reason, const char* known) {
  const QLatin1String whole(known);
  const auto place = whole.indexOf(QLatin1Char('%'));
  return reason.startsWith(place < 0 ? whole : whole.first(place));
}

std::optional<QString> translated(const QString& reason) {
  for (std::size_t i = 0; i < kKnown.size(); ++i) {
    if (!beginsAs(reason, kKnown.at(i))) continue;
    const auto match = patterns().at(i).match(reason);
    if (!match.hasMatch()) continue;
    return filledIn(QCoreApplication::translate("Reason", kKnown.at(i)), match);
  }
  return std::nullopt;
}

// "NAME: reason", whatever the name: it may have a colon, too.
std::optional<QString> translatedAfterName(const QString& reason) {
  const QString colon = QStringLiteral(": ");
  for (auto at = reason.indexOf(colon); at >= 0; at = reason.indexOf(colon, at + 1)) {
    const auto said = translated(reason.mid(at + colon.size()));
    if (said) return QCoreApplication::translate("Reason", "%1: %2").arg(reason.left(at), *said);
  }
  return std::nullopt;
}

}  // namespace

QString Reason::text(const QString& reason) {
  if (const auto said = translated(reason)) return *said;
  return translatedAfterName(reason).value_or(reason);
}

std::vector<QString> Reason::known() {
  return {kKnown.begin(), kKnown.end()};
}
