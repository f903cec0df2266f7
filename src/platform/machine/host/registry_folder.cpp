#include "platform/machine/host/registry_folder.h"

#include "platform/machine/host/host_directory.h"
#include "platform/machine/host/host_files.h"
#include "text/letter_case.h"

namespace tavix::machine {
namespace {

namespace fs = std::filesystem;

constexpr const char* kMark = "~saving";

fs::path WithSuffix(const fs::path& name, const char* suffix) {
  fs::path suffixed = name;
  suffixed += suffix;
  return suffixed;
}

using Opened = std::unique_ptr<HostDirectory>;

// One run of recovery or replacement. Every change on disk asks the hook first. Each folder is opened once
// and used by its handle, so a link put in its place meanwhile has no effect.
class Replacement {
 public:
  Replacement(const fs::path& folder, std::string& reason, const StepHook& step)
      : parent_(HostDirectory::Open(folder.parent_path())),
        name_(folder.filename()),
        stage_(WithSuffix(name_, "~saving")),
        aside_(WithSuffix(name_, "~old")),
        reason_(reason),
        step_(step) {}

  bool Recover();
  bool Replace(const std::vector<NewFile>& files);

 private:
  bool Step() { return !step_ || step_(); }
  bool Fail(const fs::path& name, const char* what) {
    reason_ = HostNameUtf8(name.filename()) + ": " + what;
    return false;
  }
  bool Rename(const fs::path& from, const fs::path& to) { return parent_->Rename(from, *parent_, to); }
  bool RemoveStage(HostDirectory& stage);
  Opened MakeStage();
  bool FillStage(HostDirectory& stage, const std::vector<NewFile>& files);
  bool PutInPlace();
  bool CarryOver(HostDirectory& old, HostDirectory& current);
  bool Finish(HostDirectory& current);

