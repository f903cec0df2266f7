#include "console/progress.h"

#include <cstdio>
#include <string>
#include <utility>

#include "console/live.h"
#include "console/report.h"
#include "forms/main_form.h"
#include "text/utf8.h"

namespace tavix::console {
Progress::Progress(bool wanted) : shown_(wanted && StandardErrorIsTerminal()) {
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

void Progress::Clear() {
  if (!std::exchange(onScreen_, false)) return;
  std::fputs("\r\033[K", stderr);
  std::fflush(stderr);
}

void Progress::ModelChanged() {
  constexpr size_t kWidth = 70;
  const std::string percent = ToUtf8(frmPubMain.lblProgMI.Caption.Get());
  const std::string status = ToUtf8(BeginningOf(frmPubMain.lblProgS.Caption.Get(), kWidth));
  onScreen_ = true;
  std::fprintf(stderr, "\r\033[K%4s %s", percent.c_str(), status.c_str());
  std::fflush(stderr);
}

}  // namespace tavix::console
