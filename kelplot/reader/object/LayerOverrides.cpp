// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/object/LayerOverrides.h"

#include "reader/GroupValue.h"
#include "reader/RecordHeader.h"
#include "reader/object/ObjectNames.h"

namespace kelplot {

namespace {

constexpr int viewportCode = 335;

/// The highest byte of the number tells what the others mean.
std::optional<Colour> colourOf(int number) {
    constexpr uint32_t trueColour = 0xC2;
    constexpr uint32_t colourNumber = 0xC3;
    const auto bits = static_cast<uint32_t>(number);
    switch (bits >> 24) {
    case trueColour:
        return Colour{Colour::Kind::trueColour, bits & 0xFFFFFF};
    case colourNumber:
        return Colour{Colour::Kind::index, bits & 0xFF};
    default:
        return std::nullopt;
    }
}

/// Reads the one property that a record states, for any number of viewports.
class OverrideReader {
public:
    explicit OverrideReader(const QHash<uint64_t, uint32_t>& lineTypes) : m_lineTypes(lineTypes) {}

    void apply(const KeptGroup& group, LayerOverride& to) const {
        const int number = toInteger(group.value);
        switch (group.code) {
        case 91:
            to.lineWeight = lineWeightOf(number);
            break;
        case 343:
            if (const auto type = m_lineTypes.constFind(toHandle(group.value)); type != m_lineTypes.constEnd()) {
                to.lineType = *type;
            }
            break;
        case 420:
            to.colour = colourOf(number);
            break;
        case 440:
            to.opacity = opacityOf(number);
            break;
        default:
            break;
        }
    }

private:
    const QHash<uint64_t, uint32_t>& m_lineTypes;
};

LayerOverride& overrideOf(uint32_t layer, std::vector<LayerOverride>& overrides) {
    if (overrides.empty() || overrides.back().layer != layer) {
        overrides.emplace_back().layer = layer;
    }
    return overrides.back();
}

} // namespace

QHash<uint64_t, std::vector<LayerOverride>> layerOverrides(const std::vector<LayerExtension>& extensions,
                                                           const DrawingObjects& objects,
                                                           const QHash<uint64_t, uint32_t>& lineTypes) {
    QHash<uint64_t, std::vector<LayerOverride>> result;
    const OverrideReader reader(lineTypes);
    for (const LayerExtension& extension : extensions) {
        for (const std::string_view name : objectNames::layerOverrides) {
            uint64_t viewport = 0;
            for (const KeptGroup& group : objects.records.value(objects.find(extension.dictionary, name))) {
                if (group.code == viewportCode) {
                    viewport = toHandle(group.value);
                } else if (viewport != 0) {
                    reader.apply(group, overrideOf(extension.layer, result[viewport]));
                }
            }
        }
    }
    return result;
}

} // namespace kelplot
