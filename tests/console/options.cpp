#include "console/options.h"

#include <gtest/gtest.h>

#include "text/utf8.h"

namespace tavix::console {
namespace {

std::string ErrorOf(const std::vector<std::string>& arguments) {
  std::string error;
  EXPECT_FALSE(ReadOptions(arguments, error).has_value());
  EXPECT_EQ(error.find('\n'), std::string::npos);
  return error;
}

TEST(ConsoleOptions, ReadsAMachineAndFunctions) {
  std::string error;
  const auto options =
      ReadOptions({"--machine", "m", "--function", "iertu", "--function", "wesh", "--json"}, error);
  ASSERT_TRUE(options.has_value()) << error;
  EXPECT_EQ(options->machine, "m");
  EXPECT_EQ(options->functions, (std::vector<Text>{u"iertu", u"wesh"}));
  EXPECT_EQ(options->page, u"privacy");
  EXPECT_TRUE(options->json);
  EXPECT_FALSE(options->now.has_value());
}

TEST(ConsoleOptions, SaysWhichArgumentIsWrongAndWhy) {
  EXPECT_EQ(ErrorOf({"--machine", "m", "--frobnicate"}), "unknown option '--frobnicate'");
  EXPECT_EQ(ErrorOf({"--machine", "m", "extra"}), "unknown option 'extra'");
  EXPECT_EQ(ErrorOf({"--machine"}), "--machine needs a value");
  EXPECT_EQ(ErrorOf({}), "--machine DIR or --live is missing");
  EXPECT_EQ(ErrorOf({"--machine", "m", "--live"}), "--machine and --live exclude each other");
  EXPECT_EQ(ErrorOf({"--machine", "m", "--page", "start"}),
            "--page 'start' is no page (privacy, system, registry, advanced)");
  EXPECT_EQ(ErrorOf({"--machine", "m", "--json", "--json"}), "--json stands twice");
  EXPECT_EQ(ErrorOf({"--machine", "m", "--function", "\xFF"}), "--function '\xFF' is no UTF-8 text");
}

TEST(ConsoleOptions, ReadsADateAndTime) {
  std::string error;
  const auto options = ReadOptions({"--live", "--now", "1970-01-02T00:00:01"}, error);
  ASSERT_TRUE(options.has_value()) << error;
  EXPECT_EQ(options->now, 86'401'000);
  EXPECT_EQ(ReadOptions({"--live", "--now", "2026-02-28T23:59:59"}, error)->now, 1'772'323'199'000);
  for (const char* wrong :
       {"", "2026", "2026-02-29T00:00:00", "2026-13-01T00:00:00", "2026-01-01T24:00:00",
        "2026-01-01T00:60:00", "2026-01-01 00:00:00", "2026-01-01T00:00:00Z", "-026-01-01T00:00:00"}) {
    EXPECT_EQ(ErrorOf({"--live", "--now", wrong}),
              std::string("--now '") + wrong + "' is no date and time (YYYY-MM-DDThh:mm:ss)");
  }
}

TEST(ConsoleOptions, HelpAndVersionNeedNoMachine) {
  std::string error;
  EXPECT_TRUE(ReadOptions({"--help"}, error)->help);
  EXPECT_TRUE(ReadOptions({"--version"}, error)->version);
}

TEST(ConsoleOptions, ASettingIsCutAtTheLastSlashBeforeItsEqualsSign) {
  std::string error;
  const auto options = ReadOptions(
      {"--live", "--set", "One-click Clean/Repair/Functions=|a/b=c|", "--set", "Cleaning Method/Method="},
      error);
  ASSERT_TRUE(options.has_value()) << error;
  ASSERT_EQ(options->settings.size(), 2U);
  EXPECT_EQ(options->settings[0].section, u"One-click Clean/Repair");
  EXPECT_EQ(options->settings[0].key, u"Functions");
  EXPECT_EQ(options->settings[0].value, u"|a/b=c|");
  EXPECT_EQ(options->settings[1].value, u"");
  EXPECT_EQ(ErrorOf({"--live", "--set", "Method=D"}),
            "--set 'Method=D' is not of the form Section/Key=Value");
  EXPECT_EQ(ErrorOf({"--live", "--set", "A/B"}), "--set 'A/B' is not of the form Section/Key=Value");
}

TEST(ConsoleOptions, MarksKeepTheirOrder) {
  std::string error;
  const auto options =
      ReadOptions({"--live", "--untick", "3", "--tick", "1", "--untick", "1", "--clean"}, error);
  ASSERT_TRUE(options.has_value()) << error;
  ASSERT_EQ(options->marks.size(), 3U);
  EXPECT_EQ(options->marks[0].row, 3);
  EXPECT_FALSE(options->marks[0].checked);
  EXPECT_TRUE(options->marks[1].checked);
  EXPECT_FALSE(options->marks[2].checked);
  EXPECT_TRUE(options->clean);
  for (const char* wrong : {"0", "-1", "1x", "", "99999999999"}) {
    EXPECT_EQ(ErrorOf({"--live", "--tick", wrong}), std::string("--tick '") + wrong + "' is no row number");
  }
}

TEST(ConsoleOptions, ReadsEachPageAndScopes) {
  std::string error;
  for (const TextView page : {u"privacy", u"system", u"registry", u"advanced"}) {
    EXPECT_EQ(ReadOptions({"--live", "--page", ToUtf8(page)}, error)->page, page);
  }
  EXPECT_EQ(ReadOptions({"--live"}, error)->page, u"privacy");
  const auto options = ReadOptions(
      {"--live", "--scope", "C:", "--page", "advanced", "--scope", "C:\\Users\\J\xC3\xBCrgen"}, error);
  ASSERT_TRUE(options.has_value()) << error;
  EXPECT_EQ(options->scopes, (std::vector<Text>{u"C:", u"C:\\Users\\J\u00FCrgen"}));
  for (const char* wrong : {"", "System", "one-click", "privacy "}) {
    EXPECT_EQ(ErrorOf({"--live", "--page", wrong}),
              std::string("--page '") + wrong + "' is no page (privacy, system, registry, advanced)");
  }
}

TEST(ConsoleOptions, AScopeNeedsTheAdvancedPage) {
  EXPECT_EQ(ErrorOf({"--live", "--scope", "C:"}), "--scope needs --page advanced");
  EXPECT_EQ(ErrorOf({"--live", "--page", "system", "--scope", "C:"}), "--scope needs --page advanced");
}

TEST(ConsoleOptions, YesAnswersTheQuestionBeforeTheRunningSystemIsCleaned) {
  std::string error;
  EXPECT_TRUE(ReadOptions({"--live", "--clean", "--yes"}, error)->yes);
  EXPECT_TRUE(ReadOptions({"--live", "--one-click", "--yes"}, error)->yes);
  EXPECT_EQ(ErrorOf({"--machine", "m", "--clean", "--yes"}), "--yes needs --live");
  EXPECT_EQ(ErrorOf({"--live", "--yes"}), "--yes needs --clean or --one-click");
}

TEST(ConsoleOptions, OneClickHasItsFunctionsFromTheSettings) {
  std::string error;
  EXPECT_FALSE(ReadOptions({"--live"}, error)->oneClick);
  EXPECT_TRUE(ReadOptions({"--live", "--one-click", "--page", "system", "--clean"}, error)->oneClick);
  EXPECT_EQ(ErrorOf({"--live", "--one-click", "--function", "iec"}),
            "--one-click and --function exclude each other");
  EXPECT_EQ(ErrorOf({"--live", "--one-click", "--page", "advanced", "--scope", "C:"}),
            "--one-click and --scope exclude each other");
}

}  // namespace
}  // namespace tavix::console
