// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/LayoutDecoder.h"

namespace kelplot {

namespace {

// Bits of code 70 of the settings.
constexpr int plotsCentred = 4;
constexpr int usesStandardScale = 16;
constexpr int usesPlotStyles = 32;

constexpr int fitsPaper = 0; ///< of the standard scales

PlotSettings::Area areaOf(int number) {
    switch (number) {
    case 4:
        return PlotSettings::Area::window;
    case 5:
        return PlotSettings::Area::sheet;
    default: // what the screen showed, the limits and a named view are not kept in the drawing's terms
        return PlotSettings::Area::extents;
    }
}

} // namespace

void LayoutDecoder::begin(std::string_view) {
    m_stretch = Stretch::head;
    m_layout = Layout();
    m_name.clear();
    m_styleTable.clear();
    m_block = 0;
    m_flags = usesPlotStyles;
    m_isInInches = false;
    m_standardScale = -1;
    m_paperUnits = 1.0;
    m_sheetUnits = 1.0;
}

void LayoutDecoder::take(const Group& group) {
    if (group.code == 100) {
        const std::string_view part = trimmed(group.value);
        m_stretch = part == "AcDbLayout" ? Stretch::layout : Stretch::settings;
    } else if (m_stretch == Stretch::settings) {
        takeOfSettings(group);
    } else if (m_stretch == Stretch::layout) {
        switch (group.code) {
        case 1:
            m_name = trimmed(group.value);
            break;
        case 71:
            m_layout.order = toInteger(group.value);
            break;
        case 330:
            m_block = toHandle(group.value);
            break;
        default:
            break;
        }
    }
}

void LayoutDecoder::takeOfSettings(const Group& group) {
    PlotSettings& settings = m_layout.settings;
    const struct {
        int code;
        double& value;
    } lengths[] = {
        {40, settings.leftMargin},   {41, settings.bottomMargin},  {42, settings.rightMargin},
        {43, settings.topMargin},    {44, settings.paperWidth},    {45, settings.paperHeight},
        {46, settings.origin.x},     {47, settings.origin.y},      {48, settings.window.min.x},
        {49, settings.window.min.y}, {140, settings.window.max.x}, {141, settings.window.max.y},
        {142, m_paperUnits},         {143, m_sheetUnits},
    };
    for (const auto& length : lengths) {
        if (length.code == group.code) {
            length.value = toReal(group.value);
            return;
        }
    }
    const int number = toInteger(group.value);
    switch (group.code) {
    case 7:
        m_styleTable = trimmed(group.value);
        break;
    case 70:
        m_flags = number;
        break;
    case 72:
        m_isInInches = number == 0;
        break;
    case 73:
        settings.quarterTurns = number & 3;
        break;
    case 74:
        settings.area = areaOf(number);
        break;
    case 75:
        m_standardScale = number;
        break;
    default:
        break;
    }
}

void LayoutDecoder::finishSettings() {
    constexpr double millimetresPerInch = 25.4;
    PlotSettings& settings = m_layout.settings;
    settings.scale = m_paperUnits > 0.0 && m_sheetUnits > 0.0 ? m_paperUnits / m_sheetUnits : 1.0;
    settings.millimetresPerUnit = m_isInInches ? millimetresPerInch : 1.0;
    settings.fitted = (m_flags & usesStandardScale) != 0 && m_standardScale == fitsPaper;
    settings.centred = (m_flags & plotsCentred) != 0;
}

void LayoutDecoder::end(const RecordHeader&, DrawingBuilder& builder) {
    const std::string block = m_blocks.nameOf(m_block);
    if (block.empty()) {
        return;
    }
    finishSettings();
    if ((m_flags & usesPlotStyles) != 0) {
        m_layout.settings.styleTable = builder.decoder().decode(m_styleTable);
    }
    if (DrawingBuilder::isModelSpace(block)) {
        builder.drawing().modelSettings = m_layout.settings;
        return;
    }
    m_layout.name = builder.decoder().decode(m_name);
    m_layout.block = DrawingBuilder::isPaperSpace(block) ? noBlock : builder.block(block);
    builder.drawing().layouts.push_back(std::move(m_layout));
}

} // namespace kelplot
