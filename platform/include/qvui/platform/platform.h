#pragma once

/// The platform's C interface under its published names: the platform's own headers on windows, our
/// declarations of the same names elsewhere. Only the multibyte ("A") functions are used.

#include <qvui/platform/export.h>

#if defined(_WIN32)

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#include <windowsx.h>

#include <commctrl.h>
#include <objbase.h>
#include <ole2.h>

#else

#include <qvui/platform/native/com.h>
#include <qvui/platform/native/gdi.h>
#include <qvui/platform/native/kernel.h>
#include <qvui/platform/native/text.h>
#include <qvui/platform/native/types.h>
#include <qvui/platform/native/user.h>

#endif
