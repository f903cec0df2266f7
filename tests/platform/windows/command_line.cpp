#include "platform/windows/command_line.h"

#include <gtest/gtest.h>

#include <set>

namespace tavix::windows {
namespace {

TEST(SplitCommand, TakesTargetAndArgumentsApart) {
  const std::set<Text> there = {u"C:\\Program Files\\X\\un.exe", u"C:\\My Texts\\a b.txt", u"C:\\t.exe"};
  const auto isThere = [&there](TextView path) { return there.contains(Text(path)); };
  const struct {
    TextView text, target, arguments;
  } kCases[] = {
      {u"", u"", u""},
      {u"  ", u"", u""},
      {u"regedit.exe", u"regedit.exe", u""},
      {u" regedit.exe  ", u"regedit.exe", u""},
      {u"RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 8", u"RunDll32.exe",
       u"InetCpl.cpl,ClearMyTracksByProcess 8"},
      {u"HH C:\\t\\Help.chm", u"HH", u"C:\\t\\Help.chm"},
      {u"http://www.example.org/a b", u"http://www.example.org/a b", u""},
      {u"mailto:a@b.c?subject=one two", u"mailto:a@b.c?subject=one two", u""},
      {u"\"C:\\No Such\\a.exe\" /x \"y z\"", u"C:\\No Such\\a.exe", u"/x \"y z\""},
      {u"\"C:\\No Such\\a.exe", u"C:\\No Such\\a.exe", u""},
      {u"\"C:\\a.exe\"/x", u"C:\\a.exe", u"/x"},
      {u"C:\\My Texts\\a b.txt", u"C:\\My Texts\\a b.txt", u""},
      {u"C:\\Program Files\\X\\un.exe /s", u"C:\\Program Files\\X\\un.exe", u"/s"},
      {u"C:\\Program Files\\X\\un /s  /t", u"C:\\Program Files\\X\\un", u"/s  /t"},
      {u"C:\\t a", u"C:\\t", u"a"},
      {u"C:\\No Such\\a.exe /s", u"C:\\No", u"Such\\a.exe /s"},
      {u"C:\\x:y z", u"C:\\x:y", u"z"},
  };
  for (const auto& one : kCases) {
    const Command command = SplitCommand(one.text, isThere);
    EXPECT_EQ(command.target, one.target) << testing::PrintToString(one.text);
    EXPECT_EQ(command.arguments, one.arguments) << testing::PrintToString(one.text);
  }
}

}  // namespace
}  // namespace tavix::windows
