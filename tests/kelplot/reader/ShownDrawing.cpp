// SPDX-License-Identifier: GPL-2.0-or-later
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "kelplot/reader/DrawingText.h"

namespace kelplot {
namespace {

constexpr double degree = 0.017453292519943295;

/// What every drawing has, and layers that nothing is to be said of.
bool isUsual(const std::string& line) {
    const bool isPlainLayer = line.rfind("layer ", 0) == 0 && line.find(' ', 6) == std::string::npos;
    return isPlainLayer || line == "type Continuous" || line == "style Standard: ";
}

/// The parts that a text is made of; they call one another in any order.
class Shown {
public:
    explicit Shown(const Drawing& drawing) : m_drawing(drawing) {}

    std::string text(const Entity& entity) const {
        const Attributes& own = entity.attributes;
        const std::string colour = text(own.colour);
        return visitGeometry([&](const auto& geometry) { return text(geometry); }, entity) +
               unless(" extruded ", entity.extrusion, Vec3{0, 0, 1}) +
               (own.layer != 0 ? " on " + m_drawing.layers.at(own.layer).name : "") +
               (own.visible ? "" : " invisible") + (colour != "byLayer" ? " colour " + colour : "") +
               unless(" weight ", own.lineWeight, lineWeightByLayer) +
               (own.lineType != lineTypeByLayer ? " type " + lineTypeName(own.lineType) : "") +
               unless(" scale ", own.lineTypeScale, 1.0) + unless(" opacity ", own.opacity, opacityByLayer);
    }

    std::string text(const Layer& layer) const {
        const std::string colour = text(layer.colour);
        return layer.name + (colour != "index 7" ? " colour " + colour : "") +
               (layer.lineType != 0 ? " type " + lineTypeName(layer.lineType) : "") +
               unless(" weight ", layer.lineWeight, lineWeightDefault) + unless(" opacity ", layer.opacity, opaque) +
               (layer.on ? "" : " off") + (layer.frozen ? " frozen" : "") + (layer.plotted ? "" : " unplotted");
    }

    static std::string text(const TextStyle& style) {
        return style.name + ": " + text(style.font) + (style.bigFontFile.empty() ? "" : " and " + style.bigFontFile) +
               unless(" high ", style.height, 0.0) + unless(" wide ", style.widthFactor, 1.0) +
               unless(" leaning ", style.obliqueAngle / degree, 0.0) + looks(style) +
               (style.vertical ? " vertical" : "");
    }

    std::string header() const {
        return unless(" scale ", m_drawing.lineTypeScale, 1.0) + unless(" points ", double(m_drawing.pointMode), 0.0) +
               unless(" size ", m_drawing.pointSize, 0.0) +
               unless(" weight ", double(m_drawing.defaultLineWeight), 25.0) +
               unless(" unit ", m_drawing.millimetresPerUnit, 1.0) + (m_drawing.imageFrames ? "" : " no frames") +
               (m_drawing.wipeoutFrames ? " wipeout frames" : "") + (m_drawing.metric ? "" : " inches") +
               (m_drawing.paperIsActive ? " on paper" : "") + (m_drawing.paperLineTypes ? "" : " dashes of the model") +
               (m_drawing.unknownCodePage.empty() ? "" : " code page? " + m_drawing.unknownCodePage);
    }

    std::string text(const LineType& type) const {
        std::string result = type.name + list(":", type.pattern) + (type.lacksShapes ? " lacks shapes" : "");
        for (const LineTypeText& each : type.texts) {
            result += " and " + each.text.stretches.at(0).text + " at " + text(each.at) + " beside " +
                      text(each.offset) + " high " + text(each.text.height) +
                      unless(" wide ", each.text.widthFactor, 1.0) +
                      unless(" turned ", each.text.rotation / degree, 0.0) + (each.level ? " level" : "") + " in " +
                      m_drawing.textStyles.at(each.text.style).name;
        }
        return result;
    }

    static std::string text(double value) {
        char digits[32];
        std::snprintf(digits, sizeof digits, "%.9g", std::abs(value) < 1e-9 ? 0.0 : value);
        return digits;
    }
    static std::string text(const Vec2& p) { return text(p.x) + ',' + text(p.y); }
    static std::string text(const Vec3& p) { return text(p.x) + ',' + text(p.y) + ',' + text(p.z); }

    static std::string span(double start, double end) {
        return " from " + text(start / degree) + " to " + text(end / degree);
    }

