#include "console/export_run.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <optional>

#include "console/choices.h"
#include "console/export_mask.h"
#include "console/progress.h"
#include "console/session.h"
#include "console/terminal.h"
#include "export/drive_writer.h"
#include "export/facts_writer.h"
#include "export/masked.h"
#include "export/recording_files.h"
#include "export/recording_registry.h"
#include "export/recording_shell.h"
#include "export/registry_writer.h"
#include "forms/main_form.h"
#include "platform/clock.h"
#include "platform/machine/host/host_directory.h"
#include "text/number.h"
#include "text/utf8.h"

namespace tavix::console {
namespace {

namespace fs = std::filesystem;
using exporting::DriveWriter;
using exporting::NameMask;
using machine::HostDirectory;

constexpr int kNotWritten = 1;
constexpr int kWrongArguments = 2;

std::atomic<bool> interrupted = false;

// While it lives, Ctrl+C sets `interrupted` instead of ending the process.
class InterruptWatch {
 public:
  InterruptWatch() : before_(std::signal(SIGINT, [](int) { interrupted = true; })) {}
  ~InterruptWatch() { std::signal(SIGINT, before_); }
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;

 private:
  void (*const before_)(int);
};

// The folder that is written. Unless it is finished, it ends as it was found: missing or empty.
class NewFolder {
 public:
  // False if there is something in it, or it can't be made.
  bool Make(const fs::path& path) {
    std::error_code failure;
    made_ = fs::create_directory(path, failure);
    path_ = fs::canonical(path, failure);
    if (failure) return false;
    opened_ = HostDirectory::Open(path_);
    const auto names = opened_ != nullptr ? opened_->Names() : std::nullopt;
    if (names && names->empty()) return true;
    opened_.reset();
    return false;
  }
  ~NewFolder() {
    if (finished_ || opened_ == nullptr) return;
    for (const fs::path& name : opened_->Names().value_or(std::vector<fs::path>())) opened_->RemoveTree(name);
    opened_.reset();
    std::error_code failure;
    if (made_) fs::remove(path_, failure);
  }
  NewFolder() = default;
  NewFolder(const NewFolder&) = delete;
  NewFolder& operator=(const NewFolder&) = delete;

  const fs::path& Path() const { return path_; }
  HostDirectory& Opened() { return *opened_; }
  void Finish() { finished_ = true; }

 private:
  fs::path path_;
  std::unique_ptr<HostDirectory> opened_;
  bool made_ = false;
  bool finished_ = false;
};

// While it lives, the program reads the machine through the recording interfaces.
class Recording {
 public:
  explicit Recording(exporting::Record& record)
      : files_(*platform::fileSystem, record),
        registry_(*platform::registry, record),
        shell_(*platform::shell, record) {
    platform::fileSystem = &files_;
    platform::registry = &registry_;
    platform::shell = &shell_;
  }
  ~Recording() {
    platform::fileSystem = plainFiles_;
    platform::registry = plainRegistry_;
    platform::shell = plainShell_;
  }
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;

