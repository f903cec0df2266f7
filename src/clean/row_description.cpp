#include "clean/row_description.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "forms/main_form.h"
#include "frame/settings.h"
#include "platform/hive_name.h"
#include "scan/action_string.h"
#include "scan/result_items.h"
#include "text/plain_name.h"

namespace tavix::mdlPubSelf {
namespace {

struct Filling {
  TextView word;  // as it stands in a sentence, with braces
  TextView text;
};

// Fills in the words in braces. What is filled in is not looked at again.
Text Fill(TextView sentence, std::initializer_list<Filling> fillings) {
  Text filled;
  while (!sentence.empty()) {
    const auto* const found = std::ranges::find_if(
        fillings, [sentence](const Filling& filling) { return sentence.starts_with(filling.word); });
    const bool isWord = found != fillings.end();
    filled.append(isWord ? found->text : sentence.substr(0, 1));
    sentence.remove_prefix(isWord ? found->word.size() : 1);
  }
  return filled;
}

const RowSentences& Say() { return frmPubMain.sayRow; }

// A sentence for each cleaning method.
struct ByMethod {
  TextView deletes, recycles, saves;
};

Text SayRemoval(const ByMethod& sentences, TextView path) {
  const auto fill = [path](TextView sentence) {
    return Fill(sentence, {{u"{path}", path}, {u"{backup}", BackupFolder}});
  };
  if (!HasPlainNames(path)) return fill(Say().KeepsOddName);
  if (CleaningMethod == u"D") return fill(sentences.deletes);
  if (CleaningMethod == u"R") return fill(sentences.recycles);
  if (CleaningMethod == u"S") return fill(sentences.saves);
  return fill(Say().HasNoMethod);
}

TextView NameOf(const ListView::Item& row) { return row.SubItems(kNameColumn); }

// A drive's root already ends in a backslash.
Text PathOf(const ListView::Item& row) {
  const TextView folder = row.SubItems(kLocationColumn);
  return Concat(folder, folder.ends_with(u'\\') ? u"" : u"\\", NameOf(row));
}

Text SayFileRemoval(TextView path) {
  return SayRemoval({Say().DeletesFile, Say().RecyclesFile, Say().SavesFile}, path);
}

Text DescribeFile(const ListView::Item& row, TextView) {
  return NameOf(row).empty() ? Say().RowOnly : SayFileRemoval(PathOf(row));
}

Text DescribeNamedFile(const ListView::Item&, TextView path) {
  const size_t cut = path.find_last_of(u'\\');
  return cut == TextView::npos || cut + 1 == path.size() ? Say().RowOnly : SayFileRemoval(path);
}

Text DescribeFolder(const ListView::Item& row, TextView) {
  if (NameOf(row).empty()) return Say().RowOnly;
  return SayRemoval({Say().DeletesFolder, Say().RecyclesFolder, Say().SavesFolder}, PathOf(row));
}

Text DescribeFileAtRestart(const ListView::Item& row, TextView) {
  const Text path = PathOf(row);
  const bool twice = row.SubItems(kLocationColumn).ends_with(Concat(u"\\", NameOf(row)));
  const TextView sentence = twice ? Say().NamesFileTwice : Say().DeletesAtRestart;
  return Fill(HasPlainNames(path) ? sentence : TextView(Say().KeepsOddName), {{u"{path}", path}});
}

Text KeyPath(const RegistryTarget& target) {
  return Concat(platform::HiveName(target.hive), u"\\", *target.key);
}

// Without a key the clean deletes nothing, and a whole hive stays.
Text DescribeKey(const ListView::Item&, TextView payload) {
  const RegistryTarget target = ReadRegistryTarget(payload);
  if (!target.key || target.key->empty()) return Say().RowOnly;
  return Fill(Say().DeletesKey, {{u"{key}", KeyPath(target)}});
}

Text DescribeValue(const ListView::Item&, TextView payload) {
  const RegistryTarget target = ReadRegistryTarget(payload);
  if (!target.value) return Say().RowOnly;
  const TextView sentence = target.value->empty() ? Say().DeletesDefault : Say().DeletesValue;
  return Fill(sentence, {{u"{key}", KeyPath(target)}, {u"{value}", *target.value}});
}

Text DescribeValues(const ListView::Item& row, TextView payload) {
  Text sentences;
  for (const TextView target : SplitRegistryTargets(payload))
    sentences.append(sentences.empty() ? u"" : u" ").append(DescribeValue(row, target));
  return sentences;
}

Text DescribeCommand(const ListView::Item&, TextView command) {
  return Fill(Say().RunsCommand, {{u"{command}", command}});
}

Text DescribeLog(const ListView::Item&, TextView log) { return Fill(Say().EmptiesLog, {{u"{log}", log}}); }

Text DescribeBins(const ListView::Item&, TextView) { return Say().EmptiesBins; }

struct Kind {
  TextView name;
  bool needsPayload;
  Text (*describe)(const ListView::Item& row, TextView payload);
};

constexpr std::array kKinds = {
    Kind{action::kFile, false, DescribeFile},
    Kind{action::kFolder, false, DescribeFolder},
    Kind{action::kFileAtRestart, false, DescribeFileAtRestart},
    Kind{action::kRecycleBins, false, DescribeBins},
    Kind{action::kRegistryKey, true, DescribeKey},
    Kind{action::kRegistryValue, true, DescribeValue},
    Kind{action::kRegistryValues, true, DescribeValues},
    Kind{action::kCommand, true, DescribeCommand},
    Kind{action::kNamedFile, true, DescribeNamedFile},
    Kind{action::kEventLog, true, DescribeLog},
};
static_assert(kKinds.size() == action::kAll.size());

}  // namespace

Text DescribeRow(const ListView::Item& row) {
  const Action action = ReadAction(row.Tag());
  const auto* const kind = std::ranges::find(kKinds, action.kind, &Kind::name);
  if (kind == kKinds.end() || (kind->needsPayload && !action.payload)) return Say().RowOnly;
  return kind->describe(row, action.payload.value_or(u""));
}

void lsvResult_ItemClick() {
  MainForm& form = frmPubMain;
  const int row = form.lsvResult.SelectedRow();
  if (row > 0 && !form.IsJobRunning()) form.lblProgS.Caption = DescribeRow(form.lsvResult.Row(row));
}

}  // namespace tavix::mdlPubSelf
