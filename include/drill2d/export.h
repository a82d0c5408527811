#pragma once

// Classes cross the DLL edge: a host is built with the same compiler family and C run-time as the kit.
#if defined(DRILL2D_BUILD)
#define DRILL2D_API __declspec(dllexport)
#elif defined(DRILL2D_STATIC)
#define DRILL2D_API
#else
#define DRILL2D_API __declspec(dllimport)
#endif
