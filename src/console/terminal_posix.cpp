#include <unistd.h>

#include "console/terminal.h"

namespace tavix::console {

bool IsTerminal(std::FILE* stream) { return isatty(fileno(stream)) != 0; }

void WriteText(std::FILE* out, std::string_view text) { std::fwrite(text.data(), 1, text.size(), out); }

}  // namespace tavix::console
