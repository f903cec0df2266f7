#pragma once

#include <vector>

#include "platform/file_system.h"

namespace tavix {

// Line-based editing of text files. A failed operation leaves the file and the result unchanged. Without a
// file system every operation fails.
class clsPubFile {
 public:
  clsPubFile() = default;
  explicit clsPubFile(platform::FileSystem* files) : files_(files) {}

  // Appends the text and a line end to the file. Makes the file if it is missing. Doesn't end a last line
  // that has no line end yet.
  void AppendLine(TextView file, TextView text) const;
  // The number of line ends plus one. 0 for a file that is missing or can't be read.
  void CountLines(TextView file, int& count) const;
  // Removes each line that, split at `separator`, has `text` as its field number `field`, counted from 0.
  void RemoveLine(TextView file, TextView text, TextView separator, int field) const;

 private:
  platform::FileSystem* files_ = platform::noFileSystem;
};

// The lines of a text file, as TextLines (text/text_file.h) splits them. None when the file can't be read.
std::vector<Text> ReadTextLines(TextView file);

namespace mdlPubSelf {
inline clsPubFile pubFile;
}

}  // namespace tavix
