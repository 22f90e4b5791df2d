// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "manual/ProgramWords.h"

#include <nlohmann/json.hpp>
#include <set>
#include <string_view>
#include <vector>

namespace {

using Json = nlohmann::ordered_json;

Json namesOf(const std::set<CLI::Option*>& options) {
  Json names = Json::array();
  for (const CLI::Option* option : options) names.push_back(option->get_name());
  return names;
}

Json describedOption(const CLI::Option& option) {
  return {{"long", option.get_lnames()},
          {"short", option.get_snames()},
          {"place", option.get_positional() ? option.get_name(true) : ""},
          {"value", option.get_type_name()},
          {"many", option.get_expected_max() == CLI::detail::expected_max_vector_size},
          {"required", option.get_required()},
          {"default", option.get_default_str()},
          {"needs", namesOf(option.get_needs())},
          {"excludes", namesOf(option.get_excludes())},
          {"description", option.get_description()}};
}

Json described(const CLI::App& words) {
  Json options = Json::array();
  for (const CLI::Option* option : words.get_options()) options.push_back(describedOption(*option));
  Json commands = Json::array();
  const auto all = [](const CLI::App* /*any*/) { return true; };
  for (const CLI::App* command : words.get_subcommands(all)) {
    commands.push_back(described(*command));
  }
  return {{"name", words.get_name()},
          {"description", words.get_description()},
          {"footer", words.get_footer()},
          {"options", options},
          {"commands", commands}};
}

}  // namespace

bool ProgramWords::areAskedFor(int argc, const char* const* argv) {
  return argc == 2 && std::string_view(argv[1]) == "--help-json";
}

std::string ProgramWords::json(const CLI::App& program, const std::string& version) {
  Json words = described(program);
  words["version"] = version;
  return words.dump();
}
