#include "doubles/faults.h"

#include <gtest/gtest.h>

namespace tavix::machine {
namespace {

TEST(Faults, HitOneOperationOnOnePath) {
  Faults faults;
  faults.Fail(u"DeleteFile", u"C:\\A.txt");
  EXPECT_TRUE(faults.Hit(u"DeleteFile", u"c:\\a.TXT"));
  EXPECT_TRUE(faults.Hit(u"DeleteFile", u"C:\\A.txt"));
  EXPECT_FALSE(faults.Hit(u"DeleteFile", u"C:\\b.txt"));
  EXPECT_FALSE(faults.Hit(u"Look", u"C:\\A.txt"));
  EXPECT_EQ(faults.Calls(), 4);
}

TEST(Faults, HitAnOperationOnAnyPath) {
  Faults faults;
  faults.Fail(u"List");
  EXPECT_TRUE(faults.Hit(u"List", u"C:\\"));
  EXPECT_FALSE(faults.Hit(u"Look", u"C:\\"));
  faults.Clear();
  EXPECT_FALSE(faults.Hit(u"List", u"C:\\"));
}

TEST(Faults, HitTheCallWithANumberOnce) {
  Faults faults;
  faults.Hit(u"a", {});
  faults.FailCall(2);
  EXPECT_FALSE(faults.Hit(u"a", {}));
  EXPECT_TRUE(faults.Hit(u"b", {}));
  EXPECT_FALSE(faults.Hit(u"b", {}));
}

}  // namespace
}  // namespace tavix::machine
