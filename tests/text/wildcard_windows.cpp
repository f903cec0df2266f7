// Compares the pattern rules with the file search of the running system, where the two agree.

#include <gtest/gtest.h>

#include <set>

#include "platform/windows/file_handle.h"
#include "platform/windows/wide.h"
#include "text/utf8.h"
#include "text/wildcard.h"

namespace tavix {
namespace {

class Folder {
 public:
  Folder() {
    wchar_t temporary[MAX_PATH];
    GetTempPathW(MAX_PATH, temporary);
    path_ = Concat(windows::FromWide(temporary), u"tavix-patterns-", ToText(GetCurrentProcessId()), u"\\");
    CreateDirectoryW(windows::Wide(path_), nullptr);
  }
  ~Folder() {
    for (const Text& name : Find(u"*")) DeleteFileW(windows::Wide(Concat(path_, name)));
    RemoveDirectoryW(windows::Wide(path_));
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  bool Make(TextView name) const {
    return static_cast<bool>(
        windows::FileHandle(CreateFileW(windows::Wide(Concat(path_, name)), GENERIC_WRITE, 0, nullptr,
                                        CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr)));
  }
  std::set<Text> Find(TextView pattern) const {
    std::set<Text> names;
    WIN32_FIND_DATAW data;
    const windows::FindHandle found(FindFirstFileExW(windows::Wide(Concat(path_, pattern)), FindExInfoBasic,
                                                     &data, FindExSearchNameMatch, nullptr, 0));
    if (!found) return names;
    do {
      if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        names.insert(windows::FromWide(data.cFileName));
    } while (FindNextFileW(found.Get(), &data));
    return names;
  }

 private:
  Text path_;
};

constexpr TextView kNames[] = {u"a",      u"ab",    u"abc",     u"a.b",      u"a.b.c",        u"a.log",
                               u"A2.LOG", u".log",  u"README",  u"a.tar.gz", u"file0001._dd", u"file12._dd",
                               u"log",    u"b.txt", u"x y.txt", u"abcd.txt", u"file._dd",     u"chklist.ms"};

constexpr TextView kPatterns[] = {u"*",          u"*.*",   u"*.log", u"*.LOG",    u"a*",
                                  u"*.txt",      u"*.b.c", u"a.b",   u"*a*",      u"*.tar.gz",
                                  u"chklist.m*", u"*._dd", u"x y.*", u"nothing*", u"*c"};
constexpr TextView kWithQuestionMarks[] = {u"?",    u"a?c",          u"???", u"???.txt",
                                           u"a???", u"file????._dd", u"?.b"};

void Compare(const Folder& folder, TextView pattern) {
  std::set<Text> fit;
  for (const TextView name : kNames) {
    if (FilePatterns(pattern).Match(name)) fit.emplace(name);
  }
  EXPECT_EQ(fit, folder.Find(pattern)) << ToUtf8(pattern);
}

TEST(FilePatterns, AgreeWithTheSearchOfTheSystem) {
  const Folder folder;
  for (const TextView name : kNames) ASSERT_TRUE(folder.Make(name)) << ToUtf8(name);
  for (const TextView pattern : kPatterns) Compare(folder, pattern);
}

// A question mark before a dot or at the end of a name may match nothing. Wine's search doesn't know that.
TEST(FilePatterns, AgreeWithTheSearchOfTheSystemInQuestionMarks) {
  const Folder folder;
  for (const TextView name : kNames) ASSERT_TRUE(folder.Make(name)) << ToUtf8(name);
  if (!folder.Find(u"a???").contains(u"a")) GTEST_SKIP() << "question marks want a character each here";
  for (const TextView pattern : kWithQuestionMarks) Compare(folder, pattern);
}

}  // namespace
}  // namespace tavix
