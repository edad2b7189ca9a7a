#pragma once

/// Windowless text services: the platform's own headers on windows, our declarations of the same names
/// elsewhere.

#include <qvui/platform/platform.h>

#if defined(_WIN32)

#include <commdlg.h>  // FR_ flags
#include <richedit.h>
#include <textserv.h>

#else

#include <qvui/platform/native/text_services.h>

#endif
