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

class Found : public platform::FoundItem {
 public:
  // `folders` are all folders above the item; the last is its parent.
  Found(std::vector<OpenedFolder> folders, Text name, OpenedItem item)
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
    folders_.clear();
    return true;
  }

  bool LeaveToShell() override {
    item_.handle.Reset();
    return std::ranges::all_of(folders_, &OpenedFolder::held);
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
    if (StandsIn(folders_.back().handle.Get(), name_)) return false;
    folders_.clear();
    return true;
  }

  std::vector<OpenedFolder> folders_;
  Text name_;
  OpenedItem item_;
};

}  // namespace

std::unique_ptr<platform::FoundItem> OpenFoundItem(TextView start, TextView below) {
  std::optional<std::vector<Text>> names = NormalNames(below);
  if (!names) return nullptr;
  std::optional<OpenedFolder> first = OpenFolderAt(start);
  if (!first) return nullptr;
  std::vector<OpenedFolder> folders;
  folders.push_back(*std::move(first));
  for (size_t i = 0;; ++i) {
    const HANDLE folder = folders.back().handle.Get();
    const std::optional<ListedItem> listed = FindIn(folder, (*names)[i]);
    if (!listed) return nullptr;
    if (i + 1 == names->size()) {
      std::optional<OpenedItem> item = OpenItemIn(folder, *listed);
      if (!item) return nullptr;
      return std::make_unique<Found>(std::move(folders), listed->name, *std::move(item));
    }
    std::optional<OpenedFolder> next = OpenFolderIn(folder, *listed);
    if (!next) return nullptr;
    folders.push_back(*std::move(next));
  }
}

}  // namespace tavix::windows
