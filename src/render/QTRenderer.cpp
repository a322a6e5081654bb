// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/QTRenderer.h"

#include <cstdint>

#include <QBrush>
#include <QPainter>
#include <QPen>

#include "render/TextOutlines.h"

using namespace KelDriver::Internal;

QTRenderer::QTRenderer() = default;

QTRenderer::~QTRenderer() {
    endTextOutlines(this);
    if (painter != nullptr) {
        painter->restore();
    }
}

uint32_t QTRenderer::Features() const {
    return 31;
}

void QTRenderer::AttachDriver(void* target, const HT_Int_Size&, bool) {
    painter = static_cast<QPainter*>(target);
    minArcSize = 1;
    if (painter != nullptr) {
        painter->save();
    }
}

void QTRenderer::DetachDriver() {
    endTextOutlines(this);
    // The painter stays recorded, and the destructor restores it once more: part of the interface.
    if (painter != nullptr) {
        painter->restore();
    }
}

bool QTRenderer::StartRender() {
    if (painter == nullptr) {
        return false;
    }
    beginTextOutlines(this);
    painter->save();
    painter->setPen(QPen(QColor(0, 0, 0)));
    painter->setBrush(QBrush(QColor(0, 0, 0), Qt::SolidPattern));
    return true;
}

void QTRenderer::FinishRender() {
    endTextOutlines(this);
}

void QTRenderer::setScale(double factor) {
    scale = factor;
}

void QTRenderer::SetMergeControlType(HT_PlotStyle::MergeControlType type) {
    if (painter == nullptr) {
        return;
    }
    switch (type) {
    case HT_PlotStyle::MergeControlCopy:
        painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
        break;
    case HT_PlotStyle::MergeControlMerge:
        painter->setCompositionMode(QPainter::CompositionMode_Multiply);
        break;
    default:
        break;
    }
}
