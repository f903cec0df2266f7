#include "clean/clean_judge.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>

#include "forms/main_form.h"
#include "frame/settings.h"
#include "platform/machine/services/journal.h"
#include "text/utf8.h"

namespace tavix::lost {

using namespace mdlPubSelf;

namespace {

bool IsLostFile(const DiskItem& item) { return item.kind == EntryKind::File && !item.content.empty(); }

// Whether the item is in its old place, or where the method puts it: under its name, or the name with a
// suffix.
bool IsSafe(const Text& key, const Text& place, const CleanOracle& oracle) {
  if (place == key) return true;
  // The function may spell the name in another letter case.
  const Text name = ToUpper(NameOf(key));
  const Text newName = ToUpper(NameOf(place));
  if (CleaningMethod == u"R") return place.starts_with(u"recycle\\") && newName.ends_with(name);
  return CleaningMethod == u"S" && oracle.BackupFolder() && ParentOf(place) == *oracle.BackupFolder() &&
         (newName == name || newName == Concat(name, u".1"));
}

}  // namespace

Text CleanJudge::KeyAfterSwap(const Text& key) const {
  if (!swapped || !(key + u"\\").starts_with(*swapped + u"\\")) return key;
  return Concat(ParentOf(*swapped), u"\\", kMovedAside, TextView(key).substr(swapped->size()));
}

void CleanJudge::AddWhatMayGo(const std::vector<Row>& rows, CleanOracle oracle) {
  for (const Row& row : rows) {
    if (row.fields.checked) oracle.AddWhatMayGo(row);
  }
  oracle.Clean(rows);
  mayGo.insert(oracle.MayGo().begin(), oracle.MayGo().end());
}

void CleanJudge::CheckNothingIsLost(const std::vector<Row>& rows, const CleanOracle& oracle,
                                    const DiskPicture& after) const {
  const bool binIsEmptied =
      std::ranges::any_of(rows, [](const Row& row) { return row.fields.checked && row.fields.tag == u"RE"; });
  std::unordered_map<std::string, std::vector<Text>> places;
  for (const auto& [key, item] : after.items) {
    if (IsLostFile(item)) places[item.content].push_back(key);
  }
  std::set<std::string> known;
  for (const auto& [key, item] : before.items) {
    const DiskItem* now = after.Find(KeyAfterSwap(key));
    const bool inBin = key.starts_with(u"recycle\\");
    const bool mayLeave = mayGo.contains(key) || mayGo.contains(KeyAfterSwap(key)) || (inBin && binIsEmptied);
    if (!mayLeave) {
      EXPECT_TRUE(now != nullptr && *now == item) << "lost or changed: " << Narrow(key);
    }
    if (!IsLostFile(item)) continue;
    known.insert(item.content);
    const std::vector<Text>& found = places[item.content];
    // If a copy can't be removed after a failed move, it stays as well as its source.
    if (trouble != Trouble::Kill && !namedFaults) {
      EXPECT_LE(found.size(), 1U) << "twice: " << Narrow(key);
    }
    if (!mayLeave || (found.empty() && CleaningMethod == u"D")) continue;
    if (found.empty()) {
      EXPECT_TRUE(binIsEmptied && (inBin || CleaningMethod == u"R")) << "lost: " << Narrow(key);
    }
    for (const Text& place : found)
      EXPECT_TRUE(place == KeyAfterSwap(key) || IsSafe(key, place, oracle))
          << Narrow(key) << " is at " << Narrow(place);
  }
  for (const auto& [content, keys] : places) {
    if (known.contains(content)) continue;
    const bool half = trouble == Trouble::Kill && NameOf(keys.front()).starts_with(u".tavix:");
    EXPECT_TRUE(half) << "half a file: " << Narrow(keys.front());
  }
}

void CleanJudge::CheckRows(const std::vector<Row>& rows, const DiskPicture& after) const {
  std::vector<RowFields> left = ResultRows();
  size_t at = 0;
  for (const Row& row : rows) {
    const bool stays = at < left.size() && left[at] == row.fields;
    if (stays) ++at;
    EXPECT_TRUE(stays || row.fields.checked) << "an unticked row has gone: " << Narrow(row.fields.name);
  }
  EXPECT_EQ(at, left.size()) << "rows have changed";
  // After a swap the paths of the rows lead elsewhere.
  if (!swapped) CheckRowsLeft(rows, after);
  // Without rows the clean returns at once.
  if (rows.empty()) return;
  const size_t gone = rows.size() - left.size();
  const Text sum = frmPubMain.lblSum.Caption;
  EXPECT_TRUE(sum.starts_with(
      Concat(u"Sum: ", ToText(static_cast<long long>(gone)), gone < 2 ? u" item, " : u" items, ")))
      << Narrow(sum) << ", but " << gone;
}

// The item of a remaining row may have been removed by another row that reaches it without a link. If calls
// fail, its removal may not have been noticed.
void CleanJudge::CheckRowsLeft(const std::vector<Row>& rows, const DiskPicture& after) const {
  const CleanOracle oracle(before, {}, settings);
  std::map<Text, int> targets;
  for (const Row& row : rows) {
    Keys keys;
    if (const auto key = row.fields.checked ? oracle.Target(row) : std::nullopt) before.AddTree(keys, *key);
    for (const Text& key : keys) ++targets[key];
  }
  const std::vector<RowFields> left = ResultRows();
  size_t at = 0;
  for (const Row& row : rows) {
    if (at == left.size() || !(left[at] == row.fields)) continue;
    ++at;
    const auto key = row.fields.checked ? oracle.Target(row) : std::nullopt;
    if (!key || targets[*key] > 1 || trouble == Trouble::FailingCall) continue;
    EXPECT_TRUE(after.Find(KeyAfterSwap(*key)) != nullptr)
        << "a ticked row is left of what has gone: " << Narrow(*key);
  }
}

bool CleanJudge::CanTellWhatStays(const std::vector<Row>& rows, const std::vector<Text>& named) const {
  const auto isFree = [this](TextView path) { return !BlockingLink(before, path); };
  return std::ranges::all_of(
             rows,
             [&](const Row& row) { return isFree(Concat(row.fields.location, u"\\", row.fields.name)); }) &&
         isFree(BackupFolder) && isFree(u"C:\\TVXBak") && std::ranges::all_of(named, isFree);
}

void CleanJudge::CheckExactly(const std::vector<Row>& rows, const CleanOracle& oracle,
                              const DiskPicture& after, const machine::Journal& journal) const {
  EXPECT_EQ(Difference(oracle.Disk(), after), "");
  std::vector<RowFields> left;
  for (const size_t row : oracle.RowsLeft()) left.push_back(rows[row].fields);
  EXPECT_EQ(ResultRows(), left);
  const Text sum = frmPubMain.lblSum.Caption;
  if (!rows.empty()) {
    EXPECT_EQ(Narrow(sum), Narrow(oracle.SumLabel()));
  }
  std::vector<std::pair<Text, Text>> calls;
  for (const machine::JournalEntry& entry : journal.Entries()) {
    Text argument;
    for (const TextView name : {u"path", u"target", u"log"}) argument += entry.Get(name);
    calls.emplace_back(entry.op, argument);
  }
  EXPECT_EQ(calls, oracle.Calls());
}

}  // namespace tavix::lost
