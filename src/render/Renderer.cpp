// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/Renderer.h"

static_assert(sizeof(HT_Renderer) == sizeof(void*), "the interface holds no data");

void HT_Renderer::setScale(double) {
}

void HT_Renderer::BeginPath() {
}

void HT_Renderer::EndPath() {
}

void HT_Renderer::FillPath() {
}

void HT_Renderer::SetDrawingPline(bool) {
}
