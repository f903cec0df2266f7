#include "frame/trusted_data.h"

#include <fstream>
#include <iterator>

#include "doubles/memory_file_system.h"
#include "doubles/memory_store.h"
#include "doubles/memory_trust.h"
#include "frame/data_paths.h"
#include "frame/settings.h"
#include "frame/start_up.h"
#include "frame/support/file_system_object.h"
#include "junk/junk_definitions.h"
#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/machine/formats/machine_facts.h"
#include "platform/machine/services/journal.h"
#include "platform/machine/services/machine_dialogs.h"
#include "platform/trust.h"
#include "support/program_test.h"
#include "support/source_folder.h"
#include "text/ini_text.h"
#include "text/text_file.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr TextView kPlantedSettings =
    u"[Duplicate Files]\nCommon Types=*.x\n[Cleaning Method]\nMethod=S\nBackup Folder=C:\\Program "
    u"Files\\App\n";

class TrustedData : public ProgramTest {
 protected:
  TrustedData() {
    machine.files.AddFolder(u"C:\\");
    machine.trust.keepsLists = true;
  }
  // Another user's folder `target` with settings in it, and a link to it at `path`.
  void PlantLink(TextView path, TextView target) {
    machine.files.AddFile(Concat(target, u"\\tvx.dll"), {.content = Narrow(kPlantedSettings)});
    machine.files.AddLink(path, target);
  }
  void PlantFile(TextView path) {
    machine.files.AddFile(path, {.content = Narrow(kPlantedSettings)});
    machine.trust.GiveToOthers(path);
  }
  // Everything below a folder, with attributes and contents. Links are not followed.
  std::vector<std::string> Everything(TextView folder) {
    std::vector<std::string> found;
    machine.fileSystem.List(folder, [&](const platform::DirectoryEntry& entry) {
      const Text path = Concat(folder, u"\\", entry.name);
      std::string line =
          Narrow(path) + " " + std::to_string(entry.attributes) + (entry.link ? " link " : " ");
      if (!entry.folder) line += machine.files.ReadFile(path).value_or("unreadable");
      found.push_back(line);
      if (!entry.folder || entry.link) return;
      const auto below = Everything(path);
      found.insert(found.end(), below.begin(), below.end());
    });
    return found;
  }
  bool IsLink(TextView path) {
    const auto facts = machine.fileSystem.Look(path);
    return facts && facts->link;
  }
  // The texts of the message boxes, in order.
  std::vector<std::string> Boxes() {
    std::vector<std::string> boxes;
    for (const auto& entry : machine.journal.Entries()) {
      const std::string line = entry.Json();
      if (line.find("\"op\":\"MsgBox\"") != std::string::npos) boxes.push_back(line);
    }
    return boxes;
  }
};

TEST_F(TrustedData, WithALinkInTheDataFoldersPathCancelEndsTheProgramAndChangesNothing) {
  for (const TextView place : {kMakersFolder, kDataFolder, kSettingsFile, kBuiltInJunkFile, kUserJunkFile,
                               kMarkerFile, kDuplicateFolder, kScannedFolder, kComparedFolder}) {
    SCOPED_TRACE(Narrow(place));
    machine.files.DeleteFolder(kMakersFolder, true);
    machine.files.DeleteFolder(u"C:\\Victim", true);
    PlantLink(place, u"C:\\Victim");
    const auto before = Everything(u"C:");
    machine.dialogs.answers = {platform::kCancel};
    const size_t boxes = Boxes().size();
    EXPECT_FALSE(Form_Load());
    Form_Unload();
    EXPECT_EQ(Everything(u"C:"), before);
    ASSERT_EQ(Boxes().size(), boxes + 1);
    EXPECT_NE(Boxes().back().find("\"style\":49"), std::string::npos) << Boxes().back();
    EXPECT_EQ(CleaningMethod, u"") << "the planted settings were read";
    EXPECT_TRUE(JunkTypes.empty());
  }
}

