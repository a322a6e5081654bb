// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// Text styles.
class TextStyleDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void takeExtended(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    TextStyle m_style;
    std::string m_name; ///< this and the next ones as the file has them
    std::string m_fontFile;
    std::string m_bigFontFile;
    std::string m_family;
    uint64_t m_handle = 0;
    int m_fontFlags = 0;
    bool m_tellsFont = false; ///< the attached data being read names the font
    bool m_isShapes = false;  ///< a file of shapes for line types, not a style
};

} // namespace kelplot
