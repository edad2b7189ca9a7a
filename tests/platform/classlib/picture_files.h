#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <qvui/platform/cimage.h>

using Bytes = std::vector<std::uint8_t>;

/// Where the pictures of the tests lie.
inline const std::string kData = QVUI_TEST_DATA "/platform/classlib/data/";

Bytes FileBytes(const std::string& name);
Bytes Cut(const Bytes& bytes, std::size_t size);
/// Loads an image from a stream on these bytes.
HRESULT LoadBytes(CImage& image, const Bytes& bytes);
/// Loads a file cut off after each byte, and with each byte changed; reads what loads.
void LoadEveryDamage(const Bytes& whole);
