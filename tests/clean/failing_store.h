#pragma once

#include <functional>
#include <memory>

#include "platform/machine/formats/file_store.h"

namespace tavix::machine {

// Wraps a store and makes one call fail, by its number from 1; with `forGood` all calls after it, too. Calls
// that read and calls that change something are counted alike.
class FailingStore : public FileStore {
 public:
  explicit FailingStore(std::unique_ptr<FileStore> store) : store_(std::move(store)) {}
  std::unique_ptr<StoreFolder> Root() override { return Fails() ? nullptr : Wrap(store_->Root()); }
  std::unique_ptr<StoreFolder> Open(const std::vector<Text>& names) override {
    return Fails() ? nullptr : Wrap(store_->Open(names));
  }

  int calls = 0;
  int failing = 0;
  bool forGood = false;
  bool otherVolume = false;                              // whether each folder is a volume of its own
  std::function<void(int call)> onCall;                  // runs before each call
  std::function<void(TextView name)> onRemovalOfFolder;  // runs right before a folder is removed

 private:
  class Folder;
  bool Fails() {
    ++calls;
    if (onCall) onCall(calls);
    return calls == failing || (forGood && failing > 0 && calls > failing);
  }
  std::unique_ptr<StoreFolder> Wrap(std::unique_ptr<StoreFolder> folder);

  std::unique_ptr<FileStore> store_;
};

class FailingStore::Folder : public StoreFolder {
 public:
  Folder(FailingStore& store, std::unique_ptr<StoreFolder> folder)
      : store_(store), folder_(std::move(folder)) {}

  bool Stands() override { return !Fails() && folder_->Stands(); }
  using StoreFolder::Find;
  std::optional<StoreEntry> Find(TextView name, bool& sure) override {
    if (!Fails()) return folder_->Find(name, sure);
    sure = false;
    return std::nullopt;
  }
  bool Read(std::vector<StoreEntry>& entries) override { return !Fails() && folder_->Read(entries); }
  std::unique_ptr<StoreFolder> Open(TextView name) override {
    return Fails() ? nullptr : store_.Wrap(folder_->Open(name));
  }
  std::optional<LinkTarget> ReadLink(TextView name) override {
    return Fails() ? std::nullopt : folder_->ReadLink(name);
  }
  std::optional<std::string> ReadFile(TextView name) override {
    return Fails() ? std::nullopt : folder_->ReadFile(name);
  }
  bool MakeFolder(TextView name) override { return !Fails() && folder_->MakeFolder(name); }
  bool MakeFile(TextView name) override { return !Fails() && folder_->MakeFile(name); }
  bool WriteFile(TextView name, std::string_view content) override {
    return !Fails() && folder_->WriteFile(name, content);
  }
  bool Append(TextView name, std::string_view content) override {
    return !Fails() && folder_->Append(name, content);
  }
  bool Remove(TextView name) override { return !Fails() && folder_->Remove(name); }
  bool RemoveTree(TextView name) override { return !Fails() && folder_->RemoveTree(name); }
  bool RemoveEmptyTree(TextView name) override {
    if (store_.onRemovalOfFolder) store_.onRemovalOfFolder(name);
    return !Fails() && folder_->RemoveEmptyTree(name);
  }
  std::optional<uint64_t> TreeSize(TextView name) override {
    return Fails() ? std::nullopt : folder_->TreeSize(name);
  }
  MoveResult Move(TextView name, StoreFolder& to, TextView newName) override {
    if (Fails()) return store_.otherVolume ? MoveResult::OtherVolume : MoveResult::Failed;
    return store_.otherVolume ? MoveResult::OtherVolume
                              : folder_->Move(name, *static_cast<Folder&>(to).folder_, newName);
  }
  bool Copy(TextView name, StoreFolder& to, TextView newName) override {
    return !Fails() && folder_->Copy(name, *static_cast<Folder&>(to).folder_, newName);
  }

 private:
  bool Fails() { return store_.Fails(); }

  FailingStore& store_;
  std::unique_ptr<StoreFolder> folder_;
};

inline std::unique_ptr<StoreFolder> FailingStore::Wrap(std::unique_ptr<StoreFolder> folder) {
  return folder != nullptr ? std::make_unique<Folder>(*this, std::move(folder)) : nullptr;
}

}  // namespace tavix::machine
