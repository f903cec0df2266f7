#include "platform/read_ahead.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <new>
#include <system_error>
#include <utility>
#include <vector>

#include "text/letter_case.h"

namespace tavix::platform {
namespace {

using SteadyClock = std::chrono::steady_clock;

// How long the program may wait before `goesOn` is asked.
constexpr std::chrono::milliseconds kPatience{20};

}  // namespace

// The thread that reads a node has `source`, `listing`, `folders` and `bytes` for itself meanwhile.
struct ReadAhead::Node {
  enum class State {
    Unread,
    Reading,
    Read,    // ahead of the walk
    Failed,  // ahead of the walk: it will be tried again
    Taken,   // the walk has the listing
  };

  std::shared_ptr<const FolderSource> above;  // opens the folder by its name; null for the first one
  Text name;
  std::shared_ptr<const FolderSource> source;  // null until it is open
  NameFilter wanted;
  bool walked = false;  // what is below it is read ahead
  State state = State::Unread;
  FolderListing listing;
  size_t bytes = 0;
  NameList folders;                                 // those in the listing that aren't links
  size_t index = 0;                                 // in the folders of the one above
  size_t next = 0;                                  // the first folder that nobody has begun
  std::vector<std::shared_ptr<Node>> begun;         // the folders read ahead, in order
  std::optional<std::list<Node*>::iterator> place;  // in order_
  std::atomic<bool> dropped = false;

