#include <benchmark/benchmark.h>

#include "platform/machine/formats/registry_text.h"
#include "platform/registry_data.h"

namespace {

using namespace tavix;
using namespace tavix::machine;

// A registry like that of an installed system: classes with a few keys and values each, most values strings.
std::string MakeText(size_t megabytes) {
  Text text = u"\uFEFFWindows Registry Editor Version 5.00\r\n";
  const size_t size = megabytes * 1'000'000 / 2;
  text.reserve(size + 1000);
  for (int i = 0; text.size() < size; ++i) {
    const Text key = Concat(u"\r\n[HKEY_LOCAL_MACHINE\\Software\\Classes\\CLSID\\{0002DF01-0000-0000-C000-",
                            ToText(100'000'000'000 + i), u"}");
    text += Concat(
        key,
        u"]\r\n@=\"A class of some program\"\r\n\"AppID\"=\"{0002DF01-0000-0000-C000-000000000046}\"\r\n");
    text += Concat(key, u"\\InprocServer32]\r\n@=\"C:\\\\Program Files\\\\Some Program\\\\server.dll\"\r\n",
                   u"\"ThreadingModel\"=\"Apartment\"\r\n\"Flags\"=dword:000000ff\r\n");
    text += Concat(key, u"\\Data]\r\n\"Binary\"=hex:");
    for (int line = 0; line < 3; ++line) {
      text += u"00,01,02,03,04,05,06,07,08,09,0a,0b,0c,0d,0e,0f,10,11,12,13,14,15,16,17,18,\\\r\n  ";
    }
    text += u"00\r\n";
  }
  std::string bytes = platform::StringData(text);
  bytes.resize(bytes.size() - 2);
  return bytes;
}

void BM_ReadRegistryText(benchmark::State& state) {
  const std::string bytes = MakeText(static_cast<size_t>(state.range(0)));
  for (auto _ : state) {
    RegistryStore store;
    if (ReadRegistryText(bytes, store)) state.SkipWithError("the text can't be read");
    benchmark::DoNotOptimize(store);
    state.PauseTiming();
    store = {};
    state.ResumeTiming();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(bytes.size()));
}
BENCHMARK(BM_ReadRegistryText)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

void BM_WriteRegistryText(benchmark::State& state) {
  RegistryStore store;
  if (ReadRegistryText(MakeText(static_cast<size_t>(state.range(0))), store)) {
    state.SkipWithError("the text can't be read");
  }
  size_t size = 0;
  for (auto _ : state) size = WriteRegistryText(store, platform::Hive::LocalMachine).size();
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(size));
}
BENCHMARK(BM_WriteRegistryText)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

// One key with many subkeys and values, in scrambled order.
void BM_ReadOneWideKey(benchmark::State& state) {
  Text text = u"Windows Registry Editor Version 5.00\n[HKEY_USERS\\k]\n";
  const int64_t count = state.range(0);
  for (int64_t i = 0; i < count; ++i) text += Concat(u"\"v", ToText(i * 7919 % count), u"\"=\"\"\n");
  for (int64_t i = 0; i < count; ++i) text += Concat(u"[HKEY_USERS\\k\\", ToText(i * 7919 % count), u"]\n");
  const std::string bytes(text.begin(), text.end());
  for (auto _ : state) {
    RegistryStore store;
    if (ReadRegistryText(bytes, store)) state.SkipWithError("the text can't be read");
    benchmark::DoNotOptimize(store);
  }
  state.SetItemsProcessed(state.iterations() * count * 2);
}
BENCHMARK(BM_ReadOneWideKey)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
