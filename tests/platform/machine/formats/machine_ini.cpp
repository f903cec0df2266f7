#include "platform/machine/formats/machine_ini.h"

#include <gtest/gtest.h>

namespace tavix::machine {
namespace {

MachineIni Read(std::string_view bytes) {
  TextError error;
  std::optional<MachineIni> ini = MachineIni::Read(bytes, error);
  EXPECT_TRUE(ini.has_value()) << error.Reason;
  return ini.value_or(MachineIni());
}

TEST(MachineIni, FindsSectionsAndKeysLetterCaseAside) {
  const MachineIni ini = Read("[Special Folders]\nRecent=C:\\Users\\Ann\n");
  EXPECT_EQ(ini.Value(u"special folders", u"RECENT"), u"C:\\Users\\Ann");
  EXPECT_EQ(ini.Value(u"Special Folders", u"Fonts"), std::nullopt);
  EXPECT_EQ(ini.Value(u"Folders", u"Recent"), std::nullopt);
}

TEST(MachineIni, TakesBlanksQuotesAndLineEndsAsTheyCome) {
  const MachineIni ini =
      Read("\xEF\xBB\xBF  [ A ] \r\n\t a =  x y \t\r\nb=\r\nc=\" \"\r\nd=\"\r\ne=a=b\r\nf=Ann\xC3\xA9");
  EXPECT_EQ(ini.Value(u"A", u"a"), u"x y");
  EXPECT_EQ(ini.Value(u"A", u"b"), u"");
  EXPECT_EQ(ini.Value(u"A", u"c"), u" ");
  EXPECT_EQ(ini.Value(u"A", u"d"), u"\"");
  EXPECT_EQ(ini.Value(u"A", u"e"), u"a=b");
  EXPECT_EQ(ini.Value(u"A", u"f"), u"Anné");
}

TEST(MachineIni, SkipsCommentsAndWhatIsNoEntry) {
  const MachineIni ini = Read("a=outside\n; [A]\n[A]\n;a=1\n#b=1\nword\n[open\nc=1\n[A]\nd=1");
  EXPECT_EQ(ini.Entries(u"A"), (std::vector<MachineIni::Entry>{{u"d", u"1"}}));
}

TEST(MachineIni, JoinsSectionsOfOneNameAndKeepsTheFirstOfTwoKeys) {
  const MachineIni ini = Read("[Drives]\nC=2\n[Other]\nx=1\n[DRIVES]\nD=4\nc=3\n");
  EXPECT_EQ(ini.Value(u"Drives", u"C"), u"2");
  EXPECT_EQ(ini.Value(u"Drives", u"D"), u"4");
  EXPECT_EQ(ini.Entries(u"Drives").size(), 3U);
}

TEST(MachineIni, TellsTheLineThatIsNoUtf8) {
  TextError error;
  EXPECT_EQ(MachineIni::Read("[A]\na=1\nb=\xFF\n", error).has_value(), false);
  EXPECT_EQ(error.Line, 3U);
}

TEST(MachineIni, OfNothingHasNothing) { EXPECT_EQ(Read("").Value(u"A", u"a"), std::nullopt); }

}  // namespace
}  // namespace tavix::machine
