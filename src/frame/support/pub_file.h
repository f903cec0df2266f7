#pragma once

#include <vector>

#include "platform/file_system.h"

namespace tavix {

// Line-based editing of text files. An operation that fails leaves the file and the result unchanged. One
// made without a file system fails at everything.
class clsPubFile {
 public:
  clsPubFile() = default;
  explicit clsPubFile(platform::FileSystem* files) : files_(files) {}

  // Appends the text and a line end to the file. Makes the file if it is missing. Doesn't end a last line
  // that has no line end yet.
  void AppendLine(TextView file, TextView text) const;
  // The number of line ends and one more; 0 for a missing file.
  void CountLines(TextView file, int& count) const;
  // Removes each line whose field `field`, counted from 0 under `separator`, equals the text.
  void RemoveLine(TextView file, TextView text, TextView separator, int field) const;

 private:
  platform::FileSystem* files_ = platform::noFileSystem;
};

// The lines of a text file (text/text_file.h has what a line is). None when the file can't be read.
std::vector<Text> ReadTextLines(TextView file);

namespace mdlPubSelf {
inline clsPubFile pubFile;
}

}  // namespace tavix
