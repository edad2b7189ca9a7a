#pragma once

#include <memory>

#include "native/core/handle_table.h"
#include "native/gdi/region.h"
#include "native/gdi/surface.h"

namespace qvui::native {

enum class GdiKind { Bitmap, Brush, Pen, Font, Region };

/// The object behind a GDI handle. A context shares ownership of its selected objects, so an object may be
/// deleted while it is selected.
class GdiObject {
public:
    explicit GdiObject(GdiKind objectKind) : kind(objectKind) {}
    virtual ~GdiObject() = default;
    /// Implements GetObjectA: writes at most `size` bytes and returns their number, or the size of the record
    /// without a buffer.
    virtual int Describe(int size, void* buffer) const;

    const GdiKind kind;
    bool isStock = false;
};

struct BitmapObject : GdiObject {
    static constexpr GdiKind kKind = GdiKind::Bitmap;
    BitmapObject(std::shared_ptr<Surface> pixels, bool section)
        : GdiObject(kKind),
          surface(std::move(pixels)),
          isSection(section)
    {
    }
    int Describe(int size, void* buffer) const override;

    std::shared_ptr<Surface> surface;
    bool isSection;
    HDC selectedInto = nullptr;
};

struct BrushObject : GdiObject {
    static constexpr GdiKind kKind = GdiKind::Brush;
    BrushObject() : GdiObject(kKind) {}
    int Describe(int size, void* buffer) const override;

    bool isNull = false;
    COLORREF colour = 0;
    std::shared_ptr<Surface> pattern;
};

struct PenObject : GdiObject {
    static constexpr GdiKind kKind = GdiKind::Pen;
    PenObject(int penStyle, int penWidth, COLORREF penColour)
        : GdiObject(kKind),
          style(penStyle),
          width(penWidth),
          colour(penColour)
    {
    }
    int Describe(int size, void* buffer) const override;

    int style;
    int width;
    COLORREF colour;
};

struct RegionObject : GdiObject {
    static constexpr GdiKind kKind = GdiKind::Region;
    explicit RegionObject(Region shape) : GdiObject(kKind), region(std::move(shape)) {}

    Region region;
};

HandleTable<GdiObject, 4>& GdiObjects();

/// Registers an object and returns its handle.
HGDIOBJ AddGdiObject(std::shared_ptr<GdiObject> object);

/// Returns the object of a handle if it has the requested class, otherwise null. The pointer is not owned and
/// stays valid while the handle does.
template <class Object>
Object* PeekGdiObject(const void* handle)
{
    GdiObject* const object = GdiObjects().Peek(handle);
    return object && object->kind == Object::kKind ? static_cast<Object*>(object) : nullptr;
}

/// The same, sharing ownership.
template <class Object>
std::shared_ptr<Object> FindGdiObject(const void* handle)
{
    return PeekGdiObject<Object>(handle) ? std::static_pointer_cast<Object>(GdiObjects().Find(handle))
                                         : nullptr;
}

/// Converts a colour to a pixel with an alpha byte of 0, as solid drawing writes it.
constexpr std::uint32_t PixelOf(COLORREF colour)
{
    return (static_cast<std::uint32_t>(GetRValue(colour)) << 16) |
           (static_cast<std::uint32_t>(GetGValue(colour)) << 8) | GetBValue(colour);
}
constexpr COLORREF ColourOf(std::uint32_t pixel)
{
    return RGB(static_cast<int>(pixel >> 16), static_cast<int>(pixel >> 8), static_cast<int>(pixel));
}

/// Registers an object that is never deleted and is not included in the live count.
HGDIOBJ AddStockObject(std::shared_ptr<GdiObject> object);

/// The bitmap that a memory context holds until another one is selected.
HBITMAP StockBitmap();

/// Returns the handle of a stock font, or null if the index is not a font's.
HGDIOBJ StockFont(int index);

}  // namespace qvui::native
