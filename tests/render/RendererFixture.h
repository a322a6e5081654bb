// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <gtest/gtest.h>

#include <QPainter>

#include "keldriver/QTRenderer.h"
#include "support/PlotRecorder.h"

/// A renderer attached to a painter whose calls are written down.
class RendererTest : public ::testing::Test {
protected:
    RendererTest() { renderer.AttachDriver(&painter, {1000, 1000}, false); }

    PlotRecorder recorder;
    QPainter painter{&recorder};
    QTRenderer renderer;
};
