// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

// Nothing but a target's one source: the headers that it has compiled are for all test programs.
