// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/TakeCopy.h"

#include <cerrno>
#include <utility>

#include "transfer/ContentHash.h"

namespace {

// The disk writes while the card is read.
constexpr std::uint64_t kSyncEvery = 8 << 20;

}  // namespace

TakeCopy::TakeCopy(const std::filesystem::path& card, const CardTake& take, MediumStep step)
    : _source(card / take.path), _take(take), _step(std::move(step)) {}

TakeCopy::End TakeCopy::to(const std::filesystem::path& target) {
  AtomicFile file(target, AtomicFile::Existing::Refuse);
  if (!file.hasRoomFor(_take.size)) return notWritten(file);
  file.expect(_take.size);
  End reached = write(file);
  if (reached != End::Copied) return reached;
  if (!file.setModified(_take.modified) || !file.sync()) return notWritten(file);
  reached = readBack(file);
  if (reached != End::Copied) return reached;
  return file.commit() ? End::Copied : notWritten(file);
}

TakeCopy::End TakeCopy::write(AtomicFile& file) {
  MediumFile source(_source, MediumFile::Way::Plain);
  ContentHash hash;
  std::uint64_t size = 0;
  for (auto bytes = source.next(); !bytes.empty(); bytes = source.next()) {
    hash.add(bytes);
    size += bytes.size();
    if (!file.write(bytes)) return notWritten(file);
    if (size % kSyncEvery < bytes.size()) file.beginSync();
    if (!_step(bytes.size())) return End::Cancelled;
  }
  if (!source.failure().empty()) return end(End::NotRead, source.failure());
  if (size != _take.size) return end(End::NotRead, "It was changed while it was read");
  _hash = hash.hex();
  return End::Copied;
}

TakeCopy::End TakeCopy::readBack(const AtomicFile& file) {
  const MediumContent content =
      MediumContent::of(file.readablePath(), MediumFile::Way::PastCache, _step);
  if (!content.failure.empty()) return end(End::NotTheSame, content.failure);
  if (content.hash.empty()) return End::Cancelled;
  return content.hash == _hash
             ? End::Copied
             : end(End::NotTheSame, "What was written does not read back as it was");
}

TakeCopy::End TakeCopy::notWritten(const AtomicFile& file) {
  _isDiskFull = file.error() == ENOSPC || file.error() == EDQUOT;
  return end(End::NotWritten, file.failure());
}

TakeCopy::End TakeCopy::end(End end, const std::string& reason) {
  _failure = reason;
  return end;
}
