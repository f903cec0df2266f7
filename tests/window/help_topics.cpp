#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "catalogue/functions.h"
#include "support/program_test.h"
#include "support/source_folder.h"

// The sources of the help file, held against the functions that the window offers.
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

// What the pattern's group holds, for all its matches.
std::vector<std::string> All(const std::string& text, const char* pattern) {
  const std::regex expression(pattern);
  std::vector<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match)
    found.push_back((*match)[1]);
  return found;
}

// Small letters and digits, a single low line for anything else.
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
  std::string file, title, page;
};

std::vector<Topic> FunctionTopics() {
  std::vector<Topic> topics;
  for (const CleaningFunction& function : kPrivacyFunctions) {
    if (function.Key == u"ie" || function.Key == u"we") continue;
    topics.push_back({Narrow(function.Key) + ".htm", Narrow(function.Caption), "privacy.htm"});
  }
  const auto add = [&](std::span<const CleaningFunction> functions, const std::string& prefix,
                       const char* page) {
    for (const CleaningFunction& function : functions)
      topics.push_back({prefix + FileNameOf(function.Caption) + ".htm", Narrow(function.Caption), page});
  };
  add(kSystemFunctions, "", "system.htm");
  add(kRegistryFunctions, "", "registry.htm");
  add(kAdvancedFunctions, "advanced_", "advanced.htm");
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
    EXPECT_NE(page.find("<a href=\"" + topic.file + "\">" + topic.title + "</a>"), std::string::npos)
        << topic.file;
    EXPECT_NE(text.find("href=\"" + topic.page + "\""), std::string::npos) << topic.file;
  }
}

TEST(HelpTopics, OnAPageTheyStandInTheOrderOfTheFunctions) {
  std::map<std::string, std::vector<std::string>> wanted;
  for (const Topic& topic : FunctionTopics()) wanted[topic.page].push_back(topic.file);
  for (const auto& [page, files] : wanted) {
    std::vector<std::string> found;
    for (const std::string& link : All(Sources().at(page), "<a href=\"(.*?)\""))
      if (std::ranges::find(files, link) != files.end()) found.push_back(link);
    EXPECT_EQ(found, files) << page;
  }
}

TEST(HelpTopics, EveryLinkLeadsSomewhere) {
  int links = 0;
  for (const auto& [file, text] : Sources()) {
    for (const char* pattern : {"href=\"(.*?)\"", "name=\"Local\" value=\"(.*?)\"", "src=\"(.*?)\""}) {
      for (const std::string& target : All(text, pattern)) {
        EXPECT_TRUE(Sources().contains(target)) << file << " -> " << target;
        ++links;
      }
    }
  }
  EXPECT_GT(links, 200);
}

TEST(HelpTopics, EveryTopicStandsInContentsIndexAndProject) {
  const std::string& project = Sources().at("help.hhp");
  const std::vector<std::string> listed = All(project, "(?:^|\n)(\\w+\\.(?:htm|css))(?=\n)");
  std::set<std::string> files;
  for (const auto& [file, text] : Sources()) {
    if (file.ends_with(".htm") || file.ends_with(".css")) files.insert(file);
    if (!file.ends_with(".htm")) continue;
    const std::string title = All(text, "<title>(.*?)</title>").at(0);
    EXPECT_EQ(All(text, "<h1>(.*?)</h1>"), std::vector{title}) << file;
    const std::string entry = "value=\"" + title + "\"><param name=\"Local\" value=\"" + file + "\">";
    EXPECT_NE(Sources().at("contents.hhc").find(entry), std::string::npos) << file;
    EXPECT_NE(Sources().at("index.hhk").find(entry), std::string::npos) << file;
  }
  EXPECT_EQ(std::set(listed.begin(), listed.end()), files);
  EXPECT_EQ(listed.size(), files.size());
}

TEST(HelpTopics, TheViewerHasTheTitleByWhichItIsFound) {
  const std::string& project = Sources().at("help.hhp");
  EXPECT_NE(project.find("\nDefault Window=main\n"), std::string::npos);
  EXPECT_NE(project.find("\nmain=\"TVX Help\",\"contents.hhc\",\"index.hhk\",\"welcome.htm\","),
            std::string::npos);
}

TEST(HelpTopics, TheKeysOfTheWindowAreTold) {
  const std::string& keys = Sources().at("keys.htm");
  for (const char* key :
       {"F1", "F3", "F5", "Esc", "P, S, R, A", "O", "1", "Ctrl+X", "Ctrl+O", "Ctrl+P", "Ctrl+I", "Alt+F4"})
    EXPECT_NE(keys.find(std::string("<th>") + key + "</th>"), std::string::npos) << key;
}

TEST(HelpTopics, TheTextIsAsciiAsItSays) {
  for (const auto& [file, text] : Sources()) {
    EXPECT_TRUE(std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) > 126; }))
        << file;
    EXPECT_EQ(text.find('\r'), std::string::npos) << file;
  }
}

}  // namespace
}  // namespace tavix::mdlPubSelf
