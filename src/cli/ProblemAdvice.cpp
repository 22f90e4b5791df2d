// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/ProblemAdvice.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <span>
#include <system_error>

namespace {

struct Known {
  int error;
  std::string_view advice;
};

constexpr std::string_view kNotRegular = "Not a regular file";
constexpr std::string_view kSourceItself = "The target is the source itself";

constexpr std::array kOnOpening{Known{ENOENT, "check its name, and that its card or disk is there"},
                                Known{ENOTDIR, "check the folders in its name"},
                                Known{EACCES, "its owner can let you read it, with chmod"},
                                Known{EISDIR, "name a file"}};
constexpr std::array kOnSaving{Known{ENOENT, "make its folder first"},
                               Known{EISDIR, "name a file in it"},
                               Known{ENAMETOOLONG, "choose a shorter name"}};
constexpr std::array kNotThere{ENOTDIR, EACCES, EPERM, EROFS, EFBIG};

bool isReason(std::string_view reason, int error) {
  return reason == std::generic_category().message(error);
}

std::string_view adviceIn(std::span<const Known> known, std::string_view reason) {
  const auto found = std::find_if(known.begin(), known.end(), [reason](const Known& each) {
    return isReason(reason, each.error);
  });
  return found == known.end() ? std::string_view() : found->advice;
}

std::string joined(std::string_view reason, std::string_view advice) {
  return advice.empty() ? std::string(reason) : fmt::format("{}; {}", reason, advice);
}

}  // namespace

std::string ProblemAdvice::onOpening(std::string_view reason) {
  if (reason == kNotRegular) return joined(reason, "save what it gives as a file first");
  return joined(reason, adviceIn(kOnOpening, reason));
}

std::string ProblemAdvice::onKind(std::string_view reason) {
  return joined(reason, "name a recording as the TARN J4 wrote it");
}

std::string ProblemAdvice::onSaving(std::string_view reason, std::string_view elsewhere) {
  if (reason == kNotRegular) return joined(reason, "choose another name");
  if (isReason(reason, ENOSPC)) return fmt::format("{}; make room there, or {}", reason, elsewhere);
  const bool isOfPlace = reason == kSourceItself ||
                         std::any_of(kNotThere.begin(), kNotThere.end(),
                                     [reason](int error) { return isReason(reason, error); });
  return joined(reason, isOfPlace ? elsewhere : adviceIn(kOnSaving, reason));
}
