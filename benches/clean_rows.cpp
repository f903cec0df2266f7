// Measures cleaning: rows in memory, and files of a machine folder beside `xargs rm -f` over the same names.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "clean/clean_driver.h"
#include "doubles/memory_host.h"
#include "forms/main_form.h"
#include "frame/settings.h"
#include "frame/start_up.h"
#include "platform/machine/services/machine_host.h"
#include "scan/action_string.h"
#include "scan/result_items.h"
#include "window/wiring.h"

namespace tavix {
namespace {

using namespace mdlPubSelf;
namespace fs = std::filesystem;

// Every second row is ticked. The rows name a registry value that doesn't exist.
void CleanEverySecondRow(benchmark::State& state) {
  machine::MemoryHost host;
  WireForms();
  Form_Load();
  const int rows = static_cast<int>(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    ClearResults();
    const Text action = RegistryValueAction(platform::Hive::CurrentUser, u"k", u"v");
    for (int i = 0; i < rows; ++i) {
      AddResultItem(u"t", u"n", kNoSize, u"Registry", kNoSizeKey, action, i % 2 == 0);
    }
    state.ResumeTiming();
    sbtClean_Click();
  }
  state.SetItemsProcessed(state.iterations() * rows);
  ClearResults();
  Form_Unload();
}
BENCHMARK(CleanEverySecondRow)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

constexpr int kFiles = 50'000;

fs::path MakeMachineFolder() {
  const fs::path base = fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
  const fs::path root = base / "tavix-clean-bench";
  fs::remove_all(root);
  fs::create_directories(root / "drives" / "C" / "Desk");
  for (int i = 0; i < kFiles; ++i) {
    std::ofstream(root / "drives" / "C" / "Desk" / ("file" + std::to_string(i) + ".tmp")) << "x";
  }
  return root;
}

void CleanFilesOfAMachineFolder(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    const fs::path root = MakeMachineFolder();
    std::string error;
    const auto host = machine::MachineHost::Open(root, std::nullopt, error);
    if (host == nullptr) {
      state.SkipWithError(error.c_str());
      break;
    }
    WireForms();
    Form_Load();
    CleaningMethod = Text(u"D");
    ClearResults();
    for (int i = 0; i < kFiles; ++i) {
      AddResultItem(u"t", Concat(u"file", ToText(i), u".tmp"), u"1.", u"C:\\Desk", u"00000001.0",
                    action::kFile);
    }
    state.ResumeTiming();
    sbtClean_Click();
    state.PauseTiming();
    if (ResultCount() != 0) state.SkipWithError("files were left");
    Form_Unload();
    fs::remove_all(root);
    state.ResumeTiming();
  }
}
BENCHMARK(CleanFilesOfAMachineFolder)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

void XargsRm(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    const fs::path root = MakeMachineFolder();
    const fs::path list = root / "list";
    {
      std::ofstream names(list);
      for (int i = 0; i < kFiles; ++i) {
        names << (root / "drives" / "C" / "Desk" / ("file" + std::to_string(i) + ".tmp")).string() << '\n';
      }
    }
    state.ResumeTiming();
    if (std::system(("xargs rm -f < " + list.string()).c_str()) != 0) state.SkipWithError("xargs failed");
    state.PauseTiming();
    fs::remove_all(root);
    state.ResumeTiming();
  }
}
BENCHMARK(XargsRm)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

}  // namespace
}  // namespace tavix
