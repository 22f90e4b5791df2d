// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/ManifestFolder.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <fstream>
#include <optional>
#include <span>
#include <system_error>
#include <utility>

#include "export/AtomicFile.h"
#include "transfer/C4Id.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kChainName = "ascmhl_chain.xml";
constexpr std::uintmax_t kMostBytes = std::uintmax_t{64} << 20;

// None where it cannot be read, or is larger than any manifest.
std::optional<std::string> textOf(const fs::path& path) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(path, error);
  std::ifstream file(path, std::ios::binary);
  if (error || size > kMostBytes || !file) return std::nullopt;
  std::string text(static_cast<std::size_t>(size), '\0');
  file.read(text.data(), static_cast<std::streamsize>(size));
  return file ? std::optional(std::move(text)) : std::nullopt;
}

// The number that a generation's name begins with; 0 where it is the name of none.
std::uint64_t numberOf(const std::string& name) {
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
  const bool isOne = error == std::errc() && *end == '_' && name.ends_with(".mhl");
  return isOne ? number : 0;
}

// "2026-11-22_045600Z" of "2026-11-22T04:56:00+00:00".
std::string nameTime(const std::string& time) {
  std::string text = time.substr(0, 19);
  std::replace(text.begin(), text.end(), 'T', '_');
  std::erase(text, ':');
  return text + "Z";
}

void syncFolder(const fs::path& path) {
  const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return;
  fsync(folder);  // some know no sync of folders
  close(folder);
}

}  // namespace

ManifestFolder::ManifestFolder(fs::path folder) : _folder(std::move(folder)) {
  readChain();
  readGenerations();
}

fs::path ManifestFolder::inside(const std::string& name) const {
  return _folder / kName / name;
}

void ManifestFolder::readChain() {
  std::error_code error;
  if (!fs::exists(inside(kChainName), error)) return;
  std::string whyNot = "it cannot be read";
  const auto text = textOf(inside(kChainName));
  const auto chain = text ? ManifestChain::fromXml(*text, whyNot) : std::nullopt;
  if (chain) _chain = *chain;
  if (!chain) _problems.push_back(fmt::format("{}: {}", kChainName, whyNot));
}

void ManifestFolder::readGenerations() {
  std::map<std::uint64_t, std::string> found;
  std::error_code error;
  for (fs::directory_iterator entry(_folder / kName, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().native();
    if (numberOf(name) > 0) found[numberOf(name)] = name;
  }
  for (const auto& [number, name] : found) read(number, name);
  for (const ManifestChain::Link& link : _chain.links) {
    if (!found.contains(link.number)) _problems.push_back(link.file + ": it is missing");
  }
}

void ManifestFolder::read(std::uint64_t number, const std::string& name) {
  _last = number;
  std::string whyNot = "it cannot be read";
  const auto text = textOf(inside(name));
  const auto manifest = text ? Manifest::fromXml(*text, whyNot) : std::nullopt;
  const auto isIt = [&name](const ManifestChain::Link& link) { return link.file == name; };
  const auto link = std::find_if(_chain.links.begin(), _chain.links.end(), isIt);
  if (!manifest) {
    _problems.push_back(fmt::format("{}: {}", name, whyNot));
    return;
  }
  if (link == _chain.links.end()) {
    // A copy was broken off between the two; the next one takes it into the chain.
    _problems.push_back(fmt::format("{}: it is not in the chain", name));
    _chain.links.push_back({number, name, c4::idOf(*text)});
    _isChainWhole = false;
  } else if (link->c4 != c4::idOf(*text)) {
    _problems.push_back(fmt::format("{}: it was changed after it was written", name));
  }
  for (const Manifest::Entry& entry : manifest->entries) {
    if (entry.action != "failed") _files[entry.path] = entry;
  }
}

std::string ManifestFolder::save(const Manifest& manifest) {
  std::error_code error;
  fs::create_directories(_folder / kName, error);
  if (error) return error.message();
  if (_saved.empty()) {
    const std::string folder = fs::weakly_canonical(_folder, error).filename().native();
    _saved = fmt::format("{:04}_{}_{}.mhl", ++_last, folder, nameTime(manifest.createdAt));
    _chain.links.push_back({_last, _saved, {}});
  }
  const std::string text = manifest.toXml();
  std::string reason = write(_saved, text);
  if (!reason.empty()) return reason;
  _isChainWhole = false;
  _chain.links.back().c4 = c4::idOf(text);
  syncFolder(_folder / kName);
  syncFolder(_folder);
  return "";
}

std::string ManifestFolder::finish() {
  if (_isChainWhole) return "";
  std::string reason = write(kChainName, _chain.toXml());
  _isChainWhole = reason.empty();
  syncFolder(_folder / kName);
  return reason;
}

std::string ManifestFolder::write(const std::string& name, const std::string& text) const {
  AtomicFile file(inside(name), AtomicFile::Existing::Replace);
  const bool isWritten = file.write(std::as_bytes(std::span(text))) && file.sync() && file.commit();
  return isWritten ? "" : file.failure();
}
