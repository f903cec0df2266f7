#include "platform/windows/shell_link.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

#include "platform/machine/shortcut.h"
#include "platform/windows/com.h"
#include "platform/windows/scratch_place.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_shell.h"
#include "support/source_folder.h"
#include "text/utf8.h"

#include <shlobj.h>

namespace tavix::windows {
namespace {

class ShellLinkOfWindows : public testing::Test {
 protected:
  // Saves a shortcut to a path as any program would.
  static void Save(const Text& path, const Text& target) {
    ComPointer<IShellLinkW> link;
    ASSERT_EQ(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                               reinterpret_cast<void**>(link.Receive())),
              S_OK);
    ASSERT_EQ(link.Get()->SetPath(Wide(target)), S_OK);
    ComPointer<IPersistFile> file;
    ASSERT_EQ(link.Get()->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(file.Receive())), S_OK);
    ASSERT_EQ(file.Get()->Save(Wide(path), TRUE), S_OK);
  }

  const ComApartment apartment;
  ScratchPlace place;
  WindowsFileSystem files;
  WindowsShell shell;
};

TEST_F(ShellLinkOfWindows, HasTheTargetItWasSavedWith) {
  const Text target = place.File(u"t\u00E4rget.txt");
  Save(place.In(u"a.lnk"), target);
  EXPECT_EQ(shell.ShortcutTarget(place.In(u"a.lnk")), target);
}

TEST_F(ShellLinkOfWindows, KeepsATargetThatIsGone) {
  const Text target = place.File(u"target.txt");
  Save(place.In(u"a.lnk"), target);
  ASSERT_TRUE(files.DeleteFile(target, true));
  // Something of the same name beside the shortcut is another thing.
  EXPECT_EQ(shell.ShortcutTarget(place.In(u"a.lnk")), target);
}

TEST_F(ShellLinkOfWindows, IsReadAtTheEndOfALongPath) {
  const Text target = place.File(u"target.txt");
  Save(place.In(u"a.lnk"), target);
  Text folder = place.Path();
  while (folder.size() < 300) {
    folder += u"\\a name that is rather long, as names go";
    ASSERT_TRUE(files.CreateFolder(folder));
  }
  ASSERT_TRUE(files.MoveFile(place.In(u"a.lnk"), folder + u"\\a.lnk"));
  EXPECT_EQ(shell.ShortcutTarget(folder + u"\\a.lnk"), target);
}

TEST_F(ShellLinkOfWindows, WhatIsNoShortcutHasNoTarget) {
  EXPECT_EQ(shell.ShortcutTarget(place.In(u"missing.lnk")), std::nullopt);
  EXPECT_EQ(shell.ShortcutTarget(place.File(u"empty.lnk", "")), std::nullopt);
  EXPECT_EQ(shell.ShortcutTarget(place.File(u"text.lnk",
                                            "no shortcut at all, but of some length, so that "
                                            "a header could stand here")),
            std::nullopt);
  EXPECT_EQ(shell.ShortcutTarget(place.Folder(u"folder.lnk")), std::nullopt);
}

// How the reader of Wine's shell differs from ours. It takes the path out of the local part of the location
// and nothing else.
enum class Wine {
  kNoVariables,    // a path with variables, which stands in a block of its own: not read
  kLocalInstead,   // the same, and the location's local path is given in its place
  kNoCommonPart,   // the location's local path without the part that it shares with the path on the share
  kNoShare,        // a path on a share: not read
  kNoPathOfItems,  // only a list of items, which would have to be put together to a path
};

const std::map<Text, Wine>& KnownDifferences() {
  static const std::map<Text, Wine> kKnown = [] {
    std::map<Text, Wine> known;
    const auto add = [&known](Wine why, std::initializer_list<int> numbers) {
      for (const int number : numbers) {
        Text name = ToText(number);
        name.insert(0, 3 - name.size(), u'0');
        known.emplace(Concat(name, u".lnk"), why);
      }
    };
    add(Wine::kNoVariables, {10, 12, 17, 18, 19, 26, 33, 36, 38, 40, 41, 42, 43,
                             44, 45, 62, 63, 64, 65, 66, 69, 72, 75, 77, 83, 105});
    add(Wine::kLocalInstead, {5, 35, 46, 48, 50, 52, 161});
    add(Wine::kNoCommonPart, {2, 8, 39});
    add(Wine::kNoShare, {57, 58, 59, 60, 61});
    add(Wine::kNoPathOfItems, {13, 14, 15, 55, 56, 107, 109, 110});
    return known;
  }();
  return kKnown;
}

// Whether two targets differ as the kind says.
bool Explains(Wine why, const Text& wines, const Text& ours) {
  switch (why) {
    case Wine::kNoVariables:
      return wines.empty() && ours.starts_with(u'%');
    case Wine::kLocalInstead:
      return !wines.empty() && ours.starts_with(u'%') &&
             wines.substr(wines.rfind(u'\\')) == ours.substr(ours.rfind(u'\\'));
    case Wine::kNoCommonPart:
      return !wines.empty() && ours.starts_with(wines);
    case Wine::kNoShare:
      return wines.empty() && ours.starts_with(u"\\\\");
    case Wine::kNoPathOfItems:
      return wines.empty() && ours.size() > 2 && ours[1] == u':';
  }
  return false;
}

TEST_F(ShellLinkOfWindows, AgreesWithTheReaderOfOursButForKnownDifferences) {
  const Text folder = *FromUtf8(SourceFolder() + "/../shared/data/lnk");
  std::vector<Text> names;
  files.List(folder, [&names](const platform::DirectoryEntry& entry) {
    if (entry.name.ends_with(u".lnk")) names.emplace_back(entry.name);
  });
  if (names.empty()) GTEST_SKIP() << "no collection of shortcuts on this machine";
  size_t different = 0;
  for (const Text& name : names) {
    const std::optional<std::string> bytes = files.ReadFile(Concat(folder, u"\\", name));
    ASSERT_TRUE(bytes);
    const std::optional<Text> systems = ReadLinkTarget(*bytes);
    const std::optional<Text> ours = machine::ReadShortcut(*bytes).transform(
        [](const machine::ShortcutData& data) { return data.target; });
    if (systems == ours) continue;
    ++different;
    const auto known = KnownDifferences().find(name);
    EXPECT_TRUE(IsWine() && known != KnownDifferences().end() && systems && ours &&
                Explains(known->second, *systems, *ours))
        << testing::PrintToString(name) << ": the system gives " << testing::PrintToString(systems)
        << ", ours " << testing::PrintToString(ours);
  }
  if (IsWine()) {
    EXPECT_EQ(different, KnownDifferences().size());
  }
}

}  // namespace
}  // namespace tavix::windows
