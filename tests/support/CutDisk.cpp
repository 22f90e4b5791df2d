// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "support/CutDisk.h"

#include <algorithm>
#include <utility>

namespace {

using Call = DiskCall::Kind;
using Bytes = CutDisk::Bytes;

void apply(const DiskCall& write, std::size_t size, Bytes& content) {
  content.resize(std::max(content.size(), write.offset + size));
  std::copy_n(write.bytes.begin(), size, content.begin() + static_cast<long>(write.offset));
}

// Every combination of the writes, the last one whole or torn; the length may be there already
// where the bytes are not.
void addCombinations(const Bytes& synced, const std::vector<const DiskCall*>& writes,
                     CutDisk::Found& found) {
  Bytes all = synced;
  for (const DiskCall* write : writes) apply(*write, write->bytes.size(), all);
  for (std::size_t chosen = 0; chosen < std::size_t{1} << writes.size(); ++chosen) {
    Bytes whole = synced;
    Bytes torn = synced;
    for (std::size_t i = 0; i < writes.size(); ++i) {
      if ((chosen >> i & 1) == 0) continue;
      torn = whole;
      apply(*writes[i], writes[i]->bytes.size(), whole);
      apply(*writes[i], writes[i]->bytes.size() / 2, torn);
    }
    for (Bytes content : {whole, torn}) {
      found.insert(content);
      content.resize(all.size());
      found.insert(content);
    }
  }
}

}  // namespace

const Bytes CutDisk::kFreed{std::byte{'?'}};

CutDisk::CutDisk(Kind kind, std::string name, std::uint64_t number, Bytes content)
    : _kind(kind), _name(std::move(name)), _old(number), _content(std::move(content)) {}

std::vector<CutDisk::Change> CutDisk::changes(std::span<const DiskCall> calls) const {
  std::vector<Change> made;
  const auto fileOf = [&](const std::string& name) {
    Number file = name == _name ? _old : Number();
    for (const Change& change : made)
      if (change.name == name) file = change.file;
    return file;
  };
  for (const DiskCall& call : calls) {
    if (call.kind == Call::Name) made.push_back({call.name, call.file});
    if (call.kind == Call::Rename) {
      const Number file = fileOf(call.name);
      made.push_back({call.newName, file});
      made.push_back({call.name, {}});
    }
    if (call.kind == Call::Remove) made.push_back({call.name, {}});
    if (call.kind == Call::Sync) keep(made, call.file);
  }
  return made;
}

// A file that is synced and no file of any change is the folder.
void CutDisk::keep(std::vector<Change>& made, std::uint64_t synced) const {
  const bool isFile =
      std::any_of(made.begin(), made.end(), [&](const Change& c) { return c.file == synced; });
  for (Change& change : made) {
    if (_kind == Kind::Journal || !isFile || change.file == synced) change.isKept = true;
  }
}

// The files that the name may belong to.
std::set<CutDisk::Number> CutDisk::files(const std::vector<Change>& made) const {
  std::set<Number> result{_old};
  for (const Change& change : made) {
    if (change.name != _name) continue;
    if (change.isKept) result.clear();
    result.insert(change.file);
  }
  return result;
}

bool CutDisk::isFreed(std::uint64_t file, std::span<const DiskCall> calls) const {
  std::map<std::string, Number> names{{_name, _old}};
  for (const Change& change : changes(calls)) names[change.name] = change.file;
  int open = 0;
  for (const DiskCall& call : calls) {
    if (call.file != file) continue;
    open += static_cast<int>(call.kind == Call::Open) - static_cast<int>(call.kind == Call::Close);
  }
  const bool isNamed =
      std::any_of(names.begin(), names.end(), [&](const auto& n) { return n.second == file; });
  return _kind == Kind::Table && !isNamed && open <= 0;
}

void CutDisk::addContents(std::uint64_t file, std::span<const DiskCall> calls, Found& found) const {
  if (isFreed(file, calls)) {
    found.insert(kFreed);
    return;
  }
  Bytes synced = file == _old ? _content : Bytes();
  std::vector<const DiskCall*> pending;
  for (const DiskCall& call : calls) {
    if (call.file != file) continue;
    if (call.kind == Call::Write) pending.push_back(&call);
    if (call.kind != Call::Sync) continue;
    for (const DiskCall* write : pending) apply(*write, write->bytes.size(), synced);
    pending.clear();
  }
  addCombinations(synced, pending, found);
}

CutDisk::Found CutDisk::after(std::span<const DiskCall> calls) const {
  Found found;
  for (const Number& file : files(changes(calls))) {
    if (file) {
      addContents(*file, calls, found);
    } else {
      found.insert(std::nullopt);
    }
  }
  return found;
}

CutDisk::Found CutDisk::any(std::span<const DiskCall> calls) const {
  Found found;
  for (std::size_t made = 0; made <= calls.size(); ++made) found.merge(after(calls.first(made)));
  return found;
}
