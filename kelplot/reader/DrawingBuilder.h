// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/Drawing.h"
#include "reader/LineTypeInserts.h"
#include "reader/RecordHandles.h"
#include "reader/TextEncoding.h"
#include "reader/object/DrawingObjects.h"
#include "reader/object/LayerOverrides.h"

namespace kelplot {

/// Numbers the names of one kind of thing in the order in which they turn up. Names that differ only by
/// case are the same name.
class NameTable {
public:
    struct Found {
        uint32_t index;
        bool added; ///< the name was not known before
    };

    /// The number of the name that `bytes` mean. `newName` receives the name in
    /// UTF-8 where it was added.
    Found find(std::string_view bytes, const TextEncoding& decoder, std::string& newName);

private:
    QHash<QString, uint32_t> m_indexOf;
    std::string m_lastBytes; ///< neighbours in a drawing mostly share their names
    uint32_t m_lastIndex = 0;
    bool m_hasLast = false;
};

struct RecordHeader;

/// Another drawing that a block stands for.
struct ExternalDrawing {
    std::string path; ///< as the file writes it; empty: none
    bool overlay = false;
};

/// Puts a drawing together from its records, in whatever order the file refers to things and defines
/// them: what is named before it is defined, or never is, stands in the drawing with default values.
class DrawingBuilder {
public:
    DrawingBuilder();

    /// How the names in the file are to be read from here on.
    TextEncoding& decoder() { return m_decoder; }
    const TextEncoding& decoder() const { return m_decoder; }
    Drawing& drawing() { return m_drawing; }
    /// What the handles of the records so far stand for.
    RecordHandles& handles() { return m_handles; }

    /// Index of the layer of this name, as the file writes it.
    uint32_t layer(std::string_view name);
    /// Index of the line type of this name, or the mark for "by layer" or "by block".
    uint32_t lineType(std::string_view name);
    /// Index of the text style of this name; without a name that of the standard one.
    uint32_t textStyle(std::string_view name);
    /// Index of the block of this name.
    uint32_t block(std::string_view name);
    /// What stands in the patterns of a line type.
    void setInserts(uint32_t lineType, std::vector<LineTypeInsert>&& inserts) {
        m_inserts.set(lineType, std::move(inserts));
    }
    /// Keeps the handle of a file of shapes.
    void nameShapes(uint64_t handle) { m_inserts.nameShapes(handle); }
    /// Index of the plot style that has this handle.
    PlotStyleIndex plotStyle(uint64_t handle);
    /// Keeps the name of the plot style that has this handle, as the file writes it.
    void namePlotStyle(uint64_t handle, std::string_view name);
    /// Keeps the handle of the dictionary that lists what programs know of a layer.
    void extendLayer(uint32_t layer, uint64_t dictionary) { m_layerExtensions.push_back({layer, dictionary}); }
    /// Tells what a block's name, as the file writes it, means.
    static bool isModelSpace(std::string_view block);
    static bool isPaperSpace(std::string_view block);
    /// Index of the multiline style of this name.
    uint32_t mlineStyle(std::string_view name);
    /// Index of the picture whose definition has this handle.
    uint32_t image(std::string_view handle);

    /// From here on entities go where block `name` says: into the block, or into the model or paper space, which files
    /// write as blocks too.
    ///
    /// @param external  what the block stands for, if that is another drawing
    void beginBlock(std::string_view name, const Vec3& basePoint, const ExternalDrawing& external = {});
    /// As `beginBlock`, for a block without a name: nothing can refer to it, so its content is dropped.
    void beginNamelessBlock();
    void endBlock();
    /// Whether entities go into a block that references show.
    bool inBlock() const { return m_destination == Destination::block || m_destination == Destination::nowhere; }

    /// Which attributes the drawing shows: none, all but invisible ones, or all.
    enum class ShownAttributes { none, visible, all };
    void setShownAttributes(ShownAttributes shown) { m_shownAttributes = shown; }
    bool showsAttribute(bool invisible) const {
        return m_shownAttributes == (invisible ? ShownAttributes::all : ShownAttributes::visible) ||
               m_shownAttributes == ShownAttributes::all;
    }

    /// Adds an entity whose coordinates belong to the plane of its extrusion.
    void add(const RecordHeader& header, Geometry&& geometry);
    /// Adds an entity whose coordinates are the world's, whatever extrusion the file gives it.
    void addInWorld(const RecordHeader& header, Geometry&& geometry);

    /// Adds an entity that cannot be plotted, named by what it is.
    void addUnplotted(const RecordHeader& header, std::string_view kind);
    /// Adds a reference to a block, which a border may cut.
    void addReference(const RecordHeader& header, Insert reference);

    /// Adds a viewport, its border being the entity of a handle; 0: its rectangle.
    void addViewport(const RecordHeader& header, Viewport&& viewport, uint64_t clipHandle);

    /// What the drawing states apart from its entities and tables.
    DrawingObjects& objects() { return m_objects; }

    /// Keeps a variable of the header that says how dimensions look, as the file has it.
    void setDimensionVariable(const std::string& name, const std::string& value) {
        m_dimensionVariables.insert(QString::fromStdString(name), value);
    }
    const QHash<QString, std::string>& dimensionVariables() const { return m_dimensionVariables; }

    /// Adds what a plot draws with the help of its fonts, where the drawing has no block for it.
    ///
    /// @param reference  to its block, if it has one
    void addAnnotation(const RecordHeader& header, Annotation&& annotation, Insert reference = {});

    /// Hands over the finished drawing.
    Drawing take();

private:
    enum class Destination { space, block, modelSpace, paperSpace, nowhere };

    /// An entity on a sheet.
    struct SheetEntity {
        uint32_t block; ///< none: of the paper space
        size_t index;
    };
    struct PendingClip {
        size_t viewport; ///< its index on the sheet
        uint64_t border;
    };

    template <typename Item>
    uint32_t numbered(NameTable& names, std::string_view name, std::vector<Item>& items);
    std::vector<Entity>* destinationFor(bool inPaperSpace);
    std::optional<SheetEntity> nextOnSheet(bool inPaperSpace);
    void forgetSheet(uint32_t block);
    Entity& entityAt(const SheetEntity& place);
    void resolveClips();
    void resolveOverrides();
    void resolveReferenceClips();
    template <typename Visitor>
    void forEachEntity(const Visitor& visit);
    void orderEntities();
    std::vector<Entity>* entitiesOf(const std::string& block);
    Entity* append(const RecordHeader& header, Geometry&& geometry);

    Drawing m_drawing;
    TextEncoding m_decoder;
    NameTable m_layers;
    NameTable m_lineTypes;
    NameTable m_textStyles;
    NameTable m_blocks;
    NameTable m_images;
    NameTable m_mlineStyles;
    ShownAttributes m_shownAttributes = ShownAttributes::visible;
    Destination m_destination = Destination::space;
    uint32_t m_currentBlock = noBlock;
    bool m_inSheetBlock = false;                  ///< the block is a layout's
    QHash<uint64_t, PlotStyleIndex> m_plotStyles; ///< by their handles
    QHash<QString, std::string> m_dimensionVariables;
    RecordHandles m_handles;
    LineTypeInserts m_inserts;
    QHash<uint64_t, SheetEntity> m_sheetEntities;             ///< by their handles
    QHash<uint32_t, std::vector<PendingClip>> m_pendingClips; ///< by the blocks of the sheets
    std::vector<LayerExtension> m_layerExtensions;
    DrawingObjects m_objects;
    std::vector<uint64_t> m_clipDictionaries; ///< of references; these have indices into this as long as they are read
};

} // namespace kelplot
