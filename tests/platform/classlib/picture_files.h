#pragma once

#include <string>

#include <qvui/platform/cimage.h>

#include "platform/damage.h"
#include "support/test_files.h"

/// Where the pictures of the tests lie.
inline const std::string kData = qvui::test::TestFile("platform/classlib/data/");

/// Loads an image from a stream on these bytes.
HRESULT LoadBytes(CImage& image, const Bytes& bytes);
/// Loads a file cut off after each byte, and with each byte changed; reads what loads.
void LoadEveryDamage(const std::string& name);
