#pragma once

#include <memory>

#include "native/core/handle_table.h"
#include "native/gdi/region.h"
#include "native/gdi/surface.h"

namespace qvui::native {

enum class GdiKind { Bitmap, Brush, Pen, Font, Region };

/// What a GDI handle names. A context holds shares of what is selected into it, so an object may be deleted
/// while it is selected.
class GdiObject {
public:
    explicit GdiObject(GdiKind objectKind) : kind(objectKind) {}
    virtual ~GdiObject() = default;
    /// Answers GetObjectA: fills in at most `size` bytes; the bytes written, or the record's size without a
    /// buffer.
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

/// The handle of a new object.
HGDIOBJ AddGdiObject(std::shared_ptr<GdiObject> object);

/// The object of a handle when it has the wanted class, else null; without a share of it, valid while the
/// handle lives.
template <class Object>
Object* PeekGdiObject(const void* handle)
{
    GdiObject* const object = GdiObjects().Peek(handle);
    return object && object->kind == Object::kKind ? static_cast<Object*>(object) : nullptr;
}

/// The same with a share.
template <class Object>
std::shared_ptr<Object> FindGdiObject(const void* handle)
{
    return PeekGdiObject<Object>(handle) ? std::static_pointer_cast<Object>(GdiObjects().Find(handle))
                                         : nullptr;
}

/// A colour as an opaque-looking pixel whose alpha byte is 0, as solid drawing writes it.
constexpr std::uint32_t PixelOf(COLORREF colour)
{
    return (static_cast<std::uint32_t>(GetRValue(colour)) << 16) |
           (static_cast<std::uint32_t>(GetGValue(colour)) << 8) | GetBValue(colour);
}
constexpr COLORREF ColourOf(std::uint32_t pixel)
{
    return RGB(static_cast<int>(pixel >> 16), static_cast<int>(pixel >> 8), static_cast<int>(pixel));
}

/// The handle of a new object that is never deleted and that the live count leaves out.
HGDIOBJ AddStockObject(std::shared_ptr<GdiObject> object);

/// The bitmap that a memory context holds until another one is selected.
HBITMAP StockBitmap();

/// A stock font's handle; null for an index that is no font.
HGDIOBJ StockFont(int index);

}  // namespace qvui::native
