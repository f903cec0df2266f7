#include "platform/machine/host/host_folders_posix.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <string_view>

#include "text/letter_case.h"

namespace tavix::machine {
namespace {

constexpr int kFolder = O_PATH | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW;
constexpr size_t kMaxKnown = 4;
constexpr int kMaxWatched = 64;

// Removes and returns the longest beginning of a path, cut between names, that one host call accepts.
std::string TakePart(std::string_view& path) {
  size_t length = path.size();
  if (length >= PATH_MAX) length = std::min(path.rfind('/', PATH_MAX - 1), length);
  std::string part(path.substr(0, length));
  path.remove_prefix(std::min(length + 1, path.size()));
  return part;
}

HostHandle OpenByStep(int root, std::string_view path) {
  HostHandle folder(::openat(root, ".", kFolder));
  while (folder && !path.empty()) {
    const size_t end = std::min(path.find('/'), path.size());
    folder = HostHandle(::openat(folder.Get(), std::string(path.substr(0, end)).c_str(), kFolder));
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return folder;
}

}  // namespace

HostHandle OpenHostFolder(int from, const std::string& path) {
  if (path.empty()) return HostHandle(::openat(from, ".", kFolder));
  HostHandle folder;
  for (std::string_view rest = path; !rest.empty();) {
    struct open_how how {};
    how.flags = kFolder;
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS;
    const std::string part = TakePart(rest);
    const int above = folder ? folder.Get() : from;
    const long opened = ::syscall(SYS_openat2, above, part.c_str(), &how, sizeof(how));
    if (opened < 0) {
      // For any other error the host may lack openat2.
      if (errno == ENOENT || errno == ENOTDIR || errno == ELOOP) return HostHandle();
      return OpenByStep(from, path);
    }
    folder = HostHandle(static_cast<int>(opened));
  }
  return folder;
}

std::shared_ptr<HostOpenFolder> HostFolders::Open(const std::string& path) {
  auto known = std::ranges::find(known_, path, &Known::path);
  if (known == known_.end()) {
    known_.push_front({path});
    if (known_.size() > kMaxKnown) known_.pop_back();
  } else {
    known_.splice(known_.begin(), known_, known);
  }
  Known& asked = known_.front();
  if (asked.kept != nullptr && asked.kept->Stands()) return asked.kept;
  asked.kept = nullptr;
  if (++asked.requests >= asked.threshold && Keep(asked)) return asked.kept;
  HostHandle opened = OpenHostFolder(root_.Get(), path);
  return opened ? std::make_shared<HostOpenFolder>(std::move(opened)) : nullptr;
}

// Starts the watch before opening the folder, so that no change is missed. The threshold doubles at each try,
// so a folder that changes often is tried ever more rarely.
bool HostFolders::Keep(Known& folder) {
  folder.requests = 0;
  folder.threshold *= 2;
  if (watch_->Count() >= kMaxWatched) watch_->Clear();
  if (!watch_->Add(root_.Get(), folder.path)) return false;
  HostHandle opened = OpenHostFolder(root_.Get(), folder.path);
  if (!opened || !watch_->Quiet()) return false;
  folder.kept = std::make_shared<HostOpenFolder>(std::move(opened), watch_);
  return true;
}

const std::string* HostOpenFolder::FindName(TextView name, bool& sure) {
  if (!names_) names_ = HostNameTable::Read(Get());
  if (!names_) sure = false;
  return names_ ? names_->Find(name) : nullptr;
}

void HostOpenFolder::Added(std::string_view name) {
  if (names_) names_->Add(name);
}

void HostOpenFolder::Removed(TextView name) {
  if (!names_) return;
  if (names_->hasCaseDuplicates) {
    names_.reset();
  } else {
    names_->names.erase(ToUpper(name));
  }
}

}  // namespace tavix::machine
