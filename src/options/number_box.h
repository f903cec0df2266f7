#pragma once

#include <cstdint>
#include <span>

#include "controls/text_box.h"

// The boxes of the options window that take a whole number.
namespace tavix::mdlPubSelf {

struct NumberBox {
  TextBox* box;
  int16_t page;
  int16_t smallest;
  TextView afterMessage;  // what the message of a smaller number ends with
};

std::span<const NumberBox> NumberBoxes();

// Selects all the text.
void NumberBox_GotFocus(const NumberBox& number);
// Lets digits and backspace through.
void NumberBox_KeyPress(int& key);
// A number that is too small, and what is no number of 16 bits, gets a message and keeps the focus.
void NumberBox_LostFocus(const NumberBox& number);

}  // namespace tavix::mdlPubSelf
