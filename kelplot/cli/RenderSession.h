// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <memory>

#include "device/OutputDevice.h"
#include "keldriver/Renderer.h"

namespace kelplot {

/// A renderer that draws on a device from construction to destruction. The device's painter must outlive it:
/// the renderer gives the painter's state back when it goes.
class RenderSession {
public:
    explicit RenderSession(OutputDevice& device);
    ~RenderSession();
    RenderSession(const RenderSession&) = delete;
    RenderSession& operator=(const RenderSession&) = delete;

    HT_Renderer& renderer() { return *m_renderer; }

private:
    std::unique_ptr<HT_Renderer, void (*)(HT_Renderer*)> m_renderer;
};

} // namespace kelplot
