#pragma once

#include <cstdio>

#include <qvui/platform/export.h>

/// Opens a file as fopen does. The path is in the system code page and takes either separator; where the
/// file system tells letter case apart, a file whose case differs is found all the same. Null on failure; on
/// native also for reading what is no regular file, which need not end.
QVUI_API std::FILE* OpenPlatformFile(const char* path, const char* mode);