    /// The values with a blank before each, after a word; nothing where there are none.
    template <typename Values>
    static std::string list(const char* word, const Values& values) {
        std::string result;
        for (const auto& value : values) {
            result += (result.empty() ? word : "") + (' ' + text(value));
        }
        return result;
    }

    /// A value after a word, unless it is the usual one.
    template <typename Value>
    static std::string unless(const char* word, const Value& value, const Value& usual) {
        const std::string shown = text(value);
        return shown == text(usual) ? "" : word + shown;
    }

    static std::string text(const Colour& colour) {
        constexpr const char* kinds[] = {"byBlock", "byLayer", "index ", "true "};
        const bool isOwn = colour.kind == Colour::Kind::index || colour.kind == Colour::Kind::trueColour;
        return kinds[static_cast<size_t>(colour.kind)] + (isOwn ? std::to_string(colour.value) : "");
    }

    std::string lineTypeName(uint32_t index) const {
        return index == lineTypeByBlock ? "byBlock" : m_drawing.lineTypes.at(index).name;
    }

    static std::string text(const PolylineVertex& v) {
        const bool isWide = v.startWidth != 0.0 || v.endWidth != 0.0;
        return text(v.position) + unless("^", v.bulge, 0.0) +
               (isWide ? "w" + text(v.startWidth) + "-" + text(v.endWidth) : "");
    }

    static std::string text(const PointEntity& point) { return "point " + text(point.position); }
    static std::string text(const Line& line) { return "line " + text(line.start) + ' ' + text(line.end); }
    static std::string text(const ConstructionLine& line) {
        return (line.bothWays ? "line through " : "ray from ") + text(line.start) + " along " + text(line.direction);
    }

    static std::string text(const Circle& circle) {
        return "circle " + text(circle.center) + " r " + text(circle.radius);
    }

    static std::string text(const Arc& arc) {
        return "arc " + text(arc.center) + " r " + text(arc.radius) + span(arc.startAngle, arc.endAngle);
    }

    template <typename EllipticShape>
    static std::string ellipse(const EllipticShape& arc) {
        return "ellipse " + text(arc.center) + " axis " + text(arc.majorAxis) + " ratio " + text(arc.ratio) +
               span(arc.startParam, arc.endParam);
    }
    static std::string text(const Ellipse& arc) { return ellipse(arc); }

    static std::string text(const Polyline& polyline) {
        return (polyline.closed ? "closed " : "") + std::string(polyline.spatial ? "spatial " : "") +
               (polyline.continuousPattern ? "unbroken " : "") + list("polyline", polyline.vertices);
    }

    static std::string text(const Spline& spline) {
        return (spline.closed ? "closed " : "") + ("spline of " + std::to_string(spline.degree)) +
               list(", knots", spline.knots) + list(", weights", spline.weights) + list(", through", spline.fitPoints) +
               list(", at", spline.controlPoints);
    }

    static std::string text(const Solid& solid) { return list("solid", solid.corners); }

    static std::string text(const Face3d& face) {
        std::string edges;
        for (const bool isVisible : face.edgeVisible) {
            edges += isVisible ? '#' : '.';
        }
        return list("face", face.corners) + ' ' + edges;
    }

    std::string text(const Insert& insert) const {
        if (insert.annotation != noAnnotation) {
            return std::visit([&](const auto& each) { return text(each); },
                              m_drawing.annotations.at(insert.annotation)) +
                   (insert.block == noBlock ? "" : " instead of " + m_drawing.blocks.at(insert.block).name);
        }
        const Block& block = m_drawing.blocks.at(insert.block);
        return (block.defined ? "block " : "undefined block ") + block.name + " at " + text(insert.position) +
               unless(" scaled ", insert.scale, Vec3{1, 1, 1}) + unless(" turned ", insert.rotation / degree, 0.0) +
               unless(" columns ", double(insert.columns), 1.0) + unless(" rows ", double(insert.rows), 1.0) +
               unless(" by ", Vec3{insert.columnSpacing, insert.rowSpacing, 0}, Vec3{});
    }

