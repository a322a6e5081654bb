// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <cctype>
#include <map>
#include <set>

#include "kelplot/plot/PlotKit.h"
#include "plot/annotation/AnnotationBlocks.h"
#include "reader/DrawingReader.h"
#include "reader/DxfReader.h"

namespace kelplot {
namespace {

/// What a scan of a drawing's lines finds, without the reader: how many records of each type hold entities.
class RecordScan {
public:
    explicit RecordScan(const QByteArray& file) {
        const QList<QByteArray> lines = file.split('\n');
        for (int i = 0; i + 1 < lines.size() && m_type != "EOF"; i += 2) {
            take(lines[i].trimmed().toInt(), lines[i + 1].trimmed());
        }
    }

    std::map<std::string, size_t> counts;

private:
    void take(int code, const QByteArray& value) {
        if (code == 0) {
            countRecord();
            m_type = value;
            m_hasText = m_isSheet = m_hidden = false;
        } else if (code == 2 && m_type == "SECTION") {
            m_holdsEntities = value == "ENTITIES" || value == "BLOCKS";
        }
        m_hasText = m_hasText || ((code == 1 || code == 3) && !value.isEmpty());
        m_isSheet = m_isSheet || (code == 69 && value == "1");
        m_hidden = m_hidden || (code == 70 && (value.toInt() & 1) != 0);
    }

    void countRecord() {
        static const std::set<QByteArray> parts{"SECTION", "ENDSEC", "EOF",    "BLOCK", "ENDBLK",
                                                "VERTEX",  "SEQEND", "ATTDEF", ""};
        const bool isText = m_type == "TEXT" || m_type == "MTEXT" || m_type == "ATTRIB";
        const bool isNothing = (isText && !m_hasText) || (m_type == "ATTRIB" && m_hidden) ||
                               (m_type == "VIEWPORT" && m_isSheet) || parts.count(m_type) > 0;
        if (m_holdsEntities && !isNothing) {
            ++counts[m_type.toStdString()];
        }
    }

