// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/ContentHash.h"

#include <fmt/format.h>
#include <xxhash.h>

#include <new>

void ContentHash::Release::operator()(XXH3_state_s* state) const {
  XXH3_freeState(state);
}

ContentHash::ContentHash() : _state(XXH3_createState()) {
  if (!_state) throw std::bad_alloc();
  XXH3_128bits_reset(_state.get());
}

void ContentHash::add(std::span<const std::byte> bytes) {
  XXH3_128bits_update(_state.get(), bytes.data(), bytes.size());
}

std::string ContentHash::hex() const {
  const XXH128_hash_t hash = XXH3_128bits_digest(_state.get());
  return fmt::format("{:016x}{:016x}", hash.high64, hash.low64);
}