    /// By its points, its text and its arrow heads.
    std::string text(const Dimension& dimension) const {
        constexpr const char* kinds[] = {"rotated", "aligned",         "angle of lines", "diameter",
                                         "radius",  "angle of points", "ordinate",       "other"};
        const std::vector<Vec2> points = {dimension.line, dimension.first, dimension.second, dimension.side,
                                          dimension.arc};
        std::string result = kinds[static_cast<size_t>(dimension.kind)] + list("", points) +
                             unless(" turned ", dimension.direction / degree, 0.0) +
                             unless(" oblique ", dimension.oblique / degree, 0.0) +
                             (dimension.ordinateOfX ? " of x" : "") +
                             unless(" extruded ", dimension.extrusion, Vec3{0, 0, 1});
        for (const DimensionEnd& end : dimension.look.ends) {
            result += ' ' + m_drawing.blocks.at(end.arrow).name;
        }
        return result + (dimension.text ? ' ' + text(*dimension.text) : "") + (dimension.textPlaced ? "" : " anywhere");
    }
    std::string text(const ToleranceFrame& frame) const {
        std::string result;
        for (const auto& row : frame.rows) {
            for (const MText& cell : row) {
                result += (&cell == &row.front() ? " / " : " | ") + text(cell);
            }
        }
        return "frame at " + text(frame.position) + unless(" turned ", frame.rotation / degree, 0.0) + result;
    }
    static std::string text(const HatchLine& line) { return "line " + text(line.start) + ' ' + text(line.end); }
    static std::string text(const HatchArc& arc) {
        return "arc " + text(arc.center) + " r " + text(arc.radius) + span(arc.startAngle, arc.endAngle) +
               (arc.counterClockwise ? "" : " clockwise");
    }
    static std::string text(const HatchEllipse& arc) {
        return ellipse(arc) + (arc.counterClockwise ? "" : " clockwise");
    }
    static std::string text(const HatchSpline& spline) { return text(spline.curve); }
    static std::string text(const HatchEdge& edge) {
        return std::visit([](const auto& each) { return text(each); }, edge);
    }
    static std::string text(const HatchLoop& loop) {
        return (loop.textBox ? "text box:" : "loop:") + list("", loop.polyline) + list("", loop.edges);
    }

    static std::string text(const Hatch& hatch) {
        constexpr const char* styles[] = {"normal", "outer", "ignore"};
        return (hatch.solid ? "solid " : "pattern ") + std::string(styles[static_cast<size_t>(hatch.style)]) +
               " hatch at " + text(hatch.elevation) + list("", hatch.loops) + list(" lines", hatch.pattern.lines) +
               (hatch.solid || hatch.pattern.name.empty() ? "" : " of " + hatch.pattern.name) +
               unless(" turned ", hatch.pattern.angle / degree, 0.0) + unless(" scaled ", hatch.pattern.scale, 1.0) +
               (hatch.gradient ? text(*hatch.gradient) : "") +
               (hatch.fillColour ? " filled " + text(*hatch.fillColour) : "") + (hatch.outlined ? " outlined" : "");
    }
    static std::string text(const PatternLine& line) {
        return text(line.angle / degree) + " from " + text(line.base) + " by " + text(line.offset) +
               list(":", line.dashes);
    }
    static std::string text(const HatchGradient& gradient) {
        return " gradient " + gradient.name + ' ' + text(gradient.first) + " to " + text(gradient.second) +
               unless(" turned ", gradient.angle / degree, 0.0) + unless(" shifted ", gradient.shift, 0.0);
    }

    static std::string text(const TextLines& lines) {
        return std::string(lines.under ? "u" : "") + (lines.over ? "o" : "") + (lines.through ? "k" : "");
    }

    static std::string text(const FontName& font) {
        return (font.isFile ? "file:" : "") + font.name + (font.bold ? "+b" : "") + (font.italic ? "+i" : "");
    }

    template <typename Mirrored>
    static std::string looks(const Mirrored& text) {
        return std::string(text.backward ? " backward" : "") + (text.upsideDown ? " upside-down" : "");
    }

    std::string textStyle(uint32_t index) const {
        return index == 0 ? "" : " in " + m_drawing.textStyles.at(index).name;
    }

    /// The stretches with the lines of each before it, such as "plain|u:underlined".
    std::string text(const Text& line) const {
        constexpr const char* columns[] = {"", " center", " right", " aligned", " middle", " fit"};
        constexpr const char* rows[] = {"", " bottom", " middle", " top"};
        std::string words;
        for (const TextStretch& stretch : line.stretches) {
            const std::string marks = text(stretch.lines);
            words += (words.empty() ? "" : "|") + marks + (marks.empty() ? "" : ":") + stretch.text;
        }
        return "text '" + words + "' at " + text(line.position) + unless(" to ", line.alignment, line.position) +
               columns[static_cast<size_t>(line.column)] + rows[static_cast<size_t>(line.row)] + textStyle(line.style) +
               unless(" high ", line.height, 1.0) + unless(" turned ", line.rotation / degree, 0.0) +
               unless(" wide ", line.widthFactor, 1.0) + unless(" leaning ", line.obliqueAngle / degree, 0.0) +
               looks(line);
    }

