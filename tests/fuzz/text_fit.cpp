#include <cstdint>

#include "forms/main_form.h"
#include "require.h"
#include "window/layout.h"

// The first byte of the input is the width of a letter, its lines are captions of any length. Controls never
// overlap, and a control placed after another one keeps its right edge.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace tavix;
  if (size < 1) return 0;
  const int letter = data[0] + 1;
  const Text input(data + 1, data + size);
  const auto lines = Split(input, u"\n");
  const auto line = [&lines](size_t index) { return index < lines.size() ? Text(lines[index]) : Text(); };
  MainForm& form = frmPubMain;
  form.BigInterface = data[0] % 2 != 0;
  LayOutMainForm();
  for (size_t i = 0; i < 4; ++i) form.sbtToolbar[i].Caption = line(i);
  form.cbxAll.Caption = line(4);
  form.lblOpt.Caption = line(5);
  form.lblTimeP.Caption = line(6);
  const auto right = [](const Control& control) { return control.Left + control.Width; };
  const int prompt = right(form.lblOptPrompt);
  const int time = right(form.lblTime);
  FitTexts([letter](TextView text) { return letter * static_cast<int>(text.size()); });
  for (size_t i = 0; i < 4; ++i) {
    Require(form.sbtToolbar[i].Width >= letter * static_cast<int>(form.sbtToolbar[i].Caption.Get().size()));
    if (i > 0) Require(form.sbtToolbar[i].Left >= right(form.sbtToolbar[i - 1]));
  }
  Require(right(form.sbtToolbar[3]) == right(form.lsvResult));
  Require(right(form.lblOptPrompt) == prompt && right(form.lblTime) == time);
  Require(form.lblOptPrompt.Left >= right(form.lblOpt) && form.lblTime.Left >= right(form.lblTimeP));
  return 0;
}
