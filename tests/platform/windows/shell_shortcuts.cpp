// Shortcuts made by the shell of the system.

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/windows/com.h"
#include "platform/windows/scratch_place.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_shell.h"
#include "support/case.h"
#include "text/letter_case.h"

#include <shlobj.h>

namespace tavix::windows {
namespace {

class ShellLinkOfWindows : public testing::Test {
 protected:
  // Saves a shortcut with the shell's own object, as other programs do.
  static void Save(const Text& path, const Text& target) {
    ComPointer<IShellLinkW> link;
    ASSERT_EQ(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                               reinterpret_cast<void**>(link.Receive())),
              S_OK);
    ASSERT_EQ(link.Get()->SetPath(Wide(target)), S_OK);
    ComPointer<IPersistFile> file;
    ASSERT_EQ(link.Get()->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(file.Receive())), S_OK);
    ASSERT_EQ(file.Get()->Save(Wide(path), TRUE), S_OK);
  }

  // Whether a shortcut names a path. Letter case is ignored.
  bool Names(const Text& path, const Text& target) {
    const auto shortcut = shell.OpenShortcut(path);
    return shortcut && std::ranges::any_of(shortcut->paths, [&](const Text& named) {
             return EqualIgnoringCase(named, target);
           });
  }

  const ComApartment apartment;
  ScratchPlace place;
  WindowsFileSystem files;
  WindowsShell shell;
};

TEST_F(ShellLinkOfWindows, HasTheTargetItWasSavedWith) {
  const Text target = place.File(u"t\u00E4rget.txt");
  Save(place.In(u"a.lnk"), target);
  EXPECT_TRUE(Names(place.In(u"a.lnk"), target));
}

TEST_F(ShellLinkOfWindows, KeepsATargetThatIsGone) {
  const Text target = place.File(u"target.txt");
  Save(place.In(u"a.lnk"), target);
  ASSERT_TRUE(files.DeleteFile(target, true));
  // A file of the target's name beside the shortcut isn't the target.
  EXPECT_TRUE(Names(place.In(u"a.lnk"), target));
}

TEST_F(ShellLinkOfWindows, IsReadAtTheEndOfALongPath) {
  const Text target = place.File(u"target.txt");
  Save(place.In(u"a.lnk"), target);
  Text folder = place.Path();
  while (folder.size() < 300) {
    SCOPED_TRACE(Case(folder));
    folder += u"\\a name that is rather long, as names go";
    ASSERT_TRUE(files.CreateFolder(folder));
  }
  ASSERT_TRUE(files.MoveFile(place.In(u"a.lnk"), folder + u"\\a.lnk"));
  EXPECT_TRUE(Names(folder + u"\\a.lnk", target));
}

TEST_F(ShellLinkOfWindows, WhatIsNoShortcutHasNoTarget) {
  EXPECT_FALSE(shell.OpenShortcut(place.In(u"missing.lnk")));
  EXPECT_FALSE(shell.OpenShortcut(place.File(u"empty.lnk", "")));
  EXPECT_FALSE(shell.OpenShortcut(place.File(u"text.lnk",
                                             "no shortcut at all, but of some length, so that "
                                             "a header could stand here")));
  EXPECT_FALSE(shell.OpenShortcut(place.Folder(u"folder.lnk")));
}

}  // namespace
}  // namespace tavix::windows
