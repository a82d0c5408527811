#pragma once

// FlashPlayer's states.
enum PlayState { kPaused = 0, kPlaying = 1, kStopped = 2 };
