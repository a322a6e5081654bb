// SPDX-License-Identifier: BSD-3-Clause
#include <cstddef>
#include <type_traits>
#include <vector>

#include "keldriver/Renderer.h"
#include "render/RendererFixture.h"
#include "support/VirtualSlot.h"

static_assert(std::has_virtual_destructor_v<HT_Renderer> && std::is_abstract_v<HT_Renderer>);
static_assert(!std::is_copy_constructible_v<QTRenderer> && !std::is_copy_assignable_v<QTRenderer>);

namespace {

template <typename R>
void expectAgreedOrder() {
    const ptrdiff_t positions[] = {slotOf(&R::Features),        slotOf(&R::AttachDriver),
                                   slotOf(&R::DetachDriver),    slotOf(&R::StartRender),
                                   slotOf(&R::FinishRender),    slotOf(&R::DrawPoint),
                                   slotOf(&R::DrawEllipse),     slotOf(&R::DrawArc),
                                   slotOf(&R::DrawPolyline),    slotOf(&R::FillPolygon),
                                   slotOf(&R::DrawBezier),      slotOf(&R::DrawText),
                                   slotOf(&R::DrawImage),       slotOf(&R::SetLineWeight),
                                   slotOf(&R::SetLineEndStyle), slotOf(&R::SetLineJoinStyle),
                                   slotOf(&R::SetLineType),     slotOf(&R::SetFillStyle),
                                   slotOf(&R::SetColor),        slotOf(&R::SetAlpha),
                                   slotOf(&R::SetFillMode),     slotOf(&R::SetMergeControlType),
                                   slotOf(&R::SetClipRgn),      slotOf(&R::setScale),
                                   slotOf(&R::BeginPath),       slotOf(&R::EndPath),
                                   slotOf(&R::FillPath),        slotOf(&R::SetDrawingPline)};
    ptrdiff_t expected = 2; // after the destructor
    for (const ptrdiff_t position : positions) {
        EXPECT_EQ(position, expected++);
    }
}

TEST(RendererInterface, SlotsKeepTheOrderAgreedWithDrivers) {
    expectAgreedOrder<HT_Renderer>();
    expectAgreedOrder<QTRenderer>();
}

/// A driver's renderer, which reads the fields that it inherits.
class DerivedRenderer : public QTRenderer {
public:
    /// Where the fields lie, in bytes from the start of the object, and where the object ends.
    std::vector<ptrdiff_t> offsets() const {
        const auto offsetOf = [this](const auto& field) {
            return reinterpret_cast<const char*>(&field) - reinterpret_cast<const char*>(this);
        };
        return {offsetOf(painter),     offsetOf(color),          offsetOf(alpha),
                offsetOf(minArcSize),  offsetOf(windingPending), offsetOf(windingPath),
                offsetOf(penWidth),    offsetOf(penStyle),       offsetOf(capStyle),
                offsetOf(joinStyle),   offsetOf(dashPattern),    offsetOf(fillStyle),
                offsetOf(lastPointX),  offsetOf(lastPointY),     offsetOf(squaresTexture),
                offsetOf(dotsTexture), offsetOf(scale),          static_cast<ptrdiff_t>(sizeof(QTRenderer))};
    }
    bool hasSquaresOnly() const { return !squaresTexture.isNull() && dotsTexture.isNull(); }
};

// Counted by hand from the order and widths of the fields: a pointer to the dispatch table and 8 bytes of painter, 16
// of colour, and so on; a path and a vector are a pointer each, an image four.
TEST(RendererInterface, FieldsLieWhereDerivedClassesLookForThem) {
    EXPECT_EQ(DerivedRenderer().offsets(),
              (std::vector<ptrdiff_t>{8, 16, 32, 36, 40, 48, 56, 60, 64, 68, 72, 80, 84, 88, 96, 128, 160, 168}));
}

TEST_F(RendererTest, DerivedClassesFindEachTextureInItsField) {
    DerivedRenderer derived;
    derived.AttachDriver(&painter, {1000, 1000}, false);
    derived.SetFillStyle(HT_PlotStyle::FillSquares);
    EXPECT_TRUE(derived.hasSquaresOnly());
}

TEST(RendererFactory, KnowsOneKind) {
    for (const int kind : {-1, 0, 3, 5}) {
        EXPECT_EQ(HT_RendererFactory::CreateRenderer(kind, 0), nullptr) << "kind " << kind;
    }
    HT_Renderer* renderer = HT_RendererFactory::CreateRenderer(4, 12345);
    ASSERT_NE(renderer, nullptr);
    EXPECT_EQ(renderer->Features(), 31U);
    HT_RendererFactory::DestroyRenderer(renderer);
    HT_RendererFactory::DestroyRenderer(nullptr);
}

} // namespace
