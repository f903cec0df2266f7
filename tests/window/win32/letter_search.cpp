#include "window/win32/letter_search.h"

#include <gtest/gtest.h>

#include <vector>

#include "text/letter_case.h"

namespace tavix::win32 {
namespace {

class LetterSearchTest : public testing::Test {
 protected:
  // Types a letter so many milliseconds after the last one. The row that it leads to has the focus then.
  int Type(char16_t letter, DWORD after = 100) {
    time_ += after;
    search.KeyPressed(ToUpper(letter), time_);
    const int row = search.Type(control, letter, {static_cast<int>(rows.size()), focused, [this](int at) {
                                                    return TextView(rows[static_cast<size_t>(at)]);
                                                  }});
    if (row >= 0) focused = row;
    return row;
  }

  const std::vector<Text> rows{u"Cookies", u"History", u"Cookies Detail", u"Search History", u"Other"};
  int focused = -1;
  HWND control = nullptr;
  LetterSearch search;

 private:
  DWORD time_ = 0xFFFFFF00;  // the system's clock begins anew soon
};

TEST_F(LetterSearchTest, ALetterLeadsToTheNextRowAndAroundTheEnd) {
  EXPECT_EQ(Type(u's'), 3);
  EXPECT_EQ(Type(u'H', 2000), 1) << "after the last row comes the first";
  EXPECT_EQ(Type(u'x', 2000), -1);
}

TEST_F(LetterSearchTest, TheSameLetterGoesOn) {
  EXPECT_EQ(Type(u'c'), 0);
  EXPECT_EQ(Type(u'c'), 2);
  EXPECT_EQ(Type(u'c'), 0);
}

TEST_F(LetterSearchTest, QuickLettersAreOneWordAndSlowOnesAreNot) {
  EXPECT_EQ(Type(u'c'), 0);
  EXPECT_EQ(Type(u'o'), 0) << "the row still fits";
  EXPECT_TRUE(search.IsRunning(control, 0xFFFFFF00 + 1000));
  EXPECT_EQ(Type(u'o', 2000), 4);
}

TEST_F(LetterSearchTest, AKeyThatMovesTheFocusEndsTheWord) {
  EXPECT_EQ(Type(u'c'), 0);
  search.KeyPressed(VK_HOME, 0xFFFFFF00 + 110);
  EXPECT_EQ(Type(u'o'), 4);
}

TEST_F(LetterSearchTest, AnotherControlBeginsAnew) {
  EXPECT_EQ(Type(u'c'), 0);
  control = reinterpret_cast<HWND>(1);
  EXPECT_EQ(Type(u'o'), 4);
}

TEST_F(LetterSearchTest, FindsWholeTextsAndBeginnings) {
  const SearchedRows searched{static_cast<int>(rows.size()), -1,
                              [this](int at) { return TextView(rows[static_cast<size_t>(at)]); }};
  EXPECT_EQ(FindRow(searched, 1, u"cookies", true, false), -1);
  EXPECT_EQ(FindRow(searched, 1, u"cookies", false, false), 2);
  EXPECT_EQ(FindRow(searched, 1, u"cookies", true, true), 0);
  EXPECT_EQ(FindRow(searched, 99, u"history", true, true), 1) << "a start behind the last row";
}

}  // namespace
}  // namespace tavix::win32
