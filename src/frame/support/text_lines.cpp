#include "frame/support/text_lines.h"

#include <algorithm>

#include "frame/support/text_file.h"
#include "platform/file_system.h"

namespace tavix {

std::vector<Text> ReadTextLines(TextView file) {
  std::vector<Text> lines;
  const auto content = platform::fileSystem != nullptr ? platform::fileSystem->ReadFile(file) : std::nullopt;
  if (!content) return lines;
  const Text text = DecodeTextFile(*content).text;
  for (TextView rest = text; !rest.empty();) {
    TextView line = rest.substr(0, rest.find(u'\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    if (line.ends_with(u'\r')) line.remove_suffix(1);
    lines.emplace_back(line);
  }
  return lines;
}

}  // namespace tavix
