#include "junk/junk_editor.h"

#include "forms/options_form.h"
#include "forms/type_form.h"
#include "frame/data_paths.h"
#include "frame/messages.h"
#include "frame/support/pub_common.h"
#include "frame/support/pub_file.h"
#include "junk/junk_definitions.h"
#include "junk/junk_list.h"
#include "platform/dialogs.h"
#include "platform/file_system.h"
#include "text/letter_case.h"
#include "text/text_file.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr TextView kTab = u"\t";
constexpr int kPatternField = 1;
constexpr int kEnterKey = 13;
constexpr int kDeleteKey = 46;

Text Normalised(TextView text) { return ToLower(Trim(text)); }
Text PatternOf(const ListView::Item& row) { return Normalised(row.SubItems(kPatternColumn)); }

bool AddMode() { return frmPubType.Caption == GetMessageText(u"ADD_JUNK"); }

// The row being edited; 0 if a type is being added.
int EditedRow() { return AddMode() ? 0 : frmPubOptions.lsvJF.SelectedRow(); }

void RemoveFromFile(TextView pattern) {
  MakeWritable(kUserJunkFile);
  pubFile.RemoveLine(kUserJunkFile, pattern, kTab, kPatternField);
}

// Ends the last line of the user's file if it has no line end: an appended line would continue it.
void EndLastLine() {
  const auto content = platform::fileSystem->ReadFile(kUserJunkFile);
  if (!content) return;
  const Text text = DecodeTextFile(*content).text;
  if (!text.empty() && !text.ends_with(u'\n')) pubFile.AppendLine(kUserJunkFile, u"");
}

void AddType() {
  frmPubType.LoadOnce();
  frmPubType.Caption = GetMessageText(u"ADD_JUNK");
  frmPubType.ShowModal();
}

void EditType() {
  ListView& list = frmPubOptions.lsvJF;
  if (list.Count() == 0) return Inform(GetMessageText(u"NO_TYPE_EDIT"));
  const int row = list.SelectedRow();
  if (row == 0 || IsBuiltIn(list.Row(row))) return;
  list.SelectRow(row);
  const ListView::Item item = list.Row(row);
  frmPubType.LoadOnce();
  frmPubType.Caption =
      Concat(GetMessageText(u"EDIT_JUNK", u"Edit Junk File Type"), u" - '", item.Text(), u"'");
  frmPubType.txt[0].Text = Text(item.Text());
  frmPubType.txt[1].Text = Text(item.SubItems(kPatternColumn));
  frmPubType.ShowModal();
}

bool UserWantsToDelete() {
  constexpr int kStyle = platform::kYesNoCancel | platform::kQuestion;
  return platform::dialogs->MsgBox(GetMessageText(u"DEL_TYPE_PROMPT"), kStyle) == platform::kYes;
}

void DeleteTypes() {
  ListView& list = frmPubOptions.lsvJF;
  if (list.Count() == 0) return Inform(GetMessageText(u"NO_TYPE_DEL"));
  if (!UserWantsToDelete()) return;
  for (int row = list.Count(); row >= 1; --row) {
    const ListView::Item item = list.Row(row);
    if (!item.Selected() || IsBuiltIn(item)) continue;
    RemoveFromFile(item.SubItems(kPatternColumn));
    list.Remove(row);
  }
  SelectJunkRow(1);
  frmPubOptions.ActiveControl = &list;
  LoadJunkDefinitions();
}

void TickAll() {
  ListView& list = frmPubOptions.lsvJF;
  for (int row = 1; row <= list.Count(); ++row) list.Row(row).SetChecked(true);
}

bool Refuse(TextView message, TextBox& box) {
  Inform(message);
  frmPubType.ActiveControl = &box;
  return false;
}

bool RefuseEmpty(TextView key, TextBox& box) {
  box.Text = Text();
  return Refuse(GetMessageText(key), box);
}

// The text of the box with a blank for each tab, line end and bar: these separate lines and fields of the
// file.
Text EnteredText(const TextBox& box) { return BlankOut(box.Text.Get(), u"\t\r\n|"); }

bool DiffersFromRow(TextView description, TextView pattern, const ListView::Item& row) {
  return ToLower(Concat(description, pattern)) != Concat(Normalised(row.Text()), PatternOf(row));
}

