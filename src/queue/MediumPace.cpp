// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "queue/MediumPace.h"

#include <fmt/format.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <string>
#include <system_error>

#include "export/ProcessorShare.h"

namespace fs = std::filesystem;

namespace {

// Networks, and file systems in user space, behind which there may be one.
constexpr std::array<std::uint32_t, 6> kFarAway = {0x6969,     0x517B,     0xFE534D42,
                                                   0xFF534D42, 0x65735546, 0x00C36400};

bool isFarAway(const fs::path& folder) {
  struct statfs medium {};
  if (statfs(folder.c_str(), &medium) != 0) return false;
  return std::ranges::find(kFarAway, static_cast<std::uint32_t>(medium.f_type)) != kFarAway.end();
}

bool isOn(const fs::path& file) {
  std::ifstream stream(file);
  char value = '0';
  return stream.get(value) && value == '1';
}

// A virtual machine's disk says that it turns whatever it is kept on, and so does one that is made
// of it.
bool knowsWhetherItTurns(const fs::path& disk) {
  const std::string name = disk.filename();
  const bool isVirtual = name.starts_with("vd") || name.starts_with("xvd");
  std::error_code error;
  return !isVirtual && fs::directory_iterator(disk / "slaves", error) == fs::directory_iterator();
}

// A disk that encrypts another one, or puts several together, knows them as its slaves.
bool standsOnSlow(const fs::path& disk) {
  std::error_code error;
  fs::directory_iterator slave(disk / "slaves", error);
  for (const fs::directory_iterator end; !error && slave != end; slave.increment(error)) {
    const fs::path device = fs::canonical(slave->path(), error);
    if (!error && MediumPace::isSlow(device)) return true;
  }
  return false;
}

}  // namespace

bool MediumPace::isSlow(const fs::path& device) {
  std::error_code error;
  const bool isPartition = fs::exists(device / "partition", error);
  const fs::path disk = isPartition ? device.parent_path() : device;
  const bool isCard = disk.filename().native().starts_with("mmcblk");
  const bool turns = knowsWhetherItTurns(disk) && isOn(disk / "queue" / "rotational");
  return isCard || isOn(disk / "removable") || turns || standsOnSlow(disk);
}

unsigned MediumPace::atOnce(const fs::path& folder, const fs::path& system) {
  struct stat status {};
  if (isFarAway(folder) || stat(folder.c_str(), &status) != 0) return 1;
  const std::string number = fmt::format("{}:{}", major(status.st_dev), minor(status.st_dev));
  std::error_code error;
  const fs::path device = fs::canonical(system / "dev" / "block" / number, error);
  return !error && isSlow(device) ? 1 : ProcessorShare::processors();
}
