#include "options/number_box.h"

#include "forms/options_form.h"
#include "frame/messages.h"
#include "options/options_page_tree.h"
#include "text/number.h"

namespace tavix::mdlPubSelf {
namespace {

const NumberBox kNumberBoxes[] = {
    {&frmPubOptions.txtDFSS, kDuplicateFilesPage, 1, u" 0."},
    {&frmPubOptions.txtOO[0], kOtherOptionsPage, 60, u" 59."},
    {&frmPubOptions.txtOO[1], kOtherOptionsPage, 6, u" 5."},
};

}  // namespace

std::span<const NumberBox> NumberBoxes() { return kNumberBoxes; }

void NumberBox_GotFocus(const NumberBox& number) { number.box->SelectAll(); }

void NumberBox_KeyPress(int& key) {
  constexpr int kBackspace = 8;
  if ((key < '0' || key > '9') && key != kBackspace) key = 0;
}

void NumberBox_LostFocus(const NumberBox& number) {
  const int16_t entered = ToInteger16(number.box->Text.Get()).value_or(0);
  if (entered >= number.smallest) return;
  Inform(Concat(GetMessageText(u"LBOUND_ERR"), number.afterMessage));
  if (!IsOptionsPageShown(number.page)) ShowOptionsPage(number.page);
  frmPubOptions.ActiveControl = number.box;
}

}  // namespace tavix::mdlPubSelf
