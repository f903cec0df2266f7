#include "platform/machine/services/machine_instance.h"

#include "doubles/memory_instance.h"
#include "platform/machine/scratch_folder.h"

namespace tavix::machine {
namespace {

TEST(FolderInstance, KnowsWhetherAnotherRunsOverTheSameFolder) {
  const ScratchFolder scratch;
  const ScratchFolder other;
  std::filesystem::create_directory(scratch.Root() / "registry");
  {
    FolderInstance first(scratch.Root());
    FolderInstance second(scratch.Root());
    FolderInstance elsewhere(other.Root());
    EXPECT_FALSE(first.PreviousRuns());
    EXPECT_FALSE(first.PreviousRuns());
    EXPECT_TRUE(second.PreviousRuns());
    EXPECT_FALSE(elsewhere.PreviousRuns());
  }
  FolderInstance later(scratch.Root());
  EXPECT_FALSE(later.PreviousRuns());
}

TEST(FolderInstance, LeavesNothingBehind) {
  const ScratchFolder scratch;
  EXPECT_FALSE(FolderInstance(scratch.Root()).PreviousRuns());
  EXPECT_TRUE(scratch.Files().empty());
}

TEST(MemoryInstance, IsToldWhetherAnotherRuns) {
  MemoryInstance instance;
  EXPECT_FALSE(instance.PreviousRuns());
  instance.previousRuns = true;
  EXPECT_TRUE(instance.PreviousRuns());
}

}  // namespace
}  // namespace tavix::machine
