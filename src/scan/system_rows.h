#pragma once

namespace tavix::mdlPubSelf {

// The scanners of the System page that add rows of their own, whatever the system holds: one for a whole
// bin, file, log or cache.

// One row for the bins of all drives. A size over 32 bits is left out, or told in words where the system
// gives no number.
void ScanRecycleBins();
void ScanMemoryDump();
// One row a log. A log that can't be read shows the number of the one before it.
void ScanEventLogs();
void ScanMenuOrder();
void ScanTrayNotifications();
void ScanWindowPlaces();

}  // namespace tavix::mdlPubSelf
