#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "text/text.h"

namespace tavix::console {

// The options of the command line. Texts are converted from UTF-8.
struct Options {
  bool help = false;
  bool version = false;
  std::optional<std::string> machine;  // path of a machine folder, still in UTF-8
  bool live = false;
  std::optional<std::string> exportFolder;  // where to write the machine, still in UTF-8
  bool mask = false;                        // with made-up names
  Text page = u"privacy";
  bool pageChosen = false;
  bool oneClick = false;
  std::vector<Text> functions;
  std::vector<Text> scopes;
  struct Setting {
    Text section, key, value;
  };
  std::vector<Setting> settings;
  struct Mark {
    int row = 0;  // counted from 1
    bool checked = false;
  };
  std::vector<Mark> marks;  // in the order of the arguments
  bool clean = false;
  bool yes = false;  // cleans the running system without a question
  bool json = false;
  std::optional<platform::DateTime> now;
};

// Reads the arguments after the program's name. Nothing if one is wrong; `error` then says in one line which
// and why.
std::optional<Options> ReadOptions(const std::vector<std::string>& arguments, std::string& error);

// The text of --help.
extern const char* const kHelp;

}  // namespace tavix::console
