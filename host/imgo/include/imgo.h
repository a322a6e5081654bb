// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "keldriver/Win32Types.h"

class QIODevice;

#define IMGO_API __attribute__((visibility("default")))

/// The image library of libImgo.so: pictures in, their DIB out.
namespace Imgo {

/// An image as a DIB: the bottom row first, every row filled up to a multiple of four bytes.
struct DibInfo {
    const tagBITMAPINFO* info;   ///< the header, with its `paletteCount` colour entries after it
    uint32_t paletteCount;       ///< 0 for images with more than 8 bits per pixel
    const unsigned char* pixels; ///< the bottom row
    uint32_t scanLineSize;       ///< bytes per row
    int32_t bitCount;            ///< bits per pixel: 1, 8, 24 or 32
};

static_assert(sizeof(DibInfo) == 32 && offsetof(DibInfo, paletteCount) == 8 && offsetof(DibInfo, pixels) == 16 &&
                  offsetof(DibInfo, scanLineSize) == 24 && offsetof(DibInfo, bitCount) == 28,
              "record shared with applications' own image libraries");

/// A picture that was read from a file or from its bytes: PNG, JPEG, BMP, GIF, TIFF and whatever else Qt has plugins
/// for. The format is recognised from the content.
class IMGO_API Image {
public:
    /// Reads the first picture of a file.
    ///
    /// @param path  UTF-8
    /// @return null when it cannot be read
    static std::unique_ptr<Image> LoadFile(const std::string& path);
    /// Reads a picture from the bytes of a file, which are borrowed for the call.
    ///
    /// @return null when they cannot be decoded
    static std::unique_ptr<Image> LoadBytes(const void* bytes, size_t size);

    ~Image();
    Image(const Image&) = delete;
    Image& operator=(const Image&) = delete;

    /// The image as a DIB, which is made once and stays valid until `AddAlphaOnCvtBmp` or the end of the image.
    ///
    /// @param make  false: only when there is a DIB already
    /// @return null when there is none or memory runs out
    const DibInfo* GetDibInfo(bool make);
    /// 1 when a pixel of the picture is not opaque, else 0; -1 where `GetDibInfo` has no answer.
    int GetDibTransparency(bool make);
    /// Multiplies the opacity of every pixel by `alpha` / 255, kept within 0 to 255, and makes the image one with
    /// 32 bits per pixel. Call it with 255 to get a DIB that a renderer takes.
    void AddAlphaOnCvtBmp(int alpha);

private:
    struct Data;
    explicit Image(std::unique_ptr<Data> content);
    static std::unique_ptr<Image> Load(QIODevice& device);

    std::unique_ptr<Data> data;
};

} // namespace Imgo