TEST_F(TrustedData, OkPutsTheLinkAsideAloneAndStartsWithDefaults) {
  for (const TextView place : {kMakersFolder, kDataFolder, kSettingsFile}) {
    SCOPED_TRACE(Narrow(place));
    machine.files.DeleteFolder(kMakersFolder, true);
    machine.files.DeleteFolder(u"C:\\Victim", true);
    PlantLink(place, u"C:\\Victim");
    const auto before = Everything(u"C:\\Victim");
    machine.dialogs.answers = {platform::kOk};
    EXPECT_TRUE(Form_Load());
    EXPECT_EQ(CleaningMethod, u"D");
    Form_Unload();
    EXPECT_EQ(Everything(u"C:\\Victim"), before);
    EXPECT_TRUE(IsLink(Concat(place, u".aside")));
    EXPECT_FALSE(IsLink(place));
    EXPECT_EQ(machine.files.FileExists(kSettingsFile), true);
    machine.files.DeleteFolder(Concat(place, u".aside"), true);
  }
  EXPECT_EQ(Boxes().size(), 3U);
}

TEST_F(TrustedData, OneBoxNamesAllThatIsForeignAndNothingBelowIt) {
  PlantLink(kDuplicateFolder, u"C:\\Victim");
  PlantLink(kSettingsFile, u"C:\\Victim\\settings");
  EXPECT_EQ(ForeignData(), (std::vector<Text>{Text(kSettingsFile), Text(kDuplicateFolder)}));
  machine.dialogs.answers = {platform::kOk};
  EXPECT_TRUE(Form_Load());
  ASSERT_EQ(Boxes().size(), 1U);
  EXPECT_NE(Boxes()[0].find("TVX\\\\tvx.dll\\r\\nC:\\\\MORVDataPath\\\\TVX\\\\DupeFiles\""),
            std::string::npos)
      << Boxes()[0];
  EXPECT_TRUE(IsLink(Concat(kDuplicateFolder, u".aside")));
  EXPECT_TRUE(IsLink(Concat(kSettingsFile, u".aside")));
}

TEST_F(TrustedData, ALinkToNothingCountsAsWell) {
  machine.files.AddLink(kUserJunkFile, u"C:\\Victim\\new.txt");
  EXPECT_EQ(ForeignData(), std::vector<Text>{Text(kUserJunkFile)});
}

TEST_F(TrustedData, WhatBelongsToAnotherUserCountsWhereTheProgramIsElevated) {
  machine.trust.elevated = true;
  for (const TextView place : {kMakersFolder, kDataFolder}) {
    SCOPED_TRACE(Narrow(place));
    machine.files.DeleteFolder(kMakersFolder, true);
    machine.files.AddFile(kSettingsFile, {.content = Narrow(kPlantedSettings)});
    machine.trust.GiveToOthers(place);
    const auto before = Everything(u"C:");
    machine.dialogs.answers = {platform::kCancel};
    EXPECT_FALSE(Form_Load());
    EXPECT_EQ(Everything(u"C:"), before);

    machine.dialogs.answers = {platform::kOk};
    EXPECT_TRUE(Form_Load());
    EXPECT_EQ(CleaningMethod, u"D");
    Form_Unload();
    const TextView below = kSettingsFile.substr(place.size());
    EXPECT_EQ(machine.files.ReadFile(Concat(place, u".aside", below)), Narrow(kPlantedSettings));
    machine.files.DeleteFolder(Concat(place, u".aside"), true);
  }
}

TEST_F(TrustedData, AFileThatSteersAndBelongsToAnotherUserIsPutAside) {
  machine.trust.elevated = true;
  PlantFile(kSettingsFile);
  machine.dialogs.answers = {platform::kOk};
  EXPECT_TRUE(Form_Load());
  EXPECT_EQ(CleaningMethod, u"D");
  EXPECT_EQ(machine.files.ReadFile(Concat(kSettingsFile, u".aside")), Narrow(kPlantedSettings));
}

