#pragma once

namespace tavix::mdlPubSelf {

// The scanners of the System page that walk folders and add a row for each file.

void ScanTemporaryFiles();
// The files that the disk checker left in folders like FOUND.000 at the roots of local drives.
void ScanFileFragments();
void ScanLogFiles();
void ScanUserShortcuts();
void ScanUpdateUninstallers();
void ScanUpdateSources();
void ScanOldPrefetchData();

}  // namespace tavix::mdlPubSelf
