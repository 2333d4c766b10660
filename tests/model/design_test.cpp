#include "model/design.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <sstream>

#include "model/design_export.h"
#include "model/design_solid.h"
#include "model/model_builder.h"

namespace kirameki {
namespace {

const char* const kCube = "GemCad 5.0\ng 4 0\na 90 1 0 1 2 3\na 0 1 0\na -0 1 0\n";
const char* const kOctahedron =
    "GemCad 5.0\r\ng4 45.0\r\na 54.7356103172 0.5773502692 0 1 2 3\r\n"
    "a -54.7356103172 0.5773502692 0 1 2 3\r\n";
// A round brilliant of 57 facets with a girdle band of 16: its crown, girdle and pavilion
// tiers on a 96 gear, continuation lines, names and instructions.
const char* const kBrilliant =
    "GemCad 5.0\n"
    "g 96 0.0\n"
    "y 8 y\n"
    "I 2.42\n"
    "H Round brilliant, 57 facets\n"
    "F A test design\n"
    "a 90.0 1.0 3 9 15 21 27 33 39 45 51 57 63 69 75 81 87 93 G girdle\n"
    "a -40.750000 0.664123 0 12 24 36 48 60 72 84 n P1 G pavilion mains\n"
    "a -42.000000 0.680278 3 9 15 21 27 33 39 45\n"
    " 51 57 63 69 75 81 87 93\n"
    "a 34.500000 0.578768 0 12 24 36 48 60 72 84\n"
    "a 21.000000 0.481732 6 18 30 42 54 66 78 90\n"
    "a 40.000000 0.654278 3 9 15 21 27 33 39 45 51 57 63 69 75 81 87 93\n"
    "a 0.0 0.317404 0 n T G table\n";

Design Read(const char* text) {
    const DesignRead read = ReadDesignText(text);
    EXPECT_TRUE(read.ok) << read.error;
    return read.design;
}

// What holds for the solid of any design: planar faces wound inward, Euler's formula, each
// plane one face at most, every corner inside every half-space and inside the unit sphere.
void ExpectSound(const Design& design, const DesignSolid& solid) {
    const std::vector<DesignPlane> planes = DesignPlanes(design);
    std::set<std::pair<int, int>> edges;
    std::set<int> facePlanes;
    for (std::size_t f = 0; f < solid.faces.size(); ++f) {
        const auto& face = solid.faces[f];
        ASSERT_GE(face.size(), 3u);
        EXPECT_TRUE(facePlanes.insert(solid.facePlane[f]).second) << "a plane with two faces";
        const DesignPlane& plane = planes[std::size_t(solid.facePlane[f])];
        const double d = solid.ModelDistance(plane);
        const Vec3 a = solid.vertices[std::size_t(face[0])];
        for (std::size_t k = 0; k < face.size(); ++k) {
            const Vec3 p = solid.vertices[std::size_t(face[k])];
            EXPECT_NEAR(Dot(plane.normal, p), d, 1e-9) << "face " << f << " not planar";
            const int next = face[(k + 1) % face.size()];
            edges.insert({std::min(face[k], next), std::max(face[k], next)});
        }
        const Vec3 inward =
            Cross(solid.vertices[std::size_t(face[1])] - a,
                  solid.vertices[std::size_t(face[2])] - solid.vertices[std::size_t(face[1])]);
        EXPECT_LT(Dot(inward, plane.normal), 0.0) << "face " << f << " wound outward";
    }
    const long v = long(solid.vertices.size()), e = long(edges.size()),
               f = long(solid.faces.size());
    EXPECT_EQ(v - e + f, 2) << v << " " << e << " " << f;
    for (const Vec3& p : solid.vertices) {
        EXPECT_LE(Length(p), 1.0 + 1e-12);
        for (const DesignPlane& plane : planes)
            // Within the distance at which near corners are merged: a facet that would cut off
            // less than that does not touch, and the merged corner may stand that far out.
            EXPECT_LE(Dot(plane.normal, p), solid.ModelDistance(plane) + 1e-7);
    }
}

TEST(Design, ACubeAndAnOctahedronFromTheirPlanes) {
    const Design cube = Read(kCube);
    SolidBuild build = BuildDesignSolid(cube);
    ASSERT_TRUE(build.ok) << build.error;
    EXPECT_EQ(build.solid.vertices.size(), 8u);
    EXPECT_EQ(build.solid.faces.size(), 6u);
    ExpectSound(cube, build.solid);
    const Design octahedron = Read(kOctahedron);
    EXPECT_EQ(octahedron.gear, 4);
    EXPECT_EQ(octahedron.offset, 45.0);
    build = BuildDesignSolid(octahedron);
    ASSERT_TRUE(build.ok) << build.error;
    EXPECT_EQ(build.solid.vertices.size(), 6u);
    EXPECT_EQ(build.solid.faces.size(), 8u);
    ExpectSound(octahedron, build.solid);
    for (const Vec3& p : build.solid.vertices)  // the corners on the axes, radius 1
        EXPECT_NEAR(Length(p), 1.0, 1e-9);
}

TEST(Design, ARoundBrilliantReadsWholeAndBuildsSound) {
    const Design design = Read(kBrilliant);
    ASSERT_EQ(design.tiers.size(), 7u);
    EXPECT_EQ(design.tiers[2].indices.size(), 16u);  // with its continuation line
    EXPECT_TRUE(design.tiers[1].below);
    EXPECT_EQ(design.tiers[1].names[7], "P1");
    EXPECT_EQ(design.tiers[1].instruction, "pavilion mains");
    EXPECT_EQ(design.titles[0], "Round brilliant, 57 facets");
    EXPECT_EQ(design.index, 2.42);
    const SolidBuild build = BuildDesignSolid(design);
    ASSERT_TRUE(build.ok) << build.error;
    EXPECT_EQ(build.solid.faces.size(), 73u);  // 57 facets and a girdle of 16
    ExpectSound(design, build.solid);
    auto model = std::make_unique<GemModel>();
    std::string error;
    ASSERT_TRUE(FillModel(build.solid, *model, error)) << error;
    EXPECT_TRUE(IsWellFormed(*model));
    const DesignProportions p = MeasureProportions(design, build.solid);
    EXPECT_NEAR(p.lengthToWidth, 1.0, 0.03);
    EXPECT_NEAR(p.table, 0.56, 0.03);
    EXPECT_GT(p.pavilionDepth, 0.4);
    EXPECT_LT(p.pavilionDepth, 0.47);
}

TEST(Design, WritingAndReadingBackGivesTheSamePlanes) {
    for (const char* text : {kCube, kOctahedron, kBrilliant}) {
        const Design design = Read(text);
        const Design again = Read(WriteDesignText(design).c_str());
        const auto a = DesignPlanes(design), b = DesignPlanes(again);
        ASSERT_EQ(a.size(), b.size());
        for (std::size_t i = 0; i < a.size(); ++i) {
            EXPECT_EQ(a[i].distance, b[i].distance);
            EXPECT_EQ(Length(a[i].normal - b[i].normal), 0.0);
        }
        EXPECT_EQ(again.tiers.back().instruction, design.tiers.back().instruction);
        EXPECT_EQ(again.titles, design.titles);
    }
}

TEST(Design, ABuiltInCutWrittenAsADesignBuildsTheSameStone) {
    for (const int cut : {0, 7, 8, 12}) {
        auto model = std::make_unique<GemModel>();
        BuildModel(cut, kDefaultModelParameters, *model);
        std::vector<std::string> notes;
        const Design design =
            Read(WriteDesignText(DesignFromModel(*model, 96, "cut", notes)).c_str());
        const SolidBuild build = BuildDesignSolid(design);
        ASSERT_TRUE(build.ok) << cut << ": " << build.error;
        ExpectSound(design, build.solid);
        // Both normalised the same way (centred between their highest and lowest points,
        // scaled by the largest radius), the corners are the same.
        const auto normalise = [](std::vector<Vec3> points) {
            double low = 1e300, high = -1e300, radius = 0.0;
            for (const Vec3& p : points) {
                low = std::min(low, p.y);
                high = std::max(high, p.y);
                radius = std::max(radius, std::hypot(p.x, p.z));
            }
            for (Vec3& p : points)
                p = Vec3{p.x, p.y - 0.5 * (low + high), p.z} * (1.0 / radius);
            return points;
        };
        const auto original = normalise(std::vector<Vec3>(
            model->ModelVertices.begin(), model->ModelVertices.begin() + model->VertexCount));
        const auto rebuilt = normalise(build.solid.vertices);
        int unmatched = 0;
        for (const Vec3& p : original)
            unmatched += std::none_of(rebuilt.begin(), rebuilt.end(),
                                      [&](Vec3 q) { return Length(p - q) < 1e-9; });
        EXPECT_EQ(unmatched, 0) << "cut " << cut;
    }
}

TEST(Design, BadInputNamesItsLineAndChangesNothing) {
    const std::pair<const char*, const char*> cases[] = {
        {"GemCad 5.0\ng 0 0\na 0 1 0\n", "line 2: a gear of 0 teeth"},
        {"GemCad 5.0\ng 96\n", "no facet tiers"},
        {"GemCad 5.0\na 41 0.9\n", "line 2: the tier names no gear index"},
        {"GemCad 5.0\na 41 x 3\n", "line 2: 'x' is not a number"},
        {"GemCad 5.0\nq\x01\xff junk\n", "line 2:"},
        {"GemCad 5.0\ng 96\na 91 1 0\n", "line 3:"},
    };
    for (const auto& [text, expected] : cases) {
        const DesignRead read = ReadDesignText(text);
        EXPECT_FALSE(read.ok) << text;
        EXPECT_NE(read.error.find(expected), std::string::npos) << read.error;
    }
    // A stone without a pavilion is open below; the message says so, with the line.
    const Design crownOnly =
        Read("GemCad 5.0\ng 8\na 90 1 0 1 2 3 4 5 6 7\na 40 0.9 0 1 2 3 4 5 6 7\na 0 0.4 0\n");
    const SolidBuild open = BuildDesignSolid(crownOnly);
    EXPECT_FALSE(open.ok);
    EXPECT_NE(open.error.find("open below the girdle"), std::string::npos) << open.error;
}

TEST(Design, EncodingsAndLineEndsAreReadAlike) {
    // Windows-1252 with lone CR line ends, a byte-order mark with CRLF: the same title.
    const DesignRead latin = ReadDesignText("GemCad 5.0\rH Caf\xe9 \x93Star\x94\ra 0 1 0\r");
    const DesignRead utf8 = ReadDesignText(
        "\xEF\xBB\xBFGemCad 5.0\r\nH Caf\xc3\xa9 \xe2\x80\x9cStar\xe2\x80\x9d\r\na 0 1 0\r\n");
    ASSERT_TRUE(latin.ok) << latin.error;
    ASSERT_TRUE(utf8.ok) << utf8.error;
    EXPECT_EQ(latin.design.titles, utf8.design.titles);
    // Fractional indices, a negative gear and a glued keyword.
    const DesignRead mirrored = ReadDesignText("g-64 7.5\na 45 1 2.5 64\n");
    ASSERT_TRUE(mirrored.ok) << mirrored.error;
    EXPECT_EQ(mirrored.design.gear, -64);
    EXPECT_DOUBLE_EQ(IndexAzimuth(mirrored.design, 2.5), -2.5 / 64 * 360 + 7.5);
}

// The designs shipped as examples, each in a style that circulates (CRLF, LF, Windows-1252,
// continuation lines, fractional indices, a 64-tooth gear, 401 facets), read and build sound
// stones.
TEST(Design, TheExampleDesignsBuildSoundStonesOfTheirShapes) {
    const std::map<std::string, double> lengthToWidth = {
        {"emerald", 1.39},        {"oval", 1.39},   {"pear", 1.61},      {"round_64", 1.0},
        {"round_brilliant", 1.0}, {"tenfold", 1.0}, {"trillion", 1.155}, {"many_facets", 1.0}};
    int seen = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KIRAMEKI_EXAMPLE_DESIGNS)) {
        if (entry.path().extension() != ".asc")
            continue;
        const std::string name = entry.path().stem().string();
        SCOPED_TRACE(name);
        std::ifstream file(entry.path(), std::ios::binary);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        const Design design = Read(bytes.str().c_str());
        const SolidBuild build = BuildDesignSolid(design);
        ASSERT_TRUE(build.ok) << build.error;
        ExpectSound(design, build.solid);
        auto model = std::make_unique<GemModel>();
        std::string error;
        ASSERT_TRUE(FillModel(build.solid, *model, error)) << error;
        EXPECT_TRUE(IsWellFormed(*model));
        ASSERT_TRUE(lengthToWidth.count(name));
        EXPECT_NEAR(MeasureProportions(design, build.solid).lengthToWidth, lengthToWidth.at(name),
                    0.01);
        if (name == "oval") {  // written in Windows-1252
            EXPECT_EQ(design.titles[0], "KD-2 Ovale \u00e0 facettes \u2013 quartz");
        }
        ++seen;
    }
    EXPECT_EQ(seen, 8);
}

}  // namespace
}  // namespace kirameki
