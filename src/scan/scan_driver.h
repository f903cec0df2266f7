#pragma once

#include <cstdint>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// True from the press of Cancel until the scan has written its closing line.
inline bool CancelRequested = false;
// Twips by which the progress bar grows after each function of a scan, or after every 26 rows of a clean.
inline int16_t ProgressStep = 0;

// Scans the ticked functions of the current page: clears lsvResult, fills it, then shows the closing line,
// the time and the sum. Does nothing while a scan or a clean runs.
void sbtScan_Click();
// Asks the running scan to end.
void sbtCancel_Click();
// Runs the user interface once, in the middle of a longer piece of work. False if the scan is to end.
bool YieldUnlessCancelled();
// Enables or disables the controls that may not be used while rows are added: Check All, Clean, Repair and
// the toolbar.
void SetResultControlsEnabled(bool enabled);
// The status line after a scan, such as "Finished, no item found." or "Canceled, please click <Clean> ...".
Text ClosingLine(bool registryPage);
// Shows a folder in lblProgS while it is scanned: "Scanning in 'C:\a', please wait...".
void ShowScannedFolder(Text folder);
// Grows the progress bar by ProgressStep and shows the percentage. A bar wider than its frame is pulled back
// one step later. If the frame has no width, the percentage stays as it was.
void AdvanceProgressBar();
// Shows the whole seconds since JobStart: "3 seconds."; "0 second." is the only form without an s. More
// seconds than fit into 16 bits show as zero.
void ShowElapsedTime();

}  // namespace tavix::mdlPubSelf
