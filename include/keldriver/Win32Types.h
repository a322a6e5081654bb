// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <cstdint>

/// Win32 records that drivers exchange with the library, in their published field order and widths.
///
/// LONG and DWORD are 32 bits as on Win32, whatever the width of the platform's `long`. Wide
/// characters are the platform's own (32-bit code points), so `tagLOGFONTW` is longer than on Win32.

/// A point in integer device units.
struct tagPOINT {
    int32_t x; ///< to the right
    int32_t y; ///< downwards
};

/// A rectangle in integer device units; right and bottom are its far edges.
struct tagRECT {
    int32_t left;   ///< x of the near edge
    int32_t top;    ///< y of the near edge
    int32_t right;  ///< x of the far edge
    int32_t bottom; ///< y of the far edge
};

/// An affine world transform in the row-vector convention:
/// x' = x·eM11 + y·eM21 + eDx, y' = x·eM12 + y·eM22 + eDy.
struct tagXFORM {
    float eM11; ///< of x for x'
    float eM12; ///< of x for y'
    float eM21; ///< of y for x'
    float eM22; ///< of y for y'
    float eDx;  ///< what x' is moved by
    float eDy;  ///< what y' is moved by
};

/// One palette entry of a DIB.
struct tagRGBQUAD {
    uint8_t rgbBlue;     ///< 0 to 255
    uint8_t rgbGreen;    ///< 0 to 255
    uint8_t rgbRed;      ///< 0 to 255
    uint8_t rgbReserved; ///< whatever the function that fills it says
};

/// The header of a DIB; a positive height means that the bottom row comes first.
struct tagBITMAPINFOHEADER {
    uint32_t biSize;         ///< of this header, 40 bytes
    int32_t biWidth;         ///< pixels
    int32_t biHeight;        ///< pixels; negative: the top row comes first
    uint16_t biPlanes;       ///< 1
    uint16_t biBitCount;     ///< bits per pixel
    uint32_t biCompression;  ///< 0 for none, 3 for pixels laid out by three colour masks
    uint32_t biSizeImage;    ///< of the pixels in bytes; 0: what the rows take
    int32_t biXPelsPerMeter; ///< horizontal resolution, pixels per metre
    int32_t biYPelsPerMeter; ///< vertical resolution, pixels per metre
    uint32_t biClrUsed;      ///< palette entries in use; 0: all that up to 8 bits can number, none beyond
    uint32_t biClrImportant; ///< palette entries that a device must show; 0: all
};

/// A DIB header with the first entry of its palette.
struct tagBITMAPINFO {
    tagBITMAPINFOHEADER bmiHeader; ///< what the pixels are
    tagRGBQUAD bmiColors[1];       ///< the palette begins here; more entries may follow in memory
};

/// A logical font as drivers describe it. Fields that are not read here still travel with the record.
struct tagLOGFONTW {
    int32_t lfHeight;         ///< pixels of the screen; the sign does not count, and 0 leaves the size to Qt
    int32_t lfWidth;          ///< average width of a character; not read
    int32_t lfEscapement;     ///< of the line of text, tenths of a degree; not read
    int32_t lfOrientation;    ///< of each character, tenths of a degree; not read
    int32_t lfWeight;         ///< 100 to 900 in hundreds; any other value means normal, as 400 does
    uint8_t lfItalic;         ///< non-zero: italic
    uint8_t lfUnderline;      ///< non-zero: underlined
    uint8_t lfStrikeOut;      ///< non-zero: struck out
    uint8_t lfCharSet;        ///< Win32 character set; not read
    uint8_t lfOutPrecision;   ///< not read
    uint8_t lfClipPrecision;  ///< not read
    uint8_t lfQuality;        ///< not read
    uint8_t lfPitchAndFamily; ///< not read
    wchar_t lfFaceName[32];   ///< zero-terminated; may fill all 32 characters without a terminator
};

/// The device mode record; the library only passes pointers to it.
struct _devicemodeW; // NOLINT(bugprone-reserved-identifier): its published name

static_assert(sizeof(tagPOINT) == 8 && offsetof(tagPOINT, x) == 0 && offsetof(tagPOINT, y) == 4, "Win32 layout");
static_assert(sizeof(tagRECT) == 16 && offsetof(tagRECT, left) == 0 && offsetof(tagRECT, top) == 4 &&
                  offsetof(tagRECT, right) == 8 && offsetof(tagRECT, bottom) == 12,
              "Win32 layout");
static_assert(sizeof(tagXFORM) == 24 && offsetof(tagXFORM, eM11) == 0 && offsetof(tagXFORM, eM12) == 4 &&
                  offsetof(tagXFORM, eM21) == 8 && offsetof(tagXFORM, eM22) == 12 && offsetof(tagXFORM, eDx) == 16 &&
                  offsetof(tagXFORM, eDy) == 20,
              "Win32 layout");
static_assert(sizeof(tagRGBQUAD) == 4 && offsetof(tagRGBQUAD, rgbBlue) == 0 && offsetof(tagRGBQUAD, rgbGreen) == 1 &&
                  offsetof(tagRGBQUAD, rgbRed) == 2 && offsetof(tagRGBQUAD, rgbReserved) == 3,
              "Win32 layout");
static_assert(sizeof(tagBITMAPINFOHEADER) == 40 && sizeof(tagBITMAPINFO) == 44, "Win32 layout");
static_assert(offsetof(tagBITMAPINFOHEADER, biCompression) == 16, "Win32 layout");
static_assert(offsetof(tagLOGFONTW, lfItalic) == 20 && offsetof(tagLOGFONTW, lfFaceName) == 28 &&
                  sizeof(tagLOGFONTW) == 28 + 32 * sizeof(wchar_t),
              "Win32 field order, with the platform's wide characters");
