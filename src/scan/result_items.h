#pragma once

#include <optional>

#include "controls/list_view.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// A finding is a row of lsvResult and is kept nowhere else. These are the columns, numbered like SubItems.
constexpr int kNameColumn = 1;
constexpr int kSizeColumn = 2;
constexpr int kLocationColumn = 3;
constexpr int kSizeKeyColumn = 4;

constexpr TextView kNoSize = u"N/A";
constexpr TextView kNoSizeKey = u"00000000.0";

// Appends a row. A field without a value stays empty.
ListView::Item AddResultItem(TextView type, std::optional<TextView> name, std::optional<TextView> size,
                             std::optional<TextView> location, std::optional<TextView> sizeKey,
                             TextView actionString, bool checked = true);

// The folder where the walk began that found a row's file or folder: the first `length` characters of the
// row's location. A clean follows no link below it. Without a mark it is the whole location.
void SetWalkStart(ListView::Item item, size_t length);
TextView WalkStart(const ListView::Item& item);

// Texts for a size in bytes: kilobytes of 1024, rounded to one decimal with ties to even. FormatSizeText is
// shown ("1,536.5", "12."); FormatSizeKey is padded to sort as a text ("00001536.5").
Text FormatSizeText(double bytes);
Text FormatSizeKey(double bytes);

void ClearResults();
int ResultCount();
// The kilobytes of all rows, ticked or not, summed in single precision from their size texts. A text that is
// no number adds nothing.
float SumResultSizes();

// A click on a column header, counted from 1: sorts by that column, the size column by FormatSizeKey. Each
// click turns the direction.
void lsvResult_ColumnClick(int header);

}  // namespace tavix::mdlPubSelf