TEST_F(TrustedData, WithoutAnAdministratorsRightsTheOwnerDoesNotCount) {
  PlantFile(kSettingsFile);
  machine.trust.GiveToOthers(kMakersFolder);
  machine.trust.GiveToOthers(kDataFolder);
  EXPECT_TRUE(Form_Load());
  EXPECT_EQ(CleaningMethod, u"S");
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(TrustedData, TheScratchFoldersOwnerDoesNotCountSinceTheyAreOnlyEmptied) {
  machine.trust.elevated = true;
  machine.files.AddFile(Concat(kScannedFolder, u"\\A\\1"));
  for (const TextView folder : {kDuplicateFolder, kScannedFolder}) machine.trust.GiveToOthers(folder);
  EXPECT_TRUE(Form_Load());
  EXPECT_TRUE(Boxes().empty());
  EXPECT_EQ(machine.files.FileExists(Concat(kScannedFolder, u"\\A\\1")), false);
}

TEST_F(TrustedData, TheNextFreeNameIsTakenWhereTheFirstIsnt) {
  machine.files.AddFile(u"C:\\MORVDataPath.aside\\kept.txt");
  machine.files.AddFile(u"C:\\MORVDataPath.aside.2");
  PlantLink(kMakersFolder, u"C:\\Victim");
  machine.dialogs.answers = {platform::kOk};
  EXPECT_TRUE(Form_Load());
  EXPECT_TRUE(IsLink(u"C:\\MORVDataPath.aside.3"));
  EXPECT_EQ(machine.files.FileExists(u"C:\\MORVDataPath.aside\\kept.txt"), true);
}

TEST_F(TrustedData, WhatCantBePutAsideEndsTheProgramWithAMessage) {
  PlantLink(kDataFolder, u"C:\\Victim");
  machine.trust.refusesRename = true;
  const auto before = Everything(u"C:");
  machine.dialogs.answers = {platform::kOk};
  EXPECT_FALSE(Form_Load());
  EXPECT_EQ(Everything(u"C:"), before);
  ASSERT_EQ(Boxes().size(), 2U);
  EXPECT_NE(Boxes()[1].find("could not be given another name"), std::string::npos);
}

TEST_F(TrustedData, WithNobodyToAnswerTheProgramEnds) {
  PlantLink(kDataFolder, u"C:\\Victim");
  EXPECT_FALSE(Form_Load());
  platform::dialogs = platform::noDialogs;
  EXPECT_FALSE(Form_Load());
}

TEST_F(TrustedData, ALinkThatCameDuringTheRunIsNotWrittenThroughAtTheEnd) {
  Start();
  machine.files.DeleteFolder(kDataFolder, true);
  PlantLink(kDataFolder, u"C:\\Victim");
  const auto before = Everything(u"C:\\Victim");
  Form_Unload();
  EXPECT_EQ(Everything(u"C:\\Victim"), before);
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(TrustedData, TheFirstStartKeepsOthersFromWriting) {
  Start();
  for (const TextView folder : {kMakersFolder, kDataFolder, kDefaultBackupFolder}) {
    EXPECT_TRUE(machine.trust.IsProtected(folder)) << Narrow(folder);
  }
}

TEST_F(TrustedData, AChosenBackupFolderKeepsItsRights) {
  constexpr const char* kSettings =
      "[Duplicate Files]\nCommon Types=*.x\n[Cleaning Method]\nBackup Folder=C:\\Saved\n";
  machine.files.AddFile(kSettingsFile, {.content = kSettings});
  machine.files.AddFolder(u"C:\\Saved");
  Start();
  ASSERT_EQ(BackupFolder, u"C:\\Saved");
  EXPECT_FALSE(machine.trust.IsProtected(u"C:\\Saved"));
}

TEST_F(TrustedData, OpenFoldersAndTheirSettingsAreClosedToOthers) {
  machine.files.AddFile(kSettingsFile, {.content = Narrow(kPlantedSettings)});
  machine.files.AddFile(kUserJunkFile);
  machine.files.AddFile(u"C:\\TVXBak\\saved.txt");
  Start();
  for (const TextView path : {kSettingsFile, kUserJunkFile, kDefaultBackupFolder}) {
    EXPECT_TRUE(machine.trust.IsProtected(path)) << Narrow(path);
  }
  EXPECT_FALSE(machine.trust.IsProtected(u"C:\\TVXBak\\saved.txt"));
  EXPECT_EQ(CleaningMethod, u"S") << "the settings stay";
  EXPECT_EQ(machine.files.FileExists(u"C:\\TVXBak\\saved.txt"), true);
}

TEST_F(TrustedData, OpenScratchFoldersAreDeleted) {
  machine.files.AddFile(Concat(kScannedFolder, u"\\A\\planted"));
  fileSystemObject = FileSystemObject(platform::fileSystem);
  ProtectData();
  EXPECT_EQ(machine.files.FolderExists(kDuplicateFolder), false);
}

TEST_F(TrustedData, AnOpenFileInAClosedFolderIsClosedToOthers) {
  machine.files.AddFile(kSettingsFile, {.content = Narrow(kPlantedSettings)});
  for (const TextView folder : {kMakersFolder, kDataFolder}) {
    ASSERT_EQ(machine.trust.Protect(folder), platform::Protection::Set);
  }
  Start();
  EXPECT_TRUE(machine.trust.IsProtected(kSettingsFile));
}

TEST_F(TrustedData, WhatIsClosedStaysAsItIs) {
  Start();
  Form_Unload();
  fileSystemObject = FileSystemObject(platform::fileSystem);
  const auto before = Everything(u"C:");
  ProtectData();
  EXPECT_EQ(Everything(u"C:"), before);
}

// Replaces `place` by a link to `target` at the moment when a folder is closed to others: before a folder
// that is `place` itself, after one that holds it.
struct PlantingTrust : machine::MemoryTrust {
  using MemoryTrust::MemoryTrust;
  platform::Protection Protect(TextView path) override {
    if (path == place) Plant();
    const auto result = MemoryTrust::Protect(path);
    if (path == kDataFolder && place != kMakersFolder) Plant();
    return result;
  }
  void Plant() {
    if (std::exchange(plant, false)) files->AddLink(place, target);
  }
  machine::MemoryFiles* files = nullptr;
  TextView place, target;
  bool plant = true;
};

TEST_F(TrustedData, ALinkPlantedBeforeTheFoldersAreClosedIsNoticed) {
  for (const auto& [place, target] :
       {std::pair<TextView, TextView>{kSettingsFile, u"C:\\Victim\\TVX\\tvx.dll"},
        {kDataFolder, u"C:\\Victim\\TVX"},
        {kMakersFolder, u"C:\\Victim"}}) {
    SCOPED_TRACE(Narrow(place));
    machine.files.DeleteFolder(kMakersFolder, true);
    machine.files.AddFile(u"C:\\Victim\\TVX\\tvx.dll", {.content = Narrow(kPlantedSettings)});
    machine.files.AddFile(u"C:\\Victim\\TVX\\DupeFiles\\scanned\\kept.txt");
    const auto before = Everything(u"C:\\Victim");
    const size_t boxes = Boxes().size();
    PlantingTrust planting(machine.store, machine.fileSystem, machine.facts);
    planting.files = &machine.files;
    planting.keepsLists = true;
    planting.place = place;
    planting.target = target;
    platform::trust = &planting;
    EXPECT_FALSE(Form_Load());
    EXPECT_EQ(Boxes().size(), boxes + 1);
    EXPECT_EQ(CleaningMethod, u"");
    EXPECT_EQ(Everything(u"C:\\Victim"), before);
    EXPECT_FALSE(planting.IsProtected(u"C:\\Victim\\TVX"));
    EXPECT_FALSE(planting.IsProtected(u"C:\\Victim\\TVX\\DupeFiles"));
  }
}

TEST_F(TrustedData, WithoutAnythingForeignNobodyIsAsked) {
  machine.trust.elevated = true;
  Start();
  Form_Unload();
  Start();
  Form_Unload();
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(TrustedData, TheBoxHasTheCataloguesWordsOrTheBuiltInEnglishOnes) {
  std::ifstream file(SourceFolder() + "/res/lang/en/tips.dll", std::ios::binary);
  const Text tips = DecodeTextFile(std::string(std::istreambuf_iterator<char>(file), {})).text;
  PlantLink(kDataFolder, u"C:\\Victim");
  machine.trust.refusesRename = true;
  machine.dialogs.answers = {platform::kOk};
  EXPECT_FALSE(Form_Load());
  const std::vector<std::string> builtIn = Boxes();
  ASSERT_EQ(builtIn.size(), 2U);
  EXPECT_NE(builtIn[0].find(Narrow(*ReadIniValue(tips, u"Message & Text", u"DATA_FOREIGN"))),
            std::string::npos);
  EXPECT_NE(builtIn[1].find(Narrow(*ReadIniValue(tips, u"Message & Text", u"DATA_STAYS"))),
            std::string::npos);

  machine.files.AddFile(Concat(platform::applicationFolder, u"\\tips.dll"),
                        {.content = "[Message & Text]\nDATA_FOREIGN=Was ist das?\n"});
  EXPECT_FALSE(Form_Load());
  EXPECT_NE(Boxes().back().find("\"text\":\"Was ist das?\\r\\n\\r\\nC:\\\\MORVDataPath\\\\TVX\""),
            std::string::npos)
      << Boxes().back();
}

class TrustedBackup : public TrustedData {
 protected:
  TrustedBackup() {
    SetWindows();
    SetProgramFiles();
    machine.facts.Set(u"Folders", u"42", u"C:\\Program Files (x86)");
    for (const TextView folder : {u"C:\\Windows", u"C:\\Program Files\\App", u"C:\\Program Files (x86)"}) {
      machine.files.AddFolder(folder);
    }
    machine.trust.elevated = true;
  }
  bool Trusted(TextView folder) {
    BackupFolder = folder;
    return BackupFolderIsTrusted();
  }
};

TEST_F(TrustedBackup, IsRefusedAmongProgramsAndInWindows) {
  for (const TextView folder :
       {u"C:\\Windows", u"c:\\windows\\", u"C:\\WINDOWS\\System32", u"C:\\Program Files",
        u"C:/program files/APP", u"C:\\Program Files\\App\\not there\\yet", u"C:\\Program Files (x86)\\x",
        u"C:\\x\\..\\Windows\\Temp"}) {
    EXPECT_FALSE(Trusted(folder)) << Narrow(folder);
  }
  for (const TextView folder : {u"C:\\TVXBak", u"C:\\", u"C:\\Windows2", u"C:\\Program Filesystem",
                                u"D:\\Windows", u"", u"Windows", u"C:\\Users\\Windows"}) {
    EXPECT_TRUE(Trusted(folder)) << Narrow(folder);
  }
}

TEST_F(TrustedBackup, IsRefusedIfALinkLeadsThere) {
  machine.files.AddLink(u"C:\\Bak", u"C:\\Program Files\\App");
  machine.files.AddLink(u"C:\\Disk", u"C:\\");
  EXPECT_FALSE(Trusted(u"C:\\Bak"));
  EXPECT_FALSE(Trusted(u"C:\\Bak\\new"));
  EXPECT_FALSE(Trusted(u"C:\\Disk\\Windows\\x"));
  EXPECT_TRUE(Trusted(u"C:\\Disk\\x"));
}

TEST_F(TrustedBackup, IsRefusedInAProgramFolderMovedByALink) {
  machine.files.AddFolder(u"D:\\Programs\\App");
  machine.files.DeleteFolder(u"C:\\Program Files", true);
  machine.files.AddLink(u"C:\\Program Files", u"D:\\Programs");
  EXPECT_FALSE(Trusted(u"D:\\Programs\\App"));
  EXPECT_FALSE(Trusted(u"C:\\Program Files\\App"));
}

TEST_F(TrustedBackup, MayBeAnywhereWithoutAdministratorRights) {
  machine.trust.elevated = false;
  EXPECT_TRUE(Trusted(u"C:\\Windows"));
  platform::trust = platform::noTrust;
  EXPECT_TRUE(Trusted(u"C:\\Windows"));
}

}  // namespace
}  // namespace tavix::mdlPubSelf
