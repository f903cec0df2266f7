#include <algorithm>

#include "contract/file_system_contract.h"
#include "support/case.h"

namespace tavix::contract {
namespace {

using platform::DirectoryEntry;

TEST_P(FileSystemContract, LooksAtFilesAndFolders) {
  Make(u"Sub");
  Write(u"Sub\\A.txt", "12345");
  const auto file = files.Look(In(u"Sub\\A.txt"));
  ASSERT_TRUE(file);
  EXPECT_EQ(file->path, In(u"Sub\\A.txt"));
  EXPECT_EQ(file->name, u"A.txt");
  EXPECT_EQ(file->size, 5U);
  EXPECT_FALSE(file->folder);
  EXPECT_FALSE(file->link);
  const auto folder = files.Look(In(u"Sub\\"));
  ASSERT_TRUE(folder);
  EXPECT_EQ(folder->path, In(u"Sub"));
  EXPECT_EQ(folder->name, u"Sub");
  EXPECT_EQ(folder->size, 0U);
  EXPECT_TRUE(folder->folder);
}

TEST_P(FileSystemContract, FindsNoneOfWhatIsMissing) {
  Write(u"file");
  for (const TextView name : {u"none", u"none\\deeper", u"file\\below", u"fil", u"file2"}) {
    SCOPED_TRACE(Case(name));
    EXPECT_FALSE(files.Look(In(name)));
    EXPECT_EQ(files.IsLink(In(name)), std::nullopt);
    EXPECT_EQ(files.FileExists(In(name)), false);
    EXPECT_EQ(files.FolderExists(In(name)), false);
    EXPECT_FALSE(files.ReadFile(In(name)));
    EXPECT_FALSE(files.DeleteFile(In(name), true));
    EXPECT_FALSE(files.DeleteFolder(In(name), true));
    EXPECT_FALSE(files.SetAttributes(In(name), platform::kHidden));
    EXPECT_FALSE(files.List(In(name), [](const DirectoryEntry&) { ADD_FAILURE(); }));
  }
  EXPECT_EQ(Names(), std::vector<Text>{u"file"});
}

TEST_P(FileSystemContract, TellsFilesFromFolders) {
  Make(u"folder");
  Write(u"file");
  EXPECT_EQ(files.FileExists(In(u"file")), true);
  EXPECT_EQ(files.FolderExists(In(u"file")), false);
  EXPECT_EQ(files.FolderExists(In(u"folder")), true);
  EXPECT_EQ(files.FileExists(In(u"folder")), false);
  EXPECT_FALSE(files.ReadFile(In(u"folder")));
  EXPECT_FALSE(files.List(In(u"file"), [](const DirectoryEntry&) { ADD_FAILURE(); }));
}

TEST_P(FileSystemContract, CantTellWhatStandsInAFolderWhereItMayNotLook) {
  Make(u"locked");
  Make(u"locked\\folder");
  Write(u"locked\\file");
  if (!stage->Refuse(In(u"locked"), true)) GTEST_SKIP() << "nothing is refused on this machine";
  for (const TextView name : {u"locked\\file", u"locked\\folder", u"locked\\none", u"LOCKED\\FILE"}) {
    SCOPED_TRACE(Case(name));
    EXPECT_EQ(files.FileExists(In(name)), std::nullopt) << testing::PrintToString(Text(name));
    EXPECT_EQ(files.FolderExists(In(name)), std::nullopt) << testing::PrintToString(Text(name));
    EXPECT_FALSE(files.Look(In(name)));
  }
  EXPECT_EQ(files.FolderExists(In(u"locked")), true);
  stage->Refuse(In(u"locked"), false);
  EXPECT_EQ(files.FileExists(In(u"locked\\file")), true);
  EXPECT_EQ(files.FileExists(In(u"locked\\none")), false);
}

TEST_P(FileSystemContract, MatchesNamesWithoutRegardToCaseAndShowsThoseOfTheDisk) {
  Make(u"Größe");
  Write(u"Größe\\Datei.TXT", "a");
  const auto found = files.Look(In(u"GRÖßE\\dATEI.txt"));
  ASSERT_TRUE(found);
  EXPECT_EQ(found->path, In(u"Größe\\Datei.TXT"));
  EXPECT_EQ(found->name, u"Datei.TXT");
  EXPECT_EQ(files.ReadFile(In(u"größe\\datei.txt")), "a");
  EXPECT_TRUE(files.WriteFile(In(u"GRÖßE\\DATEI.TXT"), "b"));
  EXPECT_EQ(Names(u"gRÖßE"), std::vector<Text>{u"Datei.TXT"});
  EXPECT_FALSE(files.CreateFolder(In(u"grÖße")));
  EXPECT_TRUE(files.DeleteFile(In(u"grÖße\\DATEI.txt"), false));
  EXPECT_TRUE(files.DeleteFolder(In(u"GRÖßE"), false));
  EXPECT_EQ(Names(), std::vector<Text>());
}

TEST_P(FileSystemContract, ListsInTheOrderOfTheCapitals) {
  for (const TextView name : {u"b", u"A_", u"Aa", u"a.txt", u"Ä", u"zz", u"Z"}) Write(name);
  Make(u"M");
  // '_' sorts after the capitals and before the small letters.
  EXPECT_EQ(Names(), (std::vector<Text>{u"a.txt", u"Aa", u"A_", u"b", u"M\\", u"Z", u"zz", u"Ä"}));
}

TEST_P(FileSystemContract, ListsOfTheFilesTheWantedOnes) {
  for (const TextView name : {u"a.log", u"b.txt", u"C.LOG"}) Write(name);
  Make(u"folder.txt");
  std::vector<Text> names;
  const auto visit = [&names](const DirectoryEntry& entry) { names.emplace_back(entry.name); };
  EXPECT_TRUE(files.List(stage->Place(), visit, [](TextView name) { return !name.ends_with(u".txt"); }));
  EXPECT_EQ(names, (std::vector<Text>{u"a.log", u"C.LOG", u"folder.txt"})) << "folders are always wanted";
}

TEST_P(FileSystemContract, GoesFromOpenFolderToOpenFolder) {
  Make(u"f");
  Make(u"f\\g");
  Write(u"f\\g\\a");
  const auto place = files.Open(stage->Place());
  ASSERT_NE(place, nullptr);
  const auto folder = place->Open(u"f");
  ASSERT_NE(folder, nullptr);
  const auto below = folder->Open(u"g");
  ASSERT_NE(below, nullptr);
  std::vector<Text> names;
  const auto visit = [&names](const DirectoryEntry& entry) { names.emplace_back(entry.name); };
  EXPECT_TRUE(below->List(visit, {}));
  EXPECT_EQ(names, std::vector<Text>{u"a"});
  const auto lists = [&](std::unique_ptr<platform::OpenFolder> opened) {
    return opened != nullptr && opened->List([](const DirectoryEntry&) {}, {});
  };
  EXPECT_FALSE(lists(folder->Open(u"none")));
  EXPECT_FALSE(lists(below->Open(u"a")));
  EXPECT_FALSE(lists(files.Open(In(u"none"))));
  EXPECT_FALSE(lists(files.Open(u"relative")));
}

TEST_P(FileSystemContract, TellsWhetherTwoPathsLeadToOneFolder) {
  Make(u"f");
  Make(u"g");
  Write(u"file");
  const auto identity = files.FolderIdentity(In(u"f"));
  ASSERT_TRUE(identity);
  EXPECT_EQ(files.FolderIdentity(In(u"F\\..\\f\\")), identity);
  EXPECT_NE(files.FolderIdentity(In(u"g")), identity);
  EXPECT_FALSE(files.FolderIdentity(In(u"none")));
  EXPECT_FALSE(files.FolderIdentity(In(u"file")));
  EXPECT_FALSE(files.FolderIdentity(u""));
}

TEST_P(FileSystemContract, ListsWhatLookTells) {
  Write(u"file", std::string(5000, 'x'));
  Make(u"folder");
  ASSERT_TRUE(files.SetAttributes(In(u"file"), platform::kHidden));
  int visited = 0;
  EXPECT_TRUE(files.List(stage->Place(), [&](const DirectoryEntry& entry) {
    const auto facts = files.Look(In(entry.name));
    ASSERT_TRUE(facts);
    EXPECT_EQ(entry.name, facts->name);
    EXPECT_EQ(entry.size, facts->size);
    EXPECT_EQ(entry.modified, facts->modified);
    EXPECT_EQ(entry.attributes, facts->attributes);
    EXPECT_EQ(entry.folder, facts->folder);
    EXPECT_EQ(entry.link, facts->link);
    ++visited;
  }));
  EXPECT_EQ(visited, 2);
}

TEST_P(FileSystemContract, ReadsPathsAsWindowsDoes) {
  Make(u"a");
  Write(u"a\\b.txt", "1");
  Text slashes = In(u"a\\b.txt");
  std::replace(slashes.begin(), slashes.end(), u'\\', u'/');
  for (const Text& path : {slashes, In(u"a\\\\\\b.txt"), In(u"a\\.\\b.txt"), In(u"none\\..\\a\\b.txt"),
                           In(u"a\\b.txt "), In(u"a\\b.txt..."), In(u"a\\b.txt. . "), In(u"a\\b.txt\\")}) {
    const auto found = files.Look(path);
    ASSERT_TRUE(found) << testing::PrintToString(path);
    EXPECT_EQ(found->path, In(u"a\\b.txt"));
  }
}

TEST_P(FileSystemContract, NeverGoesAboveADrive) {
  Write(u"b.txt");
  const Text drive = stage->Place().substr(0, 2);
  const TextView below = TextView(In(u"b.txt")).substr(2);
  EXPECT_EQ(files.FileExists(Concat(drive, u"\\..\\..", Text(In(u"b.txt")).substr(2))), true);
  EXPECT_EQ(files.FolderExists(Concat(drive, u"\\..\\..\\..")), true);
  EXPECT_FALSE(below.empty());
}

TEST_P(FileSystemContract, KnowsTheRootOfADrive) {
  const Text drive = stage->Place().substr(0, 2);
  for (const Text& path : {Concat(drive, u"\\"), Concat(drive, u"/"), Concat(drive, u"\\.."), drive}) {
    SCOPED_TRACE(Case(path));
    const auto root = files.Look(path);
    ASSERT_TRUE(root) << testing::PrintToString(path);
    EXPECT_EQ(root->path, Concat(drive, u"\\"));
    EXPECT_EQ(root->name, u"");
    EXPECT_TRUE(root->folder);
    EXPECT_FALSE(root->link);
    EXPECT_EQ(files.FolderExists(path), true);
  }
  bool seen = false;
  EXPECT_TRUE(files.List(Concat(drive, u"\\"), [&](const DirectoryEntry& entry) {
    seen |= stage->Place().find(entry.name) != Text::npos;
  }));
  EXPECT_TRUE(seen);
}

TEST_P(FileSystemContract, RefusesPathsThatAreNoPaths) {
  const std::string before = Everything();
  for (const TextView path :
       {u"", u" ", u"\\", u"a", u"a.txt", u".", u"..", u"\\a", u"C", u"C:a.txt", u"CC:\\a", u"1:\\", u"*:\\",
        u"\\\\", u"\\\\\\", u"::", u"\\\\?", u"https://a/b"}) {
    SCOPED_TRACE(Case(path));
    EXPECT_FALSE(files.Look(path)) << testing::PrintToString(Text(path));
    EXPECT_EQ(files.FileExists(path), false);
    EXPECT_EQ(files.FolderExists(path), false);
    EXPECT_FALSE(files.List(path, [](const DirectoryEntry&) { ADD_FAILURE(); }));
    EXPECT_FALSE(files.CreateFolder(path));
    EXPECT_FALSE(files.CreateTextFile(path, true));
    EXPECT_FALSE(files.ReadFile(path));
    EXPECT_FALSE(files.WriteFile(path, "x"));
    EXPECT_FALSE(files.AppendToFile(path, "x"));
    EXPECT_FALSE(files.DeleteFile(path, true));
    EXPECT_FALSE(files.DeleteFolder(path, true));
    EXPECT_FALSE(files.MoveFile(path, In(u"new")));
    EXPECT_FALSE(files.SetAttributes(path, 0));
  }
  EXPECT_EQ(Everything(), before);
}

TEST_P(FileSystemContract, RefusesNamesThatNoFileHas) {
  Write(u"a");
  const std::string before = Everything();
  for (const TextView name :
       {TextView(u"b?"), TextView(u"*"), TextView(u"b<"), TextView(u"b>"), TextView(u"b|c"),
        TextView(u"\"b\""), TextView(u"b\tc"), TextView(u"b\nc"), TextView(u"b\0c", 3)}) {
    SCOPED_TRACE(Case(name));
    EXPECT_FALSE(files.Look(In(name)));
    EXPECT_EQ(files.FileExists(In(name)), false);
    EXPECT_FALSE(files.WriteFile(In(name), "x"));
    EXPECT_FALSE(files.AppendToFile(In(name), "x"));
    EXPECT_FALSE(files.CreateTextFile(In(name), true));
    EXPECT_FALSE(files.CreateFolder(In(name)));
    EXPECT_FALSE(files.MoveFile(In(u"a"), In(name)));
    EXPECT_FALSE(files.DeleteFile(In(name), true));
  }
  EXPECT_EQ(Everything(), before);
}

TEST_P(FileSystemContract, ReadsEveryByte) {
  std::string content;
  for (int i = 0; i < 70'000; ++i) content += static_cast<char>(i * 7);
  Write(u"bytes", content);
  EXPECT_EQ(files.ReadFile(In(u"bytes")), content);
  Write(u"empty", "");
  EXPECT_EQ(files.ReadFile(In(u"empty")), "");
}

TEST_P(FileSystemContract, HasNamesOf255AndPathsOf3000Characters) {
  const Text longName(255, u'n');
  Write(longName, "long");
  EXPECT_EQ(files.ReadFile(In(longName)), "long");
  EXPECT_FALSE(files.WriteFile(In(Text(256, u'n')), "x"));
  EXPECT_EQ(files.FileExists(In(Text(256, u'n'))), false);

  Text path = In(u"deep");
  ASSERT_TRUE(files.CreateFolder(path));
  while (path.size() < 3000) {
    SCOPED_TRACE(Case(path));
    path.append(u"\\").append(Text(60, u'd'));
    ASSERT_TRUE(files.CreateFolder(path));
  }
  const Text file = Concat(path, u"\\File.txt");
  ASSERT_TRUE(files.WriteFile(file, "deep"));
  ASSERT_TRUE(files.AppendToFile(file, "er"));
  EXPECT_EQ(files.ReadFile(file), "deeper");
  ASSERT_TRUE(files.SetAttributes(file, platform::kHidden));
  const auto found = files.Look(Concat(path, u"\\FILE.TXT"));
  ASSERT_TRUE(found);
  EXPECT_EQ(found->path, file);
  EXPECT_EQ(found->attributes & 7U, platform::kHidden);
  EXPECT_TRUE(files.MoveFile(file, Concat(path, u"\\Other.txt")));
  EXPECT_EQ(files.FileExists(Concat(path, u"\\Other.txt")), true);
  EXPECT_TRUE(files.MoveFile(Concat(path, u"\\Other.txt"), file));
  EXPECT_TRUE(files.CreateTextFile(Concat(path, u"\\Second.txt"), false));
  EXPECT_TRUE(files.DeleteFile(Concat(path, u"\\Second.txt"), false));
  EXPECT_TRUE(files.DeleteFolder(In(u"deep"), false));
  EXPECT_EQ(Names(), std::vector<Text>{longName});
}

TEST_P(FileSystemContract, HasNamesOutsideAscii) {
  const std::vector<Text> names{u"Übung ß.txt", u"Ωmega", u"файл.TXT", u"\u4E16\u754C", u"\U0001F600.dat"};
  for (const Text& name : names) {
    SCOPED_TRACE(Case(name));
    Write(name, "x");
    const auto found = files.Look(In(name));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->name, name);
  }
  EXPECT_EQ(Names(), names);
  EXPECT_EQ(files.FileExists(In(u"ФАЙЛ.txt")), true);
  for (const Text& name : names) EXPECT_TRUE(files.DeleteFile(In(name), false)) << Case(name);
  EXPECT_EQ(Names(), std::vector<Text>());
}

TEST_P(FileSystemContract, HasNamesWithOddButAllowedCharacters) {
  const std::vector<Text> names{u" leading", u"!a", u"#b", u"%c%", u"a=b", u"a;b", u"[x]", u"{y}", u"~"};
  for (const Text& name : names) Write(name, "x");
  std::vector<Text> found = Names();
  std::vector<Text> expected = names;
  std::sort(found.begin(), found.end());
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(found, expected);
}

TEST_P(FileSystemContract, ListsDrivesInTheOrderOfTheirLetters) {
  const std::vector<platform::Drive> drives = files.Drives();
  EXPECT_TRUE(std::is_sorted(drives.begin(), drives.end(),
                             [](const auto& left, const auto& right) { return left.path < right.path; }));
  const Text own = stage->Place().substr(0, 2);
  const auto found =
      std::find_if(drives.begin(), drives.end(), [&](const auto& drive) { return drive.path == own; });
  ASSERT_NE(found, drives.end());
  EXPECT_TRUE(found->ready);
}

}  // namespace
}  // namespace tavix::contract
