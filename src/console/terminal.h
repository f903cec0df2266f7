#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace tavix::console {

// Whether a stream is a terminal, on Windows a console window.
bool IsTerminal(std::FILE* stream);

// Writes UTF-8 text. A console window shows all of its characters, whatever its code page.
void WriteText(std::FILE* out, std::string_view text);

// The next line that the user types, without its end. Nothing at the end of the input.
std::optional<std::string> ReadLine();

}  // namespace tavix::console
