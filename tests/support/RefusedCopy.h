// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <new>

/// Part of a functor that there is no memory for once `refuse` was called on any copy of it:
/// whoever copies it then, as for a thread, gets std::bad_alloc. One thread.
class RefusedCopy {
 public:
  RefusedCopy() = default;
  RefusedCopy(const RefusedCopy& other) : _isRefused(other._isRefused) {
    if (*_isRefused) throw std::bad_alloc();
  }
  RefusedCopy(RefusedCopy&&) noexcept = default;
  RefusedCopy& operator=(const RefusedCopy&) = delete;
  RefusedCopy& operator=(RefusedCopy&&) = delete;
  ~RefusedCopy() = default;

  void refuse() const { *_isRefused = true; }

 private:
  std::shared_ptr<bool> _isRefused = std::make_shared<bool>(false);
};
