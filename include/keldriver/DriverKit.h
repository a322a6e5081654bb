// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QString>

#include "keldriver/ClipLine.h"
#include "keldriver/ClipRgn.h"
#include "keldriver/PointerArray.h"
#include "keldriver/Renderer.h"
#include "keldriver/Utility.h"
#include "keldriver/Win32Types.h"

/// Names for the interface's numbers, owners for what it hands out, and what texts in several fonts need.
///
/// All of it is inline and built on the calls that the other headers declare. A driver may use any part of it, or none.
namespace KelDriver::Kit {

/// The kind for `HT_RendererFactory::CreateRenderer` of the renderer that draws on a `QPainter`.
constexpr int painterRenderer = 4;

/// What `HT_DefaultDeviceCapabilities` can be asked for. Lengths are tenths of a millimetre.
enum Capability : unsigned short {
    PaperNumbers = 2,  ///< 16 bits a paper
    PaperSizes = 3,    ///< width and length, 32 bits each
    Resolutions = 13,  ///< three pairs of dots per inch, whatever the paper file
    PaperNames = 16,   ///< 64 wide characters a paper
    PaperRecords = 19, ///< a `PaperSize` a paper
    LargestPaper = 20, ///< width and length, once; the answer is always 0
    PaperMargins = 65, ///< left, top, right and bottom, 32 bits each
};

/// Gives a renderer back to the factory.
struct RendererDeleter {
    /// Destroys the renderer, which restores its painter once more.
    void operator()(HT_Renderer* renderer) const { HT_RendererFactory::DestroyRenderer(renderer); }
};

/// Owns a renderer of the factory. Its painter must outlive it.
using RendererPtr = std::unique_ptr<HT_Renderer, RendererDeleter>;

/// A renderer that draws on a painter from construction to destruction.
///
/// Afterwards the painter has as many saved states as before, so that it ends without a warning. One of these serves
/// all pages of a document that has one painter; pages with painters of their own take one each.
class RenderSession {
public:
    /// Makes a renderer, attaches it and starts the render.
    ///
    /// @param painter  active; must outlive this
    explicit RenderSession(QPainter& painter) : m_renderer(HT_RendererFactory::CreateRenderer(painterRenderer, 0)) {
        const QRect window = painter.window();
        m_renderer->AttachDriver(&painter, {window.width(), window.height()}, false);
        m_renderer->StartRender();
    }
    /// Finishes the render, detaches the renderer and destroys it.
    ~RenderSession() {
        m_renderer->FinishRender();
        m_renderer->DetachDriver();
    }
    RenderSession(const RenderSession&) = delete;
    RenderSession& operator=(const RenderSession&) = delete;

    /// The renderer, for as long as this lives.
    HT_Renderer& operator*() const { return *m_renderer; }
    /// As `operator*`.
    HT_Renderer* operator->() const { return m_renderer.get(); }

private:
    RendererPtr m_renderer;
};

/// Releases a list of contours.
struct RegionDeleter {
    /// Releases every node of the list.
    void operator()(HT_ClipRgn* region) const { KelDriver::HT_DeleteRgn(region); }
};

/// Owns a list of contours. What `CVornRgn::GetClipRgnRef` answers stays the region object's and does not go in here.
using RegionPtr = std::unique_ptr<HT_ClipRgn, RegionDeleter>;

/// The pieces of a polyline that show in a region, as `HT_ClipLine` gives them: vertices are whole plot units.
class PolylinePieces {
public:
    /// Clips an open polyline of `count` points to a region; both are borrowed for the call.
    PolylinePieces(const HT_ClipRgn* region, const HT_Double_Point* points, int count) : PolylinePieces() {
        m_answer = HT_ClipLine(region, points, count, &m_records);
    }
    /// Releases the pieces.
    ~PolylinePieces() { m_records.Clear(); }
    PolylinePieces(const PolylinePieces&) = delete;
    PolylinePieces& operator=(const PolylinePieces&) = delete;

