#pragma once

/// QVUI_API marks the symbols that the shared library exports. QVUI_BUILDING is defined while the library
/// itself is compiled; QVUI_STATIC is defined by programs that link its object libraries directly.
#if defined(_WIN32)
#if defined(QVUI_BUILDING)
#define QVUI_API __declspec(dllexport)
#elif defined(QVUI_STATIC)
#define QVUI_API
#else
#define QVUI_API __declspec(dllimport)
#endif
#else
#define QVUI_API __attribute__((visibility("default")))
#endif
