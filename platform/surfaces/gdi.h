#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "platform/base/types.h"

namespace korvane {

/// Something that can be drawn on pixel by pixel: a bitmap in memory or a surface.
class DeviceContext {
  public:
    virtual ~DeviceContext() = default;
    virtual SIZE Size() const = 0;
    /// Pixels as 0x00RRGGBB from column 0 of row y; both are inside, the span not wider than it.
    virtual void ReadRow(int y, std::span<std::uint32_t> pixels) const = 0;
    virtual void WriteRow(int y, std::span<const std::uint32_t> pixels) = 0;
};
using HDC = DeviceContext*;

struct GdiBitmap;
using HBITMAP = GdiBitmap*;

/// The size of a bitmap, as GetObjectA returns it.
struct BITMAP {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// Loads a BMP file of the game's folder (path with backslashes, at most 254 characters); null when
/// it is missing or cannot be loaded. The caller frees it with DeleteObject.
HBITMAP LoadImageA(const std::string& path);
BITMAP GetObjectA(HBITMAP bitmap);
void DeleteObject(HBITMAP bitmap);

/// A memory context of one black pixel until a bitmap is selected into it. The caller frees it with
/// DeleteDC.
HDC CreateCompatibleDC();
/// Lets a bitmap, which stays the caller's, be copied from a memory context. A bitmap is as its
/// file has it: drawing on it does nothing.
void SelectObject(HDC memory, HBITMAP bitmap);
void DeleteDC(HDC memory);

/// Copies one rectangle onto another and stretches it by nearest pixels; false when one of them
/// does not lie inside its context.
bool StretchBlt(HDC destination, const RECT& destinationArea, HDC source, const RECT& sourceArea);
/// Writes a line of white text on black, with its left top corner there; what does not fit is cut
/// off.
void TextOutA(HDC context, int x, int y, const std::string& text);
/// CLR_INVALID outside.
COLORREF GetPixel(HDC context, int x, int y);
/// Does nothing outside.
void SetPixel(HDC context, int x, int y, COLORREF colour);

struct DeleteBitmap {
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
struct DeleteContext {
    void operator()(HDC memory) const { DeleteDC(memory); }
};
using UniqueBitmap = std::unique_ptr<GdiBitmap, DeleteBitmap>;
using UniqueContext = std::unique_ptr<DeviceContext, DeleteContext>;

}  // namespace korvane
