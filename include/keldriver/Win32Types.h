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
    int32_t x;
    int32_t y;
};

/// A rectangle in integer device units; right and bottom are its far edges.
struct tagRECT {
    int32_t left;
    int32_t top;
    int32_t right;
    int32_t bottom;
};

/// An affine world transform in the row-vector convention:
/// x' = x·eM11 + y·eM21 + eDx, y' = x·eM12 + y·eM22 + eDy.
struct tagXFORM {
    float eM11;
    float eM12;
    float eM21;
    float eM22;
    float eDx;
    float eDy;
};

/// One palette entry of a DIB.
struct tagRGBQUAD {
    uint8_t rgbBlue;
    uint8_t rgbGreen;
    uint8_t rgbRed;
    uint8_t rgbReserved;
};

/// The header of a DIB; a positive height means that the bottom row comes first.
struct tagBITMAPINFOHEADER {
    uint32_t biSize;
    int32_t biWidth;
    int32_t biHeight;
    uint16_t biPlanes;
    uint16_t biBitCount;
    uint32_t biCompression;
    uint32_t biSizeImage;
    int32_t biXPelsPerMeter;
    int32_t biYPelsPerMeter;
    uint32_t biClrUsed;
    uint32_t biClrImportant;
};

/// A DIB header with the first entry of its palette.
struct tagBITMAPINFO {
    tagBITMAPINFOHEADER bmiHeader;
    tagRGBQUAD bmiColors[1];
};

/// A logical font as drivers describe it.
struct tagLOGFONTW {
    int32_t lfHeight;
    int32_t lfWidth;
    int32_t lfEscapement;
    int32_t lfOrientation;
    int32_t lfWeight;
    uint8_t lfItalic;
    uint8_t lfUnderline;
    uint8_t lfStrikeOut;
    uint8_t lfCharSet;
    uint8_t lfOutPrecision;
    uint8_t lfClipPrecision;
    uint8_t lfQuality;
    uint8_t lfPitchAndFamily;
    wchar_t lfFaceName[32];
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
