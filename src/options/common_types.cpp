#include "options/common_types.h"

#include "forms/options_form.h"
#include "frame/messages.h"
#include "frame/settings.h"
#include "platform/dialogs.h"
#include "text/letter_case.h"

namespace tavix::mdlPubSelf {
namespace {

Text AskForExtension(TextView offered) {
  return Text(Trim(platform::dialogs->InputBox(GetMessageText(u"INPUT_EXT"), offered).value_or(u"")));
}

bool HoldsForbiddenCharacter(TextView extension) {
  return extension.find_first_of(u"*.\\/:?\"<>|") != TextView::npos;
}

// The only message box without an icon.
void TellPlainly(TextView text) { platform::dialogs->MsgBox(text, 0); }

bool StandsInSetting(TextView extension) {
  return ToLower(CommonTypes).find(Concat(u"*.", ToLower(extension))) != Text::npos;
}

void AddType() {
  for (Text extension;;) {
    extension = AskForExtension(extension);
    if (extension.empty()) return;
    if (HoldsForbiddenCharacter(extension)) {
      Inform(GetMessageText(u"EXT_ERR"));
    } else if (StandsInSetting(extension)) {
      TellPlainly(Concat(u"'*.", extension, u"' ", GetMessageText(u"EXIST")));
    } else {
      return frmPubOptions.lstDF.AddItem(Concat(u"*.", extension));
    }
  }
}

void DeleteTypes() {
  ListBox& list = frmPubOptions.lstDF;
  for (int row = list.ListCount() - 1; row >= 0; --row) {
    if (list.Selected(row)) list.RemoveItem(row);
  }
  list.SetSelected(0, true);
}

}  // namespace

void lstDF_KeyUp(int keyCode, int shift) {
  if (keyCode != 'A' || shift != kCtrl) return;
  ListBox& list = frmPubOptions.lstDF;
  for (int row = 0; row < list.ListCount(); ++row) list.SetSelected(row, true);
}

void sbtDF_Click(int index) { index == 0 ? AddType() : DeleteTypes(); }

}  // namespace tavix::mdlPubSelf
