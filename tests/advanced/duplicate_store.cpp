#include "advanced/duplicate_store.h"

#include "advanced/advanced_test.h"
#include "frame/data_paths.h"

namespace tavix::mdlPubSelf {
namespace {

using DuplicateStore = AdvancedTest;

TEST_F(DuplicateStore, ACandidateGoesToTheBucketOfItsFirstCharacter) {
  const struct {
    TextView name, bucket;
  } table[] = {
      {u"readme.txt", u"r"},         {u"Zoo.doc", u"Z"},
      {u"1.txt", u"other"},          {u"_x", u"other"},
      {u"\u00C4rger.txt", u"other"}, {u"\u044F.txt", u"other"},
      {u".tmp", u"other"},           {u"[A-Z].txt", u"other"},
      {u"\u212A.txt", u"other"},  // the Kelvin sign, whose small letter is k
  };
  for (const auto& row : table) {
    WriteDuplicateCandidate(row.name, Concat(u"C:\\t\\", row.name));
    const Text file = Concat(kScannedFolder, u"\\", row.bucket, u"\\", row.name);
    EXPECT_EQ(machine.files.ReadFile(file), Narrow(Concat(u"C:\\t\\", row.name, u"\r\n"))) << Narrow(file);
  }
}

TEST_F(DuplicateStore, CandidatesOfOneNameMeetInOneFile) {
  WriteDuplicateCandidate(u"Same.txt", u"C:\\1\\Same.txt");
  WriteDuplicateCandidate(u"SAME.TXT", u"C:\\2\\SAME.TXT");
  EXPECT_EQ(machine.files.ReadFile(Concat(kScannedFolder, u"\\S\\same.txt")),
            "C:\\1\\Same.txt\r\nC:\\2\\SAME.TXT\r\n");
}

TEST_F(DuplicateStore, ABucketIsShownByItsLetterOrAsOther) {
  EXPECT_EQ(BucketTitle(u"A"), u"'A*'");
  EXPECT_EQ(BucketTitle(u"other"), u"other");
  EXPECT_EQ(BucketTitle(u"AB"), u"other");
}

}  // namespace
}  // namespace tavix::mdlPubSelf
