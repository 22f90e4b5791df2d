// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "recorder-sim/RawDeviceEnd.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include "base/Log.h"
#include "midi/MIDIEventAssembler.h"
#include "midi/alsa/DeviceNodeWatch.h"

namespace {

template <class Value>
std::span<const std::uint8_t> memoryOf(const std::vector<Value>& values) {
  const auto memory = std::as_bytes(std::span(values));
  return {reinterpret_cast<const std::uint8_t*>(memory.data()), memory.size()};
}

}  // namespace

RawDeviceEnd::RawDeviceEnd(std::string path, Content content, Told told)
    : CableEnd(std::move(told)),
      _path(std::move(path)),
      _content(content),
      _paced(_clock, [this](const AlsaOutput::Item& item) {
        const auto& bytes = item.payload.bytes;
        _outgoing.insert(_outgoing.end(), bytes.begin(), bytes.end());
        write();
        return 0;
      }) {
  _watch = std::make_unique<DeviceNodeWatch>(_path, [this] { nodeChanged(); });
}

RawDeviceEnd::~RawDeviceEnd() {
  close();
}

std::string RawDeviceEnd::plugIn() {
  _isPulledOut = false;
  nodeChanged();
  return "";
}

void RawDeviceEnd::nodeChanged() {
  if (access(_path.c_str(), F_OK) != 0) {
    const bool wasOpen = _file >= 0;
    _isPulledOut = false;
    close();
    if (wasOpen) told().pulledOut();
  } else if (_file < 0 && !_isPulledOut) {
    open();
  }
}

// Where it cannot be opened yet, the next change of the node tells.
void RawDeviceEnd::open() {
  _file = ::open(_path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
  if (_file < 0) return;
  _canRead = std::make_unique<QSocketNotifier>(_file, QSocketNotifier::Read);
  QObject::connect(_canRead.get(), &QSocketNotifier::activated, [this] { readable(); });
  _canWrite = std::make_unique<QSocketNotifier>(_file, QSocketNotifier::Write);
  _canWrite->setEnabled(false);
  QObject::connect(_canWrite.get(), &QSocketNotifier::activated, [this] { write(); });
  told().pluggedIn();
}

// Also from inside a notifier.
void RawDeviceEnd::close() {
  if (_file < 0) return;
  for (auto* notifier : {&_canRead, &_canWrite}) {
    (*notifier)->setEnabled(false);
    notifier->release()->deleteLater();
  }
  ::close(std::exchange(_file, -1));
  _incoming.clear();
  _outgoing.clear();
  _paced.drop({});
}

void RawDeviceEnd::pullOut() {
  if (_file < 0) return;
  _isPulledOut = true;
  close();
  told().pulledOut();
}

void RawDeviceEnd::readable() {
  std::array<std::uint8_t, 4096> buffer{};
  const ssize_t size = read(_file, buffer.data(), buffer.size());
  if (size > 0) {
    take(std::span(buffer).first(static_cast<std::size_t>(size)));
  } else if (size == 0 || (errno != EAGAIN && errno != EINTR)) {
    pullOut();
  }
}

void RawDeviceEnd::take(std::span<const std::uint8_t> input) {
  if (_content == Content::Bytes) {
    told().received(input);
    return;
  }
  _incoming.insert(_incoming.end(), input.begin(), input.end());
  takeWords();
}

void RawDeviceEnd::takeWords() {
  std::vector<std::uint32_t> words(_incoming.size() / sizeof(std::uint32_t));
  std::memcpy(words.data(), _incoming.data(), words.size() * sizeof(std::uint32_t));
  std::size_t used = 0;
  while (used < words.size()) {
    const int needed = MIDIEventAssembler::count_word_in_message(words[used]);
    const auto count = static_cast<std::size_t>(needed);
    if (count > words.size() - used) break;
    const auto bytes = MIDIWireEvents::bytesOf(std::span(words).subspan(used, count));
    used += count;
    told().received(bytes);
  }
  const auto taken = static_cast<std::ptrdiff_t>(used * sizeof(std::uint32_t));
  _incoming.erase(_incoming.begin(), _incoming.begin() + taken);
}

void RawDeviceEnd::transmit(std::span<const std::uint8_t> bytes) {
  if (_content == Content::Words) {
    for (const auto& piece : _reader.feed(bytes)) enqueueWords(piece);
    return;
  }
  constexpr std::size_t kPiece = 256;
  for (std::size_t at = 0; at < bytes.size(); at += kPiece) {
    enqueue(bytes.subspan(at, std::min(kPiece, bytes.size() - at)));
  }
}

// Together: the kernel's gadget loses packets that are written one by one.
void RawDeviceEnd::enqueueWords(const MIDIWireReader::Piece& piece) {
  std::vector<std::uint32_t> all;
  for (const auto& words : _events.feed(piece)) all.insert(all.end(), words.begin(), words.end());
  enqueue(memoryOf(all));
}

void RawDeviceEnd::enqueue(std::span<const std::uint8_t> bytes) {
  if (_file >= 0) _paced.send({0, {}, {{bytes.begin(), bytes.end()}, {}}});
}

void RawDeviceEnd::write() {
  const ssize_t size = ::write(_file, _outgoing.data(), _outgoing.size());
  if (size > 0) _outgoing.erase(_outgoing.begin(), _outgoing.begin() + size);
  const bool isBroken = size < 0 && errno != EAGAIN && errno != EINTR;
  if (isBroken) lose(errno);
  if (size > 0) _isLosing = false;
  _canWrite->setEnabled(!_outgoing.empty());
}

void RawDeviceEnd::lose(int error) {
  _outgoing.clear();
  if (std::exchange(_isLosing, true)) return;
  Log::line(fmt::format("What the recorder sends is lost ({}).", std::strerror(error)));
}
