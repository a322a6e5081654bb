// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/QTRenderer.h"
#include "keldriver/Renderer.h"

namespace {

constexpr int painterKind = 4; // the other numbers belong to renderers of other platforms

} // namespace

HT_Renderer* HT_RendererFactory::CreateRenderer(int kind, unsigned int) {
    return kind == painterKind ? new QTRenderer : nullptr;
}

void HT_RendererFactory::DestroyRenderer(HT_Renderer* renderer) {
    delete renderer;
}
