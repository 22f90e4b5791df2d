// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/FileAddress.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cstddef>

namespace {

constexpr std::string_view kFile = "file://";
constexpr std::string_view kDigits = "0123456789ABCDEF";
constexpr std::string_view kPlain =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";

std::string decoded(std::string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string_view digits = text.substr(i, 3).substr(text[i] == '%' ? 1 : 0);
    unsigned char byte = 0;
    const char* const end = digits.data() + digits.size();
    const bool isCode = text[i] == '%' && digits.size() == 2 &&
                        std::from_chars(digits.data(), end, byte, 16).ptr == end;
    bytes += isCode ? static_cast<char>(byte) : text[i];
    if (isCode) i += 2;
  }
  return bytes;
}

bool isThisMachine(std::string_view name) {
  std::array<char, HOST_NAME_MAX + 1> own{};
  if (name.empty() || name == "localhost") return true;
  return gethostname(own.data(), own.size()) == 0 && name == own.data();
}

// Before the path a machine may be named.
std::string_view pathIn(std::string_view address) {
  if (!address.starts_with(kFile)) return {};
  const std::size_t slash = address.find('/', kFile.size());
  if (slash == std::string_view::npos) return {};
  const bool isHere = isThisMachine(address.substr(kFile.size(), slash - kFile.size()));
  return isHere ? address.substr(slash) : std::string_view();
}

}  // namespace

std::string FileAddress::of(const std::filesystem::path& file) {
  std::string address(kFile);
  for (const char character : file.native()) {
    const auto byte = static_cast<unsigned char>(character);
    if (kPlain.find(character) != std::string_view::npos) {
      address += character;
    } else {
      address += {'%', kDigits[byte / 16], kDigits[byte % 16]};
    }
  }
  return address;
}

std::string FileAddress::listOf(const std::vector<std::filesystem::path>& files) {
  std::string list;
  for (const std::filesystem::path& file : files) list += of(file) + "\r\n";
  return list;
}

std::vector<std::filesystem::path> FileAddress::pathsIn(std::string_view list) {
  std::vector<std::filesystem::path> paths;
  while (!list.empty()) {
    const std::string_view line = list.substr(0, list.find_first_of("\r\n"));
    list.remove_prefix(std::min(line.size() + 1, list.size()));
    const std::string_view path = pathIn(line);
    if (!path.empty()) paths.emplace_back(decoded(path));
  }
  return paths;
}
