#include "platform/shortcut_items.h"

#include <gtest/gtest.h>

#include "platform/shortcut_bytes.h"

namespace tavix::platform {
namespace {

using namespace shortcut_bytes;

// The path of an item list. The list is passed without its leading size, as the file reader does.
Text Path(std::initializer_list<std::string> items) {
  const std::string list = Items(items).substr(2);
  return ShortcutItemPath(ByteReader(list));
}

const std::string kThisComputer = ShellFolderItem(kComputer);
const std::string kDriveC = DriveItem(u"C:\\");

TEST(ShortcutItems, DriveKeepsItsBackslash) {
  EXPECT_EQ(Path({kThisComputer, kDriveC}), u"C:\\");
  EXPECT_EQ(Path({kDriveC}), u"C:\\");
}

TEST(ShortcutItems, OldItemsBearTheLongNameFirst) {
  EXPECT_EQ(
      Path({kThisComputer, kDriveC, OldFileItem(u"Program Files", u"PROGRA~1"), OldFileItem(u"a.exe", u"")}),
      u"C:\\Program Files\\a.exe");
}

TEST(ShortcutItems, LongNameOfEachVersionOfTheExtension) {
  for (const unsigned version : {3U, 7U, 8U, 9U, 10U}) {
    EXPECT_EQ(Path({kDriveC, FileItem(version, u"PROGRA~1", u"Programme \u8BF4")}), u"C:\\Programme \u8BF4");
    EXPECT_EQ(Path({kDriveC, FileItem(version, u"odd", u"Odd Length")}), u"C:\\Odd Length");
  }
}

TEST(ShortcutItems, ShortNameWhereTheExtensionHasNone) {
  EXPECT_EQ(Path({kDriveC, FileItem(1, u"SHORT~1", u"Long")}), u"C:\\SHORT~1");
  EXPECT_EQ(Path({kDriveC, FileItem(9, u"SHORT~1", u"")}), u"C:\\SHORT~1");
}

TEST(ShortcutItems, LongNameAfterAnotherExtension) {
  const std::string other = U16(12) + U16(1) + U32(0xBEEF0026) + U32(0);
  std::string item = FileItem(9, u"SHORT~1", u"Long");
  const size_t at = static_cast<unsigned char>(item[item.size() - 2]);
  item.insert(at, other);
  item.replace(0, 2, U16(static_cast<unsigned>(item.size())));
  EXPECT_EQ(Path({kDriveC, item}), u"C:\\Long");
}

TEST(ShortcutItems, WidePrimaryName) {
  const std::string item =
      Item(std::string("\x36\0", 2) + U32(0) + U32(0) + U16(0) + Wide(u"\u8BF4.txt") + U16(0));
  EXPECT_EQ(Path({kDriveC, item}), u"C:\\\u8BF4.txt");
}

TEST(ShortcutItems, ShareOfTheNetwork) {
  const std::string places = ShellFolderItem(kNetworkPlaces);
  EXPECT_EQ(Path({places, NetworkItem('\x47', u"Entire Network"), NetworkItem('\x41', u"GROUP"),
                  NetworkItem('\x42', u"\\\\server"), NetworkItem('\x43', u"\\\\server\\share"),
                  FileItem(8, u"A", u"a.txt")}),
            u"\\\\server\\share\\a.txt");
  EXPECT_EQ(Path({places, NetworkItem('\xC3', u"\\\\server\\share")}), u"\\\\server\\share");
  EXPECT_EQ(Path({places, NetworkItem('\x42', u"server")}), u"");
}

TEST(ShortcutItems, ObjectsOfTheShellHaveNoPath) {
  EXPECT_EQ(Path({}), u"");
  EXPECT_EQ(Path({kThisComputer}), u"");
  EXPECT_EQ(Path({ShellFolderItem(kControlPanel)}), u"");
  EXPECT_EQ(Path({kThisComputer, Item(std::string("\x2E\0", 2).append(kControlPanel))}), u"");
  EXPECT_EQ(Path({kThisComputer, kDriveC, Item("\x71")}), u"");
  EXPECT_EQ(Path({Item("\x61http://example.invalid/")}), u"");
}

TEST(ShortcutItems, FileOfAFolderThatOnlyTheShellPlacesHasNoPath) {
  EXPECT_EQ(Path({FileItem(9, u"A", u"on the desktop.txt")}), u"");
  EXPECT_EQ(Path({kThisComputer, FileItem(9, u"A", u"a.txt")}), u"");
}

TEST(ShortcutItems, SecondBeginningMakesNoPath) {
  EXPECT_EQ(Path({kThisComputer, kDriveC, kDriveC}), u"");
  EXPECT_EQ(Path({kDriveC, kThisComputer}), u"");
}

TEST(ShortcutItems, NameThatIsNoFileNameMakesNoPath) {
  for (const TextView name : {u"a\\b", u"a/b", u"a:b"})
    EXPECT_EQ(Path({kDriveC, OldFileItem(name, u"")}), u"");
  EXPECT_EQ(Path({kDriveC, OldFileItem(u"", u"")}), u"");
}

TEST(ShortcutItems, DriveThatIsNoLetterMakesNoPath) {
  EXPECT_EQ(Path({DriveItem(u"1:\\")}), u"");
  EXPECT_EQ(Path({DriveItem(u"CC\\")}), u"");
  EXPECT_EQ(Path({DriveItem(u"C")}), u"");
}

TEST(ShortcutItems, SizesThatDontFitMakeNoPath) {
  for (const std::string& list :
       {U16(2) + kDriveC, kDriveC + U16(0xFFFF) + "\x32", kDriveC + U16(3) + "\x32"}) {
    EXPECT_EQ(ShortcutItemPath(ByteReader(list)), u"");
  }
}

TEST(ShortcutItems, ListWithoutItsEndIsReadToItsLastItem) {
  EXPECT_EQ(ShortcutItemPath(ByteReader(kDriveC)), u"C:\\");
}

}  // namespace
}  // namespace tavix::platform
