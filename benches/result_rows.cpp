// Measures a million findings in the result list, beside std::stable_sort over a vector of the same texts.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <random>

#include "forms/main_form.h"
#include "scan/result_items.h"

namespace tavix {
namespace {

using namespace mdlPubSelf;

constexpr int kRows = 1'000'000;

// Rows as a walk over folders finds them: few types, runs of rows with the same folder, different names and
// sizes.
struct Finding {
  Text type, name, size, location, sizeKey, tag;
};

const std::vector<Finding>& Findings() {
  static const std::vector<Finding> findings = [] {
    std::mt19937 random(7);
    const TextView types[] = {u"Temporary File", u"Windows Log File", u"Recently Typed URL", u"Junk File"};
    std::vector<Finding> made;
    made.reserve(kRows);
    for (int i = 0; i < kRows; ++i) {
      const double bytes = random() % 50'000'000;
      made.push_back({Text(types[i / 1000 % 4]), Concat(u"file ", ToText(random() % 10'000'000), u".tmp"),
                      FormatSizeText(bytes),
                      Concat(u"C:\\Users\\Ann\\AppData\\Local\\Temp\\", ToText((i / 50) * 7919LL % 20011)),
                      FormatSizeKey(bytes), u"F"});
    }
    return made;
  }();
  return findings;
}

void AddAll() {
  for (const Finding& row : Findings()) {
    AddResultItem(row.type, row.name, row.size, row.location, row.sizeKey, row.tag);
  }
}

TextView Column(const Finding& row, int column) {
  const TextView columns[] = {row.type, row.name, row.size, row.location, row.sizeKey};
  return columns[column];
}

void AddRows(benchmark::State& state) {
  Findings();
  for (auto _ : state) {
    state.PauseTiming();
    ClearResults();
    state.ResumeTiming();
    AddAll();
  }
  ClearResults();
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(AddRows)->Unit(benchmark::kMillisecond)->Iterations(3);

void SumRows(benchmark::State& state) {
  ClearResults();
  AddAll();
  for (auto _ : state) benchmark::DoNotOptimize(SumResultSizes());
  ClearResults();
}
BENCHMARK(SumRows)->Unit(benchmark::kMillisecond)->Iterations(3);

void ClearRows(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    AddAll();
    state.ResumeTiming();
    ClearResults();
  }
}
BENCHMARK(ClearRows)->Unit(benchmark::kMillisecond)->Iterations(3);

void SortRowsByColumn(benchmark::State& state) {
  ListView& list = frmPubMain.lsvResult;
  for (auto _ : state) {
    state.PauseTiming();
    ClearResults();
    list.Sorted = false;
    list.SortKey = static_cast<int>(state.range(0));
    list.SortOrder = 0;
    AddAll();
    state.ResumeTiming();
    list.Sorted = true;
    benchmark::DoNotOptimize(list.Row(1).Text().size());
  }
  list.Sorted = false;
  ClearResults();
}
BENCHMARK(SortRowsByColumn)->DenseRange(0, 4)->Unit(benchmark::kMillisecond)->Iterations(3);

void StableSortOfTexts(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    std::vector<Text> texts;
    texts.reserve(kRows);
    for (const Finding& row : Findings()) texts.emplace_back(Column(row, static_cast<int>(state.range(0))));
    state.ResumeTiming();
    std::stable_sort(texts.begin(), texts.end());
    benchmark::DoNotOptimize(texts.data());
  }
}
BENCHMARK(StableSortOfTexts)->DenseRange(0, 4)->Unit(benchmark::kMillisecond)->Iterations(3);

// Bytes of memory that the rows take, beside the bytes of their texts alone.
void MemoryOfRows(benchmark::State& state) {
  size_t texts = 0;
  for (const Finding& row : Findings()) {
    texts += sizeof(char16_t) * (row.type.size() + row.name.size() + row.size.size() + row.location.size() +
                                 row.sizeKey.size() + row.tag.size());
  }
  const auto held = [] {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
  };
  for (auto _ : state) {
    ClearResults();
    const size_t before = held();
    AddAll();
    const size_t used = held() - before;
    state.counters["held/row"] = static_cast<double>(used) / kRows;
    state.counters["texts/row"] = static_cast<double>(texts) / kRows;
    state.counters["beyond/row"] = (static_cast<double>(used) - static_cast<double>(texts)) / kRows;
  }
  ClearResults();
}
BENCHMARK(MemoryOfRows)->Iterations(1);

// What Ctrl+A and Space cost the list's model.
void HighlightAllRowsAndTickThem(benchmark::State& state) {
  ClearResults();
  AddAll();
  ListView& list = frmPubMain.lsvResult;
  for (auto _ : state) {
    list.SelectRows(1, kRows, true);
    list.CheckSelected(false);
    benchmark::DoNotOptimize(list.SelectedCount());
    state.PauseTiming();
    list.SelectAll(false);
    state.ResumeTiming();
  }
  ClearResults();
}
BENCHMARK(HighlightAllRowsAndTickThem)->Unit(benchmark::kMillisecond)->Iterations(10);

// Removes every second row from the last to the first, as a clean does.
void RemoveEverySecondRow(benchmark::State& state) {
  const int rows = static_cast<int>(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    ClearResults();
    for (int i = 0; i < rows; ++i) AddResultItem(u"t", u"n", kNoSize, u"l", kNoSizeKey, u"F");
    state.ResumeTiming();
    for (int row = rows; row >= 1; row -= 2) frmPubMain.lsvResult.Remove(row);
  }
  state.SetItemsProcessed(state.iterations() * rows);
  ClearResults();
}
BENCHMARK(RemoveEverySecondRow)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavix
