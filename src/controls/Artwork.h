// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QString>

/// The program's own drawings, by name: "play_play", "play_pause", "speaker_mute", "speaker_1" to
/// "speaker_3", "folder", "wav_file", "go_up", "open_folder", "device_j4", "logo", and "mixdeck",
/// the program's icon. Interface thread.
class Artwork {
 public:
  /// Drawn at each size by itself, so sharp at every scale, and kept; dimmed when disabled; the
  /// drawing keeps its shape and stands in the middle of the room it gets. A null icon for an
  /// unknown name.
  static QIcon icon(const QString& name);
  /// The size that the drawing was made for, in device independent pixels; (0, 0) for an unknown
  /// name.
  static QSize naturalSize(const QString& name);
};
