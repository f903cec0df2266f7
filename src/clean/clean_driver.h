#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// Executes the ticked rows of lsvResult from the last to the first, removes the rows that are done and shows
// the closing texts. A row of a file or folder is done if its target has gone; any other row is done whether
// or not its action worked. Can't be cancelled. Does nothing while a scan runs or if there are no rows.
void sbtClean_Click();

// The same for the Repair button.
void sbtRepair_Click();

// Clears an event log without saving a copy. A log that can't be opened stays as it is.
void ClearSystemLog(TextView log);

}  // namespace tavix::mdlPubSelf
