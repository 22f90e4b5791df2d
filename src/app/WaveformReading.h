// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "analysis/CloseUp.h"
#include "analysis/Waveform.h"
#include "app/TakeSession.h"
#include "base/LatestErrand.h"

/// What the picture of the open take needs from its file beyond the analysis, read on threads of
/// its own: columns narrower than the bins of the analysis, and the truth where columns seem to
/// clip. Interface thread.
class WaveformReading : public QObject {
  Q_OBJECT

 public:
  /// The session outlives it.
  explicit WaveformReading(TakeSession& take, QObject* parent = nullptr);

  /// Of this stretch of the open take, ending with it at the latest; null while it is being read.
  /// The one that was read last is kept. While Side is heard alone, of the channels as they are.
  std::shared_ptr<const CloseUp> closeUp(std::uint64_t from, std::uint64_t to, std::size_t columns);
  /// Reads the columns that seem to clip again, as what is heard now; gives up what was asked
  /// before, and does nothing where none seems to.
  void settle(const Waveform& waveform, int width, double gain);
  void cancelTruth() { _truthErrand.cancel(); }

 signals:
  /// The close-up that was asked for last is there.
  void closeUpRead();
  /// The waveform that was to be settled, with the truth in it.
  void settled(const Waveform& waveform);

 private:
  struct Stretch {
    std::uint64_t from = 0;
    std::uint64_t to = 0;
    std::size_t columns = 0;
    bool isSide = false;

    friend bool operator==(const Stretch&, const Stretch&) = default;
  };

  void drop();
  [[nodiscard]] std::shared_ptr<const WaveFileReader> reader(bool isSide) const;

  TakeSession& _take;
  std::shared_ptr<const CloseUp> _closeUp;
  bool _isOfSide = false;  ///< the close-up
  Stretch _asked;          ///< while the errand is under way
  LatestErrand _closeUpErrand;
  LatestErrand _truthErrand;
};
