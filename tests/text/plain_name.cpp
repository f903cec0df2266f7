#include "text/plain_name.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(PlainName, IsOneThatEndsNeitherInABlankNorInADot) {
  for (const TextView name : {u"a", u"a.b", u".a", u" a", u"a b", u"..a", u""}) {
    EXPECT_TRUE(IsPlainName(name)) << name.size();
  }
  for (const TextView name : {u"a.", u"a ", u"a. ", u"a .", u".", u"..", u" ", u"a.b.", u"..."}) {
    EXPECT_FALSE(IsPlainName(name)) << name.size();
  }
}

TEST(PlainName, APathHasThemWhereEachOfItsNamesIsOne) {
  for (const TextView path :
       {u"", u"C:\\", u"C:\\a\\b.c", u"C:\\\\a", u"C:/a/b", u"C:\\a\\", u"\\\\server\\share\\a"}) {
    EXPECT_TRUE(HasPlainNames(path)) << path.size();
  }
  for (const TextView path : {u"C:\\a.\\b", u"C:\\a \\b", u"C:/a./b", u"C:/a/b ", u"C:\\a\\b.", u"C:\\a\\b ",
                              u"C:\\a.", u"C:\\a\\..\\b", u"C:\\a\\.\\b", u"C:\\ ", u"a.", u"C:\\a\\b.\\"}) {
    EXPECT_FALSE(HasPlainNames(path)) << path.size();
  }
}

}  // namespace
}  // namespace tavix
