// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

#include "kelplot/reader/DrawingText.h"
#include "plot/annotation/AnnotationBlocks.h"
#include "reader/DxfReader.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

/// Drawings in a folder, of which the one named "main.dxf" is read.
class ExternalDrawings : public testing::Test {
protected:
    void write(const std::string& name, const std::string& groups) const {
        QDir().mkpath(QFileInfo(QString::fromStdString(m_folder.path(name))).path());
        m_folder.write(name, linesOf(groups));
    }
    Drawing read() const { return DxfReader().read(m_folder.path("main.dxf"), {}); }

    /// The groups of a block that stands for another drawing, 4 being its kind, or 8 if it is an overlay.
    static std::string block(const std::string& name, const std::string& path, int kind = 4) {
        return " 0=BLOCK 2=" + name + " 70=" + std::to_string(kind) + " 1=" + path + " 0=ENDBLK";
    }

private:
    TemporaryDirectory m_folder;
};

TEST_F(ExternalDrawings, AreBlocksWithNamesOfTheirOwn) {
    write("main.dxf", section("TABLES", "0=LTYPE 2=A|Dots 73=1 49=1 49=-1 0=LTYPE 2=A|Own 0=LAYER 2=A|Off 62=-3") +
                          section("BLOCKS", block("A", "C:\\work\\PART.DXF")) + drawingOf("0=INSERT 2=A 10=9"));
    write("part.dxf",
          section("HEADER", "9=$INSBASE 10=5 20=6 30=0") +
              section("TABLES", "0=LTYPE 2=Dots 73=1 49=7 49=-7 0=LTYPE 2=Own 73=1 49=3 49=-3"
                                " 0=LAYER 2=Off 62=1 0=LAYER 2=Walls 62=2 6=Own 0=STYLE 2=Notes 3=arial.ttf") +
              section("BLOCKS", block("B", "deep/b.dxf") + " 0=BLOCK 2=Nut 0=LINE 10=3 0=ENDBLK") +
              drawingOf("0=LINE 10=1 8=Off 6=Dots 0=LINE 10=2 8=Walls 0=LINE 8=0 0=INSERT 2=Nut 0=INSERT 2=B"
                        " 0=TEXT 1=a 7=Notes 0=LINE 67=1 10=7"));
    write("deep/b.dxf", drawingOf("0=MLINE 2=M 11=4 70=1 0=LINE 10=4 8=Deep"));
    EXPECT_EQ(shown(read()), (std::vector<std::string>{
                                 "block A at 9,0,0",
                                 "block A about 5,6,0",
                                 "A: line 1,0,0 0,0,0 on A|Off type A|Dots",
                                 "A: line 2,0,0 0,0,0 on A|Walls",
                                 "A: line 0,0,0 0,0,0",
                                 "A: block A|Nut at 0,0,0",
                                 "A: block A|B at 0,0,0",
                                 "A: text 'a' at 0,0,0 in A|Notes",
                                 "block A|B about 0,0,0",
                                 "A|B: mline style 0 4,0,0 to 0,0,0 mitre 0,0,0",
                                 "A|B: line 4,0,0 0,0,0 on A|B|Deep",
                                 "block A|Nut about 0,0,0",
                                 "A|Nut: line 3,0,0 0,0,0",
                                 "layer A|Off colour index 3 off",
                                 "layer A|Walls colour index 2 type A|Own",
                                 "type A|Dots: 1 -1",
                                 "type A|Own: 3 -3",
                                 "style A|Standard: ",
                                 "style A|Notes: file:arial.ttf",
                                 "style A|B|Standard: ",
                                 "mlines hollow start end",
                             }));
}

