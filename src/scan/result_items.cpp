#include "scan/result_items.h"

#include <algorithm>
#include <cstdint>

#include "forms/main_form.h"
#include "text/number.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr size_t kDriveRootLength = 3;

double Kilobytes(double bytes) { return RoundToTenth(bytes / 1024); }

}  // namespace

ListView::Item AddResultItem(TextView type, std::optional<TextView> name, std::optional<TextView> size,
                             std::optional<TextView> location, std::optional<TextView> sizeKey,
                             TextView actionString, bool checked) {
  return frmPubMain.lsvResult.Add({type, name.value_or(TextView()), size.value_or(TextView()),
                                   location.value_or(TextView()), sizeKey.value_or(TextView())},
                                  actionString, checked);
}

// The row stores the length of the location after the start. A length that doesn't fit makes the drive's root
// the start, which is the strictest one.
void SetWalkStart(ListView::Item item, size_t length) {
  const size_t location = item.SubItems(kLocationColumn).size();
  item.SetItemData(
      static_cast<uint16_t>(std::min<size_t>(location - std::min(length, location), UINT16_MAX)));
}

TextView WalkStart(const ListView::Item& item) {
  const TextView location = item.SubItems(kLocationColumn);
  const size_t rest = item.ItemData();
  return location.substr(0, rest >= location.size() ? kDriveRootLength : location.size() - rest);
}

Text FormatSizeText(double bytes) { return FormatGrouped(Kilobytes(bytes)); }

Text FormatSizeKey(double bytes) { return FormatPadded(Kilobytes(bytes)); }

void ClearResults() { frmPubMain.lsvResult.Clear(); }

int ResultCount() { return frmPubMain.lsvResult.Count(); }

float SumResultSizes() {
  float sum = 0;
  for (int row = 1; row <= ResultCount(); ++row) {
    const TextView size = frmPubMain.lsvResult.Row(row).SubItems(kSizeColumn);
    if (size == kNoSize) continue;
    if (const auto kilobytes = ParseNumber(size)) sum += static_cast<float>(*kilobytes);
  }
  return sum;
}

void lsvResult_ColumnClick(int header) { frmPubMain.lsvResult.SortByClick(header - 1); }

}  // namespace tavix::mdlPubSelf
