#include "platform/machine/services/machine_trust.h"

#include "platform/machine/formats/machine_facts.h"
#include "platform/machine/services/machine_file_system.h"
#include "text/letter_case.h"

namespace tavix::machine {
namespace {

bool IsOrLiesIn(TextView path, TextView folder) {
  return EqualIgnoringCase(path.substr(0, folder.size()), folder) &&
         (path.size() == folder.size() || folder.ends_with(u'\\') || path[folder.size()] == u'\\');
}

}  // namespace

Text MachineTrust::RealPath(TextView folder) {
  std::optional<MachinePath> path = ReadMachinePath(folder);
  if (!path) return {};
  for (;; path->names.pop_back()) {
    if (std::optional<Text> found = files_.FolderIdentity(path->ToText())) return *std::move(found);
    if (path->names.empty()) return {};
  }
}

bool MachineTrust::LiesAmongPrograms(TextView folder) {
  const Text real = RealPath(folder);
  if (real.empty()) return false;
  const auto holdsIt = [&](const std::optional<Text>& programs) {
    const std::optional<Text> place = programs ? files_.FolderIdentity(*programs) : std::nullopt;
    return place && IsOrLiesIn(real, *place);
  };
  return holdsIt(facts_.Value(u"Environment", u"WinDir")) || holdsIt(facts_.Value(u"Folders", u"36")) ||
         holdsIt(facts_.Value(u"Folders", u"38")) || holdsIt(facts_.Value(u"Folders", u"42"));
}

bool MachineTrust::Rename(TextView path, TextView name) { return files_.Rename(path, name); }

}  // namespace tavix::machine
