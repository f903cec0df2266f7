#pragma once

#include "export/name_mask.h"
#include "export/record.h"
#include "text/number.h"

namespace tavix::exporting {

// The text of machine.ini for the machine that the platform's interfaces lead to: environment variables,
// named folders, drives, event logs, recycle bin, separators, screen. Facts that can't be told are left out.
// A log that can't be read is "-". `variables` are the names of variables that the program asks for. With
// `mask`, which may be null, names of variables, their values, folders and labels are masked.
Text MachineFactsText(const Texts& variables, const Locale& locale, const NameMask* mask);

}  // namespace tavix::exporting
