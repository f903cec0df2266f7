#pragma once

#include <condition_variable>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "platform/file_system.h"
#include "platform/folder_listing.h"
#include "text/text.h"

namespace tavix::platform {

// An open folder of the host. Any thread may call it, several at the same time, too.
class FolderSource {
 public:
  virtual ~FolderSource() = default;
  // As OpenFolder::Open.
  virtual std::shared_ptr<const FolderSource> Open(TextView name) const = 0;
  // Adds the entries, in any order. False when the folder can't be read, and when the reading is given up.
  virtual bool Read(FolderListing& listing, const NameFilter& wanted) const = 0;
};

// Reads the folders that a walk comes to next while the program is still busy with those before, on a thread
// of its own.
//
// A walk goes down a tree, depth first, and enters the subfolders of each folder in the order of its listing.
// Once it has opened the first of them from the folder itself, the others and what is below them are read in
// this order. The walk gets a finished listing, waits for one that is being read and reads others meanwhile,
// or reads a folder itself that nobody has begun. So it sees the same folders in the same order as without.
//
// At most `mostFolders` are open and read ahead, and none is begun while they hold kMostBytes. Half of that
// is kept for the folders that come next: while one is being read, those after it take only the other half.
// What a walk passes by, or leaves, is dropped at once, and a reading of it is given up. A folder that
// couldn't be read ahead is read again when the walk comes to it. Without a second processor, and when the
// thread can't be started, nothing is read ahead. The thread is started at the first use and sleeps when
// there is nothing to do.
class ReadAhead {
 public:
  static constexpr size_t kMostFolders = 256;
  static constexpr size_t kMostBytes = size_t{8} << 20U;

  struct Node;

  // A folder of a walk. All folders of one ReadAhead belong to one thread, and must end before it.
  class Folder {
   public:
    // The folder where a walk begins. Nothing is read ahead without an `ahead`, and nothing unless
    // `worthwhile` says that the folder is on a disk where this helps. It is asked once, when the first
    // subfolder is opened.
    Folder(ReadAhead* ahead, std::shared_ptr<const FolderSource> source, std::function<bool()> worthwhile);
    ~Folder();
    Folder(Folder&& other) noexcept;
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    // The finished listing. Nothing when the folder can't be read, and when `goesOn` says no.
    std::optional<FolderListing> List(const NameFilter& wanted, const GoesOn& goesOn);
    // As OpenFolder::Open; nothing instead of null.
    std::optional<Folder> Open(TextView name);

   private:
    Folder(ReadAhead* ahead, std::shared_ptr<Node> node);

    ReadAhead* ahead_;
    std::shared_ptr<Node> node_;
    std::function<bool()> worthwhile_;  // empty once it was asked
  };

  // `prepare` is called first on the new thread.
  explicit ReadAhead(size_t mostFolders = kMostFolders, std::function<void()> prepare = {});
  ~ReadAhead();
  ReadAhead(const ReadAhead&) = delete;
  ReadAhead& operator=(const ReadAhead&) = delete;

  // For tests: the folders that are read ahead now or have been, and aren't taken yet; whether the thread has
  // nothing to do.
  size_t FoldersAhead();
  void WaitUntilIdle();
  // Reads ahead also with a single processor.
  void Force() { enabled_ = true; }

 private:
  using Lock = std::unique_lock<std::mutex>;

  static bool OpenNow(Node& node);
  static std::optional<FolderListing> ReadNow(Node& node, const NameFilter& wanted, const GoesOn& goesOn);
  static bool ReadAside(Node& node, const GoesOn& goesOn) noexcept;
  std::shared_ptr<Node> TakeSubFolder(Node& node, TextView name, bool start);
  bool Await(Lock& lock, Node& node, const GoesOn& goesOn);
  void Schedule(Node& node);
  void Wake();
  void Remove(Node& node);
  void Drop(Node& node);
  void Uncount(Node& node);
  std::shared_ptr<Node> Begin();
  bool ReadNext(Lock& lock, const GoesOn& goesOn);
  void Run();

  const size_t mostFolders_;
  const std::function<void()> prepare_;
  bool enabled_;
  std::mutex mutex_;  // guards all that follows, and the nodes
  std::condition_variable work_;
  std::condition_variable finished_;
  // The folders with subfolders to read, and those being read, in the order in which the walk comes to them.
  std::list<Node*> order_;
  size_t foldersAhead_ = 0;
  size_t bytesAhead_ = 0;
  bool full_ = false;
  bool sleeping_ = false;
  bool ending_ = false;
  std::thread thread_;
};

}  // namespace tavix::platform
