#pragma once

#include <functional>

namespace tavix {

// What start and stop run beside the frame's own steps. The parts of the program stand on floors above the
// frame, so they are put in here by the wiring, before Form_Load. A step that isn't there is passed over.
struct FrameSteps {
  std::function<void()> BuildPrivacyTree;
  std::function<void()> LoadJunkDefinitions;
  std::function<void()> LayOutWindow;      // size, pictures and places of all controls
  std::function<void()> MakeControls;      // those of the real window, in the places of the layout
  std::function<void()> SendEmbeddedPage;  // webGIF to res\scan.htm
  std::function<void()> ColorControls;     // the trees and their nodes in the colours of the result list
  std::function<void()> CheckForUpdate;    // can end the program by unloading the window
  // The other windows, in their order; each comes into being only to be unloaded where it never did.
  std::function<void()> UnloadOptions;
  std::function<void()> UnloadTypeEditor;
  std::function<void()> UnloadAbout;
};

namespace mdlPubSelf {

inline FrameSteps frameSteps;

// False when another copy of the program runs: then the process ends at once, before anything is touched.
bool Form_Initialize();
// The body of start-up: services, data folders, settings, and everything that the window shows. False when
// the program ends before it has read or written its data, because others may have put something in its
// place (frame/trusted_data.h); the services are released again then, and Form_Unload does nothing.
bool Form_Load();
// The end of the program, however the window was closed: scratch folders emptied, services released. A
// second call does nothing.
void Form_Unload();

}  // namespace mdlPubSelf
}  // namespace tavix
