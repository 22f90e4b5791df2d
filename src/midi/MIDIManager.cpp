// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDIManager.h"

#include <algorithm>
#include <array>
#include <span>

#include "midi/MIDICommon.h"
#include "midi/MIDIPlatform.h"

namespace {

constexpr std::string_view kClientName = "TARN Riffhouse";
constexpr std::string_view kOutputPortName = "PortHub Output Port";
constexpr std::string_view kEventInputPortName = "Input Port";
constexpr std::string_view kByteInputPortName = "Input";
constexpr std::string_view kRecorderName = "J4 TARN";
constexpr std::string_view kUnknownName = "Unknown name";
constexpr double kGraceSeconds = 1.0;
constexpr std::size_t kLongestPacket = 256;

MIDIManager* instance = nullptr;

bool isRecorder(const MIDIEndpoint& endpoint) {
  const std::string_view name =
      endpoint.displayName ? std::string_view(*endpoint.displayName) : kUnknownName;
  return name.find(kRecorderName) != std::string_view::npos;
}

}  // namespace

MIDIManager& MIDIManager::get() {
  static std::unique_ptr<MIDIManager> made;
  if (instance == nullptr) made = std::make_unique<MIDIManager>();
  return *instance;
}

MIDIManager::MIDIManager() : _system(MIDIPlatform::system()) {
  instance = this;
  _client = _system->createClient(kClientName, *this);
}

MIDIManager::~MIDIManager() {
  clean_up();
  _system->dispose(_client);
  if (instance == this) instance = nullptr;
}

void MIDIManager::setupChanged(std::int32_t messageID) {
  if (messageID == kObjectAdded) scanTarnDevice();
  // Kept on purpose: whatever was removed, the link ends.
  if (messageID == kObjectRemoved) DeviceDisconnected();
}

void MIDIManager::scanTarnDevice() {
  const bool canWrite = isHasWritingEndpoint();
  const bool canRead = isHasReadingEndpoint();
  if (!canWrite || !canRead) {
    DeviceDisconnected();
    return;
  }
  if (_state >= Found) return;
  changeStateTo(Found);
  if (auto* told = delegate()) told->MIDIManagerFound();
}

void MIDIManager::connect() {
  if (_state != Found) return;
  changeStateTo(Connecting);
  closeLeftOverPort();
  _write_endpoint = _write_endpoint_tmp;
  _read_endpoint = _read_endpoint_tmp;
  _readPort = 0;
  if (buildPortForReadDataFromHW(_client) == 0) _system->connectSource(_readPort, _read_endpoint);
  _writePort = _system->createPort(_client, MIDIDirection::Destination, kOutputPortName).port;
  changeStateTo(Waiting);
  startTimerConnected();
}

// Without an input port `clean_up` leaves the output port open.
void MIDIManager::closeLeftOverPort() {
  _system->dispose(_writePort);
  _writePort = 0;
}

void MIDIManager::DeviceDisconnected() {
  if (_state == Disconnected) return;
  changeStateTo(Disconnected);
  clean_up();
  if (auto* told = delegate()) told->MIDIManagerDisconnected();
}

void MIDIManager::clean_up() {
  stopTimerConnected();
  if (_readPort == 0 || _read_endpoint == 0) return;
  _system->disconnectSource(_readPort, _read_endpoint);
  _system->dispose(_readPort);
  _system->dispose(_writePort);
  _readPort = _writePort = 0;
  _system->flushOutput(_read_endpoint);
  _system->flushOutput(_write_endpoint);
  _read_endpoint = _write_endpoint = 0;
}

std::string_view MIDIManager::stateToString(std::int64_t state) {
  static constexpr std::array<std::string_view, 6> kNames = {"DISCONNECTED", "SCAN", "FOUND",
                                                             "CONNECTING",   "",     "CONNECTED"};
  const auto index = static_cast<std::uint64_t>(state);
  return index < kNames.size() ? kNames[index] : "";
}

void MIDIManager::changeStateTo(std::int64_t state) {
  _state = state;
}