    /// The number of pieces; 0 also when there is no geometry module, or it failed.
    int count() const { return m_records.GetCount(); }
    /// True when the geometry module reported a failure. A missing one cannot be told from a line that does not
    /// show: ask `hasGeometryModule`.
    bool hasFailed() const { return m_answer < 0; }
    /// The points of the piece at `index`, from 0, in order along the line; empty for another index, and for a piece
    /// that there was no memory for.
    std::vector<HT_Double_Point> points(int index) {
        const auto* const record = static_cast<const char*>(m_records.GetData(index));
        int32_t count = 0;
        if (record != nullptr) {
            std::memcpy(&count, record, sizeof count);
        }
        std::vector<HT_Double_Point> points(static_cast<size_t>(std::max(count, 0)));
        if (!points.empty()) { // behind the count, and so not aligned
            std::memcpy(points.data(), record + sizeof count, points.size() * sizeof(HT_Double_Point));
        }
        return points;
    }

private:
    PolylinePieces() : m_records(0, nullptr, HT_Free) {}

    HT_PointerArray m_records;
    int32_t m_answer = 0;
};

/// Tells whether there is a geometry module, without which `HT_ClipLine` answers that no line shows: a line across a
/// rectangle has one piece.
inline bool hasGeometryModule() {
    const RegionPtr box(KelDriver::HT_CreateRectRgnData({0, 0}, {2, 2}));
    const HT_Double_Point across[] = {{-1, 1}, {3, 1}};
    return PolylinePieces(box.get(), across, 2).count() == 1;
}

/// The font of a `DrawText` call that shows a run of an `HT_Text`.
///
/// `lfHeight`, without its sign, is taken for plot units; 0 leaves the height to the caller. The rotation comes from
/// `lfEscapement`, which no other call reads. A weight from 550 on, which is nearer to 700 than to 400, is bold. Lines
/// under and through the text, and the average width, have no place in an `HT_Font`.
inline HT_Font fontOf(const tagLOGFONTW& record) {
    HT_Font font{};
    font.height = std::fabs(static_cast<double>(record.lfHeight));
    font.rotation = record.lfEscapement / 10.0;
    font.bold = record.lfWeight >= 550 ? 1 : 0;
    font.italic = record.lfItalic;
    font.charSet = record.lfCharSet;
    font.pitchAndFamily = record.lfPitchAndFamily;
    std::copy(std::begin(record.lfFaceName), std::end(record.lfFaceName), font.faceName);
    return font;
}

/// How far a text reaches along its base line, in plot units: where the next run starts, when `DrawText` gets the same
/// font and width factor and no character widths. It needs a `QGuiApplication`.
///
/// Compiled into the driver, it measures as the library of this header draws; a later one that chose sizes otherwise
/// would ask for the driver to be compiled anew.
inline double advanceOf(const std::wstring& text, const HT_Font& font, double widthFactor = 1.0) {
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const int dotsPerInch = screen == nullptr ? 96 : static_cast<int>(screen->logicalDotsPerInch());
    const wchar_t* const nameEnd = std::find(std::begin(font.faceName), std::end(font.faceName), L'\0');
    QFont measured(QString::fromWCharArray(font.faceName, static_cast<int>(nameEnd - font.faceName)));
    measured.setWeight(font.bold != 0 ? QFont::Bold : QFont::Normal);
    measured.setItalic(font.italic != 0);
    // Rounded as DrawText rounds it; a height of 0 leaves the size to Qt there, too.
    const double height = std::round(std::fabs(font.height));
    if (height >= 1.0) {
        constexpr double tallest = std::numeric_limits<int32_t>::max();
        measured.setPointSizeF(std::min(height, tallest) * 72.0 / dotsPerInch);
    }
    return QFontMetricsF(measured).horizontalAdvance(QString::fromWCharArray(text.c_str())) * widthFactor;
}

} // namespace KelDriver::Kit
