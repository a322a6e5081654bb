// SPDX-License-Identifier: BSD-3-Clause
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <QImage>

#include "render/FakeImage.h"
#include "render/RendererFixture.h"
#include "support/ExpectedWarnings.h"
#include "support/RegionCases.h"

// Drivers' sessions from the folder "sessions", one call a line with all that it does:
//
//     [what the session is about]
//     color ff => pen #ff0000 0 dot flat miter | brush #ff0000 solid
//     polyline 0,0 5,0 => polyline 0,0 5,0
//
// An effect is what reaches the page, with what differs from the painter's style behind it in brackets, and what
// changes in the painter's style, transform, clip and composition. A call without "=>" has none. Every session starts
// with a renderer attached to a painter.

namespace {

using Words = std::vector<std::string>;
using regionCases::contoursOf;
using regionCases::pointsOf;

HT_Double_Point pointOf(const Words& words) {
    return pointsOf(words.at(1)).at(0);
}

/// What follows a word.
std::string textAfter(const Words& words, size_t first) {
    std::string text;
    for (size_t i = first + 1; i < words.size(); ++i) {
        text += words[i] + " ";
    }
    return text;
}

struct Session {
    PlotRecorder recorder;
    QPainter painter{&recorder};
    std::unique_ptr<QTRenderer> renderer = std::make_unique<QTRenderer>();
    std::optional<ExpectedWarnings> warnings;

    void color(const Words& w) const { renderer->SetColor(static_cast<HT_Color>(std::stoul(w.at(1), nullptr, 16))); }
    void type(const Words& w) const {
        std::vector<double> pattern;
        const bool isNull = w.size() > 2 && w[2] == "null";
        for (size_t i = 2; i < w.size() && !isNull; ++i) {
            pattern.push_back(std::stod(w[i]));
        }
        renderer->SetLineType(static_cast<HT_PlotStyle::LineType>(std::stoi(w.at(1))),
                              isNull ? nullptr : pattern.data(), isNull ? 2 : static_cast<unsigned>(pattern.size()));
    }
    void point(const Words& w) const { renderer->DrawPoint(pointOf(w)); }
    void ellipse(const Words& w) const { renderer->DrawEllipse(pointOf(w), 5, 5, 0); }
    void arc(const Words& w) const { renderer->DrawArc(pointOf(w), 5, 5, 0, 0, 1); }
    void clip(const Words& w) const { renderer->SetClipRgn(regionOracle::toList(contoursOf(textAfter(w, 0))).get()); }
    /// Columns and rows, the place, and both factors.
    void image(const Words& w) const {
        const auto numbers = pointsOf(textAfter(w, 0));
        FakeImage image(static_cast<int>(numbers.at(0).x), static_cast<int>(numbers[0].y));
        const auto [place, factors] = std::pair(numbers.at(1), numbers.at(2));
        HT_RasterImage_Record record{&image, place.x, place.y, factors.x, {}, factors.y};
        renderer->DrawImage(&record);
    }
    void beginPath(const Words&) const { renderer->BeginPath(), renderer->SetDrawingPline(true); }
    void endPath(const Words&) const { renderer->EndPath(), renderer->FillPath(); }
    void attach(const Words& w) { renderer->AttachDriver(w.size() == 1 ? &painter : nullptr, {1000, 1000}, true); }
    void detach(const Words&) const { renderer->DetachDriver(); }
    void start(const Words& w) const { EXPECT_EQ(renderer->StartRender(), w.size() == 1); }
    void finish(const Words&) const { renderer->FinishRender(); }
    void renew(const Words&) { renderer.reset(), renderer = std::make_unique<QTRenderer>(); }
    void expectWarnings(const Words& w) { warnings.emplace(w.at(1)); }
    // What the driver does with its painter.
    void setPen(const Words& w) { painter.setPen(QPen(Qt::black, std::stod(w.at(1)))); }
    void setClip(const Words&) { painter.setClipRect(0, 0, 3, 3); }
    void save(const Words&) { painter.save(); }
    void restore(const Words&) { painter.restore(); }
};

template <typename Enum>
auto setting(void (QTRenderer::*setter)(Enum)) {
    return [setter](Session& s, const Words& words) {
        (s.renderer.get()->*setter)(static_cast<Enum>(std::stod(words.at(1))));
    };
}

/// "x,y x,y …", with "#count" in front where another count is stated than there are; no points: a null pointer.
auto drawing(void (QTRenderer::*draw)(const HT_Double_Point*, int)) {
    return [draw](Session& s, const Words& words) {
        const bool isStated = words.at(1)[0] == '#';
        const auto points = pointsOf(textAfter(words, isStated ? 1 : 0));
        const int count = isStated ? std::stoi(words[1].substr(1)) : static_cast<int>(points.size());
        (s.renderer.get()->*draw)(points.empty() ? nullptr : points.data(), count);
    };
}

const std::map<std::string, std::function<void(Session&, const Words&)>> calls = {
    {"scale", setting(&QTRenderer::setScale)},
    {"weight", setting(&QTRenderer::SetLineWeight)},
    {"ends", setting(&QTRenderer::SetLineEndStyle)},
    {"joins", setting(&QTRenderer::SetLineJoinStyle)},
    {"fill", setting(&QTRenderer::SetFillStyle)},
    {"alpha", setting(&QTRenderer::SetAlpha)},
    {"fillmode", setting(&QTRenderer::SetFillMode)},
    {"merge", setting(&QTRenderer::SetMergeControlType)},
    {"polyline", drawing(&QTRenderer::DrawPolyline)},
    {"polygon", drawing(&QTRenderer::FillPolygon)},
    {"bezier", drawing(&QTRenderer::DrawBezier)},
    {"color", &Session::color},
    {"type", &Session::type},
    {"point", &Session::point},
    {"ellipse", &Session::ellipse},
    {"arc", &Session::arc},
    {"clip", &Session::clip},
    {"image", &Session::image},
    {"begin-path", &Session::beginPath},
    {"end-path", &Session::endPath},
    {"attach", &Session::attach},
    {"detach", &Session::detach},
    {"start", &Session::start},
    {"finish", &Session::finish},
    {"renew", &Session::renew},
    {"qt-warns", &Session::expectWarnings},
    {"painter-pen", &Session::setPen},
    {"painter-clip", &Session::setClip},
    {"painter-save", &Session::save},
    {"painter-restore", &Session::restore},
};

/// The rows of a texture that are not all white, with their numbers.
std::string pictureOf(const QImage& image) {
    std::string text;
    for (int y = 0; y < image.height(); ++y) {
        std::string row;
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            row += pixel == Qt::white ? '.' : pixel == Qt::red ? 'r' : pixel == Qt::blue ? 'b' : '?';
        }
        text += row == "........" ? "" : " " + std::to_string(y) + row;
    }
    return text;
}

