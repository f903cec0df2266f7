#include "clean/lost_trial.h"

#include <algorithm>
#include <cstdlib>
#include <unordered_map>

#include "catalogue/functions.h"
#include "console/choices.h"
#include "forms/main_form.h"
#include "frame/settings.h"
#include "frame/start_up.h"
#include "platform/machine/services/machine_file_system.h"
#include "platform/machine/services/machine_shell.h"
#include "scan/result_items.h"
#include "text/utf8.h"
#include "window/wiring.h"

namespace tavix::lost {
namespace {

using namespace mdlPubSelf;
using machine::FailingStore;

constexpr platform::DateTime kDay = int64_t{24} * 3600 * 1000;
constexpr platform::DateTime kNow = 20'779 * kDay;  // 2026-11-22

Text KeyOfData() { return u"C:\\MORVDataPath\\TVX"; }

// The path without a backslash at its end.
Text Plain(TextView path) {
  while (path.size() > 2 && path.ends_with(u'\\')) path.remove_suffix(1);
  return Text(path);
}

using Keys = std::set<Text, LessIgnoringCase>;
constexpr TextView kMovedAside = u"moved aside";

bool IsLostFile(const DiskItem& item) { return item.kind == EntryKind::File && !item.content.empty(); }

class Trial {
 public:
  Trial(uint64_t seed, TestDisk& testDisk, Trouble trouble, const KillableClean& kill, Tally& tally)
      : testDisk_(testDisk),
        trouble_(trouble),
        kill_(kill),
        tally_(tally),
        dice_(seed),
        store_(testDisk.Store()),
        files_(store_, host_.facts),
        shell_(store_, files_, host_.facts, host_.journal),
        machine_(dice_, testDisk.OnHost()) {
    platform::fileSystem = &files_;
    platform::shell = &shell_;
    host_.clock.Set(kNow);
  }
  ~Trial() { ResetProcess(); }
  Trial(const Trial&) = delete;
  Trial& operator=(const Trial&) = delete;

  void Run() {
    Make();
    if (!Start()) return;
    Scan();
  }

 private:
  DiskPicture Picture() {
    DiskPicture picture = testDisk_.Picture();
    picture.notReady = machine_.disk.notReady;
    return picture;
  }

