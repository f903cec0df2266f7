#include "junk/junk_list.h"

#include "forms/options_form.h"
#include "frame/data_paths.h"
#include "junk/junk_definitions.h"
#include "platform/file_system.h"
#include "text/text_file.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr Color kGreyText = 0x80000011;
constexpr TextView kTab = u"\t";
constexpr TextView kLineEnd = u"\r\n";

// An element of JunkTypes, split into its fields. A missing field is empty.
class JunkType {
 public:
  explicit JunkType(TextView element) : fields_(Split(element, u"|")) {}

  TextView Field(size_t index) const { return ElementAt(fields_, index).value_or(u""); }
  // If the line has one field alone, the second field is the origin and no pattern.
  TextView Pattern() const { return fields_.size() > 2 ? fields_[1] : TextView(); }
  bool Enabled() const { return Field(3) == u"Y"; }
  bool BuiltIn() const { return Field(4) == u"D"; }

 private:
  std::vector<TextView> fields_;
};

void AddRow(ListView& list, const JunkType& type) {
  ListView::Item row = list.Add(type.Field(0));
  row.SetSubItems(kPatternColumn, type.Pattern());
  row.SetTag(type.Field(2));
  row.SetChecked(type.Enabled());
  if (type.BuiltIn()) row.SetForeColor(kGreyText);
}

void Rewrite(TextView file, TextView lines) {
  MakeWritable(file);
  platform::fileSystem->WriteFile(file, EncodeTextFile({Text(lines), TextEncoding::Utf8}));
}

}  // namespace

bool IsBuiltIn(const ListView::Item& row) { return row.ForeColor() == kGreyText; }

void ShowJunkTypes() {
  ListView& list = frmPubOptions.lsvJF;
  list.Clear();
  for (const Text& element : JunkTypes) AddRow(list, JunkType(element));
  SelectJunkRow(1);
}

void SaveJunkTypes() {
  ListView& list = frmPubOptions.lsvJF;
  if (list.Count() == 0) return;
  Text builtIn;
  Text users;
  for (int i = 1; i <= list.Count(); ++i) {
    const ListView::Item row = list.Row(i);
    const bool isBuiltIn = IsBuiltIn(row);
    (isBuiltIn ? builtIn : users) +=
        Concat(row.Text(), kTab, row.SubItems(kPatternColumn), kTab, isBuiltIn ? row.Tag() : u"Y", kTab,
               row.Checked() ? u"Y" : u"N", kLineEnd);
  }
  Rewrite(kBuiltInJunkFile, builtIn);
  Rewrite(kUserJunkFile, users);
}

void MakeWritable(TextView file) {
  const auto facts = platform::fileSystem->Look(file);
  if (facts && (facts->attributes & platform::kReadOnly) != 0)
    platform::fileSystem->SetAttributes(file, facts->attributes & ~platform::kReadOnly);
}

void SelectJunkRow(int row) {
  frmPubOptions.lsvJF.SelectRow(row);
  EnableJunkCommands();
}

void EnableJunkCommands() {
  OptionsForm& form = frmPubOptions;
  const int row = form.lsvJF.SelectedRow();
  const bool users = row == 0 || !IsBuiltIn(form.lsvJF.Row(row));
  form.sbtJF[1].Enabled = users;
  form.sbtJF[2].Enabled = users;
}

}  // namespace tavix::mdlPubSelf
