#include "window/text_fit.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "forms/main_form.h"

namespace tavix {
namespace {

constexpr int kGap = 90;
constexpr int kWordGap = 60;
constexpr int kBox = 300;            // the box of Check All with the room behind it
constexpr int kButtonPadding = 180;  // on both sides of a caption, where there is room
constexpr int kLeastPadding = 90;

using Widths = std::array<int, 4>;

int Right(const Control& control) { return control.Left + control.Width; }

int Sum(const Widths& widths) { return std::accumulate(widths.begin(), widths.end(), 0); }

// All buttons as wide as the widest where there is room, else each by its own caption.
Widths ToolbarWidths(const Widths& captions, int room) {
  const int widest = *std::ranges::max_element(captions) + 2 * kButtonPadding;
  Widths widths;
  widths.fill(std::max(widest, frmPubMain.sbtToolbar[0].Width.Get()));
  if (Sum(widths) <= room) return widths;
  const int padding = std::clamp((room - Sum(captions)) / 8, kLeastPadding, kButtonPadding);
  std::ranges::transform(captions, widths.begin(), [&](int caption) { return caption + 2 * padding; });
  return widths;
}

void FitToolbar(const std::function<int(TextView)>& widthOf) {
  MainForm& form = frmPubMain;
  form.cbxAll.Width = kBox + widthOf(form.cbxAll.Caption.Get()) + kWordGap;
  Widths captions{};
  for (size_t i = 0; i < captions.size(); ++i) captions[i] = widthOf(form.sbtToolbar[i].Caption.Get());
  const int right = Right(form.lsvResult);
  const int room = right - Right(form.cbxAll) - 4 * kGap;
  const Widths widths = ToolbarWidths(captions, room);
  int left = right - Sum(widths) - 3 * kGap;
  for (size_t i = 0; i < widths.size(); ++i) {
    form.sbtToolbar[i].Left = left;
    form.sbtToolbar[i].Width = widths[i];
    left += widths[i] + kGap;
  }
}

// `second` keeps its right end.
void PutBehind(Control& first, TextView text, Control& second, const std::function<int(TextView)>& widthOf) {
  const int right = Right(second);
  first.Width = widthOf(text);
  second.Left = Right(first) + kWordGap;
  second.Width = right - second.Left;
}

}  // namespace

void FitTexts(const std::function<int(TextView)>& widthOf) {
  MainForm& form = frmPubMain;
  FitToolbar(widthOf);
  PutBehind(form.lblOpt, form.lblOpt.Caption.Get(), form.lblOptPrompt, widthOf);
  PutBehind(form.lblTimeP, form.lblTimeP.Caption.Get(), form.lblTime, widthOf);
}

}  // namespace tavix
