// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/QTRenderer.h"
#include "keldriver/Renderer.h"

namespace {

constexpr int painterKind = 4; // the only kind there is; its number is part of the interface

} // namespace

HT_Renderer* HT_RendererFactory::CreateRenderer(int kind, unsigned int) {
    return kind == painterKind ? new QTRenderer : nullptr;
}

void HT_RendererFactory::DestroyRenderer(HT_Renderer* renderer) {
    delete renderer;
}
