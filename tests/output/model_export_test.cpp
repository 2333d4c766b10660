#include "output/model_export.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <map>
#include <memory>
#include <tuple>
#include <utility>

#include "model/model_builder.h"
#include "model/model_parameters.h"

namespace kirameki {
namespace {

ExportMesh Mesh(int cut) {
    auto model = std::make_unique<GemModel>();
    BuildModel(cut, kDefaultModelParameters, *model);
    return WeldedMesh(*model);
}

// Each edge of the triangles, counted by direction: a closed surface wound one way uses every
// edge exactly once in each direction.
template <typename Key>
int OpenOrMisorientedEdges(const std::vector<std::array<Key, 3>>& triangles) {
    std::map<std::pair<Key, Key>, int> edges;
    for (const auto& t : triangles)
        for (int i = 0; i < 3; ++i)
            ++edges[{t[std::size_t(i)], t[std::size_t((i + 1) % 3)]}];
    int bad = 0;
    for (const auto& [edge, count] : edges) {
        const auto back = edges.find({edge.second, edge.first});
        if (count != 1 || back == edges.end() || back->second != 1)
            ++bad;
    }
    return bad;
}

TEST(ModelExport, EveryCutIsWeldedIntoAClosedOutwardSurface) {
    for (int cut = 0; cut < 28; ++cut) {
        if (!HasGenerator(cut))
            continue;
        auto model = std::make_unique<GemModel>();
        BuildModel(cut, kDefaultModelParameters, *model);
        const ExportMesh mesh = WeldedMesh(*model);
        ASSERT_FALSE(mesh.faces.empty()) << cut;
        EXPECT_LE(mesh.vertices.size(), std::size_t(model->VertexCount)) << cut;
        EXPECT_EQ(OpenOrMisorientedEdges(Triangles(mesh)), 0) << "cut " << cut;
        // A closed surface of genus 0: V - E + F = 2.
        std::size_t corners = 0;
        for (const auto& face : mesh.faces)
            corners += face.size();
        EXPECT_EQ(long(mesh.vertices.size()) - long(corners / 2) + long(mesh.faces.size()), 2)
            << "cut " << cut;
        // Normals of unit length pointing away from the centre (every stone is convex).
        Vec3 centre;
        for (const Vec3& v : mesh.vertices)
            centre = centre + v * (1.0 / double(mesh.vertices.size()));
        for (std::size_t f = 0; f < mesh.faces.size(); ++f) {
            EXPECT_NEAR(Length(mesh.normals[f]), 1.0, 1e-9) << cut;
            EXPECT_GT(Dot(mesh.normals[f], mesh.vertices[std::size_t(mesh.faces[f][0])] - centre),
                      0.0)
                << "cut " << cut << " face " << f;
        }
    }
}

TEST(ModelExport, PolesOfTheRoundSolidsAreWrittenOnce) {
    for (int cut = 23; cut < 28; ++cut) {
        auto model = std::make_unique<GemModel>();
        BuildModel(cut, kDefaultModelParameters, *model);
        const ExportMesh mesh = WeldedMesh(*model);
        for (std::size_t i = 0; i < mesh.vertices.size(); ++i)
            for (std::size_t j = i + 1; j < mesh.vertices.size(); ++j)
                EXPECT_GT(Length(mesh.vertices[i] - mesh.vertices[j]), 1e-7) << cut;
    }
}

class ModelFiles : public ::testing::Test {
  protected:
    void SetUp() override {
        folder_ = std::filesystem::temp_directory_path() /
                  ("kirameki-models-" + std::to_string(getpid()));
        std::filesystem::create_directories(folder_);
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }
    std::string Path(const char* name) const { return (folder_ / name).string(); }
    static std::string Bytes(const std::string& path) {
        std::string bytes;
        if (std::FILE* file = std::fopen(path.c_str(), "rb")) {
            char buffer[4096];
            std::size_t n = 0;
            while ((n = std::fread(buffer, 1, sizeof buffer, file)) > 0)
                bytes.append(buffer, n);
            std::fclose(file);
        }
        return bytes;
    }
    std::filesystem::path folder_;
};

TEST_F(ModelFiles, StlIsWatertightInMillimetresWithZUp) {
    for (const int cut : {0, 23, 26}) {
        const ExportMesh mesh = Mesh(cut);
        std::string error;
        ASSERT_TRUE(WriteStlModel(Path("stone.stl"), mesh, "stone", 12.5, error)) << error;
        const std::string bytes = Bytes(Path("stone.stl"));
        ASSERT_GE(bytes.size(), 84u);
        EXPECT_NE(bytes.compare(0, 5, "solid"), 0);
        std::uint32_t count = 0;
        std::memcpy(&count, bytes.data() + 80, 4);
        ASSERT_EQ(bytes.size(), 84 + 50 * std::size_t(count));
        // Corners matched by their stored floats, as a slicer matches them.
        using Corner = std::tuple<float, float, float>;
        std::vector<std::array<Corner, 3>> triangles;
        float low[3] = {1e9f, 1e9f, 1e9f}, high[3] = {-1e9f, -1e9f, -1e9f};
        for (std::uint32_t t = 0; t < count; ++t) {
            float f[12];
            std::memcpy(f, bytes.data() + 84 + 50 * t, sizeof f);
            std::array<Corner, 3> triangle;
            for (int c = 0; c < 3; ++c) {
                triangle[std::size_t(c)] = {f[3 + 3 * c], f[4 + 3 * c], f[5 + 3 * c]};
                for (int axis = 0; axis < 3; ++axis) {
                    low[axis] = std::min(low[axis], f[3 + 3 * c + axis]);
                    high[axis] = std::max(high[axis], f[3 + 3 * c + axis]);
                }
            }
            triangles.push_back(triangle);
        }
        EXPECT_EQ(OpenOrMisorientedEdges(triangles), 0) << cut;
        EXPECT_NEAR(std::max(high[0] - low[0], high[1] - low[1]), 12.5, 1e-4) << cut;
        if (cut == 0) {  // a brilliant stands on its culet: its axis is Z, crown up
            EXPECT_LT(high[2] - low[2], 12.5f);
            EXPECT_GT(high[2], -low[2] * 0.2f);
        }
    }
}

TEST_F(ModelFiles, ObjNamesItsMaterialAndGlbCarriesTheOptics) {
    const ExportMesh mesh = Mesh(0);
    StoneLook look{"Ruby Red", 1.77, 0.02, {0.0, 0.03, 0.03}};
    std::string error;
    ASSERT_TRUE(WriteObjModel(Path("gem.obj"), mesh, "Brilliant Cut", look, error)) << error;
    const std::string obj = Bytes(Path("gem.obj")), mtl = Bytes(Path("gem.mtl"));
    EXPECT_NE(obj.find("mtllib gem.mtl\no Brilliant_Cut\n"), std::string::npos);
    EXPECT_NE(obj.find("usemtl Ruby_Red\n"), std::string::npos);
    EXPECT_NE(mtl.find("newmtl Ruby_Red\n"), std::string::npos);
    EXPECT_NE(mtl.find("Kd 1 0.2231"), std::string::npos) << mtl;
    EXPECT_NE(mtl.find("Ni 1.77\n"), std::string::npos);

    ASSERT_TRUE(WriteGlbModel(Path("gem.glb"), mesh, "Brilliant Cut", look, 10.0, error)) << error;
    const std::string glb = Bytes(Path("gem.glb"));
    ASSERT_GE(glb.size(), 28u);
    std::uint32_t header[5];
    std::memcpy(header, glb.data(), sizeof header);
    EXPECT_EQ(header[0], 0x46546C67u);
    EXPECT_EQ(header[2], glb.size());
    EXPECT_EQ(header[3] % 4, 0u);
    const std::string json = glb.substr(20, header[3]);
    for (const char* expected :
         {"\"KHR_materials_ior\":{\"ior\":1.77}", "\"transmissionFactor\":1",
          "\"attenuationColor\":[1,0.4723", "\"KHR_materials_dispersion\":{\"dispersion\":0.519",
          "\"name\":\"Brilliant Cut\""})
        EXPECT_NE(json.find(expected), std::string::npos) << expected << "\n" << json;
}

}  // namespace
}  // namespace kirameki