 private:
  platform::FileSystem* const plainFiles_ = platform::fileSystem;
  platform::Registry* const plainRegistry_ = platform::registry;
  platform::Shell* const plainShell_ = platform::shell;
  exporting::RecordingFiles files_;
  exporting::RecordingRegistry registry_;
  exporting::RecordingShell shell_;
};

bool LiesIn(const fs::path& path, const fs::path& folder) {
  std::error_code failure;
  const fs::path real = fs::canonical(folder, failure);
  return std::mismatch(real.begin(), real.end(), path.begin(), path.end()).first == real.end();
}

std::vector<Text> ChosenFolders(const Options& options) {
  std::vector<Text> folders;
  for (const Text& scope : options.scopes) folders.push_back(scope.ends_with(u':') ? scope + u'\\' : scope);
  if (!folders.empty()) return folders;
  for (const platform::Drive& drive : platform::fileSystem->Drives()) {
    if (drive.type == platform::kFixedDrive && drive.ready) folders.push_back(Concat(drive.path, u"\\"));
  }
  return folders;
}

bool ScanAllPages(const Options& options, std::string& error) {
  const Progress progress(true);
  Options page;
  for (const TextView name : {u"privacy", u"system", u"registry", u"advanced"}) {
    page.page = name;
    if (name == u"advanced") page.scopes = options.scopes;
    if (!OpenAndTick(page, error)) return false;
    frmPubMain.sbtScan.Click();
  }
  return true;
}

bool WriteFacts(HostDirectory& folder, const exporting::Record& record, const NameMask* mask) {
  return folder.WriteNewFile("machine.ini",
                             ToUtf8(exporting::MachineFactsText(record.variables, userLocale, mask)));
}

bool WriteRegistry(HostDirectory& folder, const exporting::Record& record, const NameMask* mask) {
  if (mask == nullptr) return exporting::WriteRegistry(folder, record.registry);
  return exporting::WriteRegistry(folder, exporting::Masked(record.registry, *mask));
}

std::string TimeText(platform::DateTime time) {
  using namespace std::chrono;
  const sys_time<milliseconds> moment{milliseconds(time)};
  const auto day = floor<days>(moment);
  const year_month_day date(day);
  const hh_mm_ss<seconds> clock(floor<seconds>(moment - day));
  char text[32];
  std::snprintf(text, sizeof(text), "%04d-%02u-%02uT%02d:%02d:%02d", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return text;
}

}  // namespace

int RunExport(const Options& options, std::string& error) {
  const auto path = FromUtf8(*options.exportFolder);
  NewFolder folder;
  if (!path || !folder.Make(*path)) {
    error = "--export '" + *options.exportFolder + "' is no new or empty folder that can be written";
    return kWrongArguments;
  }
  if (options.machine && LiesIn(folder.Path(), *FromUtf8(*options.machine))) {
    error = "--export '" + *options.exportFolder + "' lies in the machine folder";
    return kWrongArguments;
  }
  const platform::DateTime now = platform::clock->Now();
  platform::FileSystem& plainFiles = *platform::fileSystem;
  exporting::Record record;
  record.trees = ChosenFolders(options);
  const auto own = platform::fileSystem->FolderIdentity(Text(folder.Path().u16string()));
  std::unique_ptr<NameMask> mask;
  const auto scan = [&](std::string& reason) {
    if (!ScanAllPages(options, reason)) return false;
    if (options.mask) mask = MakeMask(record, plainFiles);
    return true;
  };
  int status = 0;
  {
    const Recording recording(record);
    status = RunProgram(scan, error);
  }
  if (status != 0) return status;

  const InterruptWatch watch;
  Progress progress(true);
  DriveWriter writer(
      {.source = *platform::fileSystem,
       .record = record,
       .mask = mask.get(),
       .folder = folder.Path(),
       .own = own,
       .now = now,
       .maskContent =
           mask == nullptr
               ? DriveWriter::ContentMask()
               : [&mask](const std::string& content) { return exporting::MaskedContent(content, *mask); },
       .goesOn =
           [&progress](TextView at, uint64_t files) {
             progress.ShowLine([&] {
               return Concat(u"Writing file ", ToText(static_cast<long long>(files) + 1), u": ", at);
             });
             return !interrupted;
           }});
  const bool written = writer.Write() && WriteFacts(folder.Opened(), record, mask.get()) &&
                       WriteRegistry(folder.Opened(), record, mask.get());
  Progress::Clear();
  if (!written) {
    error = writer.Stopped() ? "stopped; nothing was written"
                             : "--export '" + *options.exportFolder + "' can't be written";
    return kNotWritten;
  }
  folder.Finish();
  if (writer.LeftOut() > 0) {
    WriteText(stderr,
              std::to_string(writer.LeftOut()) +
                  " files, folders or links can't stand in this folder and were left out, the first: " +
                  ToUtf8(writer.FirstLeftOut()) + "\n");
  }
  WriteText(stdout, std::to_string(writer.Files()) +
                        " files written. To scan this machine: tavix-console --machine \"" +
                        *options.exportFolder + "\" --now " + TimeText(now) + "\n");
  return 0;
}

}  // namespace tavix::console
