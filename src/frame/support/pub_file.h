#pragma once

#include <vector>

#include "platform/file_system.h"

namespace tavix {

// Line-based editing of text files. An operation that fails leaves file and output as they were; so does
// each with no file system behind it.
class clsPubFile {
 public:
  clsPubFile() = default;
  explicit clsPubFile(platform::FileSystem* files) : files_(files) {}

  // Puts the text and a line end right behind what stands in the file, making the file if needed.
  void AppendLine(TextView file, TextView text) const;
  // The number of line ends and one more; 0 for a missing file.
  void CountLines(TextView file, int& count) const;
  // Removes each line whose field `field`, counted from 0 under `separator`, equals the text.
  void RemoveLine(TextView file, TextView text, TextView separator, int field) const;

 private:
  platform::FileSystem* files_ = nullptr;
};

// The lines of a text file (text/text_file.h has what a line is). None when the file can't be read.
std::vector<Text> ReadTextLines(TextView file);

namespace mdlPubSelf {
inline clsPubFile pubFile;
}

}  // namespace tavix
