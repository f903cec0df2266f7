#include "platform/windows/delete_watch.h"

#include <gtest/gtest.h>

#include "platform/windows/recycling.h"

namespace tavix::windows {
namespace {

// The shell's item isn't looked into, only whether there is one.
IShellItem* Item() { return reinterpret_cast<IShellItem*>(0x10); }

TEST(DeleteWatch, RefusesADeletionThatIsntAMoveToTheBin) {
  DeleteWatch watch;
  EXPECT_EQ(watch.PreDeleteItem(TSF_DELETE_RECYCLE_IF_POSSIBLE, Item()), S_OK);
  EXPECT_EQ(watch.PreDeleteItem(TSF_DELETE_RECYCLE_IF_POSSIBLE | TSF_OVERWRITE_EXIST, Item()), S_OK);
  EXPECT_TRUE(FAILED(watch.PreDeleteItem(TSF_NORMAL, Item())));
  EXPECT_TRUE(FAILED(watch.PreDeleteItem(TSF_OVERWRITE_EXIST, Item())));
}

TEST(DeleteWatch, KnowsWhetherTheItemIsInTheBin) {
  const struct {
    HRESULT result;
    IShellItem* inBin;
    bool expected;
  } table[] = {{S_OK, Item(), true},
               {COPYENGINE_S_DONT_PROCESS_CHILDREN, Item(), true},
               {S_OK, nullptr, false},
               {E_ABORT, Item(), false},
               {E_ACCESSDENIED, nullptr, false}};
  for (const auto& row : table) {
    DeleteWatch watch;
    EXPECT_FALSE(watch.IsInBin());
    EXPECT_EQ(watch.PostDeleteItem(TSF_DELETE_RECYCLE_IF_POSSIBLE, Item(), row.result, row.inBin), S_OK);
    EXPECT_EQ(watch.IsInBin(), row.expected) << row.result;
  }
}

TEST(DeleteWatch, HasNoOtherInterface) {
  DeleteWatch watch;
  void* found = nullptr;
  EXPECT_EQ(watch.QueryInterface(IID_IFileOperationProgressSink, &found), S_OK);
  EXPECT_EQ(found, &watch);
  EXPECT_EQ(watch.QueryInterface(IID_IShellItem, &found), E_NOINTERFACE);
  EXPECT_EQ(found, nullptr);
}

// Wine connects no folder with a page and asks nothing, so it shows no difference without these flags.
TEST(RecycleFlags, TakeNothingAlongAndDeleteNothingForGood) {
  for (const FILEOP_FLAGS flag : {FOF_ALLOWUNDO, FOF_NO_CONNECTED_ELEMENTS, FOF_WANTNUKEWARNING,
                                  FOF_NOCONFIRMATION, FOF_SILENT, FOF_NOERRORUI}) {
    EXPECT_EQ(kRecycleFlags & flag, flag) << flag;
  }
}

}  // namespace
}  // namespace tavix::windows
