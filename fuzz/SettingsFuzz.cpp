// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Arbitrary bytes as the settings file. An input is the file.

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "FuzzInput.h"
#include "base/SettingsFile.h"

namespace fs = std::filesystem;

namespace {

/// One folder for all inputs, gone in the end.
class Folder {
 public:
  Folder() {
    std::string name = (fs::temp_directory_path() / "mixdeck-settings-XXXXXX").native();
    require(mkdtemp(name.data()) != nullptr, "there is a temporary folder");
    _path = name;
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    std::error_code error;
    fs::remove_all(_path, error);
  }

  [[nodiscard]] fs::path settings() const { return _path / "settings"; }
  [[nodiscard]] fs::path damaged() const { return _path / "settings.damaged"; }

 private:
  fs::path _path;
};

void checkText(const std::string& text, const std::optional<SettingsText::Values>& values) {
  if (!values) return;
  const std::string written = SettingsText::write(*values);
  require(SettingsText::read(written) == values, "what is written reads as the same");
  require(written.size() <= 2 * text.size(), "a text does not grow without end");
}

void checkFile(const std::string& text, const std::optional<SettingsText::Values>& values) {
  static const Folder folder;
  fs::remove(folder.damaged());
  std::ofstream(folder.settings(), std::ios::binary) << text;
  const SettingsFile file(folder.settings());
  const auto lastFolder = [&]() -> std::optional<std::string> {
    if (!values || !values->contains("UD_LAST_OPEN_FOLDER")) return std::nullopt;
    return values->at("UD_LAST_OPEN_FOLDER");
  };
  require(file.get("UD_LAST_OPEN_FOLDER") == lastFolder(),
          "a damaged file counts as absent, a whole one as it is");
  require(!fs::exists(folder.damaged()), "a look changes nothing");
  require(file.set("key", text), "a value can be stored");
  require(fs::exists(folder.damaged()) == !values, "a damaged file is set aside, no other");
  require(file.get("key") == text, "any bytes are kept");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const auto values = SettingsText::read(text);
  checkText(text, values);
  checkFile(text, values);
  return 0;
}