void MIDIManager::startTimerConnected() {
  stopTimerConnected();
  _timer_connected = MIDIPlatform::clock().after(kGraceSeconds, [this] {
    if (_state != Waiting) return;
    changeStateTo(Connected);
    if (auto* told = delegate()) told->MIDIManagerConnected();
  });
}

void MIDIManager::stopTimerConnected() {
  _timer_connected.reset();
}

bool MIDIManager::isHasWritingEndpoint() {
  return findEndpoint(MIDIDirection::Destination, _write_endpoint_tmp);
}

bool MIDIManager::isHasReadingEndpoint() {
  return findEndpoint(MIDIDirection::Source, _read_endpoint_tmp);
}

bool MIDIManager::findEndpoint(MIDIDirection direction, MIDIObjectRef& found) const {
  const std::vector<MIDIEndpoint> endpoints = _system->endpoints(direction);
  const auto match = std::ranges::find_if(endpoints, isRecorder);
  if (match == endpoints.end()) return false;
  found = match->reference;
  return true;
}

std::int32_t MIDIManager::buildPortForReadDataFromHW(MIDIObjectRef client) {
  const std::string_view name = usesEventLists() ? kEventInputPortName : kByteInputPortName;
  const MIDICreatedPort created = _system->createPort(client, MIDIDirection::Source, name);
  if (created.status == 0) _readPort = created.port;
  return created.status;
}

bool MIDIManager::usesEventLists() const {
  return _system->packetKind() == MIDIPacketKind::EventLists;
}

void MIDIManager::send(const std::uint8_t* bytes, std::int64_t size) {
  usesEventLists() ? sendForMacOS11(bytes, size) : sendForMacOS10(bytes, size);
}

void MIDIManager::sendForMacOS11(const std::uint8_t* bytes, std::int64_t size) {
  if (!usesEventLists()) return;
  const auto packets = MIDICommon::convertByteToPacket(bytes, size);
  if (!packets) return;
  for (const GLPacket& packet : *packets) {
    const auto words = std::span(packet.data).first(static_cast<std::size_t>(packet.size));
    const MIDIEventPacket event{0, words};
    _system->send(_writePort, _write_endpoint, MIDIEventList(&event, 1));
  }
}

void MIDIManager::sendForMacOS10(const std::uint8_t* bytes, std::int64_t size) {
  std::span<const std::uint8_t> rest(bytes,
                                     static_cast<std::size_t>(std::max<std::int64_t>(size, 0)));
  _packetBuffer.clear();
  while (!rest.empty()) {
    const auto piece = rest.first(std::min(rest.size(), kLongestPacket));
    // A message that outgrows the list goes on in a second one.
    if (!_packetBuffer.add(MIDIPlatform::clock().hostTime(), piece)) {
      sendPacketBuffer();
      continue;
    }
    rest = rest.subspan(piece.size());
  }
  sendPacketBuffer();
}

void MIDIManager::sendPacketBuffer() {
  _system->send(_writePort, _write_endpoint, _packetBuffer.packets());
  _packetBuffer.clear();
}

void MIDIManager::received(MIDIEventList events) {
  receiveForMacOS11(events);
}

void MIDIManager::receiveForMacOS11(MIDIEventList events) {
  for (const MIDIEventPacket& packet : events) {
    if (auto* told = delegate()) told->MIDIManagerReceivedData(packet);
  }
}

void MIDIManager::received(MIDIPacketList packets) {
  for (const MIDIPacket& packet : packets) {
    auto* told = delegate();
    if (told != nullptr) told->MIDIManagerReceivedData_iOS13(packet, &packet == &packets.back());
  }
}

MIDIManagerDelegate* MIDIManager::delegate() const {
  return _delegateLife.expired() ? nullptr : _delegate;
}

void MIDIManager::setDelegate(MIDIManagerDelegate* delegate) {
  _delegate = delegate;
  _delegateLife = delegate == nullptr ? std::weak_ptr<const void>() : delegate->life();
}
