#pragma once

#include <qvui/platform/cimage.h>

#include "platform/damage.h"
#include "platform/script/script.h"

/// A script of CString operations, whose first argument is the text, and of pictures:
///
///     load FILE [OFFSET BYTES]...      loads a file of the folder "data", in which bytes are replaced, and
///         prints its pixels, of which clear ones have no colour
///     coarse FILE                      the same with the higher five bits of each channel
///     near FILE PIXEL TOLERANCE        whether all pixels have that colour
///     sum FILE                         the sum of all pixels
class ClasslibScript : public qvui::test::Script {
public:
    ClasslibScript();

private:
    void AddQuestions();
    void AddParts();
    void AddEdits();
    void AddPictures();
    std::string Load(CImage& image, const std::string& file, Words changes);
    void Show(const CImage& image, std::uint32_t mask = 0xFFFFFFFF);
};

/// Loads an image from a stream on these bytes.
HRESULT LoadBytes(CImage& image, const Bytes& bytes);
/// The names of the pictures in "data" with their folder; those of TIFF files or the other ones.
std::vector<std::string> Pictures(bool areTiff);
/// Loads a file cut off after each byte, and with each byte changed; reads what loads.
void LoadEveryDamage(const std::string& path);
/// The pixels of a loaded image as stored, the top row first.
std::vector<std::uint32_t> PixelsOf(const CImage& image);
