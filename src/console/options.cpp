#include "console/options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <functional>

#include "text/utf8.h"

namespace tavix::console {

const char* const kHelp =
    R"(Usage: tavix-console --machine DIR [options]   over a machine kept in a folder
       tavix-console --live [options]          over the system it runs on (Windows)

  --page NAME          privacy (default), system, registry, advanced: opens that page and presses Scan
  --one-click          presses the one-click picture instead, the question answered with Yes: what the
                       setting One-click Clean/Repair/Functions names is scanned and cleaned
  --function KEY       only these functions are ticked: a key of the Privacy page, the caption on the
                       others (repeatable)
  --scope KEY          Advanced page: only these drives and folders are ticked, such as C: or
                       C:\Users\Ann (repeatable)
  --set "S/K=V"        writes a setting after start-up and loads the settings anew (repeatable)
  --untick N, --tick N the mark of result row N, after the scan (repeatable)
  --clean              presses Clean (Repair on the Registry page) after the scan. With --live it asks once
                       before anything is removed, and so does --one-click
  --yes                answers that question; needed where no terminal is there to ask on
  --now TIME           the machine's date and time, YYYY-MM-DDThh:mm:ss, standing still
  --json               one JSON object a line; without it a table
  --export DIR         scans all pages and writes this machine into a new folder, for --machine: names, sizes and
                       times of its files without their content, and what the program reads of its
                       registry. With --scope, of the drives only these folders
  --mask               replaces the names in that folder by made-up ones
  --help, --version

Exit status:
  0  the run took place, whatever it found; also if you answered the question with no
  1  the output or the export can't be written, or the export was stopped by Ctrl+C
  2  the arguments are wrong, and nothing was cleaned
  3  the machine can't be read

Examples:
  tavix-console --live --page system
      lists what the System page finds on this computer, and removes nothing
  tavix-console --live --function "Temporary Files" --page system --clean
      shows the temporary files of this computer, asks, and removes them
  tavix-console --machine DIR --page advanced --scope "C:\Users\Ann" --json
      searches one folder of a machine folder, for other programs to read
  tavix-console --machine DIR --page registry --untick 3 --clean
      repairs all that is found but the third row
  tavix-console --live --export D:\machine --mask
      writes this computer into a machine folder, for a report of a wrong row
)";

namespace {

std::optional<platform::DateTime> ReadDateTime(const std::string& text) {
  int year = 0;
  unsigned month = 0;
  unsigned day = 0;
  int hour = 0;
  int minute = 0;
  int second = 0;
  constexpr std::string_view kForm = "dddd-dd-ddTdd:dd:dd";
  const bool fits = std::ranges::equal(
      text, kForm, [](char c, char form) { return form == 'd' ? c >= '0' && c <= '9' : c == form; });
  if (!fits) return std::nullopt;
  if (std::sscanf(text.c_str(), "%d-%u-%uT%d:%d:%d", &year, &month, &day, &hour, &minute, &second) != 6) {
    return std::nullopt;
  }
  const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(month),
                                         std::chrono::day(day)};
  if (!date.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
  const int64_t days = std::chrono::sys_days(date).time_since_epoch().count();
  return (((days * 24 + hour) * 60 + minute) * 60 + second) * 1000;
}

// An option of the command line. `apply` stores the value; its result says why the value is refused, or is
// empty.
struct OptionRule {
  const char* name;
  bool takesValue;
  bool repeats;
  std::function<std::string(Options&, const std::string&)> apply;
};

std::string Flag(bool& flag) {
  flag = true;
  return {};
}

std::string AppendText(std::vector<Text>& list, const std::string& value) {
  auto text = FromUtf8(value);
  if (!text) return "is no UTF-8 text";
  list.push_back(std::move(*text));
  return {};
}

std::string SetPage(Options& options, const std::string& value) {
  constexpr std::array kPages = {"privacy", "system", "registry", "advanced"};
  if (std::ranges::find(kPages, value) == kPages.end()) {
    return "is no page (privacy, system, registry, advanced)";
  }
  options.page = *FromUtf8(value);
  options.pageChosen = true;
  return {};
}

std::string SetNow(Options& options, const std::string& value) {
  options.now = ReadDateTime(value);
  return options.now ? "" : "is no date and time (YYYY-MM-DDThh:mm:ss)";
}

// The value has the form Section/Key=Value. A section may contain a slash, a key can't.
std::string AddSetting(Options& options, const std::string& value) {
  const auto text = FromUtf8(value);
  if (!text) return "is no UTF-8 text";
  const size_t equals = text->find(u'=');
  const size_t slash = equals == Text::npos ? Text::npos : text->rfind(u'/', equals);
  if (slash == Text::npos) return "is not of the form Section/Key=Value";
  options.settings.push_back(
      {text->substr(0, slash), text->substr(slash + 1, equals - slash - 1), text->substr(equals + 1)});
  return {};
}

std::string AddMark(Options& options, const std::string& value, bool checked) {
  int row = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), row);
  if (error != std::errc() || end != value.data() + value.size() || row < 1) return "is no row number";
  options.marks.push_back({row, checked});
  return {};
}

