#pragma once

#include <cstdint>

namespace tavix::mdlPubSelf {

// True from the press of Cancel until the driver has written its closing line.
inline bool CancelRequested = false;
// Twips added to the progress bar after each function of a scan, or every 26 rows of a clean.
inline int16_t ProgressStep = 0;

// Scans the ticked functions of the page in use into lsvResult, from the cleared list to the closing line,
// the time and the sum. Does nothing while a scan or a clean runs.
void sbtScan_Click();
// Asks the running scan to end.
void sbtCancel_Click();
// Enables or disables what may not be used while rows are being added: Check All, Clean, Repair, toolbar.
void SetResultControlsEnabled(bool enabled);
// Grows the progress bar by one step and writes its percentage. The pull-back to the frame's width comes
// one step late. With a frame of no width the percentage stays as it was.
void AdvanceProgressBar();
// "3 seconds." for the whole seconds since `JobStart`; "0 second." is the one form without an s. More than
// a 16-bit integer holds reads as zero.
void ShowElapsedTime();

}  // namespace tavix::mdlPubSelf
