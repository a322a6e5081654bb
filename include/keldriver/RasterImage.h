// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include <QImage>

#include "keldriver/Export.h"
#include "keldriver/Win32Types.h"

namespace Imgo {
class Image;
}

/// A raster image as drivers hand it to the renderer.
///
/// Every query also answers for an absent image, one that could not be read for example; the answer is given with the
/// query. Returned pointers belong to the image and last until it is changed or released. An image is used by one
/// thread at a time. There is no virtual destructor: the handle that `RasterImageFactory` gives out knows how to
/// release its image. On a driver's own implementation the renderer calls `pixelWidth`, `pixelHeight`, `scanLinesBase`
/// and `getBitmapInfo`, and needs no type information of it.
class KELDRIVER_API HT_RasterImage {
public:
    /// Where an image comes from. The drivers define the values, so they have no names here.
    enum SourceType : int32_t {};

    HT_RasterImage() = default;
    HT_RasterImage(const HT_RasterImage&) = delete;
    HT_RasterImage& operator=(const HT_RasterImage&) = delete;

    /// Columns; absent: 0.
    virtual int32_t pixelWidth() const = 0;
    /// Rows, negative where a DIB header says so; absent: 0.
    virtual int32_t pixelHeight() const = 0;
    /// Bits per pixel; absent: -1.
    virtual int32_t colorDepth() const = 0;
    /// Horizontal resolution in the unit of the implementation; absent: -1.
    virtual double resolutionWidth() const = 0;
    /// Vertical resolution in the unit of the implementation; absent: -1.
    virtual double resolutionHeight() const = 0;
    /// True when pixels are numbers of colours in a palette; absent: false.
    virtual bool hasPalette() const = 0;
    /// True when pixels have an opacity of their own; absent: false.
    virtual bool hasAlpha() const = 0;
    /// The colour that counts as transparent; 4294967295 for none.
    virtual uint32_t transparentColor() const = 0;
    /// 1 when a pixel is not opaque, else 0; absent: 0 or -1, as the implementation says.
    virtual int32_t getTransparency() const = 0;
    /// Where the image comes from; -1 when that is not kept, and when absent.
    virtual SourceType imageSource() const = 0;
    /// Tells where the image comes from; implementations that do not keep it do nothing.
    virtual void SetImageSource(SourceType source) = 0;
    /// A code agreed with the drivers; 15 for a layout that has none, and when absent.
    virtual int32_t pixelFormat() const = 0;
    /// The number of palette entries; absent: 0.
    virtual uint32_t numPaletteColors() const = 0;
    /// The palette entries; null when absent.
    ///
    /// @param count  receives their number where the implementation says so, else it is left as it is;
    ///               `numPaletteColors` always tells
    virtual const tagRGBQUAD* paletteData(unsigned int& count) const = 0;
    /// Bytes from one row to the next; absent: 0.
    virtual uint32_t scanLineSize() const = 0;
    /// The first byte of the first row in memory; absent: null.
    virtual const unsigned char* scanLinesBase() const = 0;
    /// Copies `count` rows from row `first` on to `buffer`; implementations whose rows can be reached only through
    /// `scanLinesBase` do nothing.
    virtual void scanLines(unsigned char* buffer, unsigned int first, unsigned int count) const = 0;
    /// The DIB header; absent: null. The colour entries follow it in an `HT_RasterImageImpl` only; others
    /// answer them through `paletteData`.
    virtual const tagBITMAPINFO* getBitmapInfo() const = 0;
    /// Draws the image by itself; implementations that leave that to `HT_Renderer::DrawImage` do nothing.
    virtual void bltDraw(void* target, double* origin, double* u, double* v) const = 0;
    /// Writes the image to a file, in the format that its suffix names.
    ///
    /// @return 1 on success; 0 on failure, and when absent; 4294967295 from an implementation that writes no files
    virtual uint32_t saveAs(const wchar_t* path) = 0;
    /// Encodes the image.
    ///
    /// @param data     receives the address of the encoded bytes, which belong to the image until `freeConvert`
    /// @param size     receives their number
    /// @param quality  0 to 100, or -1 for the format's own; taken as a signed 32-bit value; below -1 it counts as -1,
    ///                 above 100 as 100
    /// @return not 0 on success; else 0, and the outputs and the bytes of the last success are unchanged. Null
    ///         arguments give 0
    virtual uint32_t convertTo(const wchar_t* format, void** data, unsigned long* size, unsigned long quality) = 0;
    /// Releases the bytes of the last `convertTo`.
    virtual void freeConvert() = 0;
    /// True when the pixels lie in a mapped file; absent: false.
    virtual bool isMapViewOfFile() const = 0;
    /// Releases an image that is an `HT_RasterImageImpl`; of no effect on others. A handle must have given its
    /// image up before.
    virtual void destroy() = 0;
    /// Turns the image upside down. An absent image stays so, here and under `addAlpha`.
    virtual void flip() = 0;
    /// Multiplies the opacity of every pixel by `alpha` / 255.
    virtual void addAlpha(int alpha) = 0;

protected:
    ~HT_RasterImage() = default;
};

