#include "scan/walkers_test.h"

namespace tavix::mdlPubSelf {
namespace {

TEST_F(Walkers, LinksToFoldersAreWalkedAndLinksToFilesAreFiles) {
  AddFile(u"C:\\Other\\o.tmp");
  machine.files.AddFolder(u"C:\\T");
  machine.files.AddLink(u"C:\\T\\to folder", u"C:\\Other");
  machine.files.AddLink(u"C:\\T\\to file", u"C:\\Other\\o.tmp");
  machine.files.AddLink(u"C:\\T\\to nothing", u"C:\\Nowhere");
  for (const int kind : {0, 1}) {
    ClearResults();
    kind == 0 ? WalkFolderFiles(u"C:\\T", u"t") : WalkFolderByPattern(u"C:\\T", u"t", u"");
    EXPECT_EQ(Paths(ResultRows()),
              (std::vector<Text>{u"C:\\T\\to file", u"C:\\T\\to nothing", u"C:\\T\\to folder\\o.tmp"}));
  }
}

TEST_F(Walkers, ALinkToAFolderThatTheWalkIsInIsPassedOver) {
  AddDead(u"C:\\T\\a.lnk");
  AddDead(u"C:\\T\\b\\b.lnk");
  AddDead(u"C:\\other.lnk");
  machine.files.AddLink(u"C:\\T\\self", u"C:\\T");
  machine.files.AddLink(u"C:\\T\\b\\self", u"C:\\T\\b");
  machine.files.AddLink(u"C:\\T\\b\\up", u"..");
  machine.files.AddLink(u"C:\\T\\b\\root", u"C:\\");
  for (const Walker& walker : kWalkers) {
    EXPECT_EQ(Walk(walker, u"C:\\T"), (std::vector<Text>{u"C:\\T\\a.lnk", u"C:\\T\\b\\b.lnk"}))
        << walker.name;
  }
}

// A walk that entered a link is in two chains of folders: those above the target and those of its own path.
TEST_F(Walkers, AfterALinkTheWalkIsInTheFoldersOfBothPaths) {
  AddFile(u"D:\\far\\deep\\f.tmp");
  machine.files.AddLink(u"C:\\T\\link", u"D:\\far\\deep");
  machine.files.AddLink(u"D:\\far\\deep\\up", u"D:\\far");
  machine.files.AddLink(u"D:\\far\\deep\\back", u"C:\\T");
  WalkFolderFiles(u"C:\\T", u"t");
  EXPECT_EQ(Paths(ResultRows()), (std::vector<Text>{u"C:\\T\\link\\f.tmp"}));
}

TEST_F(Walkers, AFolderIsEnteredThroughOneLinkOnly) {
  AddFile(u"C:\\Shared\\s.tmp");
  AddFile(u"C:\\T\\b\\b.tmp");
  machine.files.AddLink(u"C:\\T\\a\\link", u"C:\\Shared");
  machine.files.AddLink(u"C:\\T\\b\\link", u"C:\\Shared");
  machine.files.AddLink(u"C:\\T\\c", u"C:\\T\\b");
  machine.files.AddLink(u"C:\\T\\d", u"C:\\T\\b");
  const std::vector<Text> once = {u"C:\\T\\a\\link\\s.tmp", u"C:\\T\\b\\b.tmp", u"C:\\T\\c\\b.tmp"};
  WalkFolderFiles(u"C:\\T", u"t");
  EXPECT_EQ(Paths(ResultRows()), once);
  ClearResults();
  WalkFolderFiles(u"C:\\T", u"t");
  EXPECT_EQ(Paths(ResultRows()), once) << "each walk starts without entered folders";
}

TEST_F(Walkers, LinksThatLeadBackDoNotMultiply) {
  for (const TextView folder : {u"C:\\T\\a", u"C:\\T\\b", u"C:\\T\\c"}) {
    AddFile(Concat(folder, u"\\f.tmp"));
    machine.files.AddLink(Concat(folder, u"\\one"), u"C:\\T");
    machine.files.AddLink(Concat(folder, u"\\two"), folder);
  }
  WalkFolderFiles(u"C:\\T", u"t");
  EXPECT_EQ(ResultCount(), 3);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
