#include "forms/main_form.h"
#include "junk/junk_definitions.h"
#include "options/options_test.h"
#include "support/case.h"
#include "text/text_file.h"

namespace tavix::mdlPubSelf {
namespace {

using namespace std::string_literals;

// The window over damaged files. It opens, every control can be used, and Save keeps what the program doesn't
// know.
class DamagedFiles : public OptionsTest {
 protected:
  static std::string Utf16(TextView text) {
    return EncodeTextFile({Text(text), TextEncoding::Utf16WithMark});
  }
  std::string Decoded(TextView file) { return Narrow(DecodeTextFile(File(file)).text); }

  // Uses every control that needs no answer from the user.
  void UseAll() {
    for (int page = 1; page <= 5; ++page) {
      SCOPED_TRACE(Case(page));
      frmPubOptions.trv.NodeClick(*frmPubOptions.trv.NodeAt(page));
      EXPECT_TRUE(frmPubOptions.trv.SelectedItem == frmPubOptions.trv.NodeAt(page));
    }
    for (Event<int>* header : {&frmPubOptions.lsvJF.ColumnClick, &frmPubOptions.lsvOO.ColumnClick})
      (*header)(1);
    frmPubOptions.lstDF.KeyUp('A', kCtrl);
    frmPubOptions.sbtJF[3].Click();
  }
};

constexpr std::string_view kUnknown = "[Elsewhere]\r\nx=1\r\n[Other Options]\r\nColour=blue\r\n; mine\r\n";

struct SettingsCase {
  const char* name;
  std::string content;
};

const std::vector<SettingsCase>& BrokenSettings() {
  static const std::vector<SettingsCase> cases{
      {"only one key", "[Duplicate Files]\r\nCommon Types=*.a\r\n"},
      {"wrong types",
       "[Duplicate Files]\r\nSize=7\r\nModified=?\r\nOnly Common=\r\nLeast Size=-1e99\r\nNeed Least=yes\r\n"
       "Common Types=*.a\r\n[One-click Clean/Repair]\r\nFunctions=12\r\n[Cleaning "
       "Method]\r\nMethod=DELETE\r\n"
       "Backup Folder=<>|\r\n[Other Options]\r\nInterface Size=9\r\nLast Accessed File=soon\r\n"
       "Last Accessed Prefetch=99999\r\nExcept Folders=|||/|/|a/b/c\r\n"},
      {"line feeds", "[Duplicate Files]\nCommon Types=*.a\n[Cleaning Method]\nMethod=R\n"},
      {"no line end", "[Duplicate Files]\r\nCommon Types=*.a"},
      {"NULs", "[Duplicate Files]\r\nCommon Types=*.a\0;*.b\r\n\0\0[x\0]\r\nSize\0=Y\r\n"s},
      {"bytes", "[Duplicate Files]\r\nCommon Types=*.\xE4;*.\xFF\x80\r\nSize=\x81\r\n"},
      {"a line of 1 MB", "[Duplicate Files]\r\nCommon Types=" + std::string(1 << 20, 'a') + "\r\n" +
                             std::string(1 << 16, '=') + "\r\n"},
      {"many elements in 1 MB", "[Other Options]\r\nExcept Folders=" + std::string(1 << 19, '|') +
                                    "a/b\r\n[Duplicate Files]\r\nCommon Types=" + std::string(1 << 19, ';') +
                                    "a\r\n"},
      {"keys twice",
       "[Duplicate Files]\r\nCommon Types=*.a\r\nCommon Types=*.b\r\n[duplicate files]\r\nSIZE=N\r\n"},
      {"open headers", "[Duplicate Files\r\n]\r\n[]\r\n[Duplicate Files]\r\nCommon Types=*.a\r\n"},
  };
  return cases;
}

TEST_F(DamagedFiles, SettingsOpenWithoutHarmAndSaveKeepsUnknownKeys) {
  for (const SettingsCase& broken : BrokenSettings()) {
    SCOPED_TRACE(broken.name);
    const std::string end = broken.content.ends_with('\n') ? "" : "\r\n";
    WriteSettings(broken.content + end + std::string(kUnknown));
    if (frmPubMain.Loaded) {
      Close();
      LoadSettings();
    }
    Open();
    UseAll();
    frmPubOptions.optDF[0].Value = true;
    frmPubOptions.sbtSave.Click();
    EXPECT_TRUE(Messages().empty());
    const std::string saved = SettingsFile();
    for (const char* kept : {"[Elsewhere]\r\nx=1\r\n", "Colour=blue\r\n", "; mine\r\n"}) {
      EXPECT_NE(Decoded(kSettingsFile).find(kept), std::string::npos) << kept;
    }
    EXPECT_EQ(OnlyCommon, u"N") << "it was saved";
    frmPubOptions.sbtSave.Click();
    EXPECT_EQ(SettingsFile(), saved) << "a second call changes nothing";
    frmPubOptions.sbtRecommend.Click();
    EXPECT_EQ(CleaningMethod, u"D");
    EXPECT_NE(Decoded(kSettingsFile).find("Colour=blue\r\n"), std::string::npos);
  }
}

TEST_F(DamagedFiles, SettingsInUtf16StayInUtf16) {
  WriteSettings(Utf16(u"[Duplicate Files]\r\nCommon Types=*.ж\r\n[Cleaning Method]\r\nMethod=R\r\nЖ=ж\r\n"));
  Open();
  EXPECT_EQ(frmPubOptions.lstDF.List(0), u"*.ж");
  EXPECT_TRUE(frmPubOptions.optCM[1].Value);
  frmPubOptions.optCM[0].Value = true;
  frmPubOptions.sbtSave.Click();
  const FileText saved = DecodeTextFile(SettingsFile());
  EXPECT_EQ(saved.encoding, TextEncoding::Utf16WithMark);
  EXPECT_NE(saved.text.find(u"Method=D\r\nЖ=ж\r\n"), Text::npos);
}

TEST_F(DamagedFiles, SettingsThatCannotBeReadAreNotWrittenOver) {
  WriteSettings("[Duplicate Files]\r\nCommon Types=*.a\r\n");
  Open();
  machine.files.faults.Fail(u"ReadFile", kSettingsFile);
  frmPubOptions.sbtSave.Click();
  machine.files.faults.Clear();
  EXPECT_EQ(SettingsFile(), "[Duplicate Files]\r\nCommon Types=*.a\r\n");
}

const std::vector<SettingsCase>& BrokenTypes() {
  static const std::vector<SettingsCase> cases{
      {"empty lines", "\r\n\r\n   \r\nMine\t*.aaa\tY\tY\r\n\r\n"},
      {"too few fields", "words alone\r\nMine\t*.aaa\r\n\t\r\n\t\t\t\r\n"},
      {"too many fields", "Mine\t*.aaa\tY\tY\tU\tU\tU\t\t\t\r\n"},
      {"bars", "a|b\t*.aaa\tY\tY\r\n|||||\r\n"},
      {"wrong flags", "Mine\t*.aaa\tmaybe\t1\r\n"},
      {"line feeds", "Mine\t*.aaa\tY\tY\nMine\t*.bbb\tY\tY\n"},
      {"carriage returns", "Mine\t*.aaa\tY\tY\rMine\t*.bbb\tY\tY\r"},
      {"NULs", "Mi\0ne\t*.a\0aa\tY\tY\r\n\0\r\n"s},
      {"bytes", "M\xFFne\t*.\xE4\tY\tY\r\n"},
      {"a line of 1 MB", std::string(1 << 20, 'm') + "\t" + std::string(1 << 20, '*') + "\tY\tY\r\n"},
      {"the same pattern twice", "Mine\t*.aaa\tY\tY\r\nYours\t*.aaa\tY\tY\r\n"},
      {"UTF-16", EncodeTextFile({u"Mein\t*.ж\tY\tY\r\n", TextEncoding::Utf16WithMark})},
  };
  return cases;
}

TEST_F(DamagedFiles, JunkTypesOpenWithoutHarm) {
  for (const TextView file : {kUserJunkFile, kBuiltInJunkFile}) {
    for (const SettingsCase& broken : BrokenTypes()) {
      SCOPED_TRACE(Narrow(file) + ": " + broken.name);
      machine.files.AddFile(file, {.content = broken.content});
      if (frmPubMain.Loaded) {
        Close();
        LoadJunkDefinitions();
      }
      Open(2);
      EXPECT_EQ(frmPubOptions.lsvJF.Count(), static_cast<int>(JunkTypes.size()));
      UseAll();
      frmPubOptions.sbtSave.Click();
      const std::string saved = File(kUserJunkFile);
      Close();
      Open(2);
      frmPubOptions.sbtSave.Click();
      EXPECT_EQ(File(kUserJunkFile), saved) << "a second call changes nothing";
    }
  }
}

TEST_F(DamagedFiles, NewTypeIsKeptInAFileOfAnyForm) {
  for (const SettingsCase& broken : BrokenTypes()) {
    SCOPED_TRACE(broken.name);
    WriteUserTypes(broken.content);
    if (frmPubMain.Loaded) {
      Close();
      LoadJunkDefinitions();
    }
    Open(2);
    const std::string before = Decoded(kUserJunkFile);
    InTypeWindow([] {
      EnterType(u"New", u"*.new");
      frmPubType.sbt[1].Click();
    });
    frmPubOptions.sbtJF[0].Click();
    const std::string lineEnd = before.ends_with('\n') ? "" : "\r\n";
    EXPECT_EQ(Decoded(kUserJunkFile), before + lineEnd + "New\t*.new\tY\tY\tU\r\n");
    ClickTypes({u"*.new"});
    frmPubOptions.sbtJF[2].Click();
    EXPECT_EQ(Decoded(kUserJunkFile), before + lineEnd);
  }
}

}  // namespace
}  // namespace tavix::mdlPubSelf
