// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "ImageFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <thread>

namespace fs = std::filesystem;

namespace {

// -1 where there is none.
int descriptorOn(const fs::path& path) {
  for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
    std::error_code error;
    if (fs::read_symlink(entry.path(), error) == path) return std::stoi(entry.path().filename());
  }
  return -1;
}

void swapDescriptor(const fs::path& path, int access) {
  const int old = descriptorOn(path);
  const int other = open(path.c_str(), access | O_CLOEXEC);
  if (old < 0 || other < 0 || dup2(other, old) < 0) throw std::runtime_error("cannot swap");
  close(other);
}

}  // namespace

std::byte numberedByte(std::uint64_t offset) {
  return static_cast<std::byte>((offset * 0x9E3779B97F4A7C15) >> 56);
}

std::vector<std::byte> numberedBytes(std::size_t count, std::uint64_t firstOffset) {
  std::vector<std::byte> bytes(count);
  for (std::size_t i = 0; i < count; ++i) bytes[i] = numberedByte(firstOffset + i);
  return bytes;
}

std::shared_ptr<WaveImage> imageOf(const fs::path& path) {
  std::string whyNot;
  auto image = WaveImage::fromFile(path, whyNot);
  if (!image) throw std::runtime_error(whyNot);
  return image;
}

// The time limit of the test is the only one.
bool comesToHand(WaveImage& image, std::uint64_t offset, std::uint64_t end) {
  image.follow(offset);
  while (image.heldFrom(offset) < end - offset) {
    if (!image.failure().empty()) return false;
    std::this_thread::yield();
  }
  return true;
}

std::vector<std::byte> heldAt(const WaveImage& image, std::uint64_t offset, std::size_t count) {
  std::vector<std::byte> bytes(count, std::byte{0xEE});
  bytes.resize(image.readHeld(offset, bytes));
  return bytes;
}

bool isOpen(const fs::path& path) {
  return descriptorOn(path) >= 0;
}

void makeUnreadable(const fs::path& path) {
  swapDescriptor(path, O_WRONLY);
}

void makeReadable(const fs::path& path) {
  swapDescriptor(path, O_RDONLY);
}
