// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <memory>

#include "device/OutputDevice.h"
#include "keldriver/Renderer.h"
#include "plot/entity/PlotTools.h"

namespace kelplot {

/// A renderer that draws on a device from construction to destruction. The device's painter must outlive it:
/// the renderer restores the painter's state when it is destroyed.
class RenderSession {
public:
    explicit RenderSession(OutputDevice& device);
    ~RenderSession();
    RenderSession(const RenderSession&) = delete;
    RenderSession& operator=(const RenderSession&) = delete;

    /// What a plot is drawn with, for as long as this lives.
    PlotSurface surface() { return {*m_renderer, &m_direct}; }

private:
    std::unique_ptr<HT_Renderer, void (*)(HT_Renderer*)> m_renderer;
    DirectPainter m_direct;
};

} // namespace kelplot
