// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <gtest/gtest.h>

#include <QPainter>

#include "keldriver/QTRenderer.h"
#include "support/GoldenText.h"
#include "support/PlotRecorder.h"

/// A renderer whose fields a test may read.
class OpenRenderer : public QTRenderer {
public:
    using QTRenderer::alpha;
    using QTRenderer::color;
    using QTRenderer::dashPattern;
    using QTRenderer::penStyle;
    using QTRenderer::penWidth;
    using QTRenderer::windingPath;
    using QTRenderer::windingPending;
};

/// A renderer attached to a painter whose calls are written down.
class RendererTest : public ::testing::Test {
protected:
    RendererTest() { renderer.AttachDriver(&painter, {1000, 1000}, false); }

    PlotRecorder recorder;
    QPainter painter{&recorder};
    OpenRenderer renderer;
};

/// The values of enumerations reach the renderer as the integers that drivers send.
template <typename Enum>
Enum fromDriver(int value) {
    return static_cast<Enum>(value);
}
