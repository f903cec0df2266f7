#include "options/options_page_tree.h"

#include "options/options_test.h"

namespace tavix::mdlPubSelf {
namespace {

struct PageCase {
  int16_t number;
  const char16_t* key;
  const char16_t* title;
  Frame* frame;
  const char16_t* picture;
  const char16_t* remark;
};

const std::vector<Frame*> kFrames{&frmPubOptions.fraOC, &frmPubOptions.fraJF, &frmPubOptions.fraDF,
                                  &frmPubOptions.fraCM, &frmPubOptions.fraOO};

class OptionPage : public OptionsTest, public testing::WithParamInterface<PageCase> {
 protected:
  static void ExpectShown(const PageCase& page) {
    EXPECT_EQ(frmPubOptions.lblOpt.Caption.Get(), page.title);
    EXPECT_EQ(frmPubOptions.picBig.Picture.Get(), page.picture);
    EXPECT_EQ(frmPubOptions.lblRemark.Caption.Get(), GetMessageText(page.remark));
    EXPECT_NE(frmPubOptions.lblRemark.Caption.Get(), u"");
    EXPECT_EQ(frmPubOptions.trv.SelectedItem, frmPubOptions.trv.NodeAt(page.number));
    for (const Frame* frame : kFrames) EXPECT_EQ(frame->Visible, frame == page.frame);
  }
};

TEST_P(OptionPage, IsTheOneThatTheCallerAsksFor) {
  Open(GetParam().number);
  ExpectShown(GetParam());
}

TEST_P(OptionPage, IsShownByAClickOnItsNode) {
  Open(GetParam().number == 1 ? 2 : 1);
  Node* node = frmPubOptions.trv.NodeAt(GetParam().number);
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(node->Key, GetParam().key);
  EXPECT_EQ(node->Caption.Get(), GetParam().title);
  EXPECT_EQ(node->Parent(), nullptr);
  frmPubOptions.trv.NodeClick(*node);
  ExpectShown(GetParam());
}

TEST_P(OptionPage, IsKnownAsTheOneShown) {
  Open(GetParam().number);
  for (int16_t page = 0; page <= 6; ++page) EXPECT_EQ(IsOptionsPageShown(page), page == GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    Options, OptionPage,
    testing::Values(PageCase{1, u"oc", u"One-click Clean/Repair", &frmPubOptions.fraOC, u"ONE32",
                             u"OC_REMARK"},
                    PageCase{2, u"jf", u"Junk Files", &frmPubOptions.fraJF, u"JUNK32", u"JF_REMARK"},
                    PageCase{3, u"df", u"Duplicate Files", &frmPubOptions.fraDF, u"DUP32", u"DF_REMARK"},
                    PageCase{4, u"cm", u"Cleaning Method", &frmPubOptions.fraCM, u"DEL32", u"CM_REMARK"},
                    PageCase{5, u"oo", u"Other Options", &frmPubOptions.fraOO, u"OPT32", u"OO_REMARK"}),
    [](const auto& test) { return Narrow(test.param.key); });

class OptionsPageTree : public OptionsTest {};

TEST_F(OptionsPageTree, HasFiveNodesHoweverOftenTheWindowIsOpened) {
  Open(1);
  Close();
  Open(5);
  EXPECT_EQ(frmPubOptions.trv.NodeCount(), 5);
}

TEST_F(OptionsPageTree, NumberWithoutAPageShowsNone) {
  for (const int16_t page : {0, 6, -1, 32767}) {
    Open(page);
    EXPECT_EQ(frmPubOptions.trv.SelectedItem, nullptr) << page;
    Close();
  }
}

TEST_F(OptionsPageTree, RemarkFollowsTheCatalogue) {
  UseLanguage("de");
  Open(2);
  EXPECT_EQ(
      frmPubOptions.lblRemark.Caption.Get(),
      u"Hier steht, was als unnötige Datei gilt; eigene Typen lassen sich hinzufügen. Die Häkchen schränken "
      u"die Suche nicht ein.");
  EXPECT_EQ(frmPubOptions.Caption.Get(), u"Optionen");
}

}  // namespace
}  // namespace tavix::mdlPubSelf
