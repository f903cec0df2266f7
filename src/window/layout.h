#pragma once

#include "window/caption.h"

// Each form's size and the bounds of its controls, in twips. Visibility is left alone.
namespace tavix {

// Sets `BigInterface` of the main form from the setting: "Auto" is big on a screen wider than 1023 pixels
// whose work area is high enough for it, "Big" is big, any other text is small. Once at start.
void ChooseInterfaceSize();

// Lays out the main form at the size that `BigInterface` says, in the middle of platform::screen. Once at
// start: the size stays for the life of the process.
void LayOutMainForm();

// Fits the widths of controls that stand side by side in the main form to their texts in the language in use:
// the toolbar, the link to the options, the time. After LayOutMainForm, and again when the font changes.
void FitTexts(const WidthOf& widthOf);

// Lay out the other forms, again when the font changes. A form's size is that of its client area. The options
// form is as wide as its texts need, but fits the smallest screen.
void LayOutOptionsForm(const WidthOf& widthOf);
void LayOutTypeForm(const WidthOf& widthOf);
void LayOutAboutForm(const WidthOf& widthOf);

}  // namespace tavix