    /// What a format has other than a plain one, such as "<h2 u>".
    static std::string text(const CharacterFormat& format) {
        const std::string words = unless(" h", format.height, 1.0) + unless(" w", format.widthFactor, 1.0) +
                                  unless(" q", format.obliqueAngle / degree, 0.0) + unless(" t", format.tracking, 1.0) +
                                  unless(" ", format.lines, TextLines()) +
                                  unless(" a", static_cast<double>(static_cast<int>(format.level)), 0.0) +
                                  (format.colour ? " c:" + text(*format.colour) : "") +
                                  (format.font ? ' ' + text(*format.font) : "");
        return words.empty() ? words : '<' + words.substr(1) + '>';
    }

    static std::string text(const TextSpan& span) { return text(span.format) + span.text; }
    static std::string text(const TextTab& tab) { return text(tab.format) + "->"; }
    static std::string text(const TextStack& stack) {
        constexpr const char* dividers[] = {"^", "/", "#"};
        return text(stack.format) + '[' + stack.upper + dividers[static_cast<size_t>(stack.divider)] + stack.lower +
               ']';
    }

    /// The pieces with their formats, '$' at the end or '&' before another column, in braces what shapes it.
    static std::string text(const Paragraph& paragraph) {
        constexpr const char* alignments[] = {"", " left", " center", " right", " justified", " distributed"};
        std::string result = alignments[static_cast<size_t>(paragraph.alignment)] +
                             unless(" i", paragraph.firstIndent, 0.0) + unless(" l", paragraph.leftIndent, 0.0) +
                             unless(" r", paragraph.rightIndent, 0.0) +
                             (paragraph.tabStops ? list(" tabs", *paragraph.tabStops) : "");
        result = result.empty() ? result : '{' + result.substr(1) + '}';
        for (const TextPiece& piece : paragraph.pieces) {
            result += std::visit([](const auto& each) { return text(each); }, piece);
        }
        const bool isEmptyLine = paragraph.pieces.empty();
        return result + (isEmptyLine ? text(paragraph.format) : "") + (paragraph.columnBreakAfter ? '&' : '$');
    }

    std::string text(const MText& block) const {
        const TextColumns& columns = block.columns;
        std::string words;
        for (const Paragraph& paragraph : block.paragraphs) {
            words += text(paragraph);
        }
        return "mtext '" + words + "' at " + text(block.position) + textStyle(block.style) +
               unless(" high ", block.height, 1.0) + unless(" within ", block.width, 0.0) +
               unless(" attached ", double(block.attachment), 1.0) + unless(" turned ", block.rotation / degree, 0.0) +
               unless(" spaced ", block.lineSpacing, 1.0) + (block.exactLineSpacing ? " exactly" : "") +
               (block.vertical ? " vertical" : "") +
               (block.masked ? " on " + (block.maskColour ? text(*block.maskColour) : "paper") : "") +
               (block.framed ? " framed" : "") + unless(" wider by ", block.border, 0.0) +
               unless(" columns ", double(columns.count), 1.0) +
               unless(" of ", Vec2{columns.width, columns.gutter}, Vec2{}) + list(" heights", columns.heights) +
               (columns.reversed ? " reversed" : "");
    }

