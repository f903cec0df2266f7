#include "console/progress.h"

#include <cstdio>
#include <string>
#include <utility>

#include "console/report.h"
#include "console/terminal.h"
#include "forms/main_form.h"
#include "text/utf8.h"

namespace tavix::console {
namespace {

constexpr size_t kWidth = 75;  // of the line, in columns; a terminal has 80
// A terminal is slow, and nobody reads more lines than these.
constexpr auto kPause = std::chrono::milliseconds(100);

}  // namespace

Progress::Progress(bool wanted) : shown_(wanted && IsTerminal(stderr)) {
  if (!shown_) return;
  frmPubMain.lblProgS.peer = this;
  frmPubMain.lblProgMI.peer = this;
}

Progress::~Progress() {
  if (!shown_) return;
  frmPubMain.lblProgS.peer = nullptr;
  frmPubMain.lblProgMI.peer = nullptr;
  Clear();
}

void Progress::Show(TextView line) {
  Text padded(BeginningOf(line, kWidth));
  padded.resize(kWidth, u' ');
  WriteText(stderr, ToUtf8(Concat(u"\r", padded, u"\r")));
  std::fflush(stderr);
}

void Progress::Clear() {
  if (std::exchange(onScreen_, false)) Show({});
}

void Progress::ModelChanged() {
  if (!IsDue()) return;
  Text percent = frmPubMain.lblProgMI.Caption.Get();
  percent.insert(0, percent.size() < 4 ? 4 - percent.size() : 0, u' ');
  Show(Concat(percent, u" ", frmPubMain.lblProgS.Caption.Get()));
}

bool Progress::IsDue() {
  const auto now = std::chrono::steady_clock::now();
  if (onScreen_ && now - last_ < kPause) return false;
  last_ = now;
  onScreen_ = true;
  return true;
}

}  // namespace tavix::console
