#pragma once

namespace tavix::platform {

// The empty platform. Every interface pointer (fileSystem, shell, clock...) always points at an object.
// Without a host, that is one of those in nothing.cpp: `noFileSystem`, `noShell` and so on. With them nothing
// is found, every change fails, questions are answered with Cancel, and existence can't be told.

// Resets the interfaces to these objects, and the plain facts: screen, application folder, separators. The
// event queue belongs to the window and stays.
void ClearPlatform();

}  // namespace tavix::platform