TEST_F(ExternalDrawings, BringTheLooksOfTheirDimensions) {
    write("main.dxf", section("TABLES", "0=LTYPE 2=Dots 73=1 49=9 49=-9 0=STYLE 2=Notes 3=main.ttf") +
                          section("BLOCKS", block("A", "part.dxf")) + drawingOf("0=INSERT 2=A"));
    write("part.dxf",
          section("TABLES", "0=LTYPE 5=1A 2=Dots 73=1 49=3 49=-3 0=STYLE 5=1B 2=Notes 3=part.ttf"
                            " 0=BLOCK_RECORD 5=1C 2=_Oblique 0=DIMSTYLE 2=S 41=4 42=1 44=2 140=2 147=1 77=1 271=0"
                            " 340=1B 342=1C 345=1A 346=1A 347=1A") +
              drawingOf("0=DIMENSION 3=S 10=40 20=10 14=40 0=TOLERANCE 3=S 1=x"));
    Drawing drawing = read();
    buildAnnotations(drawing, {});
    std::string found;
    for (const std::string& line : shown(drawing)) {
        if (line.rfind(": ", 0) == 0 || line.rfind("A|_Oblique: ", 0) == 0) {
            found += line + '\n';
        }
    }
    // The dimension line is 10 off, its ticks 4 long; letters are 2 high and 1 above it.
    for (const char* part :
         {"A|_Oblique: line -0.5,-0.5,0 0.5,0.5,0", ": line 0,1,0 0,12,0 colour byBlock weight -2 type A|Dots\n",
          ": line 0,10,0 40,10,0 colour byBlock weight -2 type A|Dots\n",
          ": block A|_Oblique at 40,10,0 scaled 4,4,4 colour byBlock weight -2 type A|Dots\n",
          ": mtext '<h2 a1>40$' at 20,12,0 in A|Notes", ">x$' at ", "0,0 in A|Notes"}) {
        EXPECT_NE(found.find(part), std::string::npos) << part << '\n' << found;
    }
}

TEST_F(ExternalDrawings, AreSharedByBlocksWithoutLayersOfTheirOwn) {
    write("main.dxf",
          section("TABLES", "0=LAYER 2=C|Walls 62=5") +
              section("BLOCKS", block("A", "part.dxf") + block("B", "./PART.dxf") + block("C", "part.dxf")) +
              drawingOf("0=INSERT 2=B"));
    write("part.dxf", section("HEADER", "9=$INSBASE 10=5 20=6 30=0") + drawingOf("0=LINE 10=1 8=Walls"));
    EXPECT_EQ(shown(read()), (std::vector<std::string>{
                                 "block B at 0,0,0",
                                 "block A about 5,6,0",
                                 "A: line 1,0,0 0,0,0 on A|Walls",
                                 "block B about 5,6,0",
                                 "B: block A at 5,6,0 colour byBlock weight -2 type byBlock opacity -2",
                                 "block C about 5,6,0",
                                 "C: line 1,0,0 0,0,0 on C|Walls",
                                 "layer C|Walls colour index 5",
                                 "style A|Standard: ",
                                 "style C|Standard: ",
                             }));
}

TEST_F(ExternalDrawings, ThatCannotBeReadAreKeptWithTheReason) {
    write("main.dxf", section("BLOCKS", block("A", "a.dxf") + block("J", "junk.dxf") + block("M", "missing.dxf") +
                                            block("D", "dwg.dwg") + block("O", "over.dxf", 8)) +
                          drawingOf("0=LINE"));
    write("a.dxf", section("BLOCKS", block("Main", "MAIN.dxf") + block("Over", "over.dxf", 12)) + drawingOf("0=LINE"));
    write("over.dxf", drawingOf("0=LINE 10=1"));
    write("dwg.dxf", drawingOf("0=LINE 10=2"));
    write("junk.dxf", "junk=junk");
    std::vector<std::string> found;
    for (const Block& each : read().blocks) {
        found.push_back(each.name + ' ' + std::to_string(each.entities.size()) + ' ' + each.externalPath + ' ' +
                        each.externalFault);
    }
    EXPECT_EQ(found, (std::vector<std::string>{
                         "A 1  ",
                         "J 0 junk.dxf line 1: 'junk' is not a group code, so this is not a drawing or a damaged one",
                         "M 0 missing.dxf ",
                         "D 1  ",
                         "O 1  ",
                         "A|Main 0 MAIN.dxf refers back to itself",
                         "A|Over 0  ",
                     }));
}

TEST_F(ExternalDrawings, AreReadUpToABound) {
    std::string blocks;
    std::string layers;
    for (int i = 0; i < 1500; ++i) {
        blocks += block("B" + std::to_string(i), "part.dxf");
        layers += " 0=LAYER 2=B" + std::to_string(i) + "|Own";
    }
    write("main.dxf", section("TABLES", layers) + section("BLOCKS", blocks) + drawingOf("0=LINE"));
    write("part.dxf", section("BLOCKS", block("C", "main.dxf") + block("D", "other.dxf")) + drawingOf("0=LINE"));
    write("other.dxf", drawingOf("0=LINE"));
    size_t filled = 0;
    for (const Block& each : read().blocks) {
        filled += each.entities.size();
        EXPECT_EQ(each.entities.empty(), !each.externalFault.empty()) << each.name;
    }
    EXPECT_LE(filled, 1000U);
    EXPECT_GE(filled, 500U);
}

} // namespace
} // namespace kelplot
