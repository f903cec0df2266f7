#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/shortcut.h"
#include "support/case.h"
#include "support/source_folder.h"
#include "text/utf8.h"

namespace tavix::platform {
namespace {

const std::filesystem::path kFolder =
    std::filesystem::path(SourceFolder()) / ".." / "shared" / "data" / "lnk";

std::string Content(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// A line of the index: the paths that another reader found in the file.
struct IndexLine {
  std::string file, categories, local, network, variable;
};

std::vector<IndexLine> ReadIndex() {
  std::vector<IndexLine> lines;
  std::ifstream index(kFolder / "INDEX.tsv", std::ios::binary);
  std::string line;
  std::getline(index, line);
  while (std::getline(index, line)) {
    std::array<std::string, 5> fields;
    size_t at = 0;
    for (std::string& field : fields) {
      const size_t end = std::min(line.find('\t', at), line.size());
      field = line.substr(at, end - at);
      at = std::min(end + 1, line.size());
    }
    lines.push_back({fields[0], fields[1], fields[2], fields[3], fields[4]});
  }
  return lines;
}

// Paths that only the item list contains, and others for which the index has no column.
const std::map<std::string, std::string> kOthers{
    {"013.lnk", "C:\\Program Files\\CA\\ARCserve Backup\\ARCserveMgr.exe"},
    {"014.lnk", "C:\\Program Files\\Internet Explorer\\iexplore.exe"},
    {"015.lnk", "C:\\Program Files\\Internet Explorer\\iexplore.exe"},
    {"055.lnk", "D:\\"},
    {"056.lnk", "E:\\"},
    {"107.lnk", "C:\\Program Files\\Microsoft Office\\Office16\\EXCEL.EXE"},
    {"109.lnk", "C:\\Program Files (x86)\\Hotkey\\HkeyTray.exe"},
    {"110.lnk", "C:\\Users\\e\\AppData\\Local\\JetBrains\\Installations\\dotTrace04\\dotTrace64.exe"},
    {"161.lnk", "%PSModulePath%..\\powershell.exe"},
};

std::vector<std::string> Expected(const IndexLine& line) {
  std::vector<std::string> paths;
  for (const std::string* path : {&line.variable, &line.local, &line.network}) {
    if (!path->empty()) paths.push_back(*path);
  }
  const auto other = kOthers.find(line.file);
  if (other != kOthers.end()) paths.push_back(other->second);
  return paths;
}

TEST(RealShortcuts, NameThePlacesOfTheIndex) {
  const std::vector<IndexLine> index = ReadIndex();
  if (index.empty()) GTEST_SKIP() << "no real shortcuts at " << kFolder;
  for (const IndexLine& line : index) {
    const std::optional<Shortcut> shortcut = ReadShortcut(Content(kFolder / line.file));
    ASSERT_TRUE(shortcut) << line.file;
    std::set<std::string> paths;
    for (const Text& path : shortcut->paths) paths.insert(ToUtf8(path));
    for (const std::string& path : Expected(line))
      EXPECT_TRUE(paths.contains(path)) << line.file << ' ' << path;
    if (line.categories.find("msi-darwin") != std::string::npos) {
      EXPECT_TRUE(shortcut->others) << line.file;
    }
  }
}

TEST(RealShortcuts, CutOffAnywhereDoNoHarm) {
  const std::vector<IndexLine> index = ReadIndex();
  if (index.empty()) GTEST_SKIP() << "no real shortcuts at " << kFolder;
  for (const IndexLine& line : index) {
    const std::string whole = Content(kFolder / line.file);
    for (size_t size = 0; size < whole.size(); ++size) {
      SCOPED_TRACE(Case(size));
      const std::optional<Shortcut> data = ReadShortcut(std::string(whole, 0, size));
      if (size < 0x4C) {
        EXPECT_FALSE(data);
      } else if (data) {
        for (const Text& path : data->paths) EXPECT_EQ(path.find(u'\0'), Text::npos);
      }
    }
  }
}

}  // namespace
}  // namespace tavix::platform
