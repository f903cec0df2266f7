#include "forms/main_form.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(MainFormAsBuilt, TheResultListHasItsColumns) {
  const struct {
    TextView text;
    int width;
  } columns[] = {{u"      Type", 3528}, {u"Name", 3528}, {u"Size (KB)", 1764}, {u"Location", 9878}, {u"", 0}};
  const MainForm form;
  ASSERT_EQ(form.lsvResult.ColumnHeaders.size(), std::size(columns));
  for (size_t i = 0; i < std::size(columns); ++i) {
    EXPECT_EQ(form.lsvResult.ColumnHeaders[i].Caption, columns[i].text) << i;
    EXPECT_EQ(form.lsvResult.ColumnHeaders[i].Width, columns[i].width) << i;
    EXPECT_EQ(form.lsvResult.ColumnHeaders[i].Icon, 0) << i;
  }
}

}  // namespace
}  // namespace tavix
