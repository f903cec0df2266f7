#include "clean/random_machine.h"

#include <algorithm>
#include <array>
#include <span>

#include "platform/shortcut_bytes.h"

namespace tavix::lost {
namespace {

constexpr std::array<TextView, 34> kFileNames = {
    u"a.tmp",      u"A.LOG",        u"b.log",        u"readme.txt",    u"index.dat",
    u"x.dll",      u"Y.DLL",        u"z.dll",        u"photo.jpg",     u"thumbs.db",
    u"~t1.tmp",    u"old.bak",      u"a.tmp.1",      u"b.log.1",       u"x.gid",
    u"chklist.ms", u"0001.chk",     u"file0001._dd", u"PROG.EXE-1.pf", u"two.pf",
    u"Memory.dmp", u"dead.lnk",     u"dead2.lnk",    u"\u00FCber.tmp", u"\u6587\u4EF6.tmp",
    u".hidden",    u"no extension", u"a; b, c.tmp",  u"x: y.tmp",      u"100%.log",
    u"scan.log.1", u"report.old",   u"setup.~mp",    u"desktop.ini"};
constexpr std::array<TextView, 14> kFolderNames = {
    u"in",    u"Deep", u"empty",     u"Saved",   u"TVXBak", u"a.tmp",     u"keep",
    u"x.dll", u"Temp", u"\u00DCber", u"empty.1", u"level",  u"FOUND.000", u"old.bak"};

constexpr TextView kSystemFolders[] = {
    u"C:\\WINDOWS",
    u"C:\\WINDOWS\\system32",
    u"C:\\WINDOWS\\Fonts",
    u"C:\\WINDOWS\\Temp",
    u"C:\\WINDOWS\\Prefetch",
    u"C:\\WINDOWS\\SoftwareDistribution\\Download",
    u"C:\\WINDOWS\\$NtUninstallKB1$",
    u"C:\\FOUND.000",
    u"C:\\Users\\Ann\\Cache\\Content.IE5",
    u"C:\\Users\\Ann\\Cookies",
    u"C:\\Users\\Ann\\History\\History.IE5",
    u"C:\\Users\\Ann\\Recent",
    u"C:\\Users\\Ann\\Temp",
    u"C:\\Users\\Ann\\Desktop",
    u"C:\\Users\\Ann\\Start Menu\\Programs",
    u"C:\\Users\\Ann\\Roaming\\Microsoft\\Internet Explorer\\Quick Launch",
    u"C:\\Users\\Public\\Desktop",
    u"C:\\ProgramData\\Start Menu\\Programs",
};

struct Known {
  TextView section, key, value;
};
constexpr Known kFacts[] = {
    {u"Environment", u"WinDir", u"C:\\WINDOWS"},
    {u"Folders", u"32", u"C:\\Users\\Ann\\Cache"},
    {u"Folders", u"33", u"C:\\Users\\Ann\\Cookies"},
    {u"Folders", u"34", u"C:\\Users\\Ann\\History"},
    {u"Folders", u"9966", u"C:\\WINDOWS\\system32"},
    {u"Special Folders", u"Recent", u"C:\\Users\\Ann\\Recent"},
    {u"Special Folders", u"Fonts", u"C:\\WINDOWS\\Fonts"},
    {u"Special Folders", u"AllUsersPrograms", u"C:\\ProgramData\\Start Menu\\Programs"},
    {u"Special Folders", u"Programs", u"C:\\Users\\Ann\\Start Menu\\Programs"},
    {u"Special Folders", u"0", u"C:\\Users\\Public\\Desktop"},
    {u"Special Folders", u"1", u"C:\\ProgramData\\Start Menu"},
    {u"Special Folders", u"5", u"C:\\Users\\Ann\\Roaming"},
    {u"Special Folders", u"10", u"C:\\Users\\Ann\\Desktop"},
    {u"Special Folders", u"11", u"C:\\Users\\Ann\\Start Menu"},
    {u"Temporary Folders", u"User", u"C:\\Users\\Ann\\Temp"},
    {u"Temporary Folders", u"System", u"C:\\WINDOWS\\Temp"},
};

Text Below(const Text& folder, TextView name) { return Concat(folder, u"\\", name); }

bool CanBeName(TextView name) { return name.find_first_of(u":*?\"<>|") == TextView::npos; }

}  // namespace

RandomMachine::RandomMachine(Dice& dice, bool onHost) : dice_(dice), onHost_(onHost) {
  disk.items[u"drives"] = {};
  disk.items[u"recycle"] = {};
  for (const TextView drive : {u"C:\\", u"D:\\", u"E:\\"}) MakeFolder(drive);
  FillSystem();
  ChooseFacts();
  ChooseBackupFolder();
  AddLinks();
  ClearTheWayTo(backupFolder);
  ClearTheWayTo(u"C:\\TVXBak");
  for (const auto& [section, key, value] : facts) ClearTheWayTo(value);
}

void RandomMachine::ClearTheWayTo(TextView folder) {
  while (const auto link = BlockingLink(disk, folder)) disk.Remove(*link);
}

std::optional<Text> BlockingLink(const DiskPicture& disk, TextView folder) {
  Text path(folder);
  std::ranges::replace(path, u'/', u'\\');
  for (size_t end = path.find(u'\\'); end != Text::npos;) {
    end = path.find(u'\\', end + 1);
    const TextView above = TextView(path).substr(0, end);
    const auto key = disk.Resolve(above, false);
    if (key && disk.Find(*key)->kind == EntryKind::Link && !disk.Resolve(above, true)) return key;
  }
  return std::nullopt;
}

Text RandomMachine::Fact(TextView section, TextView key) const {
  for (const auto& [itsSection, itsKey, value] : facts) {
    if (itsSection == section && itsKey == key) return value;
  }
  return {};
}

std::optional<Text> RandomMachine::Any(EntryKind kind) const {
  std::vector<const Text*> found;
  for (const auto& [key, item] : disk.items) {
    if (key.size() > 8 && key.starts_with(u"drives") && item.kind == kind) found.push_back(&key);
  }
  return found.empty() ? std::nullopt : std::optional(*dice_.Of(found));
}

std::string RandomMachine::NewContent() {
  std::string content = "file " + std::to_string(++files_) + " ";
  content.append(dice_.Below(40) == 0 ? dice_.Below(9000) : dice_.Below(30), 'x');
  return content;
}

// Makes the folder and its parents; returns its key.
Text RandomMachine::MakeFolder(TextView path) {
  Text key;
  const std::vector<Text> names = NamesOfPath(path).value();
  for (const Text& name : names) {
    key.append(key.empty() ? u"" : u"\\").append(name);
    const auto [item, made] = disk.items.try_emplace(key);
    if (!made) key = item->first;
    // Replace an item of another kind by a folder.
    item->second = {};
  }
  return key;
}

void RandomMachine::PutFile(const Text& key, std::string content) {
  if (disk.Find(key) == nullptr && CanBeName(NameOf(key)))
    disk.items[key] = {EntryKind::File, std::move(content)};
}

void RandomMachine::Fill(const Text& folder, int depth) {
  const size_t count = dice_.Below(6);
  for (size_t i = 0; i < count; ++i) {
    if (depth > 0 && dice_.Percent(35)) {
      const Text key = Below(folder, dice_.Of(kFolderNames));
      if (disk.Find(key) != nullptr) continue;
      disk.items[key] = {};
      if (dice_.Percent(70)) Fill(key, depth - 1);
      continue;
    }
    const TextView name = dice_.Of(kFileNames);
    std::string content = dice_.Percent(25) ? std::string() : NewContent();
    if (name.ends_with(u".lnk") && dice_.Percent(80)) {
      using namespace platform::shortcut_bytes;
      const Text target = Concat(u"C:\\gone\\", ToText(++files_), u".exe");
      content = Header(2) + LocationBlock({.flags = 1, .path = target}) + U32(0);
    }
    PutFile(Below(folder, name), std::move(content));
  }
}

void RandomMachine::FillSystem() {
  for (const TextView path : kSystemFolders) {
    if (dice_.Percent(90)) Fill(MakeFolder(path), 3);
  }
  for (const TextView path : {u"C:\\", u"C:\\Users\\Ann", u"C:\\Work", u"D:\\", u"D:\\Data", u"E:\\Empty"}) {
    if (dice_.Percent(70)) Fill(MakeFolder(path), 3);
  }
  if (dice_.Percent(70)) PutFile(u"drives\\C\\WINDOWS\\memory.dmp", NewContent());
  for (const TextView path :
       {u"C:\\Users\\Ann\\Cache\\Content.IE5\\index.dat", u"C:\\Users\\Ann\\Cookies\\index.dat"}) {
    if (const auto names = NamesOfPath(path); disk.IsFolder(path.substr(0, path.find_last_of(u'\\')))) {
      PutFile(Concat(u"drives\\C", path.substr(2)), NewContent());
    }
  }
  if (dice_.Percent(50)) PutFile(u"recycle\\a.tmp", NewContent());
  // Files saved before, so that names clash.
  if (dice_.Percent(50)) Fill(MakeFolder(u"C:\\TVXBak"), 1);
  if (dice_.Percent(20)) Fill(MakeFolder(u"C:\\MORVDataPath"), 2);
}

Text RandomMachine::RandomFolderPath() {
  const auto key = Any(EntryKind::Folder);
  return key ? PathOfKey(*key) : Text(u"C:\\Work");
}

void RandomMachine::ChooseFacts() {
  for (const Known& fact : kFacts) {
    Text value(fact.value);
    if (dice_.Percent(8)) value = RandomFolderPath();
    if (dice_.Percent(3)) value = u"C:\\Missing\\folder";
    if (dice_.Percent(2)) value = dice_.Percent(50) ? u"C:\\" : u"D:\\";
    if (dice_.Percent(2)) value = u"C:\\MORVDataPath\\TVX";
    if (dice_.Percent(2)) value = u"C:\\TVXBak";
    if (dice_.Percent(10)) value = dice_.Percent(50) ? ToUpper(value) : ToLower(value);
    if (dice_.Percent(5)) value += u"\\";
    if (!dice_.Percent(2)) facts.emplace_back(fact.section, fact.key, value);
  }
  facts.emplace_back(u"Environment", u"USERNAME", u"Ann");
  facts.emplace_back(u"Drives", u"C", u"2,System");
  facts.emplace_back(u"Drives", u"D", dice_.Percent(50) ? u"2,Data" : u"1");
  const bool ready = !dice_.Percent(20);
  facts.emplace_back(u"Drives", u"E", ready ? u"2" : u"2,,not ready");
  if (!ready) disk.notReady.insert(u'E');
  facts.emplace_back(u"Event Logs", u"System", u"3");
  facts.emplace_back(u"Event Logs", u"Application", dice_.Percent(50) ? u"5" : u"-");
}

void RandomMachine::ChooseBackupFolder() {
  switch (dice_.Below(14)) {
    case 0:
      backupFolder = u"D:\\Saved";
      Fill(MakeFolder(backupFolder), 1);
      break;
    case 1:
      backupFolder = u"D:\\";
      break;
    case 2:
      backupFolder = u"C:\\Users\\Ann\\Temp\\Saved";
      Fill(MakeFolder(backupFolder), 1);
      break;
    case 3:
      backupFolder = u"C:\\Nowhere\\Saved";
      break;
    case 4:
      backupFolder = u"C:\\Users\\Ann";
      break;
    case 5:
      backupFolder = u"C:\\MORVDataPath\\TVX\\Saved";
      MakeFolder(backupFolder);
      break;
    case 6:
      backupFolder = u"C:\\TVXBak\\in it";
      MakeFolder(backupFolder);
      break;
    case 7:
      backupFolder = u"c:\\WORK/backup of ann/";
      MakeFolder(backupFolder);
      break;
    case 8:
    case 9: {
      backupFolder = dice_.Percent(50) ? u"C:\\Work\\Way" : u"C:\\Users\\Ann\\Temp\\Way";
      const Text folder = MakeFolder(dice_.Percent(50) ? u"D:\\Far\\Saved" : u"C:\\Users\\Ann\\Far");
      const Text key = Concat(u"drives\\C", backupFolder.substr(2));
      MakeFolder(backupFolder.substr(0, backupFolder.find_last_of(u'\\')));
      disk.Remove(key);
      disk.items[key] = {EntryKind::Link, {}, LinkTo(key, folder)};
      break;
    }
    case 10:
      backupFolder = RandomFolderPath();
      break;
    default:
      backupFolder = u"C:\\TVXBak";
  }
}

Text RandomMachine::LinkTo(const Text& from, const Text& target) {
  if (dice_.Percent(50)) return Concat(u"\\", target);
  Text link;
  Text at = ParentOf(from);
  while (!(EqualIgnoringCase(TextView(target).substr(0, at.size() + 1), Concat(at, u"\\")))) {
    if (EqualIgnoringCase(target, at)) break;
    link += link.empty() ? u".." : u"\\..";
    const size_t cut = at.find_last_of(u'\\');
    if (cut == Text::npos) {
      at.clear();
      break;
    }
    at.resize(cut);
  }
  const TextView rest =
      at.empty() ? TextView(target) : TextView(target).substr(std::min(at.size() + 1, target.size()));
  if (!rest.empty()) link.append(link.empty() ? u"" : u"\\").append(rest);
  return link.empty() ? Concat(u"\\", target) : link;
}

void RandomMachine::AddLinks() {
  const size_t count = dice_.Percent(25) ? 0 : dice_.Below(10);
  for (size_t i = 0; i < count; ++i) {
    const auto folder = Any(EntryKind::Folder);
    if (!folder) return;
    const Text key = Below(*folder, dice_.Of(dice_.Percent(70) ? std::span<const TextView>(kFolderNames)
                                                               : std::span<const TextView>(kFileNames)));
    if (disk.Find(key) != nullptr || !CanBeName(NameOf(key))) continue;
    Text link;
    switch (dice_.Below(12)) {
      case 0:
        link = LinkTo(key, ParentOf(*folder).size() < 8 ? *folder : ParentOf(*folder));
        break;
      case 1:
        link = u"..\\..";
        break;
      case 2:
        link = LinkTo(key, key);
        break;
      case 3:
        link = u"\\drives\\C\\nowhere";
        break;
      case 4:
        link = onHost_ ? u"?" : u"..\\..\\..\\..\\..\\..\\..\\..\\..\\..";
        break;
      case 5:
        link = LinkTo(key, dice_.Percent(50) ? u"drives\\C\\MORVDataPath\\TVX" : u"drives\\C\\TVXBak");
        break;
      case 6:
        link = LinkTo(key, Any(EntryKind::File).value_or(*folder));
        break;
      case 7:
        link = LinkTo(key, Any(EntryKind::Link).value_or(*folder));
        break;
      default:
        link = LinkTo(key, *Any(EntryKind::Folder));
    }
    disk.items[key] = {EntryKind::Link, {}, link};
  }
  // Users move whole folders to another drive and put a link in their place.
  if (dice_.Percent(15)) {
    const Text moved = NamesOfPath(dice_.Of(kSystemFolders))->back();
    for (const TextView path : kSystemFolders) {
      const Text key = Concat(u"drives\\C", path.substr(2));
      if (NameOf(key) != moved || disk.Find(key) == nullptr || disk.Find(key)->kind != EntryKind::Folder)
        continue;
      const Text far = Below(MakeFolder(u"D:\\Moved"), moved);
      disk.Remove(far);
      disk.Move(key, far);
      disk.items[key] = {EntryKind::Link, {}, Concat(u"\\", far)};
    }
  }
  if (dice_.Percent(4) && disk.Find(u"drives\\C\\MORVDataPath") == nullptr) {
    disk.items[u"drives\\C\\MORVDataPath"] = {
        EntryKind::Link, {}, Concat(u"\\", MakeFolder(u"D:\\Data of the program"))};
  }
}

void RandomMachine::FillRegistry(machine::MachineRegistry& registry) {
  using enum platform::Hive;
  struct List {
    platform::Hive hive;
    TextView key;
    bool subKeys;
    TextView below, value;
  };
  constexpr List kLists[] = {
      {LocalMachine, u"Software\\Microsoft\\Windows\\CurrentVersion\\SharedDlls", false, u"", u""},
      {LocalMachine, u"Software\\Classes\\CLSID", true, u"\\InprocServer32", u""},
      {CurrentUser, u"Software\\Classes\\CLSID", true, u"\\InprocServer32", u""},
      {LocalMachine, u"Software\\Classes\\Interface", true, u"\\TypeLib", u""},
      {LocalMachine, u"Software\\Classes\\Applications\\a.exe\\shell", true, u"\\command", u""},
      {CurrentUser, u"Software\\Classes\\Applications\\a.exe\\shell", true, u"\\command", u""},
      {LocalMachine, u"Software\\Microsoft\\Windows NT\\CurrentVersion\\Fonts", false, u"", u""},
      {LocalMachine, u"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths", true, u"", u""},
      {LocalMachine, u"Software\\Microsoft\\Windows\\Help", false, u"", u""},
      {LocalMachine, u"Software\\Microsoft\\Windows\\CurrentVersion\\Installer\\Folders", false, u"", u""},
      {LocalMachine, u"Software", true, u"", u""},
      {CurrentUser, u"Software", true, u"", u""},
      {CurrentUser, u"Software\\Microsoft\\Windows\\CurrentVersion\\Run", false, u"", u""},
      {LocalMachine, u"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall", true, u"",
       u"UninstallString"},
      {CurrentUser, u"Control Panel\\Appearance\\Schemes", false, u"", u""},
      {LocalMachine, u"Software\\Microsoft\\Windows\\CurrentVersion\\Telephony\\Country List", true, u"",
       u"Name"},
      {CurrentUser, u"Software\\Microsoft\\Internet Explorer\\TypedURLs", false, u"", u""},
      {CurrentUser, u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU", false, u"", u""},
      {CurrentUser, u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\UserAssist", true, u"", u""},
      {CurrentUser,
       u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\MenuOrder\\Start Menu2\\Programs", true, u"",
       u""},
      {CurrentUser, u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RecentDocs", false, u"", u""},
      {CurrentUser, u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\TrayNotify", false, u"", u""},
  };
  constexpr TextView kNames[] = {u"one",          u"Two",  u"{1-2}",     u"C:\\gone\\x.dll",
                                 u"a, b",         u"a",    u"a: b",      u"IconStreams",
                                 u"IconStreams ", u"Acme", u"\u00DCber", u""};
  constexpr TextView kData[] = {u"C:\\gone\\a.exe", u"C:\\WINDOWS\\system32\\x.dll", u"text", u"",
                                u"\"C:\\gone dir\\b.exe\" /x"};
  for (const List& list : kLists) {
    const size_t count = dice_.Below(5);
    for (size_t i = 0; i < count; ++i) {
      const Text name(dice_.Of(kNames));
      if (list.subKeys && (name.empty() || name.contains(u'\\'))) continue;
      const Text key = list.subKeys ? Concat(list.key, u"\\", name, list.below) : Text(list.key);
      registry.WriteString(list.hive, key, list.subKeys ? list.value : TextView(name), dice_.Of(kData));
      if (list.subKeys)
        registry.WriteString(list.hive, Concat(list.key, u"\\", name, u"\\deep"), u"v", u"kept");
    }
  }
}

}  // namespace tavix::lost
