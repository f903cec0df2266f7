#include "scan/known_files.h"

#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

class KnownFilesTest : public ProgramTest {
 protected:
  KnownFilesTest() { Start(); }
  KnownFiles files_;
};

TEST_F(KnownFilesTest, AskTheDiskOnceAboutEachPath) {
  machine.files.AddFile(u"C:\\there.dll");
  EXPECT_EQ(files_.FileExists(u"C:\\there.dll"), true);
  EXPECT_EQ(files_.FileExists(u"C:\\gone.dll"), false);
  machine.files.DeleteFile(u"C:\\there.dll", true);
  machine.files.AddFile(u"C:\\gone.dll");
  EXPECT_EQ(files_.FileExists(u"C:\\there.dll"), true);
  EXPECT_EQ(files_.FileExists(u"C:\\gone.dll"), false);
  EXPECT_EQ(KnownFiles().FileExists(u"C:\\gone.dll"), true);
}

TEST_F(KnownFilesTest, AskAgainWhereTheDiskCouldNotTell) {
  machine.files.AddFile(u"C:\\there.dll");
  machine.files.faults.Fail(u"FileExists", u"C:\\there.dll");
  EXPECT_EQ(files_.FileExists(u"C:\\there.dll"), std::nullopt);
  machine.files.faults.Clear();
  EXPECT_EQ(files_.FileExists(u"C:\\there.dll"), true);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
