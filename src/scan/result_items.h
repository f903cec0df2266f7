#pragma once

#include <optional>

#include "controls/list_view.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// A finding is a row of lsvResult and nothing else; these are its columns, as SubItems numbers them.
constexpr int kNameColumn = 1;
constexpr int kSizeColumn = 2;
constexpr int kLocationColumn = 3;
constexpr int kSizeKeyColumn = 4;

constexpr TextView kNoSize = u"N/A";
constexpr TextView kNoSizeKey = u"00000000.0";

// Appends a row. A field whose value could not be had is nothing, and stays empty in the row.
ListView::Item AddResultItem(TextView type, std::optional<TextView> name, std::optional<TextView> size,
                             std::optional<TextView> location, std::optional<TextView> sizeKey,
                             TextView actionString, bool checked = true);

// The folder where the walk began that found a row's file or folder, as the first `length` characters of the
// row's location. A clean follows no link below this folder. Of a row without such a mark, it is the
// location.
void SetWalkStart(ListView::Item item, size_t length);
TextView WalkStart(const ListView::Item& item);

// The size texts of a number of bytes: kilobytes of 1024, rounded to one decimal with ties to even. The
// one as shown, "1,536.5" or "12.", the other padded so that it sorts as a text, "00001536.5".
Text FormatSizeText(double bytes);
Text FormatSizeKey(double bytes);

void ClearResults();
int ResultCount();
// Kilobytes over all rows, ticked or not, as their size texts say, in single precision. A size that is no
// number adds nothing.
float SumResultSizes();

// A click on a column header, counted from 1: sorts by that column, by the padded size for the size
// column, and turns the direction each time.
void lsvResult_ColumnClick(int header);

}  // namespace tavix::mdlPubSelf
