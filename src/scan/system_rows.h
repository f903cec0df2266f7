#pragma once

namespace tavix::mdlPubSelf {

// The scanners of the System page that always add their rows: one for a whole bin, file, log or cache.

// One row for the bins of all drives. A size over 32 bits is left out; if the system gives no number, the row
// says "Over 2,097,152".
void ScanRecycleBins();
void ScanMemoryDump();
// One row for each log. A log that can't be read shows the number of the log before it.
void ScanEventLogs();
void ScanMenuOrder();
void ScanTrayNotifications();
void ScanWindowPlaces();

}  // namespace tavix::mdlPubSelf
