#pragma once

#include <functional>

namespace tavix {

// What start and stop run beside their own steps. The parts of the program stand on floors above the
// frame, so they are put in here by the wiring, before Form_Load.
struct FrameSteps {
  std::function<void()> BuildPrivacyTree;
  std::function<void()> LayOutWindow;      // size, pictures and places of all controls
  std::function<void()> SendEmbeddedPage;  // webGIF to res\scan.htm
};

namespace mdlPubSelf {

inline FrameSteps frameSteps;

// The body of start-up: services first, then everything the window shows.
void Form_Load();
// The end of the program, however the window was closed.
void Form_Unload();

}  // namespace mdlPubSelf
}  // namespace tavix
