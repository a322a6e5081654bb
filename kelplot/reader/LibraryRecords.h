// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <dl_creationadapter.h>

#include <functional>
#include <vector>

#include "reader/HeaderVariables.h"
#include "reader/RecordHeader.h"

namespace kelplot {

/// Receives the records that the DXF library reads, and builds entities and table entries from them.
class LibraryRecords : public DL_CreationAdapter {
public:
    /// `recordDone` is called whenever the library has handed over what it had read.
    LibraryRecords(DrawingBuilder& builder, std::function<void()> recordDone);

    /// A record of `type` begins.
    void begin(std::string_view type);
    /// Takes what the library does not hand over from a group of the record that it is reading.
    void take(const Group& group);
    /// Takes in what a program attached to the record; a layer keeps its opacity there.
    void takeExtended(const Group& group);

    void endSection() override;
    void setVariableString(const std::string& key, const std::string& value, int code) override;
    void setVariableInt(const std::string& key, int value, int code) override;
    void setVariableDouble(const std::string& key, double value, int code) override;

    void setVariableVector(const std::string& key, double x, double y, double z, int code) override;

    void addLayer(const DL_LayerData& data) override;
    void addBlock(const DL_BlockData& data) override;
    void endBlock() override;

    void addPoint(const DL_PointData& data) override;
    void addLine(const DL_LineData& data) override;
    void addArc(const DL_ArcData& data) override;
    void addCircle(const DL_CircleData& data) override;
    void addEllipse(const DL_EllipseData& data) override;
    void addInsert(const DL_InsertData& data) override;
    void addTrace(const DL_TraceData& data) override;
    void addSolid(const DL_SolidData& data) override;
    void add3dFace(const DL_3dFaceData& data) override;

private:
    std::array<Vec3, 4> cornersOf(const DL_TraceData& data) const;

    DrawingBuilder& m_builder;
    std::function<void()> m_recordDone;
    HeaderVariables m_variables;

    RecordHeader m_header;
    int m_flags = 0;                ///< code 70
    std::string m_path;             ///< of the drawing that a block stands for
    bool m_plotted = true;          ///< code 290 of a layer
    bool m_hasFourthCorner = false; ///< of an area or a face
    bool m_statesOpacity = false;   ///< the attached data being read states it
};

} // namespace kelplot
