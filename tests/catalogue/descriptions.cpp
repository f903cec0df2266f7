#include <span>

#include "forms/main_form.h"
#include "frame/settings.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

// A function as the user reads it.
struct Words {
  TextView caption;
  TextView description;
};

// A node of the privacy tree.
struct NodeWords {
  TextView key;
  TextView caption;
  TextView description;
};

constexpr NodeWords kPrivacyTree[] = {
    {u"ie", u"Internet Explorer",
     u"Includes common privacy for Internet Explorer, please check sub nodes under it to clean as your "
     u"wish."},
    {u"ietif", u"Temporary Internet Files",
     u"Includes the files (html, images, js, etc.) which IE saves as you browse so that if you go back to "
     u"the page, it can quickly pull the files from the disk instead of having to request them again from "
     u"the server."},
    {u"iec", u"Cookies",
     u"Includes some small files that web sites placed on your disk, e.g. the information about when you "
     u"visited the sites, tracking and setting information."},
    {u"ieh", u"History", u"Includes the stored pages that you've visited and the time you visited them."},
    {u"iertu", u"Recently Typed URLs",
     u"Includes the saved recently-typed URLs so it can suggest them as you type new URLs with the same "
     u"starting letters."},
    {u"ieafh", u"Auto-fill Form History",
     u"Once you've used Internet Explorer for a while, you'll notice that as you start typing letters into a "
     u"text box on a form, it will present you with suggestions."},
    {u"ieaph", u"Auto-fill Password History",
     u"Once you've used Internet Explorer for a while, you'll notice that as you start typing letters into a "
     u"password box on a form, it will present you with suggestions. You will lose any saved passwords if "
     u"you clean the corresponding result."},
    {u"ietifd", u"Temporary Internet Files Detail",
     u"Lists the files (html, images, js, etc.) which IE saves as you browse so that if you go back to the "
     u"page, it can quickly pull the files from the disk instead of having to request them again from the "
     u"server."},
    {u"iecd", u"Cookies Detail",
     u"Lists the small files that web sites placed on your disk, e.g. the information about when you visited "
     u"the sites, tracking and setting information."},
    {u"ieif", u"Index.dat Files",
     u"Function as indexes for the browser, and store temporary information about URLs, search queries, and "
     u"recently stored files to speed up browser operation. It will take effect next time the computer is "
     u"rebooted."},
    {u"we", u"Windows Explorer",
     u"Includes common privacy for Windows Explorer, please check sub nodes under it to clean as your wish."},
    {u"werud", u"Recently Used Documents",
     u"Stored the list of Windows Explorer maintains most recently-opened files (please see the 'My Recent "
     u"Documents' item on the Start menu)."},
    {u"werh", u"Run History (in Start menu)",
     u"Stored the list that the Start Menu's Run dialog box maintains of programs you've run from it."},
    {u"wesh", u"Search History",
     u"Stored the history of Windows Explorer 'Search' function, it maintains a list of previous searches "
     u"and suggests them to you."},
    {u"weurah", u"User Ran Applications History",
     u"Stored the list of you accessed programs, shortcuts, Control Panel applets, and possibly even Web "
     u"sites. Cleaning it will clear the most used programs list on Start menu."},
    {u"weosh", u"Open/Save History",
     u"Stored the history of the Windows common open/save dialog boxes maintain of files you've chosen form "
     u"them."},
    {u"weoem", u"Other Explorer MRUs",
     u"Stored the list of Windows Explorer maintains Most Recently Used (MRU) history for the following "
     u"types of information: Find Files, Find Computer, printer ports, and others."},
};

