#include "platform/machine/host/host_watch_posix.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>

#include <algorithm>
#include <array>

namespace tavix::machine {
namespace {

constexpr int kFolder = O_PATH | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW;

}  // namespace

bool HostWatch::Start() {
  if (changes_) return true;
  changes_ = HostHandle(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
  mounts_ = HostHandle(::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC));
  return changes_ && mounts_;
}

bool HostWatch::Watch(int folder, uint32_t events) {
  const std::string path = "/proc/self/fd/" + std::to_string(folder);
  const int watch = ::inotify_add_watch(changes_.Get(), path.c_str(), events | IN_MASK_ADD | IN_ONLYDIR);
  if (watch >= 0) watches_.insert(watch);
  return watch >= 0;
}

// Watches the parents with IN_DELETE: the removal of an open folder is reported only there.
bool HostWatch::Add(int root, const std::string& path) {
  bool watched = Start() && Watch(root, IN_DELETE);
  HostHandle above;
  for (size_t start = 0; watched && start < path.size();) {
    const size_t end = std::min(path.find('/', start), path.size());
    const std::string name = path.substr(start, end - start);
    start = end + 1;
    HostHandle folder(::openat(above ? above.Get() : root, name.c_str(), kFolder));
    const uint32_t events = IN_MOVE_SELF | (start < path.size() ? IN_DELETE : IN_CREATE | IN_MOVED_TO);
    watched = folder && Watch(folder.Get(), events);
    above = std::move(folder);
  }
  if (watched) ++count_;
  return watched;
}

bool HostWatch::Quiet() {
  if (!changes_ || !mounts_) return false;
  std::array<pollfd, 2> asked = {{{changes_.Get(), POLLIN, 0}, {mounts_.Get(), POLLPRI, 0}}};
  if (::poll(asked.data(), asked.size(), 0) == 0) return true;
  Clear();
  return false;
}

// The removal of a watch is an event itself, so the events are read last. To poll the mounts has made them
// quiet.
void HostWatch::Clear() {
  for (const int watch : watches_) ::inotify_rm_watch(changes_.Get(), watch);
  watches_.clear();
  std::array<char, 4096> events;
  while (changes_ && ::read(changes_.Get(), events.data(), events.size()) > 0) {
  }
  count_ = 0;
  ++generation_;
}

}  // namespace tavix::machine
