#include "platform/machine/registry_folder.h"

#include "platform/machine/host_files.h"
#include "text/letter_case.h"

namespace tavix::machine {
namespace {

namespace fs = std::filesystem;

constexpr const char* kMark = "~saving";

fs::path Beside(const fs::path& folder, const char* suffix) {
  fs::path path = folder;
  path += suffix;
  return path;
}

// Links are looked at, never through.
bool Exists(const fs::path& path) {
  std::error_code failure;
  return fs::exists(fs::symlink_status(path, failure));
}

bool IsFolder(const fs::path& path) {
  std::error_code failure;
  return fs::is_directory(fs::symlink_status(path, failure));
}

bool Rename(const fs::path& from, const fs::path& to) {
  std::error_code failure;
  fs::rename(from, to, failure);
  return !failure;
}

bool Remove(const fs::path& path) {
  std::error_code failure;
  fs::remove(path, failure);
  return !failure;
}

// Nothing when the folder can't be read.
std::optional<std::vector<fs::path>> NamesIn(const fs::path& folder) {
  std::vector<fs::path> names;
  std::error_code failure;
  for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
       entry.increment(failure)) {
    names.push_back(entry->path().filename());
  }
  if (failure) return std::nullopt;
  return names;
}

// One run over the folder. Each change on the disk asks the hook first.
class Replacement {
 public:
  Replacement(const fs::path& folder, std::string& reason, const StepHook& step)
      : folder_(folder),
        stage_(Beside(folder, "~saving")),
        aside_(Beside(folder, "~old")),
        reason_(reason),
        step_(step) {}

  bool Recover();
  bool Replace(const std::vector<NewFile>& files);

 private:
  bool Step() { return !step_ || step_(); }
  bool Fail(const fs::path& path, const char* what) {
    reason_ = HostNameUtf8(path.filename()) + ": " + what;
    return false;
  }
  bool RemoveStage();
  bool MakeStage(const std::vector<NewFile>& files);
  bool PutInPlace();
  bool CarryOver();
  bool Finish();

  const fs::path folder_;
  const fs::path stage_;
  const fs::path aside_;  // the old folder, for the moment between two renames
  std::string& reason_;
  const StepHook step_;
};

// The mark goes last, so that a stage half removed is still known as one.
bool Replacement::RemoveStage() {
  const std::optional<std::vector<fs::path>> names = NamesIn(stage_);
  if (!names) return Fail(stage_, "can't be read");
  std::error_code failure;
  for (const fs::path& name : *names) {
    if (!Step()) return false;
    if (name != kMark) fs::remove_all(stage_ / name, failure);
  }
  if (!Step() || !Remove(stage_ / kMark) || !Step() || !Remove(stage_)) {
    return Fail(stage_, "can't be removed");
  }
  return true;
}

bool Replacement::MakeStage(const std::vector<NewFile>& files) {
  std::error_code failure;
  if (!Step()) return false;
  if (!fs::create_directory(stage_, failure)) return Fail(stage_, "can't be made");
  if (!Step()) return false;
  if (!WriteHostFile(stage_ / kMark, {})) return Fail(stage_, "can't be written in");
  FlushHostFolder(stage_);
  for (const NewFile& file : files) {
    if (!Step()) return false;
    if (!WriteHostFile(stage_ / file.Name, file.Bytes)) return Fail(file.Name, "can't be written");
  }
  if (Exists(folder_)) {
    fs::permissions(stage_, fs::status(folder_, failure).permissions() | fs::perms::owner_all, failure);
  }
  FlushHostFolder(stage_);
  FlushHostFolder(stage_.parent_path());
  return true;
}

bool Replacement::PutInPlace() {
  if (!Step()) return false;
  if (!Exists(folder_)) return Rename(stage_, folder_) || Fail(folder_, "can't be made");
  if (ExchangeHostNames(stage_, folder_)) return true;
  if (Exists(aside_)) return Fail(aside_, "is in the way");
  if (!Rename(folder_, aside_)) return Fail(folder_, "can't be renamed");
  if (!Step()) return false;
  if (!Rename(stage_, folder_)) {
    Rename(aside_, folder_);
    return Fail(stage_, "can't be renamed");
  }
  if (!Step()) return false;
  return Rename(aside_, stage_) || Fail(aside_, "can't be renamed");
}

bool Replacement::CarryOver() {
  const std::optional<std::vector<fs::path>> names = NamesIn(stage_);
  if (!names) return Fail(stage_, "can't be read");
  for (const fs::path& name : *names) {
    if (!Step()) return false;
    const fs::path from = stage_ / name;
    if (IsRegistryFile(name) && !IsFolder(from)) {
      if (!Remove(from)) return Fail(name, "can't be removed");
      continue;
    }
    fs::path to = folder_ / name;
    while (Exists(to)) to += "~";
    if (!Rename(from, to)) return Fail(name, "can't be moved");
  }
  FlushHostFolder(folder_);
  FlushHostFolder(stage_);
  if (!Step()) return false;
  return Remove(stage_) || Fail(stage_, "can't be removed");
}

bool Replacement::Finish() {
  if (IsFolder(stage_) && !CarryOver()) return false;
  FlushHostFolder(folder_.parent_path());
  if (!Step()) return false;
  if (!Remove(folder_ / kMark)) return Fail(folder_, "can't be written in");
  FlushHostFolder(folder_);
  return true;
}

bool Replacement::Recover() {
  if (IsFolder(aside_)) {
    if (!Exists(folder_)) {
      if (!Step() || !Rename(aside_, folder_)) return Fail(aside_, "can't be renamed");
    } else if (Exists(folder_ / kMark) && !Exists(stage_)) {
      if (!Step() || !Rename(aside_, stage_)) return Fail(aside_, "can't be renamed");
    }
  }
  if (IsFolder(stage_) && Exists(stage_ / kMark)) return RemoveStage();
  if (IsFolder(folder_) && Exists(folder_ / kMark)) return Finish();
  // An empty one never came to its mark; any other is none of ours.
  std::error_code failure;
  if (IsFolder(stage_) && fs::is_empty(stage_, failure) && Step()) Remove(stage_);
  return true;
}

bool Replacement::Replace(const std::vector<NewFile>& files) {
  if (!Recover()) return false;
  if (Exists(stage_)) return Fail(stage_, "is in the way");
  if (!MakeStage(files)) {
    std::string ignored;
    if (Step() && Exists(stage_ / kMark)) Replacement(folder_, ignored, step_).RemoveStage();
    return false;
  }
  if (!PutInPlace()) return false;
  FlushHostFolder(folder_.parent_path());
  return Finish();
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
