#include "platform/windows/found_item.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "platform/windows/delete_tree.h"
#include "platform/windows/file_move.h"
#include "platform/windows/opened_item.h"
#include "platform/windows/windows_path.h"

namespace tavix::windows {
namespace {

// A folder and all folders above it up to where the walk began; the last is the folder itself. They are held
// for as long as anybody has them.
using Chain = std::vector<OpenedFolder>;

class Found : public platform::FoundItem {
 public:
  Found(std::shared_ptr<const Chain> folders, Text name, OpenedItem item)
      : folders_(std::move(folders)), name_(std::move(name)), item_(std::move(item)) {}

  bool IsFolder() const override { return item_.IsRealFolder(); }

  bool DeleteFile() override { return item_.handle && !item_.IsFolder() && DeleteItself(); }

  bool DeleteEmptyFolder() override {
    if (!item_.handle || !item_.IsFolder()) return false;
    return item_.link ? DeleteItself() : DeleteEmptyTree(std::exchange(item_, OpenedItem())) && IsGone();
  }

  bool MoveFileTo(TextView destination) override {
    const std::optional<Text> to = NormalPath(destination);
    if (!item_.handle || !to || !MoveItem(item_, *to)) return false;
    item_.handle.Reset();
    folders_ = nullptr;
    return true;
  }

  bool LeaveToShell() override {
    item_.handle.Reset();
    return std::ranges::all_of(*folders_, &OpenedFolder::held);
  }

 private:
  bool DeleteItself() {
    if (!DeleteItem(item_, true)) return false;
    item_.handle.Reset();
    return IsGone();
  }

  // Call after a deletion. The older kind of deletion takes effect only when nobody has the file open. Frees
  // the folders once the item is gone.
  bool IsGone() {
    if (StandsIn(folders_->back().handle.Get(), name_)) return false;
    folders_ = nullptr;
    return true;
  }

  std::shared_ptr<const Chain> folders_;
  Text name_;
  OpenedItem item_;
};

class FoundIn : public platform::FoundFolder {
 public:
  explicit FoundIn(Chain folders) : folders_(std::make_shared<const Chain>(std::move(folders))) {}

  bool Stands() override { return std::ranges::all_of(*folders_, &OpenedFolder::held); }

  std::unique_ptr<platform::FoundItem> Open(TextView name) override {
    const std::optional<std::vector<Text>> names = NormalNames(name);
    if (!names || names->size() != 1) return nullptr;
    const HANDLE folder = folders_->back().handle.Get();
    const FileHandle asked = OpenAgain(folder);
    const std::optional<ListedItem> listed = asked ? FindIn(asked.Get(), names->front()) : std::nullopt;
    std::optional<OpenedItem> item = listed ? OpenItemIn(folder, *listed) : std::nullopt;
    return item ? std::make_unique<Found>(folders_, listed->name, *std::move(item)) : nullptr;
  }

 private:
  const std::shared_ptr<const Chain> folders_;
};

}  // namespace

std::unique_ptr<platform::FoundFolder> OpenFoundFolder(TextView start, TextView below) {
  std::vector<Text> names;
  if (!below.empty()) {
    std::optional<std::vector<Text>> split = NormalNames(below);
    if (!split) return nullptr;
    names = *std::move(split);
  }
  std::optional<OpenedFolder> folder = OpenFolderAt(start);
  Chain folders;
  for (const Text& name : names) {
    if (!folder) return nullptr;
    const HANDLE above = folders.emplace_back(*std::move(folder)).handle.Get();
    const std::optional<ListedItem> listed = FindIn(above, name);
    folder = listed ? OpenFolderIn(above, *listed) : std::nullopt;
  }
  if (!folder) return nullptr;
  folders.push_back(*std::move(folder));
  return std::make_unique<FoundIn>(std::move(folders));
}

}  // namespace tavix::windows
