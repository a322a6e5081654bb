// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/job/RenderSession.h"

namespace kelplot {
namespace {

constexpr int painterRenderer = 4;

} // namespace

RenderSession::RenderSession(OutputDevice& device)
    : m_renderer(HT_RendererFactory::CreateRenderer(painterRenderer, 0), HT_RendererFactory::DestroyRenderer),
      m_direct(device.painter(), &device) {
    QPainter& painter = device.painter();
    const QRect window = painter.window();
    m_renderer->AttachDriver(&painter, HT_Int_Size{window.width(), window.height()}, false);
    m_renderer->StartRender();
}

RenderSession::~RenderSession() {
    m_renderer->FinishRender();
    m_renderer->DetachDriver();
}

} // namespace kelplot