    QByteArray m_type;
    bool m_holdsEntities = false;
    bool m_hasText = false;
    bool m_isSheet = false; ///< a viewport that is the sheet itself
    bool m_hidden = false;  ///< an attribute that does not show
};

/// Tells whether a type is one that programs write.
bool isName(const std::string& type) {
    return std::isalpha(static_cast<unsigned char>(type[0])) != 0 ||
           std::isdigit(static_cast<unsigned char>(type[0])) != 0;
}

template <typename... Kinds>
size_t kept(const Drawing& drawing) {
    size_t count = 0;
    const auto add = [&](const std::vector<Entity>& entities) {
        for (const Entity& entity : entities) {
            count += ((geometryAs<Kinds>(entity) != nullptr) || ...) ? 1 : 0;
        }
    };
    add(drawing.modelSpace);
    add(drawing.paperSpace);
    for (const Block& block : drawing.blocks) {
        add(block.entities);
    }
    return count;
}

/// The types that become entities of a kind, and how many of it there are.
const struct {
    std::set<std::string> types;
    size_t (*kept)(const Drawing& drawing);
} kinds[] = {
    {{"POINT"}, kept<PointEntity>},
    {{"LINE", "3DLINE"}, kept<Line>},
    {{"CIRCLE", "ARC"}, kept<Circle, Arc>},
    {{"ELLIPSE"}, kept<Ellipse>},
    {{"POLYLINE", "LWPOLYLINE", "LEADER", "MULTILEADER", "SPLINE", "3DFACE"}, kept<Polyline, Spline, Face3d>},
    {{"SOLID", "TRACE"}, kept<Solid>},
    {{"HATCH", "MPOLYGON"}, kept<Hatch>},
    {{"TEXT", "MTEXT", "ATTRIB"}, kept<Text, MText>},
    {{"IMAGE"}, kept<Image>},
    {{"WIPEOUT"}, kept<Wipeout>},
    {{"XLINE", "RAY"}, kept<ConstructionLine>},
    {{"MLINE"}, kept<Mline>},
    {{"MESH"}, kept<Mesh>},
    {{"VIEWPORT"}, kept<Viewport>},
    {{"INSERT", "DIMENSION", "ARC_DIMENSION", "LARGE_RADIAL_DIMENSION", "ACAD_TABLE", "TOLERANCE"}, kept<Insert>},
};

/// How many entities are named as left out, by the type of their records.
std::map<std::string, size_t> namedTypes(const Drawing& drawing) {
    std::map<std::string, size_t> named;
    const auto add = [&](const std::vector<Entity>& entities) {
        for (const Entity& entity : entities) {
            if (const auto* const unplotted = std::get_if<Unplotted>(&entity.geometry)) {
                const std::string& kind = drawing.unplottedKinds[unplotted->kind]; // such as "ARC without a radius"
                ++named[kind.substr(0, kind.find(' '))];
            }
        }
    };
    add(drawing.modelSpace);
    add(drawing.paperSpace);
    for (const Block& block : drawing.blocks) {
        add(block.entities);
    }
    return named;
}

/// The types of which records are neither kept nor named.
std::string lostTypes(RecordScan scan, const Drawing& drawing) {
    std::string lost;
    std::map<std::string, size_t> named = namedTypes(drawing);
    const auto check = [&](const std::set<std::string>& types, size_t found) {
        size_t count = 0;
        for (const std::string& type : types) {
            count += scan.counts[type];
            found += named[type];
        }
        lost += count > found ? *types.begin() + ' ' + std::to_string(count - found) + ' ' : "";
    };
    std::set<std::string> known;
    for (const auto& kind : kinds) {
        check(kind.types, kind.kept(drawing));
        known.insert(kind.types.begin(), kind.types.end());
    }
    const std::map<std::string, size_t> counts = scan.counts;
    for (const auto& [type, count] : counts) {
        if (known.count(type) == 0) {
            check({type}, isName(type) ? 0 : named["entity"]); // of a damaged type
        }
    }
    return lost;
}

/// Whether something of an entity is drawn on a page that it fills, or what is left out is told.
bool isDrawnOrTold(const Entity& entity, const DrawingPlot& plot) {
    const std::vector<Entity> alone{entity};
    ExtentsReport told;
    Box2 box = plot.extents(alone, &told);
    if (!told.unplotted.empty() || !told.undefined.empty() || !told.external.empty()) {
        return true;
    }
    if (const auto* const endless = std::get_if<ConstructionLine>(&entity.geometry)) {
        box.add(Vec2{endless->start.x, endless->start.y});
    }
    const double scale = 900.0 / std::max({box.width(), box.height(), 1e-6});
    PlotTarget target = tenfoldTarget();
    target.toDevice = {scale, 0.0, 0.0, -scale, 50.0 - scale * box.min.x, 950.0 + scale * box.min.y};
    PlotReport report;
    return !shapesOf(plot, alone, target, &report).empty() || !report.missingPictures.empty();
}

/// The first entities of each kind that show nowhere, by their numbers in their lists.
std::string entitiesNotDrawn(const Drawing& drawing) {
    constexpr size_t mostOfAKind = 300; // in a drawing; they are many and alike
    const DrawingPlot plot(drawing, {});
    const StyleResolver styles(drawing);
    std::map<size_t, size_t> tried;
    std::string lost;
    const auto check = [&](const std::vector<Entity>& entities) {
        for (size_t i = 0; i < entities.size(); ++i) {
            const Entity& entity = entities[i];
            const bool shows = entity.attributes.visible && styles.isPlotted(entity.attributes.layer);
            const size_t kind = entity.geometry.index();
            // What is in a block is looked at in its own list.
            if (shows && !std::holds_alternative<Insert>(entity.geometry) && ++tried[kind] <= mostOfAKind &&
                !isDrawnOrTold(entity, plot)) {
                lost += std::to_string(i) + " of kind " + std::to_string(kind) + ' ';
            }
        }
    };
    check(drawing.modelSpace);
    check(drawing.paperSpace);
    for (const Block& block : drawing.blocks) {
        check(block.entities);
    }
    return lost;
}

TEST(SampleEntities, AreAllDrawnOrNamed) {
    const QDir samples(KELDRIVER_SHARED_DATA "/dxf");
    const QStringList names = samples.entryList({"*.dxf"});
    if (names.isEmpty()) {
        GTEST_SKIP() << "no sample drawings in " << samples.path().toStdString();
    }
    int plotted = 0;
    for (const QString& name : names) {
        QFile file(samples.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        try {
            Drawing drawing = DxfReader().read(file.fileName().toStdString(), {});
            if (!name.startsWith("ver_bin_")) { // of which a scan of lines finds nothing
                EXPECT_EQ(lostTypes(RecordScan(bytes), drawing), "") << name.toStdString();
            }
            buildAnnotations(drawing, {});
            EXPECT_EQ(entitiesNotDrawn(drawing), "") << name.toStdString();
            ++plotted;
        } catch (const ReadError&) { // and so not lost in silence
        }
    }
    EXPECT_EQ(plotted, names.size() - 1) << "all but a truncated one";
}

} // namespace
} // namespace kelplot
