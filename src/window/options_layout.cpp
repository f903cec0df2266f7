#include <algorithm>
#include <span>

#include "forms/options_form.h"
#include "window/layout.h"
#include "window/place.h"

namespace tavix {
namespace {

using dialog::kButtonHeight;
using dialog::kGap;
using dialog::kMargin;

// Twips.
constexpr int kBetweenGroups = 210;
constexpr int kHeight = 7500;
constexpr int kLeastPage = 6900;
constexpr int kWidestWindow = 11700;
constexpr int kTreePadding = 600;
constexpr int kPicture = 480;
constexpr int kTitle = 330;
constexpr int kRemark = 480;  // two lines
constexpr int kRow = 330;
constexpr int kGroupTitle = 285;
constexpr int kMark = 390;  // the mark of a check box or option button, and the gaps around its words
constexpr int kNumberBox = 900;
constexpr int kCommonTypes = 3000;  // width of lstDF

class OptionsLayout {
 public:
  explicit OptionsLayout(const WidthOf& widthOf) : widthOf_(widthOf) {}

  void Run() {
    const int tree = TreeWidth();
    const int page = std::clamp(PageWidth(), kLeastPage, kWidestWindow - tree - 3 * kMargin);
    const int left = kMargin + tree + kMargin;
    form_.Width = left + page + kMargin;
    form_.Height = kHeight;
    Put(form_.trv, {kMargin, kMargin, tree, kHeight - 2 * kMargin});
    PutHead(left, page);
    PutCommands(left, page);
    const int top = form_.lblRemark.Top + form_.lblRemark.Height + kMargin;
    const Bounds room{left, top, page, form_.sbtSave.Top - kMargin - top};
    for (Frame* frame : {&form_.fraOC, &form_.fraJF, &form_.fraDF, &form_.fraCM, &form_.fraOO})
      Put(*frame, room);
    Put(form_.trvOC, room);
    PutJunkTypes(room);
    PutDuplicates(room);
    PutMethod(room);
    PutOthers(room);
  }

 private:
  template <class Captioned>
  int Words(const Captioned& control) const {
    return CaptionWidth(control, widthOf_);
  }
  template <class Captioned>
  int Marked(const Captioned& control) const {
    return kMark + Words(control);
  }
  int ButtonWidth(const Button& button) const {
    return dialog::ButtonWidth(button, &button == &form_.sbtSave, widthOf_);
  }
  template <class Controls>
  static int Widest(const Controls& controls, auto&& width) {
    int widest = 0;
    for (const auto& control : controls) widest = std::max(widest, width(control));
    return widest;
  }
  int ButtonsWidth(std::span<const Button> buttons) const {
    return Widest(buttons, [this](const Button& button) { return ButtonWidth(button); });
  }

  int TreeWidth() const {
    int widest = 0;
    for (int i = 1; i <= form_.trv.NodeCount(); ++i)
      widest = std::max(widest, widthOf_(form_.trv.NodeAt(i)->Caption.Get()));
    return widest + kTreePadding;
  }

  int SizeOptions() const {
    return Widest(form_.optOO, [this](const OptionButton& option) { return Marked(option); });
  }

  // The width of the widest row that can't be broken into lines.
  int PageWidth() const {
    const auto words = [this](const auto& control) { return Words(control); };
    const int sizes = SizeOptions() + kGap + Widest(std::span(form_.lblOOSize).first(3), words);
    const int days = Widest(form_.lblOODays, words) + 2 * kGap + kNumberBox;
    const int least = Marked(form_.cbxDF[3]) + kNumberBox + 2 * kGap + Words(form_.lblDFSS);
    // Titles of groups are bold.
    const int groups = Widest(form_.fraOOGroup, words) * 5 / 4 + kMargin;
    const int commands = ButtonWidth(form_.sbtRecommend) + ButtonWidth(form_.sbtSave) +
                         ButtonWidth(form_.sbtClose) + 3 * kMargin;
    return std::max({sizes, days, least, groups, commands});
  }

  void PutHead(int left, int width) {
    const int words = left + kPicture + kMargin;
    Put(form_.picBig, {left, kMargin, kPicture, kPicture});
    Put(form_.lblOpt, {words, kMargin - 30, left + width - words, kTitle});
    Put(form_.lblRemark, {words, kMargin - 30 + kTitle, left + width - words, kRemark});
  }

  void PutCommands(int left, int width) {
    const int top = kHeight - kMargin - kButtonHeight;
    const int closes = std::max(ButtonWidth(form_.sbtSave), ButtonWidth(form_.sbtClose));
    Put(form_.sbtRecommend, {left, top, ButtonWidth(form_.sbtRecommend), kButtonHeight});
    Put(form_.sbtClose, {left + width - closes, top, closes, kButtonHeight});
    Put(form_.sbtSave, {form_.sbtClose.Left - kGap - closes, top, closes, kButtonHeight});
  }

