// Measures the Registry page over a registry larger than any real one, beside a bare pass that reads the same
// keys and tests the same files.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "doubles/memory_files.h"
#include "doubles/memory_host.h"
#include "forms/main_form.h"
#include "frame/start_up.h"
#include "platform/file_system.h"
#include "platform/machine/formats/registry_text.h"
#include "platform/machine/services/machine_host.h"
#include "scan/result_items.h"
#include "window/wiring.h"

namespace tavix {
namespace {

namespace fs = std::filesystem;
using platform::Hive;

constexpr int kFiles = 5'000;
constexpr TextView kSharedDlls = u"Software\\Microsoft\\Windows\\CurrentVersion\\SharedDlls";

Text Identifier(int kind, int number) {
  const Text digits = ToText(number);
  const Text first = Concat(ToText(kind), Text(7 - digits.size(), u'0'), digits);
  return Concat(u"{", first, u"-11D2-4C0A-9F3E-00C04F68", first.substr(4), u"}");
}

// Of ten servers six exist, two are missing and two can't be tested (their path starts with a variable).
Text Server(int number) {
  if (number % 10 >= 8) return u"%SystemRoot%\\system32\\server.dll";
  const TextView folder = number % 10 >= 6 ? u"gone" : u"system32";
  return Concat(u"C:\\WINDOWS\\", folder, u"\\server", ToText(number % kFiles), u".dll");
}

// Every fifth interface names a type library that doesn't exist.
void SeedRegistry(machine::MachineRegistry& registry, int classes) {
  const auto write = [&registry](TextView key, TextView name, TextView data) {
    registry.WriteString(Hive::LocalMachine, key, name, data);
  };
  for (int i = 0; i < classes; ++i) {
    const Text key = Concat(u"Software\\Classes\\CLSID\\", Identifier(1, i));
    write(key, u"", u"A class of some program");
    write(key + u"\\InprocServer32", u"", Server(i));
  }
  const int libraries = classes / 10;
  for (int i = 0; i < libraries; ++i) {
    write(Concat(u"Software\\Classes\\TypeLib\\", Identifier(2, i), u"\\1.0"), u"", u"A library");
  }
  for (int i = 0; i < classes / 2; ++i) {
    const Text key = Concat(u"Software\\Classes\\Interface\\", Identifier(3, i), u"\\TypeLib");
    write(key, u"", Identifier(i % 5 == 0 ? 4 : 2, i % libraries));
  }
  for (int i = 0; i < classes / 5; ++i) {
    const TextView folder = i % 2 == 0 ? u"gone" : u"system32";
    write(kSharedDlls, Concat(u"C:\\WINDOWS\\", folder, u"\\server", ToText(i), u".dll"), u"1");
  }
}

// A machine in memory.
struct Memory {
  explicit Memory(int classes) {
    SeedRegistry(host.registry, classes);
    for (int i = 0; i < kFiles; ++i) {
      host.files.AddFile(Concat(u"C:\\WINDOWS\\system32\\server", ToText(i), u".dll"));
    }
  }
  machine::MemoryHost host;
};

// A machine in a folder, so that the files are looked up on a disk.
struct Folder {
  explicit Folder(int classes) {
    fs::remove_all(root);
    fs::create_directories(root / "registry");
    const fs::path files = root / "drives" / "C" / "WINDOWS" / "system32";
    fs::create_directories(files);
    for (int i = 0; i < kFiles; ++i) std::ofstream(files / ("server" + std::to_string(i) + ".dll")) << 'x';
    std::ofstream(root / "machine.ini") << "[Drives]\nC=2\n";
    machine::MachineRegistry registry;
    SeedRegistry(registry, classes);
    std::ofstream(root / "registry" / "machine.reg")
        << machine::WriteRegistryText(registry.Store(), Hive::LocalMachine);
    std::string error;
    host = machine::MachineHost::Open(root, std::nullopt, error);
    if (host == nullptr) std::abort();
  }
  ~Folder() {
    host.reset();
    fs::remove_all(root);
  }
  fs::path root =
      (fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path()) / "tavix-page-bench";
  std::unique_ptr<machine::MachineHost> host;
};

template <class Machine>
void ScanPage(benchmark::State& state) {
  const Machine machine(static_cast<int>(state.range(0)));
  WireForms();
  mdlPubSelf::Form_Load();
  frmPubMain.picRegistry.MouseUp(kLeftButton);
  for (auto _ : state) frmPubMain.sbtScan.Click();
  state.counters["rows"] = mdlPubSelf::ResultCount();
  state.SetComplexityN(state.range(0));
  mdlPubSelf::ClearResults();
  mdlPubSelf::Form_Unload();
}

std::vector<Text> NamesOf(Hive hive, TextView key) {
  std::vector<Text> names;
  platform::registry->VisitSubKeys(hive, key, [&names](TextView name) { names.emplace_back(name); });
  return names;
}

int ReadClasses(Hive hive, TextView root) {
  int missing = 0;
  for (const Text& name : NamesOf(hive, root)) {
    const auto server =
        platform::registry->ReadValue(hive, Concat(root, u"\\", name, u"\\InprocServer32"), u"");
    if (server && !server->starts_with(u'%') && platform::fileSystem->FileExists(*server) == false) ++missing;
  }
  return missing;
}

template <class Machine>
void BarePass(benchmark::State& state) {
  const Machine machine(static_cast<int>(state.range(0)));
  int missing = 0;
  for (auto _ : state) {
    missing = 0;
    platform::registry->VisitValues(Hive::LocalMachine, kSharedDlls, [&missing](TextView name, TextView) {
      if (platform::fileSystem->FileExists(name) == false) ++missing;
    });
    missing += ReadClasses(Hive::ClassesRoot, u"CLSID");
    missing += ReadClasses(Hive::LocalMachine, u"Software\\Classes\\CLSID");
    missing += ReadClasses(Hive::CurrentUser, u"Software\\Classes\\CLSID");
    const std::vector<Text> libraries = NamesOf(Hive::ClassesRoot, u"TypeLib");
    for (const Text& name : NamesOf(Hive::ClassesRoot, u"Interface")) {
      benchmark::DoNotOptimize(
          platform::registry->ReadValue(Hive::ClassesRoot, Concat(u"Interface\\", name, u"\\TypeLib"), u""));
    }
    benchmark::DoNotOptimize(libraries.data());
  }
  state.counters["missing"] = missing;
  state.SetComplexityN(state.range(0));
}

// The numbers of classes. There are half as many interfaces and a fifth as many shared libraries.
void Sizes(benchmark::internal::Benchmark* bench) {
  bench->Arg(25'000)->Arg(50'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
}
BENCHMARK(ScanPage<Memory>)->Name("RegistryPage/Scan")->Apply(Sizes);
BENCHMARK(BarePass<Memory>)->Name("RegistryPage/BarePass")->Apply(Sizes);
BENCHMARK(ScanPage<Folder>)->Name("RegistryPage/ScanInFolder")->Apply(Sizes);
BENCHMARK(BarePass<Folder>)->Name("RegistryPage/BarePassInFolder")->Apply(Sizes);

}  // namespace
}  // namespace tavix