constexpr Words kSystemPage[] = {
    {u"Empty Recycle Bin", u"Checks this cleaning function to empty all Recycle Bins."},
    {u"Temporary Files",
     u"Includes Windows system temporary files and user temporary files, generally, cleaning these files can "
     u"free a lot of disk space."},
    {u"Memory Dumps",
     u"Stored the memory dumps when Windows crashes, so that advanced users can debug the system."},
    {u"CHKDSK File Fragments",
     u"Stored the clusters and chains that are left over after you ran Windows 'CHKDSK' tool."},
    {u"Windows Log Files",
     u"Windows logs many events and activities, such as access, policy changes, Internet use, tasks, and so "
     u"on. As a result, the dozens of logs it creates are scattered across the system."},
    {u"Windows System Logs",
     u"Includes the events that recorded in the Application, Security, and System logs. You can perform "
     u"'Control Panel -> Administrative Tools -> Event Viewer' to see more detail."},
    {u"Invalid Shortcuts in User Folders",
     u"Includes the invalid shortcuts (their targets no longer exist) in all users' Start Menu/Desktop and "
     u"current users' Start Menu/Desktop."},
    {u"Uninstall Files for Windows Update",
     u"Stored the uninstall files after you downloaded and ran the Hotfix from Microsoft. Usually we don't "
     u"need to uninstall Windows Update patches, so we can remove these files and get a lot of disk space."},
    {u"Windows Update Source Files",
     u"Stored the installation files after you downloaded the Hotfix from Microsoft. Usually we don't need "
     u"to install Windows Update patches again, so we can remove these files and get a lot of disk space."},
    {u"Menu Order Caches",
     u"Stores the information about dragging and dropping menus on Start menu into different locations. "
     u"Cleaning it will reset the Start menu order, no items will be removed."},
    {u"Tray Notifications Cache",
     u"Stores information about any items that have ever appeared in your System Tray, and any visible "
     u"settings about tray icons. Cleaning it will reset system tray cache, you need to restart the "
     u"'explorer.exe' process."},
    {u"Windows Size and Location Caches",
     u"When you open and close Windows Explorer, Windows records folder settings for window position, sort "
     u"order, columns, folder type, toolbar toggles, and search result views. Cleaning it will reset all "
     u"above."},
    {u"Old Prefetch data",
     u"Stored program data for quick start, this function is designed to clean the old prefetch data "
     u"(default: 30 days ago) that no longer exist or haven't been used in a long time."},
};

constexpr Words kRegistryPage[] = {
    {u"Missing Shared DLLs",
     u"Includes the DLLs files that are recorded in the Windows registry, but no longer exist on your hard "
     u"disk."},
    {u"ActiveX and Class Issues",
     u"Includes the ActiveX and Class files that are recorded in the Windows registry, but no longer exist "
     u"on your hard disk."},
    {u"Type Libraries Issues", u"Includes the remainders for the invalid type libraries."},
    {u"Application Shells Issues",
     u"Includes the Application Shell (for instance: Open, Edit, Print) files that are recorded in the "
     u"Windows registry, but no longer exist on your hard disk."},
    {u"Fonts Issues",
     u"Includes the font files that are recorded in the Windows registry, but no longer exist on your hard "
     u"disk."},
    {u"Application Paths Issues",
     u"Includes the application paths that are recorded in the Windows registry, but no longer exist on your "
     u"hard disk."},
    {u"Help Files Issues",
     u"Includes the help files that are recorded in the Windows registry, but no longer exist on your hard "
     u"disk."},
    {u"Redundant Installers",
     u"Includes the installers that are recorded in the Windows registry, but no longer exist on your hard "
     u"disk."},
    {u"Obsolete Software", u"Includes the remainders for the obsolete software."},
    {u"Run at Startup Issues",
     u"Includes the auto-run files that are recorded in the Windows registry, but no longer exist on your "
     u"hard disk."},
    {u"Start Menu Ordering Issues",
     u"Includes the menu order caches that are recorded in the Windows registry, but the menu items no "
     u"longer exist on your hard disk."},
    {u"MUI Cache Issues",
     u"Includes the MUI caches that are recorded in the Windows registry, but the no longer exist on your "
     u"hard disk."},
    {u"Uninstaller Issues",
     u"Includes the Uninstallers that are recorded in the Windows registry, but no longer exist on your hard "
     u"disk."},
    {u"Appearance Schemes",
     u"Includes all the Appearance Schemes in your system that are recorded in the Windows registry, you can "
     u"check the unnecessary schemes to clean."},
    {u"Cursor Schemes",
     u"Includes all the Cursor Schemes in your system that are recorded in the Windows registry, you can "
     u"check the unnecessary schemes to clean."},
    {u"Internet Country Codes",
     u"Includes all the Internet Country Codes in your system that are recorded in the Windows registry, you "
     u"can check the unnecessary codes to clean."},
    {u"Time Zones",
     u"Includes all the Time Zones in your system that are recorded in the Windows registry, you can check "
     u"the unnecessary time zones to clean."},
};

