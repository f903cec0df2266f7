#include "scan/result_items.h"

#include "forms/main_form.h"
#include "support/case.h"
#include "support/program_test.h"
#include "text/number.h"

namespace tavix::mdlPubSelf {
namespace {

class ResultItems : public ProgramTest {};

TEST_F(ResultItems, AddWritesEveryField) {
  AddResultItem(u"Font Issue", u"arial.ttf", kNoSize, u"Registry: x", kNoSizeKey, u"RI: a, b, c");
  AddResultItem(u"Time Zone", u"UTC", kNoSize, u"Registry: y", kNoSizeKey, u"RK: a, b", false);
  EXPECT_EQ(ResultRows(),
            (std::vector<RowFields>{
                {u"Font Issue", u"arial.ttf", u"N/A", u"Registry: x", u"00000000.0", u"RI: a, b, c", true},
                {u"Time Zone", u"UTC", u"N/A", u"Registry: y", u"00000000.0", u"RK: a, b", false}}));
}

TEST_F(ResultItems, AFieldThatFailedStaysEmptyAndTheRowIsAdded) {
  AddResultItem(u"IE Cache", std::nullopt, std::nullopt, std::nullopt, std::nullopt, u"Cmd: x");
  EXPECT_EQ(ResultRows(), (std::vector<RowFields>{{u"IE Cache", u"", u"", u"", u"", u"Cmd: x", true}}));
}

TEST_F(ResultItems, SizeTextsOfBytes) {
  const struct {
    double bytes;
    const char16_t* size;
    const char16_t* key;
  } table[] = {
      {0, u"0.", u"00000000.0"},
      {51, u"0.", u"00000000.0"},
      {52, u"0.1", u"00000000.1"},
      {1024, u"1.", u"00000001.0"},
      {12 * 1024, u"12.", u"00000012.0"},
      {1048576, u"1,024.", u"00001024.0"},
      {1536.5 * 1024, u"1,536.5", u"00001536.5"},
      // Ties of the second decimal go to the even digit: 0.25 and 0.75 KB.
      {256, u"0.2", u"00000000.2"},
      {768, u"0.8", u"00000000.8"},
      {99999999.9 * 1024, u"99,999,999.9", u"99999999.9"},
      // The sort key has room for eight integer digits. Nine are written, but sort wrongly.
      {100000000.0 * 1024, u"100,000,000.", u"100000000.0"},
  };
  for (const auto& row : table) {
    EXPECT_EQ(FormatSizeText(row.bytes), row.size) << row.bytes;
    EXPECT_EQ(FormatSizeKey(row.bytes), row.key) << row.bytes;
  }
}

TEST_F(ResultItems, SizeTextsFollowTheUsersSeparators) {
  userLocale = {u",", u"."};
  EXPECT_EQ(FormatSizeText(1536.5 * 1024), u"1.536,5");
  EXPECT_EQ(FormatSizeKey(1536.5 * 1024), u"00001536,5");
  AddResultItem(u"t", u"n", FormatSizeText(1536.5 * 1024), u"l", u"k", u"F");
  EXPECT_EQ(SumResultSizes(), 1536.5F);
}

TEST_F(ResultItems, SumTakesNoSizeAsZeroAndSkipsWhatIsNoNumber) {
  for (const TextView size : {u"1,024.", u"N/A", u"", u"Over 2,097,152", u"0", u"0.5"}) {
    AddResultItem(u"t", u"n", size, u"l", u"k", u"F", size != u"0.5");
  }
  EXPECT_EQ(SumResultSizes(), 1024.5F);
}

TEST_F(ResultItems, SumIsSinglePrecision) {
  AddResultItem(u"t", u"n", u"16,777,216.", u"l", u"k", u"F");
  AddResultItem(u"t", u"n", u"1.", u"l", u"k", u"F");
  EXPECT_EQ(SumResultSizes(), 16777216.0F);
}

TEST_F(ResultItems, SumOfAnEmptyListIsZero) { EXPECT_EQ(FormatGrouped(SumResultSizes()), u"0."); }

TEST_F(ResultItems, AHeaderClickSortsAndEachClickTurnsTheDirection) {
  ListView& list = frmPubMain.lsvResult;
  EXPECT_FALSE(list.Sorted);
  const struct {
    int header, key, order;
  } clicks[] = {{1, 0, 1}, {3, 4, 0}, {3, 4, 1}, {2, 1, 0}, {4, 3, 1}, {4, 3, 0}, {5, 4, 1}};
  for (const auto& click : clicks) {
    SCOPED_TRACE(Case(click.header));
    lsvResult_ColumnClick(click.header);
    EXPECT_TRUE(list.Sorted);
    EXPECT_EQ(list.SortKey, click.key);
    EXPECT_EQ(list.SortOrder, click.order);
  }
}

TEST_F(ResultItems, TwoClicksOnLocationSortDescendingThenAscending) {
  for (const TextView location : {u"b", u"c", u"a"})
    AddResultItem(u"t", u"n", kNoSize, location, kNoSizeKey, u"F");
  lsvResult_ColumnClick(4);
  EXPECT_EQ(frmPubMain.lsvResult.Row(1).SubItems(kLocationColumn), u"c");
  lsvResult_ColumnClick(4);
  EXPECT_EQ(frmPubMain.lsvResult.Row(1).SubItems(kLocationColumn), u"a");
  lsvResult_ColumnClick(4);
  EXPECT_EQ(frmPubMain.lsvResult.Row(1).SubItems(kLocationColumn), u"c");
}

TEST_F(ResultItems, TheSizeColumnSortsByThePaddedSizeAndEmptySizesComeFirst) {
  for (const double bytes : {2048.0, 1048576.0, 10240.0}) {
    AddResultItem(u"t", u"n", FormatSizeText(bytes), u"l", FormatSizeKey(bytes), u"F");
  }
  AddResultItem(u"protected", u"n", std::nullopt, u"l", std::nullopt, u"F");
  lsvResult_ColumnClick(1);  // descending
  lsvResult_ColumnClick(3);  // ascending
  std::vector<Text> sizes;
  for (const RowFields& row : ResultRows()) sizes.push_back(row.size);
  EXPECT_EQ(sizes, (std::vector<Text>{u"", u"2.", u"10.", u"1,024."}));
}

TEST_F(ResultItems, SortingOutlivesAClearedList) {
  AddResultItem(u"b", u"n", kNoSize, u"l", kNoSizeKey, u"F");
  lsvResult_ColumnClick(1);
  lsvResult_ColumnClick(1);
  ClearResults();
  EXPECT_EQ(ResultCount(), 0);
  for (const TextView type : {u"c", u"a", u"b"}) AddResultItem(type, u"n", kNoSize, u"l", kNoSizeKey, u"F");
  EXPECT_EQ(ResultRows()[0].type, u"a");
  EXPECT_EQ(ResultRows()[2].type, u"c");
}

}  // namespace
}  // namespace tavix::mdlPubSelf
