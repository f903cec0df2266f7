#pragma once

#include <cstdint>
#include <span>

#include "controls/text_box.h"

// Boxes of the options window for whole numbers.
namespace tavix::mdlPubSelf {

struct NumberBox {
  TextBox* box;
  int16_t page;
  int16_t smallest;
  TextView afterMessage;  // the end of the message about a smaller number
};

std::span<const NumberBox> NumberBoxes();

// Selects all text.
void NumberBox_GotFocus(const NumberBox& number);
// Lets only digits and backspace through.
void NumberBox_KeyPress(int& key);
// A number below the smallest, or a text that is no number of 16 bits, gets a message and keeps the focus.
void NumberBox_LostFocus(const NumberBox& number);

}  // namespace tavix::mdlPubSelf
