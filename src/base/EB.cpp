// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/EB.h"

#include <string>

#include "base/Log.h"

namespace {

EB* shared = nullptr;
NotificationCenter* sharedCenter = nullptr;

}  // namespace

void EB::initData() {
  if (shared != nullptr) return;
  static EB only;
  shared = &only;
  sharedCenter = &NotificationCenter::defaultCenter();
}

EB* EB::init() {
  return shared;
}

NotificationCenter* EB::center() {
  return sharedCenter;
}

void EB::FIRE(std::string_view name) {
  FIRE(name, {});
}

void EB::FIRE(std::string_view name, const std::any& data) {
  Log::line(">>>>>EVENT BUS " + std::string(name) + "<<<<<");
  if (sharedCenter != nullptr) sharedCenter->post({std::string(name), data});
}
