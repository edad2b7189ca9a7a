#pragma once

#include <cstdio>

#include <qvui/platform/export.h>

/// Opens a file as fopen does. The path is in the system code page and accepts either separator; on a
/// case-sensitive file system a file whose name differs only in letter case is found as well. Returns null on
/// failure. On the native target, opening anything but a regular file for reading fails too, because such a
/// file may be endless.
QVUI_API std::FILE* OpenPlatformFile(const char* path, const char* mode);
