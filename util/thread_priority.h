// Which of the program's threads may wait for the others.
#pragma once

namespace brovanta {

/// Puts the calling thread behind the others for the rest of its life: for work that is done beside
/// something that waits for other programs, such as the window system, and would otherwise keep
/// these from a processor. The thread still gets a quarter of a processor that someone else wants
/// whole. Does nothing in the main thread, whose priority every later thread would inherit.
void StepBehindOtherThreads();

}  // namespace brovanta
