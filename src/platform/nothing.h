#pragma once

namespace tavix::platform {

// The platform where nothing is there. Every interface pointer (fileSystem, shell, clock...) always points at
// an object. Until a host puts its own there, and after it has gone, that is one of those in nothing.cpp,
// `noFileSystem`, `noShell` and so on: nothing is found, what should change something fails, a question is
// answered with Cancel, and what can't be told isn't known.

// Puts back the objects where nothing is there, and the plain facts: screen, application folder, separators.
// The event queue belongs to the window and stays.
void ClearPlatform();

}  // namespace tavix::platform
