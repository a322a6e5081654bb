// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QHash>
#include <cstdint>
#include <optional>

#include "drawing/Text.h"

namespace kelplot {

/// What the handles of records stand for, where other records refer to them by these. Numbers are indices into the
/// lists of the drawing.
class RecordHandles {
public:
    void nameLayer(uint64_t handle, uint32_t layer) { m_layers.insert(handle, layer); }
    std::optional<uint32_t> layer(uint64_t handle) const {
        const auto found = m_layers.constFind(handle);
        return found == m_layers.constEnd() ? std::nullopt : std::optional<uint32_t>(*found);
    }

    void nameLineType(uint64_t handle, uint32_t lineType) { m_lineTypes.insert(handle, lineType); }
    /// The line type, or the mark where there is none.
    uint32_t lineType(uint64_t handle, uint32_t otherwise) const { return m_lineTypes.value(handle, otherwise); }
    const QHash<uint64_t, uint32_t>& lineTypes() const { return m_lineTypes; }

    void nameTextStyle(uint64_t handle, uint32_t style) { m_textStyles.insert(handle, style); }
    /// The text style; else the standard one.
    uint32_t textStyle(uint64_t handle) const { return m_textStyles.value(handle, 0); }
    const QHash<uint64_t, uint32_t>& textStyles() const { return m_textStyles; }

    /// Keeps the text of an attribute's definition, which references that are no INSERT put to use.
    void keepAttributeDefinition(uint64_t handle, const Text& text) { m_attributeDefinitions.insert(handle, text); }
    /// Null where there is none.
    const Text* attributeDefinition(uint64_t handle) const {
        const auto found = m_attributeDefinitions.constFind(handle);
        return found == m_attributeDefinitions.constEnd() ? nullptr : &*found;
    }

private:
    QHash<uint64_t, uint32_t> m_layers;
    QHash<uint64_t, uint32_t> m_lineTypes;
    QHash<uint64_t, uint32_t> m_textStyles;
    QHash<uint64_t, Text> m_attributeDefinitions;
};

} // namespace kelplot
