// SPDX-License-Identifier: BSD-3-Clause
#include <type_traits>

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
    ptrdiff_t expected = 2; // behind the destructor
    for (const ptrdiff_t position : positions) {
        EXPECT_EQ(position, expected++);
    }
}

TEST(RendererInterface, SlotsKeepTheOrderAgreedWithDrivers) {
    expectAgreedOrder<HT_Renderer>();
    expectAgreedOrder<QTRenderer>();
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

TEST_F(RendererTest, PathModeHasNoEffect) {
    const HT_Double_Point triangle[] = {{0, 0}, {10, 0}, {0, 10}};
    renderer.BeginPath();
    renderer.SetDrawingPline(true);
    renderer.DrawPolyline(triangle, 3);
    renderer.EndPath();
    renderer.FillPath();
    EXPECT_EQ(recorder.shapes(), "polyline 0,0 10,0 0,10\n");
}

} // namespace
