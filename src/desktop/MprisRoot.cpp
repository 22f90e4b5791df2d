// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/MprisRoot.h"

QStringList MprisRoot::supportedMimeTypes() {
  return {QStringLiteral("audio/x-wav"), QStringLiteral("audio/vnd.wave")};
}
