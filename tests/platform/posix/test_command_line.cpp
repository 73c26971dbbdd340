#include <gtest/gtest.h>

#include <vector>

#include "platform/posix/command_line.h"

namespace ostrinka {
namespace {

// A program with an option of each kind and a place, as it stands after it read some words.
struct Reading {
  explicit Reading(std::vector<const char*> words) {
    words.insert(words.begin(), "build/somewhere/sample");
    CommandLine line("sample", "Shows how words are read.");
    line.Word("--app", folder, "A folder")->type_name("DIR");
    line.Whole("--seed", seed, 1, 900, "A number")->type_name("N");
    line.Checked("--even", "A text of even length", [](const std::string& text) { return text.size() % 2 == 0; });
    line.Word("FILE", file, "A place")->required()->type_name("");
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    status = line.Read(static_cast<int>(words.size()), words.data());
    out = testing::internal::GetCapturedStdout();
    error = testing::internal::GetCapturedStderr();
  }
  std::string folder, file, out, error;
  int seed = 0;
  std::optional<int> status;
};

TEST(CommandLineTest, WordsReachTheirVariablesInAnyOrder) {
  const Reading reading({"--seed", "17", "script", "--app", "old", "--app", "Mój folder/"});
  EXPECT_EQ(reading.status, std::nullopt);
  EXPECT_EQ(reading.seed, 17);
  EXPECT_EQ(reading.file, "script");
  EXPECT_EQ(reading.folder, "Mój folder/") << "the last one counts";
  EXPECT_EQ(reading.out + reading.error, "");
  EXPECT_EQ(Reading({"-"}).file, "-") << "standard input";
  EXPECT_EQ(Reading({"x", "--seed", "010"}).seed, 10) << "decimal whatever it begins with";
}

TEST(CommandLineTest, WhatIsWrongIsToldWithTheUsageAndEndsWithTwo) {
  const std::vector<const char*> wrong[] = {{},
                                            {"one", "two"},
                                            {"x", "--other"},
                                            {"x", "--app"},
                                            {"x", "--seed", "0"},
                                            {"x", "--seed", "901"},
                                            {"x", "--seed", "5x"},
                                            {"x", "--seed", "99999999999999999999"},
                                            {"x", "--even", "odd"}};
  for (const auto& words : wrong) {
    const Reading reading(words);
    const std::string shown = testing::PrintToString(words);
    EXPECT_EQ(reading.status, 2) << shown;
    EXPECT_EQ(reading.error.rfind("sample: ", 0), 0u) << shown << reading.error;
    EXPECT_NE(reading.error.find("--seed N"), std::string::npos) << shown << reading.error;
    EXPECT_EQ(reading.out, "") << shown;
  }
}

TEST(CommandLineTest, HelpIsNoFault) {
  const Reading reading({"--help"});
  EXPECT_EQ(reading.status, 0);
  EXPECT_NE(reading.out.find("--app DIR"), std::string::npos);
  EXPECT_EQ(reading.error, "");
}

}  // namespace
}  // namespace ostrinka
