// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <memory>

#include <QPaintDevice>

class CountingEngine;

/// A paint device that only counts what it is asked to draw, so that all time goes to the code above it.
class CountingDevice : public QPaintDevice {
public:
    CountingDevice();
    ~CountingDevice() override;

    QPaintEngine* paintEngine() const override;
    /// Points and path elements so far.
    int64_t elements() const;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    std::unique_ptr<CountingEngine> engine;
};