    std::string text(const Image& image) const {
        return "image " + m_drawing.images.at(image.definition).path + " at " + text(image.position) + " from " +
               text(image.pointAt({0, 0})) + " to " + text(image.pointAt(image.size)) + (image.shown ? "" : " hidden") +
               unless(" brightness ", double(image.brightness), 50.0) +
               unless(" contrast ", double(image.contrast), 50.0) + unless(" fade ", double(image.fade), 0.0) +
               (image.transparent ? " transparent" : "") + (image.clipped ? list(" clip", image.clip) : "") +
               (image.clipInverted ? " inverted" : "");
    }
    static std::string text(const Wipeout& wipeout) { return list("wipeout", wipeout.boundary); }
    static std::string text(const Mline& mline) {
        return (mline.closed ? "closed mline" : "mline") + std::string(mline.startCap ? "" : " without start cap") +
               (mline.endCap ? "" : " without end cap") + " style " + text(double(mline.style)) +
               list("", mline.vertices);
    }
    static std::string text(const MlineVertex& vertex) {
        std::string result = text(vertex.position) + " to " + text(vertex.direction) + " mitre " + text(vertex.miter);
        for (const auto& line : vertex.lines) {
            result += list(" line", line);
        }
        return result;
    }
    static std::string text(const std::array<uint32_t, 2>& edge) {
        return std::to_string(edge[0]) + '-' + std::to_string(edge[1]);
    }
    static std::string text(const Mesh& mesh) { return list("mesh", mesh.vertices) + list(" edges", mesh.edges); }
    std::string text(const Viewport& view) const {
        std::string result = "viewport " + text(view.center) + ' ' + text(view.width) + 'x' + text(view.height) +
                             (view.on ? "" : " off") + (view.perspective ? " perspective" : "") + " of " +
                             text(view.viewCenter) + " high " + text(view.viewHeight) +
                             unless(" turned ", view.twist / degree, 0.0) + unless(" about ", view.viewTarget, Vec3()) +
                             unless(" from ", view.viewDirection, Vec3{0, 0, 1});
        for (const uint32_t layer : view.frozenLayers) {
            result += " without " + m_drawing.layers.at(layer).name;
        }
        return result + (view.clip ? " within " + text(*view.clip) : "");
    }
    std::string text(const Unplotted& entity) const { return "unplotted " + m_drawing.unplottedKinds.at(entity.kind); }
    std::string text(const Layout& layout) const {
        const PlotSettings& s = layout.settings;
        constexpr const char* areas[] = {"sheet", "extents", "window"};
        return layout.name + (layout.block == noBlock ? "" : " in " + m_drawing.blocks.at(layout.block).name) + " on " +
               text(s.paperWidth) + 'x' + text(s.paperHeight) + unless(" turned ", double(s.quarterTurns), 0.0) +
               " margins " + text(s.leftMargin) + ' ' + text(s.bottomMargin) + ' ' + text(s.rightMargin) + ' ' +
               text(s.topMargin) + unless(" at ", s.origin, Vec2()) + unless(" unit ", s.millimetresPerUnit, 1.0) +
               unless(" scale ", s.scale, 1.0) + (s.fitted ? " fitted" : "") + (s.centred ? " centred" : "") + ' ' +
               areas[static_cast<size_t>(s.area)] + (s.styleTable.empty() ? "" : " styles " + s.styleTable);
    }
    std::string text(const MlineStyle& style) const {
        std::string result = style.fill ? "filled " + text(*style.fill) : "hollow";
        const auto cap = [](const MlineStyle::Cap& end) {
            return std::string(end.line ? " line" : "") + (end.outerArc ? " arc" : "") + (end.innerArcs ? " arcs" : "");
        };
        for (const MlineStyle::Line& line : style.lines) {
            result +=
                ' ' + text(line.colour) + (line.lineType == lineTypeByLayer ? "" : ' ' + lineTypeName(line.lineType));
        }
        return result + (style.joints ? " joints" : "") + " start" + cap(style.start) + " end" + cap(style.end);
    }

private:
    const Drawing& m_drawing;
};

} // namespace

std::vector<std::string> shown(const Drawing& drawing) {
    const Shown of(drawing);
    std::vector<std::string> lines;
    const auto addAll = [&](const std::string& mark, const auto& items) {
        for (const auto& item : items) {
            lines.push_back(mark + of.text(item));
        }
    };
    addAll("", drawing.modelSpace);
    addAll("paper: ", drawing.paperSpace);
    for (const Block& block : drawing.blocks) {
        if (block.defined) {
            lines.push_back("block " + block.name + " about " + Shown::text(block.basePoint));
            addAll(block.name + ": ", block.entities);
        }
    }
    addAll("layer ", drawing.layers);
    addAll("type ", drawing.lineTypes);
    addAll("style ", drawing.textStyles);
    addAll("mlines ", drawing.mlineStyles);
    addAll("layout ", drawing.layouts);
    const std::string header = of.header();
    if (!header.empty()) {
        lines.push_back("drawing" + header);
    }
    lines.erase(std::remove_if(lines.begin(), lines.end(), isUsual), lines.end());
    return lines;
}

} // namespace kelplot
