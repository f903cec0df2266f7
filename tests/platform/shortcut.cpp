#include "platform/shortcut.h"

#include <gtest/gtest.h>

#include "platform/shortcut_bytes.h"
#include "text/utf8.h"

namespace tavix::platform {
namespace {

using namespace shortcut_bytes;

// The expected result for a file that is no shortcut.
constexpr TextView kNoShortcut = u"<no shortcut>";

// The targets of a shortcut: its paths with bars between them, and `<other>` for a target without a path.
Text Target(std::string_view bytes) {
  const std::optional<Shortcut> shortcut = ReadShortcut(bytes);
  if (!shortcut) return Text(kNoShortcut);
  Text all;
  for (const Text& path : shortcut->paths) all += all.empty() ? path : Concat(u"|", path);
  if (shortcut->others) all += all.empty() ? u"<other>" : u"|<other>";
  return all;
}

const std::string kDocumentItems =
    Items({ShellFolderItem(kComputer), DriveItem(u"D:\\"), OldFileItem(u"document.txt", u"")});
const std::string kProgram = LocationBlock({.flags = 1, .path = u"C:\\Program.exe"});

TEST(Shortcut, HeaderAloneHasNoTarget) { EXPECT_EQ(Target(Header(0)), u""); }

TEST(Shortcut, OtherBytesAreNoShortcut) {
  std::string otherClass = Header(0);
  otherClass[4] = '\x02';
  std::string otherSize = Header(0);
  otherSize[0] = '\x4D';
  for (const std::string& bytes : {std::string(), std::string("MZ"), std::string(200, '\0'), otherClass,
                                   otherSize, Header(0).substr(0, 0x4B)}) {
    EXPECT_EQ(Target(bytes), kNoShortcut);
  }
}

TEST(Shortcut, PathOnAVolume) { EXPECT_EQ(Target(Header(kHasLocation) + kProgram), u"C:\\Program.exe"); }

TEST(Shortcut, NamesEachPlaceOnce) {
  const std::string both =
      LocationBlock({.flags = 3, .path = u"D:\\", .suffix = u"document.txt", .share = u"\\\\PC\\Documents"});
  const std::string block = ExtraBlock(kVariablePath, u"", u"%WinDir%\\x.exe");
  EXPECT_EQ(Target(Header(kHasItems | kHasLocation | kHasVariablePath) + kDocumentItems + both + block),
            u"%WinDir%\\x.exe|D:\\document.txt|\\\\PC\\Documents\\document.txt");
}

TEST(Shortcut, LocationFollowsTheItems) {
  EXPECT_EQ(Target(Header(kHasItems | kHasLocation) + kDocumentItems + kProgram),
            u"C:\\Program.exe|D:\\document.txt");
}

TEST(Shortcut, ItemsThatMakeNoPathNameSomethingElse) {
  const std::string panel = Items({ShellFolderItem(kControlPanel)});
  EXPECT_EQ(Target(Header(kHasItems) + panel), u"<other>");
  EXPECT_EQ(Target(Header(kHasItems | kHasLocation) + panel + kProgram), u"C:\\Program.exe|<other>");
  EXPECT_EQ(Target(Header(kHasItems | kHasLocation) + Items({}) + kProgram), u"C:\\Program.exe");
}

TEST(Shortcut, ShareWithoutANameIsSomethingElse) {
  std::string location = LocationBlock({.flags = 3, .path = u"C:\\a", .share = u"\\\\s\\x"});
  location.replace(20, 4, U32(0));
  EXPECT_EQ(Target(Header(kHasLocation) + location), u"C:\\a|<other>");
}

TEST(Shortcut, NarrowTextIsReadAsTheMachineHasIt) {
  const std::string bytes = Header(kHasItems | kHasLocation | kHasVariablePath) + kDocumentItems + kProgram +
                            ExtraBlock(kVariablePath, u"%A%", u"");
  const auto shortcut = ReadShortcut(bytes, [](std::string_view) { return Text(u"x"); });
  ASSERT_TRUE(shortcut);
  EXPECT_EQ(shortcut->paths, (std::vector<Text>{u"x", u"x\\x"}));
  EXPECT_TRUE(shortcut->others);
}

TEST(Shortcut, ItemsTellThePathWhereLocationIsMissingOrToBeIgnoredOrEmpty) {
  EXPECT_EQ(Target(Header(kHasItems) + kDocumentItems), u"D:\\document.txt");
  EXPECT_EQ(Target(Header(kHasItems | kHasLocation | kIgnoreLocation) + kDocumentItems + kProgram),
            u"D:\\document.txt");
  EXPECT_EQ(Target(Header(kHasItems | kHasLocation) + kDocumentItems + LocationBlock({})),
            u"D:\\document.txt");
}

TEST(Shortcut, PathWithVariablesComesBeforeLocationAndItems) {
  const std::string block = ExtraBlock(kVariablePath, u"%Narrow%\\x", u"%WinDir%\\x.exe");
  EXPECT_EQ(Target(Header(kHasItems | kHasLocation | kHasVariablePath) + kDocumentItems + kProgram + block),
            u"%WinDir%\\x.exe|C:\\Program.exe|D:\\document.txt");
}

TEST(Shortcut, NarrowPathWithVariablesHoldsWhereTheWideOneIsEmpty) {
  EXPECT_EQ(Target(Header(kHasVariablePath) + ExtraBlock(kVariablePath, u"%WinDir%\\\u00C9.exe", u"")),
            u"%WinDir%\\\u00C9.exe");
}

TEST(Shortcut, PathWithVariablesNeedsItsFlag) {
  EXPECT_EQ(Target(Header(kHasLocation) + kProgram + ExtraBlock(kVariablePath, u"", u"%WinDir%")),
            u"C:\\Program.exe");
}

TEST(Shortcut, EmptyPathWithVariablesCountsAsNone) {
  EXPECT_EQ(Target(Header(kHasLocation | kHasVariablePath) + kProgram + ExtraBlock(kVariablePath, u"", u"")),
            u"C:\\Program.exe");
}

TEST(Shortcut, AdvertisedProgramIsSomethingElse) {
  const std::string block = ExtraBlock(kAdvertised, u"abc", u"abc");
  EXPECT_EQ(Target(Header(kHasLocation) + kProgram + block), u"C:\\Program.exe|<other>");
  EXPECT_EQ(Target(Header(kHasLocation | kIsAdvertised) + kProgram), u"C:\\Program.exe|<other>");
  EXPECT_EQ(Target(Header(kHasVariablePath) + ExtraBlock(kVariablePath, u"", u"%WinDir%") + block),
            u"%WinDir%|<other>");
}

TEST(Shortcut, StringsBetweenLocationAndBlocksAreSteppedOver) {
  const std::string block = ExtraBlock(kVariablePath, u"", u"%WinDir%");
  EXPECT_EQ(
      Target(Header(kHasName | kHasArguments | kHasVariablePath) + U16(3) + "abc" + U16(1) + "d" + block),
      u"%WinDir%");
  EXPECT_EQ(Target(Header(kHasName | kHasArguments | kHasVariablePath | kWideStrings) + U16(3) +
                   std::string(6, 'x') + U16(0) + block),
            u"%WinDir%");
}

TEST(Shortcut, UnknownBlocksAreSteppedOver) {
  const std::string unknown = U32(12) + U32(0xA0000099) + U32(7);
  EXPECT_EQ(Target(Header(kHasVariablePath) + unknown + ExtraBlock(kVariablePath, u"", u"%WinDir%")),
            u"%WinDir%");
}

TEST(Shortcut, NothingIsReadAfterTheLastBlock) {
  EXPECT_EQ(Target(Header(kHasVariablePath) + U32(0) + ExtraBlock(kVariablePath, u"", u"%WinDir%")), u"");
}

TEST(Shortcut, FileCutOffAmongItsBlocksKeepsWhatItHasTold) {
  const std::string block = ExtraBlock(kVariablePath, u"", u"%WinDir%");
  EXPECT_EQ(Target(Header(kHasLocation | kHasVariablePath) + kProgram + block.substr(0, block.size() - 1)),
            u"C:\\Program.exe");
}

TEST(Shortcut, FileCutOffBeforeItsBlocksCantBeRead) {
  const std::string whole =
      Header(kHasItems | kHasLocation | kHasName) + kDocumentItems + kProgram + U16(2) + "ab";
  ASSERT_EQ(Target(whole), u"C:\\Program.exe|D:\\document.txt");
  for (size_t size = 0; size < whole.size(); ++size) EXPECT_EQ(Target(whole.substr(0, size)), kNoShortcut);
}

TEST(Shortcut, SizesBeyondTheFileCantBeRead) {
  EXPECT_EQ(Target(Header(kHasItems) + U16(0xFFFF) + "abc"), kNoShortcut);
  EXPECT_EQ(Target(Header(kHasLocation) + U32(0xFFFFFFFF) + std::string(40, 'x')), kNoShortcut);
  EXPECT_EQ(Target(Header(kHasLocation) + U32(27) + std::string(40, 'x')), kNoShortcut);
  EXPECT_EQ(Target(Header(kHasName | kWideStrings) + U16(0xFFFF) + "abc"), kNoShortcut);
}

TEST(Shortcut, BlockTooSmallForItsTextsHasNone) {
  EXPECT_EQ(Target(Header(kHasVariablePath) + U32(8) + U32(kVariablePath)), u"");
  EXPECT_EQ(Target(Header(kHasVariablePath) + U32(20) + U32(kVariablePath) + "%WinDir%" + U32(0)),
            u"%WinDir%");
}

}  // namespace
}  // namespace tavix::platform
