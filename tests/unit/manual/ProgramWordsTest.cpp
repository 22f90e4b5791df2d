// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "manual/ProgramWords.h"

#include <gtest/gtest.h>

#include <array>
#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;

TEST(ProgramWords, AreAskedForByOneWordAlone) {
  const std::array alone{"program", "--help-json"};
  const std::array others{"program", "--help-json", "more"};
  EXPECT_TRUE(ProgramWords::areAskedFor(2, alone.data()));
  EXPECT_FALSE(ProgramWords::areAskedFor(1, alone.data()));
  EXPECT_FALSE(ProgramWords::areAskedFor(3, others.data()));
}

TEST(ProgramWords, TellWhatAProgramHasDeclared) {
  CLI::App program("What it does.", "it");
  program.footer("Last words");
  const Json told = Json::parse(ProgramWords::json(program, "1.2"));
  EXPECT_EQ(told["name"], "it");
  EXPECT_EQ(told["version"], "1.2");
  EXPECT_EQ(told["description"], "What it does.");
  EXPECT_EQ(told["footer"], "Last words");
  EXPECT_EQ(told["options"][0]["long"], Json({"help"}));
  EXPECT_EQ(told["options"][0]["short"], Json({"h"}));
  EXPECT_EQ(told["options"][0]["value"], "");
}

TEST(ProgramWords, TellWhatAnOptionTakes) {
  CLI::App program;
  std::string format = "a";
  bool flag = false;
  auto* other = program.add_flag("--flag", flag);
  program.add_option("--format", format, "How")
      ->type_name("KIND")
      ->check(CLI::IsMember({"a", "b"}))
      ->capture_default_str()
      ->excludes(other);
  const Json option = Json::parse(ProgramWords::json(program, ""))["options"][2];
  EXPECT_EQ(option["value"], "KIND:{a,b}");
  EXPECT_EQ(option["default"], "a");
  EXPECT_EQ(option["excludes"], Json({"--flag"}));
  EXPECT_EQ(option["many"], false);
  EXPECT_EQ(option["place"], "");
}

TEST(ProgramWords, TellTheCommandsAndTheirPlaces) {
  CLI::App program;
  std::vector<std::string> files;
  program.add_subcommand("do", "Does")->add_option("FILE", files, "Files")->required();
  const Json command = Json::parse(ProgramWords::json(program, ""))["commands"][0];
  EXPECT_EQ(command["name"], "do");
  const Json place = command["options"][1];
  EXPECT_EQ(place["place"], "FILE");
  EXPECT_EQ(place["many"], true);
  EXPECT_EQ(place["required"], true);
}

}  // namespace