const OptionRule kRules[] = {
    {"--machine", true, false,
     [](Options& o, const std::string& v) {
       o.machine = v;
       return std::string();
     }},
    {"--export", true, false,
     [](Options& o, const std::string& v) {
       o.exportFolder = v;
       return std::string();
     }},
    {"--mask", false, false, [](Options& o, const std::string&) { return Flag(o.mask); }},
    {"--live", false, false, [](Options& o, const std::string&) { return Flag(o.live); }},
    {"--page", true, false, SetPage},
    {"--one-click", false, false, [](Options& o, const std::string&) { return Flag(o.oneClick); }},
    {"--function", true, true, [](Options& o, const std::string& v) { return AppendText(o.functions, v); }},
    {"--scope", true, true, [](Options& o, const std::string& v) { return AppendText(o.scopes, v); }},
    {"--set", true, true, AddSetting},
    {"--untick", true, true, [](Options& o, const std::string& v) { return AddMark(o, v, false); }},
    {"--tick", true, true, [](Options& o, const std::string& v) { return AddMark(o, v, true); }},
    {"--clean", false, false, [](Options& o, const std::string&) { return Flag(o.clean); }},
    {"--yes", false, false, [](Options& o, const std::string&) { return Flag(o.yes); }},
    {"--now", true, false, SetNow},
    {"--json", false, false, [](Options& o, const std::string&) { return Flag(o.json); }},
    {"--help", false, false, [](Options& o, const std::string&) { return Flag(o.help); }},
    {"--version", false, false, [](Options& o, const std::string&) { return Flag(o.version); }},
};

// Why these options can't stand beside --export. It scans all pages with all functions and removes nothing.
std::string ExportContradiction(const Options& options) {
  const std::pair<bool, const char*> others[] = {
      {options.pageChosen, "--page"},
      {options.oneClick, "--one-click"},
      {!options.functions.empty(), "--function"},
      {!options.settings.empty(), "--set"},
      {!options.marks.empty(), "--tick and --untick"},
      {options.clean, "--clean"},
      {options.yes, "--yes"},
      {options.json, "--json"},
  };
  for (const auto& [given, name] : others) {
    if (given) return std::string("--export and ") + name + " exclude each other";
  }
  return {};
}

// Which options contradict each other, in one line; empty if none do.
std::string Contradiction(const Options& options) {
  if (options.machine.has_value() == options.live) {
    return options.live ? "--machine and --live exclude each other" : "--machine DIR or --live is missing";
  }
  if (options.exportFolder) return ExportContradiction(options);
  if (options.mask) return "--mask needs --export";
  if (options.yes && !options.live) return "--yes needs --live";
  if (options.yes && !options.clean && !options.oneClick) return "--yes needs --clean or --one-click";
  if (options.oneClick && !options.functions.empty()) return "--one-click and --function exclude each other";
  if (options.oneClick && !options.scopes.empty()) return "--one-click and --scope exclude each other";
  if (!options.scopes.empty() && options.page != u"advanced") return "--scope needs --page advanced";
  return {};
}

}  // namespace

std::optional<Options> ReadOptions(const std::vector<std::string>& arguments, std::string& error) {
  Options options;
  std::vector<const OptionRule*> seen;
  for (size_t i = 0; i < arguments.size(); ++i) {
    const std::string& name = arguments[i];
    const auto* rule = std::ranges::find(kRules, name, [](const OptionRule& r) { return r.name; });
    if (rule == std::end(kRules)) {
      error = "unknown option '" + name + "'";
      return std::nullopt;
    }
    if (!rule->repeats && std::ranges::find(seen, rule) != seen.end()) {
      error = name + " stands twice";
      return std::nullopt;
    }
    seen.push_back(rule);
    if (rule->takesValue && i + 1 == arguments.size()) {
      error = name + " needs a value";
      return std::nullopt;
    }
    const std::string value = rule->takesValue ? arguments[++i] : std::string();
    if (const std::string reason = rule->apply(options, value); !reason.empty()) {
      error = rule->takesValue ? name + " '" + value + "' " + reason : name + " " + reason;
      return std::nullopt;
    }
  }
  if (options.help || options.version) return options;
  error = Contradiction(options);
  if (!error.empty()) return std::nullopt;
  return options;
}

}  // namespace tavix::console