  std::optional<size_t> IndexOf(TextView wantedName) const {
    if (next < folders.Count() && folders.At(next) == wantedName) return next;
    size_t low = 0;
    for (size_t high = folders.Count(); low < high;) {
      const size_t middle = (low + high) / 2;
      const int capitals = CompareIgnoringCase(folders.At(middle), wantedName);
      const bool before = capitals != 0 ? capitals < 0 : folders.At(middle) < wantedName;
      (before ? low : high) = before ? middle + 1 : middle;
    }
    return low < folders.Count() && folders.At(low) == wantedName ? std::optional(low) : std::nullopt;
  }
};

ReadAhead::Folder::Folder(ReadAhead* ahead, std::shared_ptr<const FolderSource> source,
                          std::function<bool()> worthwhile)
    : ahead_(ahead), node_(std::make_shared<Node>()), worthwhile_(std::move(worthwhile)) {
  node_->source = std::move(source);
}

ReadAhead::Folder::Folder(ReadAhead* ahead, std::shared_ptr<Node> node)
    : ahead_(ahead), node_(std::move(node)) {}

ReadAhead::Folder::Folder(Folder&& other) noexcept = default;

ReadAhead::Folder::~Folder() {
  if (ahead_ == nullptr || node_ == nullptr) return;
  const Lock lock(ahead_->mutex_);
  ahead_->Drop(*node_);
}

std::optional<FolderListing> ReadAhead::Folder::List(const NameFilter& wanted, const GoesOn& goesOn) {
  Node& node = *node_;
  if (ahead_ == nullptr) return ReadNow(node, wanted, goesOn);
  Lock lock(ahead_->mutex_);
  if (!ahead_->Await(lock, node, goesOn)) return std::nullopt;
  if (node.state == Node::State::Read) {
    ahead_->Uncount(node);
    node.state = Node::State::Taken;
    FolderListing listing = std::move(node.listing);
    if (node.wanted == wanted) return listing;
  }
  lock.unlock();
  std::optional<FolderListing> listing = ReadNow(node, wanted, goesOn);
  if (!listing || node.state == Node::State::Taken) return listing;
  NameList folders = listing->Folders();
  lock.lock();
  node.folders = std::move(folders);
  node.wanted = wanted;
  node.state = Node::State::Taken;
  ahead_->Schedule(node);
  return listing;
}

std::optional<ReadAhead::Folder> ReadAhead::Folder::Open(TextView name) {
  bool start = false;
  if (worthwhile_) {
    start = ahead_ != nullptr && ahead_->enabled_ && worthwhile_();
    worthwhile_ = {};
  }
  std::shared_ptr<Node> child = ahead_ != nullptr ? ahead_->TakeSubFolder(*node_, name, start) : nullptr;
  if (child == nullptr) {
    if (!OpenNow(*node_)) return std::nullopt;
    child = std::make_shared<Node>();
    child->above = node_->source;
    child->name = name;
    child->walked = node_->walked;
    if (!OpenNow(*child)) return std::nullopt;
  }
  return Folder(ahead_, std::move(child));
}

ReadAhead::ReadAhead(size_t mostFolders, std::function<void()> prepare)
    : mostFolders_(mostFolders),
      prepare_(std::move(prepare)),
      enabled_(mostFolders > 0 && std::thread::hardware_concurrency() > 1) {}

ReadAhead::~ReadAhead() {
  {
    const Lock lock(mutex_);
    ending_ = true;
    work_.notify_all();
  }
  if (thread_.joinable()) thread_.join();
}

size_t ReadAhead::FoldersAhead() {
  const Lock lock(mutex_);
  return foldersAhead_;
}

void ReadAhead::WaitUntilIdle() {
  Lock lock(mutex_);
  while (thread_.joinable() && !sleeping_) finished_.wait(lock);
}

bool ReadAhead::OpenNow(Node& node) {
  if (node.source == nullptr && node.above != nullptr) {
    node.source = node.above->Open(node.name);
    if (node.source != nullptr) node.above = nullptr;
  }
  return node.source != nullptr;
}

std::optional<FolderListing> ReadAhead::ReadNow(Node& node, const NameFilter& wanted, const GoesOn& goesOn) {
  FolderListing listing(goesOn);
  if (!OpenNow(node) || !node.source->Read(listing, wanted)) return std::nullopt;
  listing.Finish();
  return listing;
}

// The subfolder, if it was begun already. Otherwise null, and it is the caller's.
std::shared_ptr<ReadAhead::Node> ReadAhead::TakeSubFolder(Node& node, TextView name, bool start) {
  Lock lock(mutex_);
  Await(lock, node, {});
  node.walked = node.walked || start;
  const std::optional<size_t> index = node.walked ? node.IndexOf(name) : std::nullopt;
  if (!index) return nullptr;
  std::shared_ptr<Node> found;
  const auto passed =
      std::ranges::find_if(node.begun, [&](const auto& child) { return child->index >= *index; });
  for (auto child = node.begun.begin(); child != passed; ++child) Drop(**child);
  auto rest = passed;
  if (rest != node.begun.end() && (*rest)->index == *index) found = std::move(*rest++);
  node.begun.erase(node.begun.begin(), rest);
  node.next = std::max(node.next, *index + 1);
  Schedule(node);
  return found != nullptr && found->state != Node::State::Failed ? found : nullptr;
}

// Returns false if `goesOn` said no.
bool ReadAhead::Await(Lock& lock, Node& node, const GoesOn& goesOn) {
  if (node.state != Node::State::Reading) return true;
  bool on = true;
  const GoesOn asked = [&] { return on = on && (!goesOn || goesOn()); };
  auto last = SteadyClock::now();
  while (node.state == Node::State::Reading && on) {
    if (!ReadNext(lock, asked)) finished_.wait_until(lock, last + kPatience);
    if (const auto now = SteadyClock::now(); now - last >= kPatience) {
      lock.unlock();
      asked();
      lock.lock();
      last = SteadyClock::now();
    }
  }
  return on;
}

// What is below the folder that the walk has read last comes next.
void ReadAhead::Schedule(Node& node) {
  if (!node.walked || node.next == node.folders.Count()) return;
  if (!node.place) node.place = order_.insert(order_.begin(), &node);
  Wake();
}

void ReadAhead::Wake() {
  if (full_ || !enabled_) return;
  if (thread_.joinable()) {
    if (std::exchange(sleeping_, false)) work_.notify_one();
    return;
  }
  try {
    thread_ = std::thread([this] { Run(); });
  } catch (const std::system_error&) {
    enabled_ = false;
  }
}

void ReadAhead::Remove(Node& node) {
  if (node.place) order_.erase(*node.place);
  node.place.reset();
}

void ReadAhead::Drop(Node& node) {
  node.dropped = true;
  Remove(node);
  if (node.state == Node::State::Reading || node.state == Node::State::Read) Uncount(node);
  for (const auto& child : node.begun) Drop(*child);
  node.begun.clear();
}

void ReadAhead::Uncount(Node& node) {
  --foldersAhead_;
  bytesAhead_ -= node.state == Node::State::Read ? node.bytes : 0;
  if (!full_ || foldersAhead_ > mostFolders_ / 2 || bytesAhead_ > kMostBytes / 2) return;
  full_ = false;
  if (!order_.empty()) Wake();
}

// The next folder to read, or null.
std::shared_ptr<ReadAhead::Node> ReadAhead::Begin() {
  if (full_ || !enabled_) return nullptr;
  bool nearest = true;
  for (auto at = order_.begin(); at != order_.end();) {
    Node& above = **at++;
    if (above.state == Node::State::Reading) {
      nearest = false;
      continue;
    }
    if (!nearest && foldersAhead_ >= mostFolders_ / 2) return nullptr;
    if (above.next == above.folders.Count()) {
      Remove(above);
      continue;
    }
    auto node = std::make_shared<Node>();
    node->above = above.source;
    node->name = above.folders.At(above.next);
    node->wanted = above.wanted;
    node->walked = true;
    node->index = above.next;
    if (above.begun.capacity() == 0) above.begun.reserve(mostFolders_);
    node->place = order_.insert(*above.place, node.get());
    above.begun.push_back(node);
    ++above.next;
    node->state = Node::State::Reading;
    ++foldersAhead_;
    full_ = foldersAhead_ >= mostFolders_;
    return node;
  }
  return nullptr;
}

// Reads the next folder without the lock. False if there is none.
bool ReadAhead::ReadNext(Lock& lock, const GoesOn& goesOn) {
  std::shared_ptr<Node> node;
  try {
    node = Begin();
  } catch (const std::bad_alloc&) {
  }
  if (node == nullptr) return false;
  lock.unlock();
  const bool read = ReadAside(*node, goesOn);
  lock.lock();
  if (!node->dropped) {
    if (!read) Uncount(*node);
    node->state = read ? Node::State::Read : Node::State::Failed;
    if (read) {
      bytesAhead_ += node->bytes;
      full_ = full_ || bytesAhead_ >= kMostBytes;
    }
    if (node->folders.Count() == 0) Remove(*node);
  }
  finished_.notify_all();
  return true;
}

// A failure, for lack of memory too, is left to the walk: it reads the folder again.
bool ReadAhead::ReadAside(Node& node, const GoesOn& goesOn) noexcept {
  try {
    std::optional<FolderListing> listing =
        ReadNow(node, node.wanted, [&] { return !node.dropped && (!goesOn || goesOn()); });
    if (!listing) return false;
    node.folders = listing->Folders();
    node.bytes = listing->Bytes();
    node.listing = *std::move(listing);
    return true;
  } catch (...) {
    node.folders = {};
    return false;
  }
}

void ReadAhead::Run() {
  if (prepare_) prepare_();
  Lock lock(mutex_);
  while (!ending_) {
    if (ReadNext(lock, {})) continue;
    sleeping_ = true;
    finished_.notify_all();
    work_.wait(lock, [this] { return !sleeping_ || ending_; });
  }
}

}  // namespace tavix::platform
