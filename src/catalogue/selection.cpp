#include "catalogue/selection.h"

#include <cstdint>

#include "forms/main_form.h"

namespace tavix::mdlPubSelf {
namespace {

Node* FirstUnticked(Node* sibling) {
  while (sibling != nullptr && sibling->Checked) sibling = sibling->Next();
  return sibling;
}

}  // namespace

void lst_ItemCheck(int item) {
  MainForm& form = frmPubMain;
  if (form.ListGuard || item >= 1) return;
  const bool ticked = form.lst.Selected(0);
  for (int row = 1; row < form.lst.ListCount(); ++row) form.lst.SetSelected(row, ticked);
  form.ListGuard = true;
  form.lst.SetList(0, ticked ? kUncheckAll : kCheckAll);
  form.ListGuard = false;
}

void trvPrivacy_NodeCheck(Node& node) {
  const Color plain = frmPubMain.lsvResult.BackColor;
  if (node.Children() > 0) {
    node.BackColor = plain;
    for (Node* child = node.Child(); child != nullptr; child = child->Next()) child->Checked = node.Checked;
    return;
  }
  Node* parent = node.Parent();
  if (parent == nullptr) return;
  // The branch stays ticked even if its last function is unticked: it is marked instead.
  parent->Checked = true;
  parent->BackColor = FirstUnticked(node.FirstSibling()) != nullptr ? kButtonFace : plain;
}

void cbxAll_Click() {
  const int rows = frmPubMain.lsvResult.Count();
  if (rows > INT16_MAX) return;
  const bool checked = frmPubMain.cbxAll.Value != 0;
  for (int row = 1; row <= rows; ++row) frmPubMain.lsvResult.Row(row).SetChecked(checked);
}

}  // namespace tavix::mdlPubSelf
