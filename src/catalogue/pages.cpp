#include "catalogue/pages.h"

#include <array>
#include <cstdint>
#include <span>

#include "catalogue/functions.h"
#include "catalogue/scope_tree.h"
#include "catalogue/selection.h"
#include "forms/main_form.h"

namespace tavix::mdlPubSelf {
namespace {

struct Page {
  PictureBox* picture;
  TextView image;
  std::span<const CleaningFunction> functions;  // the rows of lst; empty if the page shows a tree instead
};

// Indexes of kPages and values of LastPage.
constexpr int16_t kPrivacyPage = 0;
constexpr int16_t kSystemPage = 1;
constexpr int16_t kRegistryPage = 2;
constexpr int16_t kAdvancedPage = 3;
const std::array<Page, 4> kPages = {{
    {&frmPubMain.picPrivacy, u"PRIVACY_STTC", {}},
    {&frmPubMain.picSystem, u"SYS_STTC", kSystemFunctions},
    {&frmPubMain.picRegistry, u"REG_STTC", kRegistryFunctions},
    {&frmPubMain.picAdv, u"ADV_STTC", kAdvancedFunctions},
}};

enum class On { Show, Hide, Leave };

struct Visibility {
  Control* control;
  std::array<On, kPages.size()> on;
};
const Visibility kVisibility[] = {
    {&frmPubMain.trvPrivacy, {On::Show, On::Hide, On::Hide, On::Hide}},
    {&frmPubMain.lst, {On::Hide, On::Show, On::Show, On::Show}},
    {&frmPubMain.trvRes, {On::Leave, On::Hide, On::Hide, On::Show}},
    {&frmPubMain.lsvResult, {On::Show, On::Show, On::Show, On::Show}},
    {&frmPubMain.sbtClean, {On::Show, On::Show, On::Hide, On::Show}},
    {&frmPubMain.sbtRepair, {On::Hide, On::Hide, On::Show, On::Hide}},
    {&frmPubMain.lblOpt, {On::Hide, On::Leave, On::Leave, On::Leave}},
    {&frmPubMain.lblOptPrompt, {On::Hide, On::Leave, On::Leave, On::Leave}},
};

void ShowControls(int16_t page) {
  for (const Visibility& row : kVisibility) {
    const On on = row.on[static_cast<size_t>(page)];
    if (on != On::Leave) row.control->Visible = on == On::Show;
  }
}

// With `aboveScope` the scope tree takes the lower part, and the list ends above it.
void PlaceList(bool aboveScope) {
  constexpr int kGap = 90;
  const TreeView& place = frmPubMain.trvPrivacy;
  CheckList& list = frmPubMain.lst;
  list.Left = place.Left;
  list.Top = place.Top;
  list.Height = aboveScope ? frmPubMain.trvRes.Top - kGap - place.Top : place.Height;
}

void FillList(std::span<const CleaningFunction> functions) {
  MainForm& form = frmPubMain;
  form.lst.Clear();
  form.lst.AddItem(kUncheckAll);
  for (const CleaningFunction& function : functions) form.lst.AddItem(CaptionOf(function));
  form.ListGuard = true;
  for (int row = 0; row < form.lst.ListCount(); ++row) form.lst.SetSelected(row, true);
  form.ListGuard = false;
}

void OpenPage(int16_t index, int button) {
  const Page& page = kPages[static_cast<size_t>(index)];
  if (button != kLeftButton || page.picture->BorderStyle != 0) return;
  for (PictureBox* picture : frmPubMain.PagePictures())
    picture->BorderStyle = picture == page.picture ? 1 : 0;
  page.picture->Picture = Text(page.image);
  ShowControls(index);
  if (!page.functions.empty()) {
    PlaceList(index == kAdvancedPage);
    FillList(page.functions);
  }
  frmPubMain.LastPage = index;
  if (index == kAdvancedPage) BuildScopeTree();
}

}  // namespace

void picPrivacy_MouseUp(int button) { OpenPage(kPrivacyPage, button); }
void picSystem_MouseUp(int button) { OpenPage(kSystemPage, button); }
void picRegistry_MouseUp(int button) { OpenPage(kRegistryPage, button); }
void picAdv_MouseUp(int button) { OpenPage(kAdvancedPage, button); }

void MarkLastPage() {
  const auto page = static_cast<size_t>(frmPubMain.LastPage);
  if (page < kPages.size()) kPages[page].picture->BorderStyle = 1;
}

}  // namespace tavix::mdlPubSelf
