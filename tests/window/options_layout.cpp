#include <fstream>
#include <iterator>
#include <vector>

#include "forms/options_form.h"
#include "options/options_page_tree.h"
#include "support/program_test.h"
#include "support/source_folder.h"
#include "text/ini_text.h"
#include "text/text_file.h"
#include "window/layout.h"
#include "window/place.h"

namespace tavix {
namespace {

// The parameter is the width of a letter in twips: that of the system's font at 96 DPI, or a wide one.
class OptionsLayout : public ProgramTest, public testing::WithParamInterface<int> {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    mdlPubSelf::BuildPageTree();
    LayOutOptionsForm(WidthOf);
  }
  static int WidthOf(TextView text) { return GetParam() * static_cast<int>(text.size()); }
  template <class Captioned>
  static int Words(const Captioned& control) {
    return WidthOf(PlainCaption(control.Caption.Get()));
  }

  static std::vector<std::vector<const Control*>> Pages() {
    OptionsForm& form = frmPubOptions;
    std::vector<std::vector<const Control*>> pages = {{&form.trvOC}, {&form.lsvJF}, {}, {}, {}};
    const auto add = [&](size_t page, auto&... members) {
      const auto addAll = [&](auto& controls) {
        for (auto& control : controls) pages[page].push_back(&control);
      };
      (addAll(members), ...);
    };
    add(1, form.sbtJF);
    add(2, form.fraDFGroup, form.cbxDF, form.optDF, form.sbtDF);
    for (const Control* control :
         std::initializer_list<const Control*>{&form.txtDFSS, &form.lblDFSS, &form.lstDF})
      pages[2].push_back(control);
    add(3, form.optCM);
    pages[3].push_back(&form.txtDF);
    pages[3].push_back(&form.sbtCM);
    add(4, form.fraOOGroup, form.optOO, form.lblOOSize, form.lblOODays, form.txtOO, form.sbtOO);
    pages[4].push_back(&form.lsvOO);
    return pages;
  }
};

bool Overlap(const Bounds& a, const Bounds& b) {
  return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

bool Contains(const Bounds& room, const Bounds& place) {
  return place.left >= room.left && place.top >= room.top && place.Right() <= room.Right() &&
         place.Bottom() <= room.Bottom();
}

// The real list reads its columns when they change.
TEST_P(OptionsLayout, AListHearsOfTheWidthsOfItsColumns) {
  struct Shown : ControlPeer {
    explicit Shown(ListView& model) : list(model) { list.peer = this; }
    ~Shown() override { list.peer = nullptr; }
    void ModelChanged() override { widths = Widths(); }
    std::vector<int> Widths() const { return {list.ColumnHeaders[0].Width, list.ColumnHeaders[1].Width}; }
    ListView& list;
    std::vector<int> widths;
  };
  for (ListView* list : {&frmPubOptions.lsvJF, &frmPubOptions.lsvOO}) {
    list->ColumnHeaders[0].Width = 0;
    list->ColumnHeaders[1].Width = 0;
    const Shown shown(*list);
    list->Width = 1;
    LayOutOptionsForm(WidthOf);
    EXPECT_GT(shown.Widths()[0], 0);
    EXPECT_EQ(shown.widths, shown.Widths());
  }
}

INSTANTIATE_TEST_SUITE_P(Fonts, OptionsLayout, testing::Values(70, 85, 100));

TEST_P(OptionsLayout, EachControlHasRoomOfItsOwnInsideItsPage) {
  const Bounds room = BoundsOf(frmPubOptions.fraOC);
  for (const auto& page : Pages()) {
    for (size_t i = 0; i < page.size(); ++i) {
      const Bounds place = BoundsOf(*page[i]);
      EXPECT_GT(place.width, 0) << i;
      EXPECT_GT(place.height, 0) << i;
      EXPECT_TRUE(Contains(room, place)) << i;
      for (size_t j = 0; j < i; ++j) EXPECT_FALSE(Overlap(place, BoundsOf(*page[j]))) << i << " " << j;
    }
  }
}

TEST_P(OptionsLayout, TheFramesHaveOneLeftEdgeRightOfTheTree) {
  const OptionsForm& form = frmPubOptions;
  const Bounds room = BoundsOf(form.fraOC);
  for (const Frame* frame : {&form.fraJF, &form.fraDF, &form.fraCM, &form.fraOO}) {
    EXPECT_EQ(frame->Left, room.left);
    EXPECT_EQ(frame->Top, room.top);
  }
  EXPECT_GT(room.left, BoundsOf(form.trv).Right());
  EXPECT_EQ(form.sbtRecommend.Left, room.left);
  EXPECT_EQ(BoundsOf(form.sbtClose).Right(), room.Right());
  EXPECT_GT(form.sbtSave.Top, room.Bottom());
  EXPECT_LE(BoundsOf(form.lblRemark).Bottom(), room.top);
}

TEST_P(OptionsLayout, TheWindowFitsTheSmallestScreen) {
  constexpr int kFrame = 600;  // window frame and title bar
  EXPECT_LE(frmPubOptions.Width + 240, 800 * 15);
  EXPECT_LE(frmPubOptions.Height + kFrame, 600 * 15);
  EXPECT_EQ(BoundsOf(frmPubOptions.sbtClose).Right() + 210, frmPubOptions.Width);
}

TEST_P(OptionsLayout, NoCaptionIsCut) {
  const OptionsForm& form = frmPubOptions;
  constexpr int kMark = 300;
  for (const CheckBox& box : form.cbxDF) EXPECT_GE(box.Width, Words(box) + kMark);
  for (const auto* options : {&form.optCM, &form.optOO})
    for (const OptionButton& option : *options) EXPECT_GE(option.Width, Words(option) + kMark);
  for (const OptionButton& option : form.optDF) EXPECT_GE(option.Width, Words(option) + kMark);
  for (const Button* button :
       {&form.sbtSave, &form.sbtRecommend, &form.sbtClose, &form.sbtCM, &form.sbtJF[3]})
    EXPECT_GE(button->Width, Words(*button) + 2 * 90);
  for (const Label& label : form.lblOODays) EXPECT_GE(label.Width, Words(label));
  for (const Label& label : form.lblOOSize) EXPECT_GE(label.Width, Words(label));
}

// The number of lines of a text that wraps at its blanks.
int LinesOf(TextView text, int lettersOfALine) {
  int lines = 1, used = -1;
  for (const TextView word : Split(text, u" ")) {
    const int letters = static_cast<int>(word.size());
    if (used + 1 + letters > lettersOfALine) {
      ++lines;
      used = -1;
    }
    used += 1 + letters;
  }
  return lines;
}

TEST_P(OptionsLayout, TheRemarksOfThePagesTakeTwoLinesAtMost) {
  const int letters = frmPubOptions.lblRemark.Width / GetParam();
  for (const char* language : {"en", "de"}) {
    std::ifstream file(SourceFolder() + "/res/lang/" + language + "/tips.dll", std::ios::binary);
    const FileText tips = DecodeTextFile(std::string(std::istreambuf_iterator<char>(file), {}));
    for (const TextView key : {u"OC_REMARK", u"JF_REMARK", u"DF_REMARK", u"CM_REMARK", u"OO_REMARK"}) {
      const Text remark = ReadIniValue(tips.text, u"Message & Text", key).value_or(Text());
      EXPECT_NE(remark, u"");
      EXPECT_LE(LinesOf(remark, letters), 2) << language << " " << Narrow(key) << " by " << letters;
    }
  }
}

}  // namespace
}  // namespace tavix
