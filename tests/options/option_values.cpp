#include "options/option_values.h"

#include "forms/main_form.h"
#include "options/options_test.h"
#include "text/ini_text.h"
#include "text/text_file.h"

namespace tavix::mdlPubSelf {
namespace {

class OptionValues : public OptionsTest {
 protected:
  // Opens the window over a file in which this setting has this value, or is missing.
  void OpenWith(TextView section, TextView key, std::optional<TextView> value) {
    Text file(u"[Duplicate Files]\r\nOnly Common=N\r\nCommon Types=*.a\r\n");
    if (value) file = WriteIniValue(file, section, key, *value);
    WriteSettings(EncodeTextFile({file, TextEncoding::Utf8}));
    if (frmPubMain.Loaded) {
      Close();
      LoadSettings();
    }
    Open();
  }
  std::optional<Text> Saved(TextView section, TextView key) {
    frmPubOptions.sbtSave.Click();
    return ReadIniValue(DecodeTextFile(SettingsFile()).text, section, key);
  }
};

struct ValueCase {
  const char16_t* section;
  const char16_t* key;
  const char16_t* value;  // null where the key is missing
  std::function<bool()> shown;
  const char16_t* saved;  // null where the key stays missing
};

bool Ticked(size_t box) { return frmPubOptions.cbxDF[box].Value != 0; }
// Whether only the button at `index` is selected; no button if there is none at `index`.
template <class Buttons>
bool Selected(Buttons& buttons, size_t index) {
  for (size_t i = 0; i < buttons.size(); ++i) {
    if (buttons[i].Value != (i == index)) return false;
  }
  return true;
}

const ValueCase kValues[] = {
    {u"Duplicate Files", u"Size", u"Y", [] { return Ticked(1); }, u"Y"},
    {u"Duplicate Files", u"Size", u"N", [] { return !Ticked(1); }, u"N"},
    {u"Duplicate Files", u"Size", u"y", [] { return !Ticked(1); }, u"N"},
    {u"Duplicate Files", u"Size", nullptr, [] { return !Ticked(1); }, u"N"},
    {u"Duplicate Files", u"Modified", u"Y", [] { return Ticked(2); }, u"Y"},
    {u"Duplicate Files", u"Modified", u"N", [] { return !Ticked(2); }, u"N"},
    {u"Duplicate Files", u"Need Least", u"Y", [] { return Ticked(3) && frmPubOptions.txtDFSS.Enabled; },
     u"Y"},
    {u"Duplicate Files", u"Need Least", u"N", [] { return !Ticked(3) && !frmPubOptions.txtDFSS.Enabled; },
     u"N"},
    {u"Duplicate Files", u"Only Common", u"Y", [] { return Selected(frmPubOptions.optDF, 1); }, u"Y"},
    {u"Duplicate Files", u"Only Common", u"N", [] { return Selected(frmPubOptions.optDF, 0); }, u"N"},
    {u"Duplicate Files", u"Only Common", u"maybe", [] { return Selected(frmPubOptions.optDF, 0); }, u"N"},
    {u"Duplicate Files", u"Least Size", u"  12 ", [] { return frmPubOptions.txtDFSS.Text == u"12"; }, u"12"},
    {u"Duplicate Files", u"Least Size", u"\" 12 \"", [] { return frmPubOptions.txtDFSS.Text == u"\" 12 \""; },
     u"\" 12 \""},
    {u"Duplicate Files", u"Least Size", u"", [] { return frmPubOptions.txtDFSS.Text == u"0"; }, u"0"},
    {u"Duplicate Files", u"Least Size", nullptr, [] { return frmPubOptions.txtDFSS.Text == u"0"; }, u"0"},
    {u"Duplicate Files", u"Least Size", u"2.5", [] { return frmPubOptions.txtDFSS.Text == u"2.5"; }, u"2"},
    {u"Duplicate Files", u"Least Size", u"many", [] { return frmPubOptions.txtDFSS.Text == u"many"; },
     u"many"},
    {u"Duplicate Files", u"Common Types", u"*.x;*.y", [] { return frmPubOptions.lstDF.ListCount() == 2; },
     u"*.x;*.y"},
    {u"Duplicate Files", u"Common Types", u";*.y;", [] { return frmPubOptions.lstDF.List(1) == u"*.y"; },
     u";*.y;"},
    {u"Cleaning Method", u"Method", u"D", [] { return Selected(frmPubOptions.optCM, 0); }, u"D"},
    {u"Cleaning Method", u"Method", u"R", [] { return Selected(frmPubOptions.optCM, 1); }, u"R"},
    {u"Cleaning Method", u"Method", u"S", [] { return Selected(frmPubOptions.optCM, 2); }, u"S"},
    {u"Cleaning Method", u"Method", u"d", [] { return Selected(frmPubOptions.optCM, 9); }, u"S"},
    {u"Cleaning Method", u"Method", nullptr, [] { return Selected(frmPubOptions.optCM, 9); }, u"S"},
    {u"Cleaning Method", u"Backup Folder", u"D:\\b", [] { return frmPubOptions.txtDF.Text == u"D:\\b"; },
     u"D:\\b"},
    {u"Other Options", u"Interface Size", u"Auto", [] { return Selected(frmPubOptions.optOO, 0); }, u"Auto"},
    {u"Other Options", u"Interface Size", u"Big", [] { return Selected(frmPubOptions.optOO, 1); }, u"Big"},
    {u"Other Options", u"Interface Size", u"Small", [] { return Selected(frmPubOptions.optOO, 2); },
     u"Small"},
    {u"Other Options", u"Interface Size", u"Huge", [] { return Selected(frmPubOptions.optOO, 9); }, u"Huge"},
    {u"Other Options", u"Interface Size", nullptr, [] { return Selected(frmPubOptions.optOO, 9); }, nullptr},
    {u"Other Options", u"Last Accessed File", u"90", [] { return frmPubOptions.txtOO[0].Text == u"90"; },
     u"90"},
    {u"Other Options", u"Last Accessed File", nullptr, [] { return frmPubOptions.txtOO[0].Text == u""; },
     nullptr},
    {u"Other Options", u"Last Accessed Prefetch", u"7", [] { return frmPubOptions.txtOO[1].Text == u"7"; },
     u"7"},
    {u"Other Options", u"Last Accessed Prefetch", u"70000",
     [] { return frmPubOptions.txtOO[1].Text == u"70000"; }, u"70000"},
    {u"Other Options", u"Except Folders", u"A/b|C:\\x/y",
     [] { return frmPubOptions.lsvOO.Row(2).SubItems(1) == u"y"; }, u"A/b|C:\\x/y"},
    {u"Other Options", u"Except Folders", u"A||B|c/d/e",
     [] { return frmPubOptions.lsvOO.Count() == 3 && frmPubOptions.lsvOO.Row(3).SubItems(1) == u"d"; },
     u"A/|B/|c/d"},
    {u"Other Options", u"Except Folders", nullptr, [] { return frmPubOptions.lsvOO.Count() == 0; }, u""},
    {u"One-click Clean/Repair", u"Functions", u"|iec|x|",
     [] { return frmPubOptions.trvOC.NodeByKey(u"iec")->Checked.Get(); }, u"|iec|"},
    {u"One-click Clean/Repair", u"Functions", nullptr, [] { return true; }, u"|"},
};

TEST_F(OptionValues, AreShownAndSavedAsTheTableSays) {
  for (const ValueCase& value : kValues) {
    const auto given = value.value != nullptr ? std::optional(TextView(value.value)) : std::nullopt;
    OpenWith(value.section, value.key, given);
    const std::string name = Narrow(Concat(value.key, u"=", given.value_or(u"(missing)")));
    EXPECT_TRUE(value.shown()) << name;
    EXPECT_EQ(Saved(value.section, value.key),
              value.saved != nullptr ? std::optional(Text(value.saved)) : std::nullopt)
        << name;
  }
}

TEST_F(OptionValues, BackupFolderIsSavedTrimmedAndOnlyWhereItIsUsed) {
  Open(4);
  frmPubOptions.txtDF.Text = u"  D:\\New  ";
  for (const size_t method : {0U, 1U}) {
    frmPubOptions.optCM[method].Value = true;
    EXPECT_EQ(Saved(u"Cleaning Method", u"Backup Folder"), u"C:\\TVXBak");
  }
  frmPubOptions.optCM[2].Value = true;
  EXPECT_EQ(Saved(u"Cleaning Method", u"Backup Folder"), u"D:\\New");
  EXPECT_EQ(BackupFolder, u"D:\\New");
}

TEST_F(OptionValues, TextThatIsNoNumberLeavesTheSavedValue) {
  Open(5);
  frmPubOptions.txtDFSS.Text = u"";
  frmPubOptions.txtOO[0].Text = u"1e9";
  frmPubOptions.txtOO[1].Text = u"ten";
  frmPubOptions.sbtSave.Click();
  EXPECT_EQ(LeastSize, u"10");
  EXPECT_EQ(LastAccessedFile, u"365");
  EXPECT_EQ(LastAccessedPrefetch, u"30");
  frmPubOptions.txtOO[0].Text = u" 0090 ";
  frmPubOptions.sbtSave.Click();
  EXPECT_EQ(LastAccessedFile, u"90");
}

}  // namespace
}  // namespace tavix::mdlPubSelf