void SelectNewRow(ListView::Item item) {
  ListView& list = frmPubOptions.lsvJF;
  list.SelectAll(false);
  item.SetSelected(true);
  int row = list.Count();
  while (row > 1 && !list.Row(row).Selected()) --row;
  SelectJunkRow(row);
}

void StoreType(TextView description, TextView pattern, int editedRow) {
  ListView& list = frmPubOptions.lsvJF;
  if (editedRow != 0) {
    RemoveFromFile(list.Row(editedRow).SubItems(kPatternColumn));
    list.Remove(editedRow);
  }
  ListView::Item item = list.Add(description);
  item.SetSubItems(kPatternColumn, pattern);
  item.SetChecked(true);
  MakeWritable(kUserJunkFile);
  EndLastLine();
  pubFile.AppendLine(kUserJunkFile, Concat(description, kTab, pattern, u"\tY\tY\tU"));
  SelectNewRow(item);
  LoadJunkDefinitions();
}

// False if the input is refused.
bool SaveType() {
  if (!ValidateJunkType()) return false;
  const Text description = EnteredText(frmPubType.txt[0]);
  const Text pattern = EnteredText(frmPubType.txt[1]);
  const int row = EditedRow();
  if (row == 0 || DiffersFromRow(description, pattern, frmPubOptions.lsvJF.Row(row)))
    StoreType(description, pattern, row);
  return true;
}

void ClearForNextType() {
  for (TextBox& box : frmPubType.txt) box.Text = Text();
  frmPubType.Caption = GetMessageText(u"ADD_JUNK");
  frmPubType.ActiveControl = &frmPubType.txt[0];
}

}  // namespace

void sbtJF_Click(int index) {
  constexpr void (*kCommands[])() = {AddType, EditType, DeleteTypes, TickAll};
  kCommands[index]();
}

void lsvJF_ColumnClick(int header) { frmPubOptions.lsvJF.SortByClick(header - 1); }

void lsvJF_DblClick() {
  if (frmPubOptions.sbtJF[1].Enabled) frmPubOptions.sbtJF[1].Click();
}

void lsvJF_ItemClick() { EnableJunkCommands(); }

void lsvJF_KeyDown(int keyCode, int) {
  if (keyCode == kDeleteKey && frmPubOptions.sbtJF[2].Enabled) frmPubOptions.sbtJF[2].Click();
}

void frmPubType_Load() {
  for (TextBox& box : frmPubType.txt) box.Text = Text();
  pubCommon.LoadFormTexts(frmPubType, TextCatalogue());
  pubCommon.LoadFormMenus(frmPubType, MenuCatalogue());
}

void frmPubType_KeyDown(int keyCode, int) {
  if (keyCode == kEnterKey) frmPubType.sbt[1].Click();
}

void txt_GotFocus(int index) { frmPubType.txt[static_cast<size_t>(index)].SelectAll(); }

bool ValidateJunkType() {
  auto& [description, pattern] = frmPubType.txt;
  if (EnteredText(description).empty()) return RefuseEmpty(u"NEED_DESC", description);
  if (Trim(pattern.Text.Get()).empty()) return RefuseEmpty(u"NEED_PATTERN", pattern);
  if (pattern.Text.Get().find_first_of(u"\\/:|\"<>;") != Text::npos)
    return Refuse(GetMessageText(u"PATTERN_ERR"), pattern);
  ListView& list = frmPubOptions.lsvJF;
  const Text wanted = ToLower(EnteredText(pattern));
  const int edited = EditedRow();
  if (edited != 0 && PatternOf(list.Row(edited)) == wanted) return true;
  for (int row = 1; row <= list.Count(); ++row) {
    if (PatternOf(list.Row(row)) != wanted) continue;
    return Refuse(Concat(u"'", wanted, u"' ", GetMessageText(u"EXIST")), pattern);
  }
  return true;
}

void sbt_Click(int index) {
  constexpr int kSaveAndAdd = 0;
  constexpr int kClose = 2;
  if (index == kClose) return frmPubType.Unload();
  if (!SaveType()) return;
  if (index == kSaveAndAdd)
    ClearForNextType();
  else
    frmPubType.Unload();
}

}  // namespace tavix::mdlPubSelf
