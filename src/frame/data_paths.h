#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// The program's data, wherever the program is installed.
constexpr TextView kMakersFolder = u"C:\\MORVDataPath";
constexpr TextView kDataFolder = u"C:\\MORVDataPath\\TVX";
constexpr TextView kSettingsFile = u"C:\\MORVDataPath\\TVX\\tvx.dll";
constexpr TextView kBuiltInJunkFile = u"C:\\MORVDataPath\\TVX\\defjunk.dll";
constexpr TextView kUserJunkFile = u"C:\\MORVDataPath\\TVX\\userjunk.dll";
constexpr TextView kMarkerFile = u"C:\\MORVDataPath\\TVX\\TVX data folder, please do not delete it";
constexpr TextView kDuplicateFolder = u"C:\\MORVDataPath\\TVX\\DupeFiles";
constexpr TextView kScannedFolder = u"C:\\MORVDataPath\\TVX\\DupeFiles\\scanned";
constexpr TextView kComparedFolder = u"C:\\MORVDataPath\\TVX\\DupeFiles\\compared";
constexpr TextView kDefaultBackupFolder = u"C:\\TVXBak";

}  // namespace tavix::mdlPubSelf
