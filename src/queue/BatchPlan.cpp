// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "queue/BatchPlan.h"

#include <sys/stat.h>

#include <algorithm>
#include <system_error>
#include <utility>

#include "export/AtomicFile.h"
#include "export/Export.h"
#include "export/FileKey.h"
#include "export/ProcessorShare.h"
#include "queue/MediumPace.h"

namespace fs = std::filesystem;

namespace {

using Existing = BatchWish::Existing;
using Fate = BatchPlan::Fate;
using Item = BatchPlan::Item;

bool isThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error));
}

/// Finds each take its target, with an eye on those of the others.
class Planner {
 public:
  explicit Planner(const BatchWish& wish) : _wish(wish) {
    for (const BatchTake& take : *wish.takes) _sources.insert(FileKey::of(take.file));
    for (const fs::path& path : wish.awaited) _targets.emplace(FileKey::of(path), fs::path());
  }

  Item itemOf(const BatchTake& take) {
    Item item{_wish.how, Fate::Export, {}, take.refusal};
    item.order.source = take.file;
    item.order.isOfBatch = true;
    item.order.size = take.size(_wish.how.is24bit, _wish.how.keepsMetadata);
    if (_wish.isAsRemembered && take.remembered) recall(item.order, *take.remembered);
    if (!item.why.empty()) {
      item.fate = Fate::Refused;
      return item;
    }
    settle(item);
    if (item.fate == Fate::Export) refuseWhatCannotBe(item);
    if (item.fate == Fate::Export) _targets.emplace(FileKey::of(item.order.target), take.file);
    return item;
  }

 private:
  static void recall(ExportOrder& order, const BatchTake::Sound& sound) {
    order.angle = sound.angle.value_or(order.angle);
    order.gain = sound.gain;
  }

  void settle(Item& item) const {
    item.order.target = targetOf(item.order.source);
    if (_wish.existing == Existing::Number) return number(item.order);
    const fs::path target = FileKey::of(item.order.target);
    const auto owner = _targets.find(target);
    if (owner != _targets.end()) {
      item.fate = Fate::HasSameName;
      item.other = owner->second;
    } else if (_wish.existing == Existing::Replace) {
      item.order.existing = AtomicFile::Existing::Replace;
      if (_sources.contains(target)) item.fate = Fate::IsTake;
    } else if (isThere(item.order.target)) {
      item.fate = Fate::Exists;
    }
  }

  // "R0001_Decode_2.WAV" and so on.
  void number(ExportOrder& order) const {
    const fs::path first = order.target;
    for (int next = 2; !isFree(order.target); ++next) {
      order.target = first.parent_path() / first.stem();
      order.target += "_" + std::to_string(next) + first.extension().native();
    }
  }

  [[nodiscard]] bool isFree(const fs::path& target) const {
    return !isThere(target) && !_targets.contains(FileKey::of(target));
  }

  // The room is told of all together.
  static void refuseWhatCannotBe(Item& item) {
    item.why = AtomicFile::whyNot(item.order.target, item.order.existing, 0);
    if (!item.why.empty()) item.fate = Fate::Refused;
  }

  [[nodiscard]] fs::path targetOf(const fs::path& source) const {
    const fs::path folder = _wish.folder.empty() ? source.parent_path() : _wish.folder;
    return folder / Export::nameFor(source);
  }

  const BatchWish& _wish;
  std::set<fs::path> _sources;
  std::map<fs::path, fs::path> _targets;  ///< and whose they are; none: other exports'
};

std::optional<std::uint64_t> freeIn(const fs::path& folder) {
  std::error_code error;
  const fs::space_info space = fs::space(folder, error);
  return error ? std::nullopt : std::optional<std::uint64_t>(space.available);
}

std::vector<BatchPlan::Room> roomsOf(const std::vector<ExportOrder>& orders) {
  std::map<dev_t, BatchPlan::Room> rooms;
  std::map<fs::path, dev_t> folders;
  for (const ExportOrder& order : orders) {
    const fs::path folder = order.target.parent_path();
    const auto [known, isNew] = folders.try_emplace(folder, 0);
    struct stat status {};
    if (isNew && stat(folder.c_str(), &status) == 0) known->second = status.st_dev;
    const auto [room, isFirst] = rooms.try_emplace(known->second);
    if (isFirst) room->second.free = freeIn(folder);
    room->second.needed += order.size;
  }
  std::vector<BatchPlan::Room> all;
  all.reserve(rooms.size());
  for (const auto& [device, room] : rooms) all.push_back(room);
  return all;
}

unsigned paceOf(const std::vector<ExportOrder>& orders) {
  std::set<fs::path> folders;
  for (const ExportOrder& order : orders) {
    folders.insert(order.source.parent_path());
    folders.insert(order.target.parent_path());
  }
  unsigned least = ProcessorShare::processors();
  for (const fs::path& folder : folders) least = std::min(least, MediumPace::atOnce(folder));
  return least;
}

std::uint64_t lacking(const BatchPlan::Room& room) {
  return room.free && *room.free < room.needed ? room.needed - *room.free : 0;
}

}  // namespace

BatchPlan BatchPlan::make(const BatchWish& wish, const std::atomic<bool>& cancel) {
  BatchPlan plan;
  Planner planner(wish);
  for (const BatchTake& take : *wish.takes) {
    if (cancel) return plan;
    plan.items.push_back(planner.itemOf(take));
  }
  const std::vector<ExportOrder> orders = plan.orders();
  plan.rooms = roomsOf(orders);
  plan.atOnce = paceOf(orders);
  return plan;
}

std::vector<ExportOrder> BatchPlan::orders() const {
  std::vector<ExportOrder> orders;
  for (const Item& item : items) {
    if (item.fate == Fate::Export) orders.push_back(item.order);
  }
  return orders;
}

std::uint64_t BatchPlan::needed() const {
  std::uint64_t bytes = 0;
  for (const Room& room : rooms) bytes += room.needed;
  return bytes;
}

const BatchPlan::Room* BatchPlan::tightest() const {
  const auto found = std::ranges::max_element(rooms, {}, lacking);
  return found == rooms.end() ? nullptr : &*found;
}
