#include "clean/lost_trial.h"

#include <algorithm>
#include <cstdlib>

#include "catalogue/functions.h"
#include "clean/clean_judge.h"
#include "console/choices.h"
#include "doubles/memory_shell.h"
#include "forms/main_form.h"
#include "frame/settings.h"
#include "frame/start_up.h"
#include "platform/hive_name.h"
#include "platform/machine/host/machine_clock.h"
#include "platform/machine/services/machine_file_system.h"
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

// Without a backslash at the end.
Text Plain(TextView path) {
  while (path.size() > 2 && path.ends_with(u'\\')) path.remove_suffix(1);
  return Text(path);
}

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
        machine_(dice_, testDisk.OnHost()),
        judge_(trouble) {
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
    judge_.before = Picture();
    judge_.settings = CurrentSettings();
    const RegistryPicture registryBefore = PictureOf(host_.registry);
    CleanOracle oracle(judge_.before, registryBefore, CurrentSettings());
    judge_.AddWhatMayGo(rows, oracle);
    host_.journal.Clear();

    if (trouble_ == Trouble::Kill) {
      tally_.killed += kill_(store_, dice_, clean) ? 1 : 0;
      judge_.CheckNothingIsLost(rows, oracle, Picture());
      ++tally_.machines;
      return;
    }
    if (trouble_ == Trouble::FailingCall) {
      LetCallsFail(rows);
      DenyRegistryKeys(registryBefore);
    }
    if (trouble_ == Trouble::FilledFolders) FillBeforeRemovals(rows);
    if (trouble_ == Trouble::SwappedFolder) SwapAtACall(rows);
    clean();
    store_.failing = 0;
    store_.onCall = {};
    store_.onRemovalOfFolder = {};
    if (machine::Faults* faults = testDisk_.NamedFaults()) faults->Clear();
    shell_.faults.Clear();

    const DiskPicture after = Picture();
    judge_.CheckNothingIsLost(rows, oracle, after);
    judge_.CheckRows(rows, after);
    oracle.Clean(rows);
    if (trouble_ == Trouble::None && judge_.CanTellWhatStays(rows, Facts())) {
      judge_.CheckExactly(rows, oracle, after, host_.journal);
      ++tally_.exact;
    }
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
    judge_.namedFaults = true;
    constexpr TextView kCalls[] = {u"Remove", u"RemoveTree", u"Move", u"Copy", u"Read", u"MakeFolder"};
    if (testDisk_.NamedFaults() != nullptr && dice_.Percent(50)) {
      constexpr TextView kAlways[] = {u"Copy", u"Copy", u"Move", u"Remove"};
      return testDisk_.NamedFaults()->Fail(dice_.Of(kAlways));
    }
    // Those of one kind of call, or of many.
    const bool one = dice_.Percent(50);
    const TextView kind = dice_.Of(kCalls);
    for (int i = 0; i < 8 && testDisk_.NamedFaults() != nullptr; ++i) {
      testDisk_.NamedFaults()->Fail(one ? kind : dice_.Of(kCalls), dice_.Of(rows).fields.name);
    }
    if (dice_.Percent(30)) shell_.faults.Fail(u"DeleteToRecycleBin", dice_.Of(rows).fields.name);
  }

  void DenyRegistryKeys(const RegistryPicture& registry) {
    if (dice_.Percent(30)) return;
    for (const auto& [path, values] : registry) {
      const size_t cut = path.find(u'\\');
      if (cut == Text::npos || !dice_.Percent(30)) continue;
      denied_.emplace_back(*platform::FindHive(TextView(path).substr(0, cut)), path.substr(cut + 1));
      host_.registry.Deny(denied_.back().first, denied_.back().second);
    }
  }

  // Fills some folders right before they are removed. The new files must not be lost either.
  void FillBeforeRemovals(const std::vector<Row>& rows) {
    const CleanOracle oracle(judge_.before, {}, CurrentSettings());
    for (const Row& row : rows) {
      const auto key = row.fields.checked && row.fields.tag == u"P" ? oracle.Target(row) : std::nullopt;
      if (key && judge_.before.Find(*key)->kind == EntryKind::Folder && dice_.Percent(50))
        filled_.insert(*key);
    }
    store_.onRemovalOfFolder = [this](TextView name) {
      for (const Text& key : filled_) {
        const Text file = Concat(key, u"\\late.doc");
        const bool there = testDisk_.Picture().Has(key);
        if (!EqualIgnoringCase(NameOf(key), name) || !there || judge_.before.Find(file) != nullptr) continue;
        judge_.before.items[file] = NewFile();
        Put(file, judge_.before.items[file]);
      }
    };
  }

  // Replaces a folder by a link at a random call. The folder itself is renamed and keeps its content.
  void SwapAtACall(const std::vector<Row>& rows) {
    if (rows.empty()) return;
    const auto folder = judge_.before.Resolve(dice_.Of(rows).fields.location, true);
    const auto elsewhere = machine_.Any(EntryKind::Folder);
    if (!folder || IsRoot(*folder) || !elsewhere) return;
    for (const TextView kept :
         {TextView(u"C:\\MORVDataPath\\TVX"), TextView(u"C:\\TVXBak"), TextView(BackupFolder)}) {
      const auto key = judge_.before.Resolve(kept, true);
      if (key && (*key + u"\\").starts_with(*folder + u"\\")) return;
    }
    const int number = store_.calls + 1 + static_cast<int>(dice_.Below(size_t{1} << dice_.Below(12)));
    store_.onCall = [this, number, &rows, from = *folder, to = *elsewhere](int call) {
      if (call != number) return;
      const DiskPicture now = testDisk_.Picture();
      if (!now.Has(from) || now.Find(from)->kind != EntryKind::Folder) return;
      judge_.swapped = from;
      testDisk_.Rename(from, kMovedAside);
      Put(from, {EntryKind::Link, {}, Concat(u"\\", to)});
      judge_.AddWhatMayGo(rows, CleanOracle(Picture(), {}, CurrentSettings()));
    };
  }

  std::vector<Text> Facts() const {
    std::vector<Text> values;
    for (const auto& [section, key, value] : machine_.facts) values.push_back(value);
    return values;
  }

  void CheckRegistry(const CleanOracle& oracle, const RegistryPicture& before) {
    for (const auto& [hive, key] : denied_) host_.registry.Allow(hive, key);
    const RegistryPicture after = PictureOf(host_.registry);
    if (denied_.empty()) {
      EXPECT_TRUE(after == oracle.Registry()) << "the registry is another one than the ticked rows make it";
    } else {
      ExpectNoMoreGone(before, after, oracle.Registry());
      tally_.denied += after != oracle.Registry() ? 1 : 0;
    }
    tally_.registry += after != before ? 1 : 0;
  }

  // Checks that nothing is new, and that nothing has gone but what the oracle's registry lacks, too.
  static void ExpectNoMoreGone(const RegistryPicture& before, const RegistryPicture& after,
                               const RegistryPicture& predicted) {
    for (const auto& [key, values] : after) EXPECT_TRUE(Holds(before, key, values)) << "new: " << Narrow(key);
    for (const auto& [key, values] : predicted)
      EXPECT_TRUE(Holds(after, key, values)) << "lost: " << Narrow(key);
  }
  // Whether a registry has the key with all these values.
  static bool Holds(const RegistryPicture& registry, const Text& key,
                    const RegistryPicture::mapped_type& values) {
    const auto found = registry.find(key);
    return found != registry.end() && std::ranges::all_of(values, [&found](const auto& value) {
             const auto same = found->second.find(value.first);
             return same != found->second.end() && same->second == value.second;
           });
  }

  void Count(const DiskPicture& after) {
    ++tally_.machines;
    for (const auto& [key, item] : judge_.before.items) tally_.removed += after.Find(key) == nullptr ? 1 : 0;
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
  DiskPicture made_;
  CleanJudge judge_;
  Text page_;
  std::vector<std::pair<platform::Hive, Text>> denied_;  // keys of the registry
  Keys filled_;                                          // folders to be filled before they are removed
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