/// Where and how large `HT_Renderer::DrawImage` draws an image. Borrowed for the call, with the image.
struct HT_RasterImage_Record {
    /// Null draws nothing.
    HT_RasterImage* image;
    double x;            ///< left edge, plot units
    double y;            ///< top edge, plot units
    double widthFactor;  ///< plot units per column
    double reserved[2];  ///< for the drivers' own use
    double heightFactor; ///< plot units per row, for one row more than there are; negative: upside down, growing
                         ///< upward from `y`
};

static_assert(sizeof(HT_RasterImage_Record) == 56 && offsetof(HT_RasterImage_Record, x) == 8 &&
                  offsetof(HT_RasterImage_Record, y) == 16 && offsetof(HT_RasterImage_Record, widthFactor) == 24 &&
                  offsetof(HT_RasterImage_Record, heightFactor) == 48,
              "record shared with drivers");

/// An image of the application's image library, seen through the DIB description that the library gives.
///
/// The image is absent without a library image and where that has no description. Resolutions are pixels per
/// centimetre.
class KELDRIVER_API HT_RasterImageImpl final : public HT_RasterImage {
public:
    /// Takes ownership of `libraryImage`, which may be null. Its destructor is called and then its storage given
    /// to `operator delete`, so it must lie at the start of memory from `operator new`.
    explicit HT_RasterImageImpl(Imgo::Image* libraryImage);
    /// Releases the library image.
    ~HT_RasterImageImpl();

    int32_t pixelWidth() const override;
    int32_t pixelHeight() const override;
    int32_t colorDepth() const override;
    double resolutionWidth() const override;
    double resolutionHeight() const override;
    bool hasPalette() const override;
    bool hasAlpha() const override; ///< 32 bits per pixel
    uint32_t transparentColor() const override;
    int32_t getTransparency() const override;        ///< what the library answers; absent: -1
    SourceType imageSource() const override;         ///< -1
    void SetImageSource(SourceType source) override; ///< does nothing
    int32_t pixelFormat() const override;
    uint32_t numPaletteColors() const override; ///< the header's number of used colours
    /// The colour entries after the header, even where there are none; sets `count` to their number.
    const tagRGBQUAD* paletteData(unsigned int& count) const override;
    uint32_t scanLineSize() const override;
    const unsigned char* scanLinesBase() const override;
    void scanLines(unsigned char* buffer, unsigned int first, unsigned int count) const override; ///< does nothing
    const tagBITMAPINFO* getBitmapInfo() const override;
    void bltDraw(void* target, double* origin, double* u, double* v) const override; ///< does nothing
    uint32_t saveAs(const wchar_t* path) override; ///< writes nothing and answers 4294967295
    uint32_t convertTo(const wchar_t* format, void** data, unsigned long* size, unsigned long quality) override; ///< 0
    void freeConvert() override;
    bool isMapViewOfFile() const override; ///< false
    void destroy() override;               ///< releases the library image and this object, which must come from `new`
    void flip() override;                  ///< does nothing
    void addAlpha(int alpha) override;     ///< left to the image library

    int ConvertImageInLockMem(const tagBITMAPINFO* info, const void* bits, const wchar_t* format, void** data,
                              unsigned long* size, unsigned int quality); ///< does nothing and answers 0
    void UnlockConvertImageMem();                                         ///< does nothing

private:
    Imgo::Image* image; ///< owned; may be null
};

