// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/AudioBackends.h"

#include <map>
#include <string>
#include <utility>

namespace {

struct Registry {
  std::map<std::string, AudioBackends::FileFactory, std::less<>> files;
  std::map<std::string, AudioBackends::OutputFactory, std::less<>> outputs;
  std::map<std::string, std::string, std::less<>> libraries;
  std::string file;
  std::string output;
};

Registry& registry() {
  static Registry only;
  return only;
}

}  // namespace

void AudioBackends::addFile(std::string_view name, FileFactory factory) {
  registry().files.insert_or_assign(std::string(name), std::move(factory));
}

void AudioBackends::addOutput(std::string_view name, OutputFactory factory, std::string library) {
  registry().libraries.insert_or_assign(std::string(name), std::move(library));
  registry().outputs.insert_or_assign(std::string(name), std::move(factory));
}

bool AudioBackends::chooseFile(std::string_view name) {
  if (!registry().files.contains(name)) return false;
  registry().file = name;
  return true;
}

bool AudioBackends::chooseOutput(std::string_view name) {
  if (!registry().outputs.contains(name)) return false;
  registry().output = name;
  return true;
}

std::unique_ptr<AudioFile> AudioBackends::makeFile() {
  return makeFile(registry().file);
}

std::unique_ptr<AudioFile> AudioBackends::makeFile(std::string_view name) {
  const auto found = registry().files.find(name);
  return found != registry().files.end() ? found->second() : nullptr;
}

std::unique_ptr<AudioOutput> AudioBackends::makeOutput(const AudioOutput::Format& format) {
  const auto found = registry().outputs.find(registry().output);
  return found != registry().outputs.end() ? found->second(format) : nullptr;
}

std::string AudioBackends::outputLibrary() {
  const auto found = registry().libraries.find(registry().output);
  return found != registry().libraries.end() ? found->second : std::string();
}