  // Puts buttons one below the other; `right` is their right edge.
  void PutColumn(std::span<Button> buttons, int right, int top) {
    const int width = ButtonsWidth(buttons);
    for (Button& button : buttons) {
      Put(button, {right - width, top, width, kButtonHeight});
      top += kButtonHeight + kGap;
    }
  }
  // Puts the buttons at the right of the room and the list in the rest of it.
  void PutListWithButtons(ListView& list, std::span<Button> buttons, const Bounds& room) {
    PutColumn(buttons, room.Right(), room.top);
    const int width = room.width - ButtonsWidth(buttons) - kGap;
    Put(list, {room.left, room.top, width, room.height});
    constexpr int kScrollBar = 300;
    list.ColumnHeaders[0].Width = (width - kScrollBar) * 11 / 20;
    list.ColumnHeaders[1].Width = width - kScrollBar - list.ColumnHeaders[0].Width;
    list.PropertyChanged();
  }

  // Puts the title of a group; returns the top of what the group holds.
  static int PutGroup(Frame& title, const Bounds& room, int top) {
    Put(title, {room.left, top, room.width, kGroupTitle});
    return top + kGroupTitle + kGap / 2;
  }

  void PutJunkTypes(const Bounds& room) { PutListWithButtons(form_.lsvJF, form_.sbtJF, room); }

  void PutDuplicates(const Bounds& room) {
    int top = PutGroup(form_.fraDFGroup[0], room, room.top);
    for (CheckBox& box : form_.cbxDF) {
      Put(box, {room.left, top, Marked(box), kRow});
      top += kRow;
    }
    const Bounds least = BoundsOf(form_.cbxDF[3]);
    Put(form_.txtDFSS, {least.Right(), least.top, kNumberBox, kRow});
    Put(form_.lblDFSS, {least.Right() + kNumberBox + kGap, least.top, Words(form_.lblDFSS) + kGap, kRow});
    top = PutGroup(form_.fraDFGroup[1], room, top + kBetweenGroups);
    for (OptionButton& option : form_.optDF) {
      Put(option, {room.left, top, Marked(option), kRow});
      top += kRow;
    }
    top += kGap / 2;
    const int left = room.left + kMark - kGap;
    Put(form_.lstDF, {left, top, kCommonTypes, room.Bottom() - top});
    PutColumn(form_.sbtDF, left + kCommonTypes + kGap + ButtonsWidth(form_.sbtDF), top);
  }

  void PutMethod(const Bounds& room) {
    int top = room.top;
    for (OptionButton& option : form_.optCM) {
      Put(option, {room.left, top, Marked(option), kRow});
      top += kRow + kGap / 2;
    }
    top += kGap / 2;
    const int left = room.left + kMark - kGap;
    const int button = ButtonWidth(form_.sbtCM);
    Put(form_.sbtCM, {room.Right() - button, top, button, kButtonHeight});
    Put(form_.txtDF, {left, top, form_.sbtCM.Left - kGap - left, kButtonHeight});
  }

  void PutOthers(const Bounds& room) {
    int top = PutGroup(form_.fraOOGroup[0], room, room.top);
    const int options = SizeOptions();
    for (size_t i = 0; i < form_.optOO.size(); ++i) {
      Put(form_.optOO[i], {room.left, top, options, kRow});
      const int notes = room.left + options + kGap;
      Put(form_.lblOOSize[i], {notes, top, room.Right() - notes, kRow});
      top += kRow;
    }
    Put(form_.lblOOSize[3], {room.left, top, room.width, kRow});
    top = PutGroup(form_.fraOOGroup[1], room, top + kRow + kGap);
    const int boxes = room.Right() - kNumberBox;
    for (size_t i = 0; i < form_.txtOO.size(); ++i) {
      Put(form_.lblOODays[i], {room.left, top, boxes - kGap - room.left, kRow});
      Put(form_.txtOO[i], {boxes, top, kNumberBox, kRow});
      top += kRow + kGap / 2;
    }
    top = PutGroup(form_.fraOOGroup[2], room, top + kGap) + kGap / 2;
    PutListWithButtons(form_.lsvOO, form_.sbtOO, {room.left, top, room.width, room.Bottom() - top});
  }

  OptionsForm& form_ = frmPubOptions;
  const WidthOf& widthOf_;
};

}  // namespace

void LayOutOptionsForm(const WidthOf& widthOf) { OptionsLayout(widthOf).Run(); }

}  // namespace tavix
