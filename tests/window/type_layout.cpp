#include "forms/type_form.h"
#include "support/program_test.h"
#include "window/layout.h"
#include "window/place.h"

namespace tavix {
namespace {

int WidthOf(TextView text) { return 90 * static_cast<int>(text.size()); }

class TypeLayout : public ProgramTest {
 protected:
  static void Check() {
    const TypeForm& form = frmPubType;
    const int right = form.Width - form.lbl[0].Left;
    for (size_t i = 0; i < form.txt.size(); ++i) {
      EXPECT_GE(form.lbl[i].Width, WidthOf(PlainCaption(form.lbl[i].Caption.Get())));
      EXPECT_EQ(BoundsOf(form.lbl[i]).Right(), form.txt[i].Left.Get());
      EXPECT_EQ(BoundsOf(form.txt[i]).Right(), right);
    }
    EXPECT_EQ(BoundsOf(form.sbt[2]).Right(), right);
    EXPECT_GE(form.sbt[0].Left, form.lbl[0].Left.Get());
    for (size_t i = 0; i < form.sbt.size(); ++i) {
      EXPECT_GE(form.sbt[i].Width, WidthOf(PlainCaption(form.sbt[i].Caption.Get())) + 2 * 90);
      EXPECT_LT(BoundsOf(form.sbt[i]).Bottom(), form.Height);
      if (i > 0) {
        EXPECT_LT(BoundsOf(form.sbt[i - 1]).Right(), form.sbt[i].Left.Get());
      }
    }
  }
};

TEST_F(TypeLayout, BoxesAndButtonsEndAtTheSameEdge) {
  LayOutTypeForm(WidthOf);
  Check();
}

TEST_F(TypeLayout, LongCaptionsWidenTheWindow) {
  LayOutTypeForm(WidthOf);
  const int width = frmPubType.Width;
  for (Button& button : frmPubType.sbt) button.Caption = Text(u"Speichern && Schlie\u00DFen und weiter");
  LayOutTypeForm(WidthOf);
  EXPECT_GT(frmPubType.Width, width);
  Check();
}

}  // namespace
}  // namespace tavix
