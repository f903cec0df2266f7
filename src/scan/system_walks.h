#pragma once

namespace tavix::mdlPubSelf {

// The scanners of the System page that walk through folders, one row a file.

void ScanTemporaryFiles();
// What the disk checker left in folders such as FOUND.000 at the root of each drive of this machine.
void ScanFileFragments();
void ScanLogFiles();
void ScanUserShortcuts();
void ScanUpdateUninstallers();
void ScanUpdateSources();
void ScanOldPrefetchData();

}  // namespace tavix::mdlPubSelf
