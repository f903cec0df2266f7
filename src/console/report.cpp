#include "console/report.h"

#include <algorithm>
#include <array>
#include <string>

#include "console/terminal.h"
#include "forms/main_form.h"
#include "scan/result_items.h"
#include "text/json.h"
#include "text/utf8.h"

namespace tavix::console {
namespace {

using namespace mdlPubSelf;

void Field(std::string& out, std::string_view name, TextView value) {
  out.append(",\"").append(name).append("\":");
  AppendJson(out, value);
}

void Number(std::string& out, std::string_view name, int value) {
  out.append("\"").append(name).append("\":").append(std::to_string(value));
}

std::string Start(std::string_view stage) { return std::string("{\"stage\":\"").append(stage).append("\","); }

std::string ColorJson(std::optional<Color> color) {
  if (!color) return "null";
  const auto part = [color](unsigned shift) { return std::to_string(*color >> shift & 0xFFU); };
  return "[" + part(0) + "," + part(8) + "," + part(16) + "]";
}

// Writes a field of many rows. Rows mostly share the stored text of the row before: then its JSON is
// repeated.
class RowField {
 public:
  explicit RowField(std::string_view name) : name_(name) {}
  void Append(std::string& out, TextView value) {
    if (json_.empty() || value.data() != value_.data() || value.size() != value_.size()) {
      json_.clear();
      Field(json_, name_, value);
      value_ = value;
    }
    out += json_;
  }

 private:
  std::string_view name_;
  TextView value_;
  std::string json_;
};

class RowWriter {
 public:
  explicit RowWriter(std::string_view stage) : start_(Start(stage)) {}
  void Append(std::string& out, int row) {
    const ListView::Item item = frmPubMain.lsvResult.Row(row);
    out += start_;
    Number(out, "row", row);
    for (int column = 0; column < ListView::kColumns; ++column) {
      columns_[static_cast<size_t>(column)].Append(out, item.SubItems(column));
    }
    tag_.Append(out, item.Tag());
    out.append(item.Checked() ? ",\"Checked\":true" : ",\"Checked\":false");
    out.append(",\"ForeColor\":").append(ColorJson(item.ForeColor())).append("}\n");
  }

 private:
  std::string start_;
  std::array<RowField, ListView::kColumns> columns_ = {RowField("Type"), RowField("Name"), RowField("Size"),
                                                       RowField("Location"), RowField("SizeKey")};
  RowField tag_{"Tag"};
};

void AppendLabels(std::string& out, std::string_view stage) {
  const MainForm& form = frmPubMain;
  out += Start(stage);
  Number(out, "rows", form.lsvResult.Count());
  Field(out, "lblProgS", form.lblProgS.Caption.Get());
  Field(out, "lblTime", form.lblTime.Caption.Get());
  Field(out, "lblSum", form.lblSum.Caption.Get());
  out.append(",\"lblProgMI\":{");
  Number(out, "Width", form.lblProgMI.Width);
  Field(out, "Caption", form.lblProgMI.Caption.Get());
  out.append("},\"lblProgMO\":{");
  Number(out, "Width", form.lblProgMO.Width);
  out.append("},\"cbxAll\":").append(form.cbxAll.GetValue() != 0 ? "true" : "false").append("}\n");
}

bool IsHighSurrogate(char16_t c) { return c >= 0xD800 && c < 0xDC00; }
bool IsLowSurrogate(char16_t c) { return c >= 0xDC00 && c < 0xE000; }

void Flush(std::FILE* out, std::string& text) {
  WriteText(out, text);
  text.clear();
}

// The text cut or padded to `width` code units. Control characters become blanks: they would break the table.
Text Cell(TextView text, size_t width) {
  Text cell = text.size() > width ? Concat(BeginningOf(text, width - 1), u"…") : Text(text);
  for (size_t i = 0; i < cell.size(); ++i) {
    const bool paired = IsHighSurrogate(cell[i]) && i + 1 < cell.size() && IsLowSurrogate(cell[i + 1]);
    if (paired) {
      ++i;
    } else if (IsHighSurrogate(cell[i]) || IsLowSurrogate(cell[i])) {
      cell[i] = u'\uFFFD';
    } else if (cell[i] < u' ') {
      cell[i] = u' ';
    }
  }
  cell.append(width - cell.size(), u' ');
  return cell;
}

}  // namespace

TextView BeginningOf(TextView text, size_t length) {
  if (text.size() <= length) return text;
  return text.substr(0, length > 0 && IsHighSurrogate(text[length - 1]) ? length - 1 : length);
}

void PrintJson(std::FILE* out, std::string_view stage) {
  constexpr size_t kBuffer = size_t{1} << 20U;
  std::string text;
  text.reserve(kBuffer + 4096);
  RowWriter writer(stage);
  const int rows = frmPubMain.lsvResult.Count();
  for (int row = 1; row <= rows; ++row) {
    writer.Append(text, row);
    if (text.size() > kBuffer) Flush(out, text);
  }
  AppendLabels(text, stage);
  Flush(out, text);
}

void PrintTable(std::FILE* out) {
  struct Column {
    int index;
    size_t width;
  };
  constexpr std::array<Column, 4> kColumns = {
      {{0, 28}, {kNameColumn, 48}, {kSizeColumn, 12}, {kLocationColumn, 48}}};
  std::string text;
  const auto line = [&](const std::string& mark, const auto& cellOf) {
    Text cells;
    for (const Column& column : kColumns) cells += Concat(Cell(cellOf(column.index), column.width), u"  ");
    cells.resize(cells.find_last_not_of(u' ') + 1);
    text.append(mark).append(ToUtf8(cells)).append("\n");
    if (text.size() > 65536) Flush(out, text);
  };
  const int rows = frmPubMain.lsvResult.Count();
  if (rows > 0) {
    line("         ", [](int column) { return Trim(frmPubMain.lsvResult.ColumnHeaders[column].Caption); });
  }
  for (int row = 1; row <= rows; ++row) {
    const ListView::Item item = frmPubMain.lsvResult.Row(row);
    char mark[24];
    std::snprintf(mark, sizeof mark, "%4d %s ", row, item.Checked() ? "[x]" : "[ ]");
    line(mark, [&item](int column) { return item.SubItems(column); });
  }
  if (rows > 0) text.append("\n");
  const MainForm& form = frmPubMain;
  text.append(ToUtf8(form.lblProgS.Caption.Get())).append("\n");
  text.append(ToUtf8(Concat(form.lblTimeP.Caption.Get(), u" ", form.lblTime.Caption.Get()))).append("\n");
  text.append(ToUtf8(form.lblSum.Caption.Get())).append("\n");
  Flush(out, text);
}

}  // namespace tavix::console
