#include "options/options_page_tree.h"

#include <algorithm>
#include <iterator>

#include "forms/options_form.h"
#include "frame/messages.h"

namespace tavix::mdlPubSelf {
namespace {

struct Page {
  TextView key;
  TextView title;
  Frame* frame;
  TextView picture;
  TextView remark;
};

// In the order of their numbers.
const Page kPages[] = {
    {u"oc", u"One-click Clean/Repair", &frmPubOptions.fraOC, u"ONE32", u"OC_REMARK"},
    {u"jf", u"Junk Files", &frmPubOptions.fraJF, u"JUNK32", u"JF_REMARK"},
    {u"df", u"Duplicate Files", &frmPubOptions.fraDF, u"DUP32", u"DF_REMARK"},
    {u"cm", u"Cleaning Method", &frmPubOptions.fraCM, u"DEL32", u"CM_REMARK"},
    {u"oo", u"Other Options", &frmPubOptions.fraOO, u"OPT32", u"OO_REMARK"},
};

}  // namespace

void BuildPageTree() {
  frmPubOptions.trv.Clear();
  for (const Page& page : kPages) frmPubOptions.trv.AddNode(nullptr, page.key, page.title);
}

void trv_NodeClick(Node& node) {
  OptionsForm& form = frmPubOptions;
  for (const Page& page : kPages) page.frame->Visible = false;
  const auto* const page = std::ranges::find(kPages, TextView(node.Key), &Page::key);
  if (page == std::end(kPages)) return;
  form.lblOpt.Caption = Text(page->title);
  page->frame->Visible = true;
  form.lblRemark.Caption = GetMessageText(page->remark);
  form.picBig.Picture = Text(page->picture);
  form.trv.SelectedItem = &node;
}

void ShowOptionsPage(int16_t page) {
  if (Node* node = frmPubOptions.trv.NodeAt(page)) trv_NodeClick(*node);
}

bool IsOptionsPageShown(int16_t page) {
  return page >= 1 && page <= std::ssize(kPages) && kPages[page - 1].frame->Visible;
}

}  // namespace tavix::mdlPubSelf
