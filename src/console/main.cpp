#include <cstdio>
#include <memory>
#include <string>

#include "console/export_run.h"
#include "console/lack_of_memory.h"
#include "console/live.h"
#include "console/options.h"
#include "console/session.h"
#include "console/terminal.h"
#include "console/unattended.h"
#include "forms/product.h"
#include "platform/machine/host/machine_clock.h"
#include "platform/machine/services/machine_host.h"
#include "platform/network.h"
#include "text/utf8.h"

namespace {

using namespace tavix;

constexpr int kNotWritten = 1;
constexpr int kWrongArguments = 2;
constexpr int kNoMachine = 3;

// Made before all other static objects, because these allocate too.
struct MemoryGuard {
  MemoryGuard() { console::EndForLackOfMemory(kNoMachine); }
};
#ifdef _MSC_VER
#pragma init_seg(lib)
MemoryGuard memoryGuard;
#else
constexpr int kFirst = 101;  // the lowest number that programs may use
[[gnu::init_priority(kFirst)]] MemoryGuard memoryGuard;
#endif

// Prints the reason on one line: control characters become question marks. Returns the status.
int Fail(int status, std::string reason) {
  for (char& c : reason) {
    if ((c >= 0 && c < ' ') || c == 0x7F) c = '?';
  }
  console::WriteText(stderr, "tavix-console: " + reason + "\n");
  return status;
}

int Finish(int status, const std::string& error) { return status == 0 ? 0 : Fail(status, error); }

// Whether a text holds an unpaired surrogate. The paths of hosts have none.
bool HasUnpairedSurrogate(TextView text) {
  const auto isSurrogate = [text](size_t at, char16_t kind) {
    return at < text.size() && (text[at] & 0xFC00U) == kind;
  };
  for (size_t i = 0; i < text.size(); ++i) {
    if (isSurrogate(i, 0xD800) && isSurrogate(i + 1, 0xDC00)) {
      ++i;
    } else if (isSurrogate(i, 0xD800) || isSurrogate(i, 0xDC00)) {
      return true;
    }
  }
  return false;
}

int Run(const console::Options& options, std::string& error) {
  return options.exportFolder ? console::RunExport(options, error) : console::RunSession(options, error);
}

int RunOverFolder(const console::Options& options) {
  std::string error;
  const auto path = FromUtf8(*options.machine);
  if (!path || HasUnpairedSurrogate(*path)) return Fail(kWrongArguments, "--machine is no UTF-8 text");
  const auto host = machine::MachineHost::Open(std::filesystem::path(*path), options.now, error);
  if (host == nullptr) return Fail(kNoMachine, error);
  const int status = Run(options, error);
  std::string saving;
  if (!host->Save(saving)) return Fail(kNoMachine, saving);
  return Finish(status, error);
}

int RunOverSystem(const console::Options& options) {
  if ((options.clean || options.oneClick) && !options.yes &&
      !(console::IsTerminal(stdin) && console::IsTerminal(stderr))) {
    return Fail(kWrongArguments,
                "--live cleans this computer: without a terminal to ask on, --yes is needed");
  }
  std::string error;
  const auto system = console::UseLiveSystem(error);
  if (system == nullptr) return Fail(kWrongArguments, error);
  console::UnattendedDialogs unattended;
  platform::dialogs = &unattended;
  // No update check: nobody is there to answer its offer.
  platform::network = platform::noNetwork;
  machine::StandingClock stoppedClock(options.now.value_or(0));
  if (options.now) platform::clock = &stoppedClock;
  return Finish(Run(options, error), error);
}

}  // namespace

int main(int count, char** values) {
  std::string error;
  const auto options = console::ReadOptions(console::Arguments(count, values), error);
  if (!options) return Fail(kWrongArguments, error);
  int status = 0;
  if (options->help) {
    console::WriteText(stdout, console::kHelp);
  } else if (options->version) {
    std::puts(("tavix-console " + ToUtf8(kProductVersion)).c_str());
  } else {
    status = options->live ? RunOverSystem(*options) : RunOverFolder(*options);
  }
  const bool written = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
  return written || status != 0 ? status : Fail(kNotWritten, "the output can't be written");
}
