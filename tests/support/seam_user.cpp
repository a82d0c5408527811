#include "support/seam_user.h"

#include <windows.h>

unsigned long SeamUser::Tick() {
    return GetTickCount();
}
bool SeamUser::IsActive(void* window) {
    return GetActiveWindow() == window;
}
void SeamUser::Quit(int code) {
    PostQuitMessage(code);
}