constexpr Words kAdvancedPage[] = {
    {u"Invalid Shortcuts",
     u"Checks it for finding the invalid shortcuts (their targets no longer exist) in your specified "
     u"drives/folders."},
    {u"Duplicate Files",
     u"Checks it for finding the duplicate files in your specified drives/folders according to your "
     u"setting."},
    {u"Empty Folders and Files",
     u"Checks it for finding the empty folders and files in your specified drives/folders."},
    {u"Last Accessed 365 Days Before",
     u"Checks it for finding the files that last accessed 365 days before in your specified drives/folders "
     u"according to your setting."},
    {u"Redundant DLLs", u"Checks it for finding the redundant DLLs in your specified drives/folders."},
    {u"Junk Files",
     u"Checks it for finding out the junk files in your specified drives/folders according to your setting."},
};

class Descriptions : public ProgramTest {
 protected:
  Descriptions() {
    Start();
    LastAccessedFile = u"365";
  }

  // What stands in the status line after a click on a row or node, and nothing of before.
  static Text Clicked(int row) {
    frmPubMain.lblProgS.Caption = Text();
    frmPubMain.lst.ListIndex = row;
    frmPubMain.lst.Click();
    return frmPubMain.lblProgS.Caption;
  }
  static Text Clicked(Node& node) {
    frmPubMain.lblProgS.Caption = Text();
    frmPubMain.trvPrivacy.NodeClick(node);
    return frmPubMain.lblProgS.Caption;
  }

  static void ExpectPage(PictureBox& picture, std::span<const Words> page) {
    picture.MouseUp(kLeftButton);
    ASSERT_EQ(frmPubMain.lst.ListCount(), std::ssize(page) + 1) << "the master row is none";
    for (int row = 1; row <= std::ssize(page); ++row) {
      const Words& words = page[static_cast<size_t>(row) - 1];
      EXPECT_EQ(frmPubMain.lst.List(row), words.caption);
      EXPECT_EQ(Clicked(row), words.description) << Narrow(words.caption);
    }
  }
};

TEST_F(Descriptions, OfThePrivacyTreeAreWordForWord) {
  TreeView& tree = frmPubMain.trvPrivacy;
  ASSERT_EQ(tree.NodeCount(), std::ssize(kPrivacyTree));
  for (int i = 1; i <= tree.NodeCount(); ++i) {
    const NodeWords& words = kPrivacyTree[i - 1];
    Node& node = *tree.NodeAt(i);
    EXPECT_EQ(node.Key, words.key);
    EXPECT_EQ(node.Caption.Get(), words.caption);
    EXPECT_EQ(Clicked(node), words.description) << Narrow(words.key);
  }
}

TEST_F(Descriptions, OfTheSystemPageAreWordForWord) { ExpectPage(frmPubMain.picSystem, kSystemPage); }

TEST_F(Descriptions, OfTheRegistryPageAreWordForWord) { ExpectPage(frmPubMain.picRegistry, kRegistryPage); }

TEST_F(Descriptions, OfTheAdvancedPageAreWordForWord) { ExpectPage(frmPubMain.picAdv, kAdvancedPage); }

TEST_F(Descriptions, OfTheMasterRowAreWordForWordOnEveryPage) {
  for (PictureBox* picture : {&frmPubMain.picSystem, &frmPubMain.picRegistry, &frmPubMain.picAdv}) {
    picture->MouseUp(kLeftButton);
    EXPECT_EQ(frmPubMain.lst.List(0), u"Uncheck All");
    EXPECT_EQ(Clicked(0), u"Unchecks all clean/repair functions for this category.");
    frmPubMain.lst.SetSelected(0, false);
    EXPECT_EQ(frmPubMain.lst.List(0), u"Check All");
    EXPECT_EQ(Clicked(0), u"Checks all clean/repair functions for this category.");
  }
}

}  // namespace
}  // namespace tavix::mdlPubSelf