/// The parts of a call's state, by their first words.
std::map<std::string, std::string> partsOf(const std::string& state) {
    std::map<std::string, std::string> parts;
    const QStringList texts = QString::fromStdString(state).split(" | ", Qt::SkipEmptyParts);
    for (const QString& text : texts) {
        parts[text.section(' ', 0, 0).toStdString()] = text.toStdString();
    }
    return parts;
}

std::string effectOf(Session& session, const Words& call) {
    const auto style = [&session] {
        session.recorder.clear();
        session.painter.drawPoint(0, 0);
        auto parts = partsOf(session.recorder.calls().back().state);
        parts["brush"] += pictureOf(session.painter.brush().textureImage());
        return parts;
    };
    auto before = style();
    session.recorder.clear();
    calls.at(call.at(0))(session, call);
    const std::vector<PlotRecorder::Call> drawn = session.recorder.calls();
    auto after = style();
    std::string text;
    for (const PlotRecorder::Call& each : drawn) {
        text += " | " + each.shape;
        for (const auto& [key, part] : partsOf(each.state)) {
            text += after[key] == part ? "" : " (" + part + ")";
        }
    }
    for (const auto& [key, part] : after) {
        text += before[key] == part ? "" : " | " + part;
        before.erase(key);
    }
    for (const auto& left : before) {
        text += " | no " + left.first;
    }
    return text.empty() ? text : text.substr(3);
}

TEST(Session, CallsHaveTheStatedEffects) {
    for (const char* name : {"attach", "clip", "shapes", "style"}) {
        std::optional<Session> session;
        for (const regionCases::Case& each : regionCases::read(std::string(SESSIONS "/") + name + ".session")) {
            std::istringstream in(each.input);
            const Words call{std::istream_iterator<std::string>(in), {}};
            if (each.input[0] == '[') {
                session.emplace();
                session->attach({"attach"});
                continue;
            }
            ASSERT_EQ(calls.count(call[0]), 1U) << each.place;
            EXPECT_EQ(effectOf(*session, call), each.outcome) << each.place;
        }
    }
}

} // namespace
