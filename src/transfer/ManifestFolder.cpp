// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/ManifestFolder.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <fstream>
#include <optional>
#include <span>
#include <system_error>
#include <utility>

#include "export/FolderSync.h"
#include "transfer/C4Id.h"
#include "transfer/XmlReader.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kChainName = "ascmhl_chain.xml";
constexpr std::size_t kMostOfName = 100;  // bytes
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

// What is wrong with one of them.
std::string told(const std::string& name, const std::string& reason) {
  return fmt::format("{}: {}", name, reason);
}

// The number that a generation's name begins with; 0 where it is the name of none.
std::uint64_t generationOf(const std::string& name) {
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

// What a generation's name tells of the folder: its name, unless that is none that can stand in the
// chain, and no more of it than leaves room for the rest.
std::string namePart(const fs::path& folder) {
  std::error_code error;
  const std::string name = fs::weakly_canonical(folder, error).filename().native();
  if (name.empty() || !canBeXml(name)) return "takes";
  const auto isInside = [&name](std::size_t at) {
    return at < name.size() && (static_cast<unsigned char>(name[at]) & 0xC0U) == 0x80;
  };
  std::size_t end = kMostOfName;
  while (isInside(end)) --end;
  return name.substr(0, end);
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
  const bool isThere = fs::exists(inside(kChainName), error);
  if (error) return giveUp(kChainName, error.message());
  if (!isThere) return;
  std::string whyNot = "it cannot be read";
  const auto text = textOf(inside(kChainName));
  const auto chain = text ? ManifestChain::fromXml(*text, whyNot) : std::nullopt;
  if (!chain) return giveUp(kChainName, whyNot);
  _chain = *chain;
}

void ManifestFolder::giveUp(const std::string& name, const std::string& reason) {
  _whyNot = told(name, reason);
  _problems.push_back(_whyNot);
}

void ManifestFolder::readGenerations() {
  Generations found;
  std::error_code error;
  fs::directory_iterator entry(_folder / kName, error);
  for (const fs::directory_iterator end; !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().native();
    if (generationOf(name) > 0) found.emplace(generationOf(name), name);
  }
  if (error && error != std::errc::no_such_file_or_directory) giveUp(kName, error.message());
  tellMissing(found);
  for (const auto& [number, name] : found) read(number, name);
}

void ManifestFolder::tellMissing(const Generations& found) {
  for (const ManifestChain::Link& link : _chain.links) {
    _last = std::max(_last, link.number);
    const auto isIt = [&link](const auto& one) { return one.second == link.file; };
    if (std::any_of(found.begin(), found.end(), isIt)) continue;
    _problems.push_back(told(link.file, "it is missing"));
  }
}

void ManifestFolder::read(std::uint64_t number, const std::string& name) {
  _last = std::max(_last, number);
  std::string whyNot = "it cannot be read";
  const auto text = textOf(inside(name));
  const auto manifest = text ? Manifest::fromXml(*text, whyNot) : std::nullopt;
  if (!manifest) {
    _problems.push_back(told(name, whyNot));
    return;
  }
  const bool isIntact = isAsItWas(number, name, c4::idOf(*text));
  for (const Manifest::Entry& entry : manifest->entries) {
    if (entry.action == "failed") _failed.insert(entry.path);
    if (entry.action != "failed") add(entry, isIntact);
  }
}

bool ManifestFolder::isAsItWas(std::uint64_t number, const std::string& name,
                               const std::string& c4) {
  const auto isIt = [&name](const ManifestChain::Link& link) { return link.file == name; };
  const auto link = std::find_if(_chain.links.begin(), _chain.links.end(), isIt);
  if (link == _chain.links.end()) {
    // A copy was broken off between the two; the next one takes it into the chain.
    if (_whyNot.empty()) _notInChain.push_back(told(name, "it is not in the chain"));
    _chain.links.push_back({number, name, c4});
    _isChainWhole = false;
    return true;
  }
  if (link->c4 == c4) return true;
  _problems.push_back(told(name, "it was changed after it was written"));
  return false;
}

// The last one counts, but none that was changed before one that was not, and a hash before none.
void ManifestFolder::add(const Manifest::Entry& entry, bool isIntact) {
  const auto known = _files.find(entry.path);
  const bool isKnown = known != _files.end();
  if (isKnown && !isIntact && !_doubtful.contains(entry.path)) return;
  if (isKnown && entry.hash.empty() && !known->second.hash.empty()) return;
  if (isIntact) _doubtful.erase(entry.path);
  if (isIntact) _failed.erase(entry.path);
  if (!isIntact) _doubtful.insert(entry.path);
  _files.insert_or_assign(entry.path, entry);
}

std::string ManifestFolder::save(const Manifest& manifest) {
  if (!_whyNot.empty()) return _whyNot;
  std::error_code error;
  fs::create_directories(_folder / kName, error);
  if (error) return error.message();
  const bool isNew = _saved.empty();
  const std::string name = isNew ? newName(manifest) : _saved;
  const std::string text = manifest.toXml();
  std::string reason =
      write(name, text, isNew ? AtomicFile::Existing::Refuse : AtomicFile::Existing::Replace);
  // A replaced one may stand there all the same, without being on the disk for sure.
  const bool isThere = reason.empty() || (!isNew && textOf(inside(name)) == text);
  if (!isThere) return reason;
  if (isNew) _chain.links.push_back({++_last, name, {}});
  _saved = name;
  _isChainWhole = false;
  _chain.links.back().c4 = c4::idOf(text);
  if (!reason.empty()) return reason;
  error = FolderSync::of(_folder / kName);
  if (!error) error = FolderSync::of(_folder);
  return error ? error.message() : "";
}

std::string ManifestFolder::newName(const Manifest& manifest) const {
  return fmt::format("{:04}_{}_{}.mhl", _last + 1, namePart(_folder), nameTime(manifest.createdAt));
}

std::string ManifestFolder::finish() {
  if (_isChainWhole || !_whyNot.empty()) return _isChainWhole ? "" : _whyNot;
  std::string reason = write(kChainName, _chain.toXml(), AtomicFile::Existing::Replace);
  _isChainWhole = reason.empty();
  if (!_isChainWhole) return reason;
  const std::error_code error = FolderSync::of(_folder / kName);
  return error ? error.message() : "";
}

std::string ManifestFolder::write(const std::string& name, const std::string& text,
                                  AtomicFile::Existing existing) const {
  AtomicFile file(inside(name), existing);
  const bool isWritten = file.write(std::as_bytes(std::span(text))) && file.sync() && file.commit();
  return isWritten ? "" : file.failure();
}
