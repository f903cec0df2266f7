#include "console/export_mask.h"

#include <random>
#include <vector>

#include "advanced/junk_matcher.h"
#include "frame/settings.h"
#include "junk/junk_definitions.h"
#include "text/letter_case.h"
#include "text/pattern.h"
#include "text/wildcard.h"

namespace tavix::console {
namespace {

using mdlPubSelf::Setting;

// The patterns of names by which the pages' functions choose files and folders, besides the junk types.
constexpr TextView kWalkPatterns[] = {u"*.log",     u"*.pf",         u"*.chk;chklist.m*;file????._dd",
                                      u"index.dat", u"*.lnk",        u"*.dll",
                                      u"found.*",   u"$ntuninstall*"};

// Which of all these patterns a name fits.
class NamePatterns {
 public:
  NamePatterns() {
    junk_.Update();
    for (const TextView pattern : kWalkPatterns) patterns_.emplace_back(pattern);
    patterns_.emplace_back(mdlPubSelf::CommonTypes);
    // A folder that an advanced scan leaves out may be given by wildcards.
    const Text exceptFolders = ToLower(mdlPubSelf::ExceptFolders);
    for (const TextView part : Split(exceptFolders, u"\\")) {
      if (part.find_first_of(u"*?#[") != TextView::npos)
        exceptions_.emplace_back(part.substr(0, part.find(u'/')));
    }
  }

  std::vector<bool> Fits(TextView name) const {
    const Text capitals = ToUpper(name), small = ToLower(name);
    std::vector<bool> fits = {junk_.IsListed(capitals), junk_.IsConfirmed(name)};
    for (const FilePatterns& pattern : patterns_) fits.push_back(pattern.MatchCapitals(capitals));
    for (const Text& exception : exceptions_) fits.push_back(MatchesPattern(small, exception));
    return fits;
  }

 private:
  mdlPubSelf::JunkMatcher junk_;
  std::vector<FilePatterns> patterns_;
  std::vector<Text> exceptions_;
};

// Calls `visit` with each name in a folder, and in the folders below it if `deep`. Links aren't followed.
template <class Visitor>
void VisitNames(platform::FileSystem& files, const Text& folder, bool deep, const Visitor& visit) {
  std::vector<Text> pending = {folder};
  while (!pending.empty()) {
    const Text path = std::move(pending.back());
    pending.pop_back();
    files.List(path, [&](const platform::DirectoryEntry& entry) {
      visit(entry.name);
      if (!deep || !entry.folder || entry.link) return;
      pending.push_back(Concat(path, path.ends_with(u'\\') ? u"" : u"\\", entry.name));
    });
  }
}

uint64_t RandomNumber() {
  std::random_device device;
  return static_cast<uint64_t>(device()) << 32U | device();
}

}  // namespace

std::unique_ptr<exporting::NameMask> MakeMask(const exporting::Record& record, platform::FileSystem& files) {
  auto mask = std::make_unique<exporting::NameMask>(RandomNumber());
  for (const Setting* setting : Setting::All()) {
    mask->Keep(setting->section);
    mask->Keep(setting->key);
    const bool namesFolders = setting == &mdlPubSelf::BackupFolder || setting == &mdlPubSelf::ExceptFolders;
    if (!namesFolders) mask->Keep(*setting);
  }
  mask->Keep(mdlPubSelf::kAllRecycleBins);
  for (const Text& type : mdlPubSelf::JunkTypes) mask->Keep(type);

  const NamePatterns patterns;
  const auto keepIfItMatters = [&](TextView name) {
    if (patterns.Fits(name) != patterns.Fits(mask->Apply(name))) mask->Keep(name);
  };
  // A word kept for one name may change another, so once more.
  for (int round = 0; round < 2; ++round) {
    for (const Text& tree : record.trees) VisitNames(files, tree, true, keepIfItMatters);
    for (const Text& folder : record.listed) VisitNames(files, folder, false, keepIfItMatters);
  }
  return mask;
}

}  // namespace tavix::console
