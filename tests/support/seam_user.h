#pragma once

// Stands for product code in a library of its own that knows nothing of the seams.
struct SeamUser {
    static unsigned long Tick();
    static bool IsActive(void* window);
    static void Quit(int code);
};
