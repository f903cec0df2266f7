#pragma once

#include <memory>
#include <vector>

#include "window/win32/window_binding.h"

namespace tavix::win32 {

// Makes the controls of the main window and ties each to its model, in tab order; those that lie in front
// come first.
std::vector<std::unique_ptr<WindowBinding>> BindMainForm(WindowContext& context);

}  // namespace tavix::win32