/// An image decoded from the bytes of a PNG file. It is absent when they could not be decoded.
///
/// Resolutions are dots per inch.
class KELDRIVER_API HT_RasterImageDibImpl final : public HT_RasterImage {
public:
    /// Decodes `size` bytes, which are borrowed for the call. Null or a size of 0 or less gives an absent image.
    HT_RasterImageDibImpl(const unsigned char* data, int size);
    ~HT_RasterImageDibImpl();

    int32_t pixelWidth() const override;
    int32_t pixelHeight() const override;
    int32_t colorDepth() const override;
    double resolutionWidth() const override;
    double resolutionHeight() const override;
    bool hasPalette() const override;
    bool hasAlpha() const override;
    uint32_t transparentColor() const override;
    int32_t getTransparency() const override;        ///< absent: 0
    SourceType imageSource() const override;         ///< -1
    void SetImageSource(SourceType source) override; ///< does nothing
    int32_t pixelFormat() const override;
    uint32_t numPaletteColors() const override;
    /// Null without a palette; leaves `count` as it is.
    const tagRGBQUAD* paletteData(unsigned int& count) const override;
    uint32_t scanLineSize() const override;
    const unsigned char* scanLinesBase() const override; ///< the top row comes first
    void scanLines(unsigned char* buffer, unsigned int first, unsigned int count) const override; ///< does nothing
    /// A header with a negative height, for the top row comes first, and with one colour entry of 0.
    const tagBITMAPINFO* getBitmapInfo() const override;
    void bltDraw(void* target, double* origin, double* u, double* v) const override; ///< does nothing
    uint32_t saveAs(const wchar_t* path) override;                                   ///< 1 on success, else 0
    /// Encodes a copy with 32 bits per pixel, so decoding a PNG again gives an image that `DrawImage` shows right.
    uint32_t convertTo(const wchar_t* format, void** data, unsigned long* size, unsigned long quality) override;
    void freeConvert() override;
    bool isMapViewOfFile() const override; ///< false
    void destroy() override;               ///< does nothing
    void flip() override;
    /// The product is rounded and kept within 0 to 255. Images without an alpha channel or with a palette stay
    /// as they are.
    void addAlpha(int alpha) override;

    int ConvertImageInLockMem(const tagBITMAPINFO* info, const void* bits, const wchar_t* format, void** data,
                              unsigned long* size, unsigned int quality); ///< does nothing and answers 0
    void UnlockConvertImageMem();                                         ///< does nothing

private:
    QImage image;
    mutable tagBITMAPINFO bitmapInfo{};                ///< filled whenever it is asked for
    std::unique_ptr<unsigned char[]> conversionBuffer; ///< from the last successful `convertTo`
};

/// Releases an image through its concrete class. Without a function it releases nothing: a handle made from a bare
/// pointer borrows its image.
class HT_RasterImageDeleter {
public:
    HT_RasterImageDeleter() = default;
    /// @param function  destroys an image of the class that the handle holds
    explicit HT_RasterImageDeleter(void (*function)(HT_RasterImage*)) : release(function) {}

    /// Releases `image`, where there is a function.
    void operator()(HT_RasterImage* image) const {
        if (release != nullptr) {
            release(image);
        }
    }

private:
    void (*release)(HT_RasterImage*) = nullptr;
};

/// The one owner of an image.
using HT_RasterImagePtr = std::unique_ptr<HT_RasterImage, HT_RasterImageDeleter>;

/// Makes raster images.
class KELDRIVER_API RasterImageFactory {
public:
    /// Wraps an image of the application's image library and takes ownership of it; null gives null.
    static HT_RasterImagePtr CreateFromGiRasterImage(Imgo::Image* image);
    /// Decodes `size` bytes of a PNG file, which are borrowed for the call. There always is an image; it answers
    /// as absent when the bytes could not be decoded.
    static HT_RasterImagePtr CreateFromDibImage(unsigned char* data, int size);
    /// Always null: images are not built from a header and raw bits.
    static HT_RasterImage* CreateFromDibImage(const tagBITMAPINFO* info, void* palette, void* bits, bool flag);
};
