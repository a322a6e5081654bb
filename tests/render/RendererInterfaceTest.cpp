#include <memory>
#include <type_traits>

#include "keldriver/Renderer.h"
#include "render/RendererFixture.h"
#include "support/VirtualSlot.h"

static_assert(std::has_virtual_destructor_v<HT_Renderer> && std::is_abstract_v<HT_Renderer>);
static_assert(!std::is_copy_constructible_v<QTRenderer> && !std::is_copy_assignable_v<QTRenderer>);

namespace {

template <typename Renderer>
std::vector<std::pair<const char*, ptrdiff_t>> slotTable() {
    return {
        {"Features", slotOf(&Renderer::Features)},
        {"AttachDriver", slotOf(&Renderer::AttachDriver)},
        {"DetachDriver", slotOf(&Renderer::DetachDriver)},
        {"StartRender", slotOf(&Renderer::StartRender)},
        {"FinishRender", slotOf(&Renderer::FinishRender)},
        {"DrawPoint", slotOf(&Renderer::DrawPoint)},
        {"DrawEllipse", slotOf(&Renderer::DrawEllipse)},
        {"DrawArc", slotOf(&Renderer::DrawArc)},
        {"DrawPolyline", slotOf(&Renderer::DrawPolyline)},
        {"FillPolygon", slotOf(&Renderer::FillPolygon)},
        {"DrawBezier", slotOf(&Renderer::DrawBezier)},
        {"DrawText", slotOf(&Renderer::DrawText)},
        {"DrawImage", slotOf(&Renderer::DrawImage)},
        {"SetLineWeight", slotOf(&Renderer::SetLineWeight)},
        {"SetLineEndStyle", slotOf(&Renderer::SetLineEndStyle)},
        {"SetLineJoinStyle", slotOf(&Renderer::SetLineJoinStyle)},
        {"SetLineType", slotOf(&Renderer::SetLineType)},
        {"SetFillStyle", slotOf(&Renderer::SetFillStyle)},
        {"SetColor", slotOf(&Renderer::SetColor)},
        {"SetAlpha", slotOf(&Renderer::SetAlpha)},
        {"SetFillMode", slotOf(&Renderer::SetFillMode)},
        {"SetMergeControlType", slotOf(&Renderer::SetMergeControlType)},
        {"SetClipRgn", slotOf(&Renderer::SetClipRgn)},
        {"setScale", slotOf(&Renderer::setScale)},
        {"BeginPath", slotOf(&Renderer::BeginPath)},
        {"EndPath", slotOf(&Renderer::EndPath)},
        {"FillPath", slotOf(&Renderer::FillPath)},
        {"SetDrawingPline", slotOf(&Renderer::SetDrawingPline)},
    };
}

template <typename Renderer>
void expectAgreedOrder() {
    ptrdiff_t expected = 2;
    for (const auto& [name, slot] : slotTable<Renderer>()) {
        EXPECT_EQ(slot, expected++) << name;
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

TEST(RendererFactory, DestroysThroughTheInterface) {
    struct Witness : QTRenderer {
        explicit Witness(bool& flag) : destroyed(flag) {}
        ~Witness() override { destroyed = true; }
        bool& destroyed;
    };
    bool isDestroyed = false;
    HT_RendererFactory::DestroyRenderer(new Witness(isDestroyed));
    EXPECT_TRUE(isDestroyed);
}

TEST(PlotStyle, FillBitmapsAreThoseAgreedWithDrivers) {
    const uint16_t expected[9][8] = {
        {0, 0, 0, 0, 0, 0, 0, 0},
        {0xff, 0xff, 0xc3, 0xdb, 0xdb, 0xc3, 0xff, 0xff},
        {0x00, 0x7f, 0x7f, 0x7f, 0x7f, 0x7f, 0x7f, 0x7f},
        {0xe7, 0xdb, 0xbd, 0x7e, 0x7e, 0xbd, 0xdb, 0xe7},
        {0x00, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff},
        {0x7f, 0xbf, 0xdf, 0xef, 0xf7, 0xfb, 0xfd, 0xfe},
        {0xfe, 0xfd, 0xfb, 0xf7, 0xef, 0xdf, 0xbf, 0x7f},
        {0x3f, 0x3f, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff},
        {0x7f, 0x7f, 0x7f, 0x7f, 0x7f, 0x7f, 0x7f, 0x7f},
    };
    static_assert(sizeof HT_PlotStyle::FillStyleBitmapBuffer == sizeof expected);
    for (int style = 0; style < 9; ++style) {
        for (int row = 0; row < 8; ++row) {
            EXPECT_EQ(HT_PlotStyle::FillStyleBitmapBuffer[style][row], expected[style][row]) << style << ", " << row;
        }
    }
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
