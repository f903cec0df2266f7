#pragma once

#include <functional>

namespace tavix {

// Steps of start and end that belong to rooms above this one. The wiring sets them before Form_Load. An empty
// step is skipped.
struct FrameSteps {
  std::function<void()> BuildPrivacyTree;
  std::function<void()> LoadJunkDefinitions;
  std::function<void()> LayOutWindow;      // size, pictures and places of all controls
  std::function<void()> MakeControls;      // the real window's controls, placed by the layout
  std::function<void()> SendEmbeddedPage;  // webGIF to res\scan.htm
  std::function<void()> ColorControls;     // gives the trees the colours of the result list
  std::function<void()> CheckForUpdate;    // can end the program by unloading the window
  // Unload the other windows, in this order. A window that was never loaded is loaded first.
  std::function<void()> UnloadOptions;
  std::function<void()> UnloadTypeEditor;
  std::function<void()> UnloadAbout;
};

namespace mdlPubSelf {

inline FrameSteps frameSteps;

// False if another copy of the program runs. The process then ends at once and touches nothing.
bool Form_Initialize();
// Start-up: services, data folders, settings, and all that the window shows. False if the program is to end
// because others may have replaced its data (frame/trusted_data.h). It has then read and written no data and
// released its services, and Form_Unload does nothing.
bool Form_Load();
// The end of the program, however the window was closed: empties the scratch folders and releases the
// services. A second call does nothing.
void Form_Unload();

}  // namespace mdlPubSelf
}  // namespace tavix