  void Put(const Text& key, const DiskItem& item) {
    constexpr int kAges[] = {0, 1, 29, 31, 400, 20'000};
    testDisk_.Put(key, item, kNow - dice_.Of(kAges) * kDay);
  }

  void Make() {
    for (const auto& [section, key, value] : machine_.facts) host_.facts.Set(section, key, value);
    for (const auto& [key, item] : machine_.disk.items) Put(key, item);
    for (int i = 0; i < 3; ++i) {
      if (const auto key = machine_.Any(EntryKind::File))
        files_.SetAttributes(PathOfKey(*key), platform::kReadOnly);
    }
    machine_.FillRegistry(host_.registry);
    made_ = Picture();
    EXPECT_EQ(Difference(machine_.disk, made_), "");
  }

  // False if the program ends at once because a link is in the place of its data.
  bool Start() {
    WireForms();
    if (!Form_Load()) {
      EXPECT_EQ(Difference(made_, Picture()), "") << "the program has no data of its own here";
      return false;
    }
    frmPubMain.lblProgMO.Width = 3000;
    const DiskPicture started = Picture();
    for (const auto& [key, item] : machine_.disk.items) {
      const DiskItem* found = started.Find(key);
      const bool kept = found != nullptr && *found == item;
      EXPECT_TRUE(kept || IsProgramsOwn(made_, key)) << "the start lost " << Narrow(key);
    }
    constexpr TextView kMethods[] = {u"D", u"R", u"S"};
    CleaningMethod = dice_.Of(kMethods);
    BackupFolder = machine_.backupFolder;
    if (dice_.Percent(60)) ExceptFolders.clear();
    if (dice_.Percent(50)) LastAccessedFile = dice_.Percent(50) ? u"0" : u"30";
    if (dice_.Percent(50)) LastAccessedPrefetch = u"0";
    store_.otherVolume = dice_.Percent(trouble_ == Trouble::FailingCall ? 50 : 20);
    return true;
  }

  // Whether an item lies in the scratch folder or is a file that each start or end of the program rewrites.
  static bool IsProgramsOwn(const DiskPicture& disk, TextView key) {
    const auto data = disk.Resolve(KeyOfData(), true);
    return data && (key.starts_with(Concat(*data, u"\\DupeFiles")) || key == Concat(*data, u"\\tvx.dll"));
  }

  void Scan() {
    const DiskPicture before = Picture();
    const bool oneClick = trouble_ != Trouble::Kill && dice_.Percent(20);
    if (oneClick) {
      ChooseOneClickFunctions();
      Event<>& press = frmPubMain.sbtClean.Click;
      const Event<> clean = press;
      press = [&] { ReviewAndClean(before, [&clean] { clean(); }); };
      frmPubMain.picOne.MouseUp(kLeftButton);
      press = clean;
    } else {
      constexpr TextView kPages[] = {u"privacy",  u"system",   u"system",  u"registry",
                                     u"advanced", u"advanced", u"advanced"};
      OpenPage(dice_.Of(kPages));
      frmPubMain.sbtScan.Click();
      ReviewAndClean(before, [] { frmPubMain.sbtClean.Click(); });
    }
    EXPECT_TRUE(reviewed_) << "the clean was never reached";
  }

  static std::vector<Text> Functions(TextView page) {
    std::vector<Text> names;
    const auto all = page == u"privacy"    ? kPrivacyFunctions
                     : page == u"system"   ? kSystemFunctions
                     : page == u"registry" ? kRegistryFunctions
                                           : kAdvancedFunctions;
    for (const CleaningFunction& function : all) {
      if (function.Key != u"ie" && function.Key != u"we") {
        names.push_back(page == u"privacy" ? Text(function.Key) : CaptionOf(function));
      }
    }
    return names;
  }

  void ChooseOneClickFunctions() {
    page_ = u"one-click";
    if (dice_.Percent(40)) return;
    mdlPubSelf::Functions = u"|";
    for (const TextView page : {u"privacy", u"system", u"registry"}) {
      for (const Text& function : Functions(page)) {
        if (dice_.Percent(60)) mdlPubSelf::Functions += Concat(function, u"|");
      }
    }
  }

  void OpenPage(TextView page) {
    page_ = page;
    console::Options options;
    options.page = page;
    if (dice_.Percent(60)) {
      for (const Text& function : Functions(page)) {
        if (dice_.Percent(50)) options.functions.push_back(function);
      }
    }
    if (page == u"advanced" && dice_.Percent(70)) {
      for (size_t i = dice_.Below(4); i < 4; ++i) {
        const auto folder = machine_.Any(dice_.Percent(90) ? EntryKind::Folder : EntryKind::Link);
        options.scopes.push_back(folder && dice_.Percent(80) ? PathOfKey(*folder)
                                                             : Text(dice_.Percent(50) ? u"C:" : u"D:"));
      }
    }
    // If a scope isn't in the tree, this fails, but the scopes before it stay ticked.
    std::string error;
    console::OpenAndTick(options, error);
  }

  static std::vector<Row> ReadRows() {
    std::vector<Row> rows;
    for (const RowFields& fields : ResultRows()) rows.push_back({fields, {}});
    for (size_t i = 0; i < rows.size(); ++i) {
      rows[i].start = WalkStart(frmPubMain.lsvResult.Row(static_cast<int>(i) + 1));
    }
    return rows;
  }

  void ReviewAndClean(const DiskPicture& beforeScan, const std::function<void()>& clean) {
    reviewed_ = true;
    CheckScan(beforeScan);
    if (dice_.Percent(30)) frmPubMain.lsvResult.ColumnClick(static_cast<int>(1 + dice_.Below(4)));
    TickRows();
    const std::vector<Row> rows = ReadRows();
    CheckStarts(rows);
    ChangeDisk(rows);
    before_ = Picture();
    const RegistryPicture registryBefore = PictureOf(host_.registry);
    CleanOracle oracle(before_, registryBefore, CurrentSettings());
    AddWhatMayGo(rows, oracle, before_);
    host_.journal.Clear();

    if (trouble_ == Trouble::Kill) {
      tally_.killed += kill_(store_, dice_, clean) ? 1 : 0;
      CheckNothingIsLost(rows, oracle, Picture());
      ++tally_.machines;
      return;
    }
    if (trouble_ == Trouble::FailingCall) LetCallsFail(rows);
    if (trouble_ == Trouble::FilledFolders) FillBeforeRemovals(rows);
    if (trouble_ == Trouble::SwappedFolder) SwapAtACall(rows);
    clean();
    store_.failing = 0;
    store_.onCall = {};
    store_.onRemovalOfFolder = {};
    if (machine::Faults* faults = testDisk_.NamedFaults()) faults->Clear();
    shell_.faults.Clear();

    const DiskPicture after = Picture();
    CheckNothingIsLost(rows, oracle, after);
    CheckRows(rows, after);
    oracle.Clean(rows);
    if (trouble_ == Trouble::None && CanTellWhatStays(rows)) CheckExactly(rows, oracle, after);
    CheckRegistry(oracle, registryBefore);
    Count(after);
    CheckEnd(after);
  }

  void CheckScan(const DiskPicture& before) {
    DiskPicture expected = before;
    DiskPicture found = Picture();
    ForgetScratch(expected);
    ForgetScratch(found);
    EXPECT_EQ(Difference(expected, found), "") << "the scan changed the disk";
  }

  static void ForgetScratch(DiskPicture& disk) {
    if (const auto data = disk.Resolve(KeyOfData(), true)) {
      disk.Remove(Concat(*data, u"\\DupeFiles"));
      disk.Remove(Concat(*data, u"\\tvx.dll"));
    }
  }

  void TickRows() {
    const size_t mode = dice_.Below(3);
    for (int row = 1; mode > 0 && row <= ResultCount(); ++row) {
      frmPubMain.lsvResult.Row(row).SetChecked(mode == 1 || dice_.Percent(60));
    }
  }

  // Checks that every walk began at a folder of a function, or at a ticked node.
  void CheckStarts(const std::vector<Row>& rows) const {
    std::set<Text, LessIgnoringCase> starts;
    const auto add = [&starts](const Text& folder, TextView below) {
      starts.insert(Concat(Plain(folder), below));
    };
    if (page_ == u"advanced") {
      for (int i = 1; i <= frmPubMain.trvRes.NodeCount(); ++i) {
        if (frmPubMain.trvRes.NodeAt(i)->Checked) add(frmPubMain.trvRes.NodeAt(i)->Key, u"");
      }
    } else {
      const Text windows = machine_.Fact(u"Environment", u"WinDir");
      for (const TextView below : {u"", u"\\SoftwareDistribution\\Download", u"\\Prefetch"})
        add(windows, below);
      for (const TextView number : {u"32", u"33", u"34"}) add(machine_.Fact(u"Folders", number), u"");
      for (const TextView name : {u"Recent", u"0", u"1", u"10", u"11"})
        add(machine_.Fact(u"Special Folders", name), u"");
      add(machine_.Fact(u"Special Folders", u"5"), u"\\Microsoft\\Internet Explorer\\Quick Launch");
      for (const TextView name : {u"User", u"System"}) add(machine_.Fact(u"Temporary Folders", name), u"");
    }
    for (const Row& row : rows) {
      if (row.fields.tag != u"F" && row.fields.tag != u"P") continue;
      const Text start = Plain(row.start);
      const Text name = ToLower(NameOf(start));
      const bool named = name.starts_with(u"found.") || name.starts_with(u"$ntuninstall");
      // The row may be the folder itself where the walk began.
      const bool itself = row.fields.tag == u"P" && start == Plain(row.fields.location) &&
                          starts.contains(Concat(start, u"\\", row.fields.name));
      EXPECT_TRUE(starts.contains(start) || itself || (page_ != u"advanced" && named))
          << Narrow(row.fields.location) << " was found from " << Narrow(row.start) << " on page "
          << Narrow(page_);
    }
  }

  CleanSettings CurrentSettings() const {
    CleanSettings settings;
    settings.method = CleaningMethod;
    settings.backupFolder = machine_.backupFolder;
    settings.oneVolume = testDisk_.OnHost();
    settings.everyFolderIsAVolume = store_.otherVolume;
    for (const auto& [section, key, value] : machine_.facts) {
      if (section == u"Folders" && key == u"9966") settings.systemFolder = value;
      if (section.ends_with(u"Folders") || key == u"WinDir") settings.namedFolders.push_back(value);
    }
    return settings;
  }

  // Changes the disk as other programs may do between scan and clean.
  void ChangeDisk(const std::vector<Row>& rows) {
    if (rows.empty() || dice_.Percent(30)) return;
    for (size_t i = dice_.Below(4); i < 4; ++i) {
      const DiskPicture now = Picture();
      const RowFields& row = dice_.Of(rows).fields;
      const Text path = Concat(row.location, u"\\", row.name);
      const auto folder = now.Resolve(row.location, true);
      const auto item = now.Resolve(path, false);
      if (!folder || !item || IsRoot(*item) || now.Find(*folder)->kind != EntryKind::Folder) continue;
      const auto data = now.Resolve(KeyOfData(), true);
      if (data && (item->starts_with(*data) || data->starts_with(*item))) continue;
      const auto elsewhere = machine_.Any(EntryKind::Folder);
      switch (dice_.Below(6)) {
        case 0:  // a new file in the folder
          if (now.Find(*item)->kind == EntryKind::Folder) Put(Concat(*item, u"\\new.doc"), NewFile());
          break;
        case 1:  // a link in the place of its parent folder
          if (IsRoot(*folder) || !elsewhere || (data && data->starts_with(*folder))) break;
          testDisk_.Remove(*folder);
          Put(*folder, {EntryKind::Link, {}, Concat(u"\\", *elsewhere)});
          break;
        case 2:  // a link in its place
          testDisk_.Remove(*item);
          Put(*item, {EntryKind::Link, {}, Concat(u"\\", elsewhere.value_or(*folder))});
          break;
        case 3:
          testDisk_.Remove(*item);
          break;
        case 4:  // an item of the other kind in its place: a file with content, or a folder with some
          if (now.Find(*item)->kind == EntryKind::File) {
            testDisk_.Remove(*item);
            Put(*item, {});
            Put(Concat(*item, u"\\new.doc"), NewFile());
          } else {
            testDisk_.Remove(*item);
            Put(*item, NewFile());
          }
          break;
        default:  // a new folder in the folder
          if (now.Find(*item)->kind != EntryKind::Folder) break;
          testDisk_.Remove(Concat(*item, u"\\new"));
          Put(Concat(*item, u"\\new"), {});
          Put(Concat(*item, u"\\new\\new.doc"), NewFile());
      }
    }
  }

  DiskItem NewFile() { return {EntryKind::File, machine_.NewContent()}; }

  void LetCallsFail(const std::vector<Row>& rows) {
    const int number = 1 + static_cast<int>(dice_.Below(size_t{1} << dice_.Below(12)));
    store_.failing = store_.calls + number;
    if (rows.empty() || !dice_.Percent(60)) return;
    namedFaults_ = true;
    constexpr TextView kCalls[] = {u"Remove", u"RemoveTree", u"Move", u"Copy", u"Read", u"MakeFolder"};
    if (testDisk_.NamedFaults() != nullptr && dice_.Percent(50)) {
      constexpr TextView kAlways[] = {u"Copy", u"Copy", u"Move", u"Remove"};
      return testDisk_.NamedFaults()->Fail(dice_.Of(kAlways));
    }
    // Fail calls of one kind, or of many kinds.
    const bool one = dice_.Percent(50);
    const TextView kind = dice_.Of(kCalls);
    for (int i = 0; i < 8 && testDisk_.NamedFaults() != nullptr; ++i) {
      testDisk_.NamedFaults()->Fail(one ? kind : dice_.Of(kCalls), dice_.Of(rows).fields.name);
    }
    if (dice_.Percent(30)) shell_.faults.Fail(u"DeleteToRecycleBin", dice_.Of(rows).fields.name);
  }

  // Fills some folders right before they are removed. The new files must not be lost either.
  void FillBeforeRemovals(const std::vector<Row>& rows) {
    const CleanOracle oracle(before_, {}, CurrentSettings());
    for (const Row& row : rows) {
      const auto key = row.fields.checked && row.fields.tag == u"P" ? oracle.Target(row) : std::nullopt;
      if (key && before_.Find(*key)->kind == EntryKind::Folder && dice_.Percent(50)) filled_.insert(*key);
    }
    store_.onRemovalOfFolder = [this](TextView name) {
      for (const Text& key : filled_) {
        const Text file = Concat(key, u"\\late.doc");
        const bool there = testDisk_.Picture().Find(key) != nullptr;
        if (!EqualIgnoringCase(NameOf(key), name) || !there || before_.Find(file) != nullptr) continue;
        before_.items[file] = NewFile();
        Put(file, before_.items[file]);
      }
    };
  }

  // Replaces a folder by a link at a random call. The folder itself is renamed and keeps its content.
  void SwapAtACall(const std::vector<Row>& rows) {
    if (rows.empty()) return;
    const auto folder = before_.Resolve(dice_.Of(rows).fields.location, true);
    const auto elsewhere = machine_.Any(EntryKind::Folder);
    if (!folder || IsRoot(*folder) || !elsewhere) return;
    for (const TextView kept :
         {TextView(u"C:\\MORVDataPath\\TVX"), TextView(u"C:\\TVXBak"), TextView(BackupFolder)}) {
      const auto key = before_.Resolve(kept, true);
      if (key && (*key + u"\\").starts_with(*folder + u"\\")) return;
    }
    const int number = store_.calls + 1 + static_cast<int>(dice_.Below(size_t{1} << dice_.Below(12)));
    store_.onCall = [this, number, &rows, from = *folder, to = *elsewhere](int call) {
      const DiskItem* now = call == number ? testDisk_.Picture().Find(from) : nullptr;
      if (now == nullptr || now->kind != EntryKind::Folder) return;
      swapped_ = from;
      testDisk_.Rename(from, kMovedAside);
      Put(from, {EntryKind::Link, {}, Concat(u"\\", to)});
      const DiskPicture picture = Picture();
      AddWhatMayGo(rows, CleanOracle(picture, {}, CurrentSettings()), picture);
    };
  }

  // The key after the clean of an item that had `key` before it, if the clean doesn't remove it.
  Text KeyAfterSwap(const Text& key) const {
    if (!swapped_ || !(key + u"\\").starts_with(*swapped_ + u"\\")) return key;
    return Concat(ParentOf(*swapped_), u"\\", kMovedAside, TextView(key).substr(swapped_->size()));
  }

  void AddWhatMayGo(const std::vector<Row>& rows, const CleanOracle& oracle, const DiskPicture& disk) {
    for (const Row& row : rows) {
      if (!row.fields.checked) continue;
      if (const auto key = oracle.Target(row)) AddTree(mayGo_, disk, *key);
      if (const auto key = oracle.LinkTarget(row)) mayGo_.insert(*key);
    }
  }

  // Whatever failed: each content is in its old place, in the bin or in the backup folder, and items that no
  // ticked row may remove are unchanged.
  void CheckNothingIsLost(const std::vector<Row>& rows, const CleanOracle& oracle, const DiskPicture& after) {
    const bool binIsEmptied = std::ranges::any_of(
        rows, [](const Row& row) { return row.fields.checked && row.fields.tag == u"RE"; });
    std::unordered_map<std::string, std::vector<Text>> places;
    for (const auto& [key, item] : after.items) {
      if (IsLostFile(item)) places[item.content].push_back(key);
    }
    std::set<std::string> known;
    for (const auto& [key, item] : before_.items) {
      const DiskItem* now = after.Find(KeyAfterSwap(key));
      const bool inBin = key.starts_with(u"recycle\\");
      const bool mayLeave =
          mayGo_.contains(key) || mayGo_.contains(KeyAfterSwap(key)) || (inBin && binIsEmptied);
      if (!mayLeave) {
        EXPECT_TRUE(now != nullptr && *now == item) << "lost or changed: " << Narrow(key);
      }
      if (!IsLostFile(item)) continue;
      known.insert(item.content);
      const std::vector<Text>& found = places[item.content];
      // If a copy can't be removed after a failed move, it stays as well as its source.
      if (trouble_ != Trouble::Kill && !namedFaults_) {
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
      const bool half = trouble_ == Trouble::Kill && NameOf(keys.front()).starts_with(u".tavix:");
      EXPECT_TRUE(half) << "half a file: " << Narrow(keys.front());
    }
  }

  static void AddTree(Keys& keys, const DiskPicture& disk, const Text& key) {
    keys.insert(key);
    for (const Text& child : disk.Children(key)) AddTree(keys, disk, child);
  }

  // Whether the item is in its old place, or where the method puts it: under its name, or the name with a
  // suffix.
  static bool IsSafe(const Text& key, const Text& place, const CleanOracle& oracle) {
    if (place == key) return true;
    // The function may spell the name in another letter case.
    const Text name = ToUpper(NameOf(key));
    const Text newName = ToUpper(NameOf(place));
    if (CleaningMethod == u"R") return place.starts_with(u"recycle\\") && newName.ends_with(name);
    return CleaningMethod == u"S" && oracle.BackupFolder() && ParentOf(place) == *oracle.BackupFolder() &&
           (newName == name || newName == Concat(name, u".1"));
  }

  // Checks that each remaining row was unticked or that its item still exists, and that the label counts the
  // rest.
  void CheckRows(const std::vector<Row>& rows, const DiskPicture& after) const {
    std::vector<RowFields> left = ResultRows();
    size_t at = 0;
    for (const Row& row : rows) {
      const bool stays = at < left.size() && left[at] == row.fields;
      if (stays) ++at;
      EXPECT_TRUE(stays || row.fields.checked) << "an unticked row has gone: " << Narrow(row.fields.name);
    }
    EXPECT_EQ(at, left.size()) << "rows have changed";
    // After a swap the paths of the rows lead elsewhere.
    if (!swapped_) CheckRowsLeft(rows, after);
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
  void CheckRowsLeft(const std::vector<Row>& rows, const DiskPicture& after) const {
    const CleanOracle oracle(before_, {}, CurrentSettings());
    std::map<Text, int> targets;
    for (const Row& row : rows) {
      Keys keys;
      if (const auto key = row.fields.checked ? oracle.Target(row) : std::nullopt)
        AddTree(keys, before_, *key);
      for (const Text& key : keys) ++targets[key];
    }
    const std::vector<RowFields> left = ResultRows();
    size_t at = 0;
    for (const Row& row : rows) {
      if (at == left.size() || !(left[at] == row.fields)) continue;
      ++at;
      const auto key = row.fields.checked ? oracle.Target(row) : std::nullopt;
      if (!key || targets[*key] > 1 || trouble_ == Trouble::FailingCall) continue;
      EXPECT_TRUE(after.Find(KeyAfterSwap(*key)) != nullptr)
          << "a ticked row is left of what has gone: " << Narrow(*key);
    }
  }

  // False if a new link may lie on the path to a protected folder or to the item of a row. Other tests cover
  // that.
  bool CanTellWhatStays(const std::vector<Row>& rows) const {
    return std::ranges::none_of(rows,
                                [this](const Row& row) {
                                  return BlockingLink(before_,
                                                      Concat(row.fields.location, u"\\", row.fields.name))
                                      .has_value();
                                }) &&
           !BlockingLink(before_, BackupFolder) && !BlockingLink(before_, u"C:\\TVXBak") &&
           std::ranges::none_of(machine_.facts, [this](const auto& fact) {
             return BlockingLink(before_, std::get<2>(fact)).has_value();
           });
  }

  void CheckExactly(const std::vector<Row>& rows, const CleanOracle& oracle, const DiskPicture& after) const {
    EXPECT_EQ(Difference(oracle.Disk(), after), "");
    std::vector<RowFields> left;
    for (const size_t row : oracle.RowsLeft()) left.push_back(rows[row].fields);
    EXPECT_EQ(ResultRows(), left);
    const Text sum = frmPubMain.lblSum.Caption;
    if (!rows.empty()) {
      EXPECT_EQ(Narrow(sum), Narrow(oracle.SumLabel()));
    }
    std::vector<std::pair<Text, Text>> calls;
    for (const machine::JournalEntry& entry : host_.journal.Entries()) {
      Text argument;
      for (const TextView name : {u"path", u"target", u"log"}) argument += entry.Get(name);
      calls.emplace_back(entry.op, argument);
    }
    EXPECT_EQ(calls, oracle.Calls());
  }

  void CheckRegistry(const CleanOracle& oracle, const RegistryPicture& before) {
    const RegistryPicture after = PictureOf(host_.registry);
    EXPECT_TRUE(after == oracle.Registry()) << "the registry is another one than the ticked rows make it";
    tally_.registry += after != before ? 1 : 0;
  }

  void Count(const DiskPicture& after) {
    ++tally_.machines;
    for (const auto& [key, item] : before_.items) tally_.removed += after.Find(key) == nullptr ? 1 : 0;
    for (const RowFields& row : ResultRows()) tally_.refused += row.checked ? 1 : 0;
  }

  void CheckEnd(const DiskPicture& after) {
    Form_Unload();
    DiskPicture expected = after;
    DiskPicture found = Picture();
    ForgetScratch(expected);
    ForgetScratch(found);
    // The program makes the default backup folder if it was removed meanwhile.
    const Text backup = u"drives\\C\\TVXBak";
    if (expected.Find(backup) == nullptr && found.Find(backup) != nullptr) expected.items[backup] = {};
    EXPECT_EQ(Difference(expected, found), "") << "the program's end changed the disk";
  }

  machine::MemoryHost host_;
  TestDisk& testDisk_;
  const Trouble trouble_;
  const KillableClean& kill_;
  Tally& tally_;
  Dice dice_;
  FailingStore store_;
  machine::MachineFileSystem files_;
  machine::MemoryShell shell_;
  RandomMachine machine_;
  DiskPicture made_, before_;
  Text page_;
  Keys mayGo_;                   // items that ticked rows may remove
  Keys filled_;                  // folders to fill before they are removed
  std::optional<Text> swapped_;  // the folder that became a link during the clean
  bool namedFaults_ = false;     // whether calls fail again and again
  bool reviewed_ = false;
};

}  // namespace

void RunTrial(uint64_t seed, TestDisk& testDisk, Trouble trouble, const KillableClean& kill, Tally& tally) {
  Trial(seed, testDisk, trouble, kill, tally).Run();
}

Seeds SeedsToTry(int share) {
  const char* machines = std::getenv("TAVIX_MACHINES");
  const char* seed = std::getenv("TAVIX_SEED");
#ifdef __SANITIZE_ADDRESS__
  constexpr int kMachines = 60;
#else
  constexpr int kMachines = 300;
#endif
  Seeds seeds;
  seeds.first = seed != nullptr ? std::strtoull(seed, nullptr, 10) : 1;
  seeds.count = machines == nullptr ? kMachines * share / 100 : std::atoi(machines) * share / 100;
  if (seed != nullptr && machines == nullptr) seeds.count = 1;
  return seeds;
}

}  // namespace tavix::lost
