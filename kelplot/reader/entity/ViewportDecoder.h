// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <vector>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// Viewports of layouts. The one with number 1 stands for the sheet itself and is dropped. Drawings up to release 12
/// state the view in extended data.
class ViewportDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void takeExtended(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    bool takeOfView(const Group& group);
    void takeExtendedReal(double value);

    Viewport m_viewport;
    int m_number = 0;
    bool m_usesClip = false;
    uint64_t m_clipHandle = 0;
    std::vector<uint64_t> m_frozenLayers;   ///< handles
    std::vector<std::string> m_frozenNames; ///< as the file writes them
    bool m_inView = false;                  ///< in the extended data that state it
    int m_points = 0;                       ///< of these data, so far
    int m_reals = 0;
    int m_integers = 0;
};

} // namespace kelplot
