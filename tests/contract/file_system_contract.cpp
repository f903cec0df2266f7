#include "contract/file_system_contract.h"

#include "text/utf8.h"

namespace tavix::contract {

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(FileSystemContract);

std::vector<Text> FileSystemContract::Names(TextView name) {
  std::vector<Text> names;
  const Text folder = name.empty() ? stage->Place() : In(name);
  EXPECT_TRUE(files.List(folder, [&names](const platform::DirectoryEntry& entry) {
    names.push_back(Concat(entry.name, entry.folder ? u"\\" : u"", entry.link ? u">" : u""));
  })) << ToUtf8(folder);
  return names;
}

std::string FileSystemContract::Everything() {
  std::string all;
  std::vector<Text> pending{stage->Place()};
  while (!pending.empty()) {
    const Text folder = std::move(pending.back());
    pending.pop_back();
    std::vector<Text> found;
    files.List(folder, [&](const platform::DirectoryEntry& entry) {
      const Text path = Concat(folder, u"\\", entry.name);
      if (entry.folder && !entry.link) pending.push_back(path);
      if (!entry.folder && !entry.link) found.push_back(path);
      all += ToUtf8(path) + " " + std::to_string(entry.attributes & 7U) + (entry.link ? " link\n" : "\n");
    });
    for (const Text& file : found) all += ToUtf8(file) + ": " + files.ReadFile(file).value_or("?") + "\n";
  }
  return all;
}

void FoundItems::SwapAFolderThatIsOpen(TextView swapped) {
  MakeAlike();
  Make(u"victim\\g");
  for (const TextView name : {u"f\\g\\b", u"victim\\b", u"victim\\g\\b"}) Write(name, ToUtf8(name));
  auto folder = files.OpenFound(stage->Place(), u"f\\g");
  // Some platforms watch only what is asked for again and again.
  for (int i = 0; i < 20 && folder != nullptr && !folder->Stands(); ++i) {
    folder = files.OpenFound(stage->Place(), u"f\\g");
  }
  ASSERT_NE(folder, nullptr);
  if (!folder->Stands()) GTEST_SKIP() << "this machine can't tell whether a folder stands";
  EXPECT_TRUE(folder->Open(u"a")->DeleteFile());
  EXPECT_TRUE(folder->Stands()) << "what we delete ourselves changes no path";
  if (!stage->Swap(In(swapped), In(u"victim"))) {
    EXPECT_TRUE(folder->Stands()) << "the folder is held";
    return;
  }
  EXPECT_EQ(folder->Stands(), stage->SwapsWhatIsHeld());
  if (const auto item = folder->Open(u"b")) item->DeleteFile();
  for (const TextView name : {u"victim\\b", u"victim\\g\\b"}) {
    EXPECT_EQ(files.ReadFile(In(name)), ToUtf8(name));
  }
  EXPECT_EQ(files.OpenFound(stage->Place(), u"f\\g"), nullptr);
}

}  // namespace tavix::contract