  const Opened parent_;
  const fs::path name_;
  const fs::path stage_;
  const fs::path aside_;  // the old folder between two renames
  std::string& reason_;
  const StepHook step_;
};

// Removes the mark last, so that a half-removed stage is still recognised.
bool Replacement::RemoveStage(HostDirectory& stage) {
  const auto names = stage.Names();
  if (!names) return Fail(stage_, "can't be read");
  for (const fs::path& name : *names) {
    if (!Step()) return false;
    if (name != kMark) stage.RemoveTree(name);
  }
  if (!Step() || !stage.Remove(kMark) || !Step() || !parent_->RemoveEmptyFolder(stage_)) {
    return Fail(stage_, "can't be removed");
  }
  return true;
}

// Checks that the new folder is empty: somebody may have swapped it before it was opened.
Opened Replacement::MakeStage() {
  if (!Step()) return nullptr;
  Opened stage = parent_->MakeFolder(stage_) ? parent_->OpenFolder(stage_) : nullptr;
  if (stage == nullptr || stage->Names() != std::vector<fs::path>()) {
    Fail(stage_, "can't be made");
    return nullptr;
  }
  return stage;
}

bool Replacement::FillStage(HostDirectory& stage, const std::vector<NewFile>& files) {
  if (!Step()) return false;
  if (!stage.WriteNewFile(kMark, {})) return Fail(stage_, "can't be written in");
  stage.Flush();
  for (const NewFile& file : files) {
    if (!Step()) return false;
    if (!stage.WriteNewFile(file.Name, file.Bytes)) return Fail(file.Name, "can't be written");
  }
  if (const Opened old = parent_->OpenFolder(name_)) stage.TakeRightsOf(*old);
  stage.Flush();
  parent_->Flush();
  return true;
}

bool Replacement::PutInPlace() {
  if (!Step()) return false;
  if (!parent_->Exists(name_)) return Rename(stage_, name_) || Fail(name_, "can't be made");
  if (parent_->Exchange(stage_, name_)) return true;
  if (parent_->Exists(aside_)) return Fail(aside_, "is in the way");
  if (!Rename(name_, aside_)) return Fail(name_, "can't be renamed");
  if (!Step()) return false;
  if (!Rename(stage_, name_)) {
    Rename(aside_, name_);
    return Fail(stage_, "can't be renamed");
  }
  if (!Step()) return false;
  return Rename(aside_, stage_) || Fail(aside_, "can't be renamed");
}

bool Replacement::CarryOver(HostDirectory& old, HostDirectory& current) {
  const auto names = old.Names();
  if (!names) return Fail(stage_, "can't be read");
  for (const fs::path& name : *names) {
    if (!Step()) return false;
    if (IsRegistryFile(name) && old.OpenFolder(name) == nullptr) {
      if (!old.Remove(name)) return Fail(name, "can't be removed");
      continue;
    }
    fs::path to = name;
    while (current.Exists(to)) to += "~";
    if (!old.Rename(name, current, to)) return Fail(name, "can't be moved");
  }
  current.Flush();
  old.Flush();
  if (!Step()) return false;
  return parent_->RemoveEmptyFolder(stage_) || Fail(stage_, "can't be removed");
}

bool Replacement::Finish(HostDirectory& current) {
  const Opened old = parent_->OpenFolder(stage_);
  if (old != nullptr && !CarryOver(*old, current)) return false;
  parent_->Flush();
  if (!Step()) return false;
  if (!current.Remove(kMark)) return Fail(name_, "can't be written in");
  current.Flush();
  return true;
}

bool Replacement::Recover() {
  if (parent_ == nullptr) return Fail(name_, "the folder it lies in can't be opened");
  if (parent_->OpenFolder(aside_) != nullptr) {
    const Opened current = parent_->OpenFolder(name_);
    if (!parent_->Exists(name_)) {
      if (!Step() || !Rename(aside_, name_)) return Fail(aside_, "can't be renamed");
    } else if (current != nullptr && current->Exists(kMark) && !parent_->Exists(stage_)) {
      if (!Step() || !Rename(aside_, stage_)) return Fail(aside_, "can't be renamed");
    }
  }
  const Opened stage = parent_->OpenFolder(stage_);
  if (stage != nullptr && stage->Exists(kMark)) return RemoveStage(*stage);
  const Opened current = parent_->OpenFolder(name_);
  if (current != nullptr && current->Exists(kMark)) return Finish(*current);
  // An empty stage is from a crash before the mark was written. Any other isn't ours.
  if (stage != nullptr && stage->Names() == std::vector<fs::path>() && Step()) {
    parent_->RemoveEmptyFolder(stage_);
  }
  return true;
}

bool Replacement::Replace(const std::vector<NewFile>& files) {
  if (!Recover()) return false;
  if (parent_->Exists(stage_)) return Fail(stage_, "is in the way");
  const Opened stage = MakeStage();
  if (stage == nullptr) return false;
  if (!FillStage(*stage, files)) {
    const std::string why = reason_;
    if (Step() && stage->Exists(kMark)) RemoveStage(*stage);
    reason_ = why;
    return false;
  }
  if (!PutInPlace()) return false;
  parent_->Flush();
  // Check that the folder now under the name is the one that was filled.
  const Opened current = parent_->OpenFolder(name_);
  if (current == nullptr || !current->IsSame(*stage)) {
    parent_->Exchange(stage_, name_);
    return Fail(stage_, "was replaced by something else meanwhile");
  }
  return Finish(*current);
}

}  // namespace

bool IsRegistryFile(const fs::path& name) { return EqualIgnoringCase(HostName(name.extension()), u".reg"); }

bool RecoverRegistryFolder(const fs::path& folder, std::string& reason) {
  return Replacement(folder, reason, {}).Recover();
}

bool ReplaceRegistryFiles(const fs::path& folder, const std::vector<NewFile>& files, std::string& reason,
                          const StepHook& step) {
  return Replacement(folder, reason, step).Replace(files);
}

}  // namespace tavix::machine
