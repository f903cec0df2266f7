#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// Executes the ticked rows of lsvResult from the last to the first, takes away what was dealt with and
// shows the closing texts. Rows of files and folders go only when their target has gone; all others go
// whether or not their action worked. Does nothing while a scan runs or without rows. It can't be cancelled.
void sbtClean_Click();

// Clean under its other name.
void sbtRepair_Click();

// Clears an event log without saving a copy.
void ClearSystemLog(TextView log);

}  // namespace tavix::mdlPubSelf
