// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/Decoders.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "reader/annotation/DimensionDecoder.h"
#include "reader/annotation/DimensionStyles.h"
#include "reader/annotation/MultileaderDecoder.h"
#include "reader/annotation/ToleranceDecoder.h"
#include "reader/entity/BlockRecords.h"
#include "reader/entity/ConstructionLineDecoder.h"
#include "reader/entity/HatchDecoder.h"
#include "reader/entity/ImageDecoder.h"
#include "reader/entity/LayoutDecoder.h"
#include "reader/entity/LeaderDecoder.h"
#include "reader/entity/LineTypeDecoder.h"
#include "reader/entity/LwPolylineDecoder.h"
#include "reader/entity/MeshDecoder.h"
#include "reader/entity/MlineDecoder.h"
#include "reader/entity/PolylineDecoder.h"
#include "reader/entity/SplineDecoder.h"
#include "reader/entity/TableDecoder.h"
#include "reader/entity/TextDecoder.h"
#include "reader/entity/TextStyleDecoder.h"
#include "reader/entity/ViewportDecoder.h"
#include "reader/mtext/MTextDecoder.h"
#include "reader/object/ObjectDecoders.h"
#include "reader/object/PlotStyleNames.h"

namespace kelplot {

namespace {

using Decoder = std::unique_ptr<RecordDecoder>;

template <typename Type>
Decoder make(const Decoders&) {
    return std::make_unique<Type>();
}

/// Dimensions and leaders look as the dimension styles say.
template <typename Type>
Decoder makeStyled(const Decoders& above) {
    const RecordDecoder* const styles = above.find(RecordPlace::tables, "DIMSTYLE");
    const RecordDecoder* const blocks = above.find(RecordPlace::tables, "BLOCK_RECORD");
    return std::make_unique<Type>(static_cast<const DimensionStyles&>(*styles),
                                  static_cast<const BlockRecords&>(*blocks));
}

/// For objects that name a block by the handle of its record.
template <typename Type>
Decoder makeWithBlocks(const Decoders& above) {
    const RecordDecoder* const blocks = above.find(RecordPlace::tables, "BLOCK_RECORD");
    return std::make_unique<Type>(static_cast<const BlockRecords&>(*blocks));
}

struct Row {
    RecordPlace place;
    std::array<std::string_view, 3> types;
    Decoder (*make)(const Decoders& above); ///< those of the rows above are there already
};

constexpr Row rows[] = {
    {RecordPlace::tables, {"STYLE"}, make<TextStyleDecoder>},
    {RecordPlace::tables, {"LTYPE"}, make<LineTypeDecoder>},
    {RecordPlace::tables, {"DIMSTYLE"}, make<DimensionStyles>},
    {RecordPlace::tables, {"BLOCK_RECORD"}, make<BlockRecords>},
    {RecordPlace::entities, {"LWPOLYLINE"}, make<LwPolylineDecoder>},
    {RecordPlace::entities, {"VERTEX", "POLYLINE", "SEQEND"}, make<PolylineDecoder>},
    {RecordPlace::entities, {"HATCH", "MPOLYGON"}, make<HatchDecoder>},
    {RecordPlace::entities, {"SPLINE"}, make<SplineDecoder>},
    {RecordPlace::entities, {"DIMENSION", "ARC_DIMENSION", "LARGE_RADIAL_DIMENSION"}, makeStyled<DimensionDecoder>},
    {RecordPlace::entities, {"MULTILEADER", "MLEADER"}, makeWithBlocks<MultileaderDecoder>},
    {RecordPlace::entities, {"MESH"}, make<MeshDecoder>},
    {RecordPlace::entities, {"TOLERANCE"}, makeStyled<ToleranceDecoder>},
    {RecordPlace::entities, {"ACAD_TABLE"}, make<TableDecoder>},
    {RecordPlace::entities, {"TEXT", "ATTRIB", "ATTDEF"}, make<TextDecoder>},
    {RecordPlace::entities, {"MTEXT"}, make<MTextDecoder>},
    {RecordPlace::entities, {"LEADER"}, makeStyled<LeaderDecoder>},
    {RecordPlace::entities, {"RAY", "XLINE"}, make<ConstructionLineDecoder>},
    {RecordPlace::entities, {"IMAGE", "WIPEOUT"}, make<ImageDecoder>},
    {RecordPlace::entities, {"MLINE"}, make<MlineDecoder>},
    {RecordPlace::objects, {"MLINESTYLE"}, make<MlineStyles>},
    {RecordPlace::entities, {"VIEWPORT"}, make<ViewportDecoder>},
    {RecordPlace::objects, {"LAYOUT"}, makeWithBlocks<LayoutDecoder>},
    {RecordPlace::objects, {"ACDBDICTIONARYWDFLT"}, make<PlotStyleNames>},
    {RecordPlace::objects, {"DICTIONARY"}, make<DictionaryDecoder>},
    {RecordPlace::objects, {"SORTENTSTABLE"}, makeWithBlocks<DrawOrderDecoder>},
    {RecordPlace::objects, {"SPATIAL_FILTER"}, make<SpatialFilterDecoder>},
    {RecordPlace::objects, {"XRECORD"}, make<DataRecordDecoder>},
    {RecordPlace::objects, {"IMAGEDEF", "RASTERVARIABLES", "WIPEOUTVARIABLES"}, make<ImageObjects>},
};

} // namespace

Decoders::Decoders() {
    m_decoders.reserve(std::size(rows));
    for (const Row& row : rows) {
        m_decoders.push_back(row.make(*this));
    }
}

RecordDecoder* Decoders::find(RecordPlace place, std::string_view type) const {
    const auto* const found = std::find_if(std::begin(rows), std::end(rows), [&](const Row& row) {
        return row.place == place && std::find(row.types.begin(), row.types.end(), type) != row.types.end();
    });
    return found == std::end(rows) || type.empty() ? nullptr : m_decoders[static_cast<size_t>(found - rows)].get();
}

} // namespace kelplot
