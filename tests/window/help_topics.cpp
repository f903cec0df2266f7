#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>
#include <string>

#include "catalogue/functions.h"
#include "support/case.h"
#include "support/program_test.h"
#include "support/source_folder.h"

// The topics of the help file, compared with the functions that the window offers.
namespace tavix::mdlPubSelf {
namespace {

namespace fs = std::filesystem;

std::string Read(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream content;
  content << in.rdbuf();
  return content.str();
}

std::map<std::string, std::string> ReadSources() {
  std::map<std::string, std::string> sources;
  for (const auto& entry : fs::directory_iterator(SourceFolder() + "/res/help"))
    sources[entry.path().filename().string()] = Read(entry.path());
  return sources;
}

const std::map<std::string, std::string>& Sources() {
  static const auto sources = ReadSources();
  return sources;
}

// Finds all matches and returns the text of the first group of each.
std::vector<std::string> All(const std::string& text, const char* pattern) {
  const std::regex expression(pattern);
  std::vector<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match)
    found.push_back((*match)[1]);
  return found;
}

// In small letters, with one underscore for each run of other characters than letters and digits.
std::string FileNameOf(TextView caption) {
  std::string name;
  for (const char c : Narrow(caption)) {
    if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
      name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    } else if (!name.ends_with('_')) {
      name += '_';
    }
  }
  return name;
}

struct Topic {
  std::string file, title, page, group;
};

std::vector<Topic> FunctionTopics() {
  std::vector<Topic> topics;
  for (const CleaningFunction& function : kPrivacyFunctions) {
    if (function.Key == u"ie" || function.Key == u"we") continue;
    const std::string key = Narrow(function.Key);
    topics.push_back({key + ".htm", Narrow(function.Caption), "privacy.htm", "privacy." + key.substr(0, 2)});
  }
  const auto add = [&](std::span<const CleaningFunction> functions, const std::string& prefix,
                       const std::string& page) {
    for (const CleaningFunction& function : functions)
      topics.push_back(
          {prefix + FileNameOf(function.Caption) + ".htm", Narrow(function.Caption), page + ".htm", page});
  };
  add(kSystemFunctions, "", "system");
  add(kRegistryFunctions, "", "registry");
  add(kAdvancedFunctions, "advanced_", "advanced");
  return topics;
}

TEST(HelpTopics, EveryFunctionHasItsOwnReachedFromItsPage) {
  const auto topics = FunctionTopics();
  ASSERT_FALSE(topics.empty());
  for (const Topic& topic : topics) {
    ASSERT_TRUE(Sources().contains(topic.file)) << topic.file;
    const std::string& text = Sources().at(topic.file);
    EXPECT_EQ(All(text, "<h1>(.*?)</h1>"), std::vector{topic.title}) << topic.file;
    EXPECT_EQ(All(text, "<h2>(.*?)</h2>"),
              (std::vector<std::string>{"What it finds", "What cleaning does", "What comes back by itself",
                                        "When to leave it unticked"}))
        << topic.file;
    EXPECT_EQ(text.find("<p></p>"), std::string::npos) << topic.file;
    const std::string& page = Sources().at(topic.page);
    EXPECT_NE(page.find("<!-- topics of " + topic.group + " -->"), std::string::npos) << topic.file;
    EXPECT_NE(text.find("href=\"" + topic.page + "\""), std::string::npos) << topic.file;
  }
}

TEST(HelpTopics, OnAPageAreInTheOrderOfTheFunctions) {
  std::map<std::string, int> last;
  for (const Topic& topic : FunctionTopics()) {
    SCOPED_TRACE(topic.file);
    const auto numbers = All(Sources().at(topic.file),
                             ("<meta name=\"place\" content=\"" + topic.group + " (\\d+)\">").c_str());
    ASSERT_EQ(numbers.size(), 1U);
    EXPECT_GT(std::stoi(numbers[0]), last[topic.group]);
    last[topic.group] = std::stoi(numbers[0]);
  }
}

TEST(HelpTopics, ExplainTheKeysOfTheWindow) {
  const std::string& keys = Sources().at("keys.htm");
  for (const char* key :
       {"F1", "F3", "F5", "Esc", "P, S, R, A", "O", "1", "Ctrl+X", "Ctrl+O", "Ctrl+P", "Ctrl+I", "Alt+F4"})
    EXPECT_NE(keys.find(std::string("<th>") + key + "</th>"), std::string::npos) << key;
}

TEST(HelpTopics, HaveTheAsciiEncodingTheyDeclare) {
  for (const auto& [file, text] : Sources()) {
    SCOPED_TRACE(Case(file));
    EXPECT_TRUE(std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) > 126; }))
        << file;
    EXPECT_EQ(text.find('\r'), std::string::npos) << file;
  }
}

}  // namespace
}  // namespace tavix::mdlPubSelf
