#include "polyhedron_checks.h"

#include <map>
#include <sstream>
#include <utility>

namespace kirameki::testing {

namespace {

constexpr double kEps = 1e-9;

struct Checker {
    const GemModel& model;
    std::vector<std::string> problems;
    std::vector<int> canonical;  // vertex index -> first vertex at the same position

    template <typename... Args>
    void Report(Args&&... args) {
        std::ostringstream out;
        (out << ... << args);
        problems.push_back(out.str());
    }

    const Vec3& P(int i) const { return model.ModelVertices[i]; }

    void MergeCoincidentVertices() {
        canonical.resize(model.VertexCount);
        for (int i = 0; i < model.VertexCount; ++i) {
            canonical[i] = i;
            for (int j = 0; j < i; ++j)
                if (Length(P(i) - P(j)) < kEps) {
                    canonical[i] = canonical[j];
                    break;
                }
        }
    }

    // The face's corners with coinciding neighbours folded into one.
    std::vector<int> DistinctCorners(const FaceRecord& face) const {
        std::vector<int> corners;
        for (int j = 0; j < face.Count; ++j) {
            const int c = canonical[face.Index[j]];
            if (corners.empty() || corners.back() != c)
                corners.push_back(c);
        }
        while (corners.size() > 1 && corners.front() == corners.back())
            corners.pop_back();
        return corners;
    }

    Vec3 Centroid() const {
        Vec3 sum;
        int n = 0;
        for (int i = 0; i < model.VertexCount; ++i)
            if (canonical[i] == i) {
                sum = sum + P(i);
                ++n;
            }
        return sum * (1.0 / n);
    }

    void Run() {
        const int nv = model.VertexCount, nf = model.FaceCount;
        if (nv < 4 || nv > kMaxVertices || nf < 4 || nf > kMaxFaces) {
            Report("counts out of range: ", nv, " vertices, ", nf, " faces");
            return;
        }
        for (int i = 0; i < nv; ++i)
            if (Length(P(i)) > 1.0 + kEps)
                Report("vertex ", i, " outside the unit sphere");
        for (int f = 0; f < nf; ++f) {
            const FaceRecord& face = model.FaceTable[f];
            if (face.Count < 3 || face.Count > kMaxFaceVertices) {
                Report("face ", f, " has ", face.Count, " vertices");
                return;
            }
            for (int j = 0; j < face.Count; ++j)
                if (face.Index[j] < 0 || face.Index[j] >= nv) {
                    Report("face ", f, " index out of range");
                    return;
                }
        }
        MergeCoincidentVertices();
        const Vec3 centre = Centroid();
        std::vector<Vec3> normals(nf);
        std::map<std::pair<int, int>, int> edges;  // directed edge -> face
        for (int f = 0; f < nf; ++f)
            CheckFace(f, centre, normals[f], edges);
        int distinctVertices = 0;
        for (int i = 0; i < nv; ++i)
            distinctVertices += canonical[i] == i;
        for (const auto& [edge, face] : edges) {
            auto twin = edges.find({edge.second, edge.first});
            if (twin == edges.end()) {
                Report("edge ", edge.first, "-", edge.second, " of face ", face, " is open");
            } else if (Dot(normals[face], normals[twin->second]) > 1.0 - 1e-12) {
                Report("faces ", face, " and ", twin->second, " are coplanar neighbours");
            }
        }
        const long euler = distinctVertices - long(edges.size()) / 2 + nf;
        if (euler != 2)
            Report("Euler characteristic ", euler, " instead of 2");
    }

    void CheckFace(int f, Vec3 centre, Vec3& normal, std::map<std::pair<int, int>, int>& edges) {
        const FaceRecord& face = model.FaceTable[f];
        const Vec3 v0 = P(face.Index[0]), v1 = P(face.Index[1]), v2 = P(face.Index[2]);
        const Vec3 n = Cross(v1 - v0, v2 - v1);
        if (Length(n) < 1e-12) {
            Report("face ", f, " has no normal from its first three vertices");
            return;
        }
        normal = Normalized(n);
        if (Dot(normal, centre - v0) <= 0.0)
            Report("face ", f, " is wound outward");
        const std::vector<int> corners = DistinctCorners(face);
        if (corners.size() < 3) {
            Report("face ", f, " has fewer than 3 distinct corners");
            return;
        }
        for (size_t j = 0; j < corners.size(); ++j) {
            const Vec3 a = P(corners[j]);
            const Vec3 b = P(corners[(j + 1) % corners.size()]);
            const Vec3 c = P(corners[(j + 2) % corners.size()]);
            if (std::abs(Dot(normal, a - v0)) > kEps)
                Report("face ", f, " is not planar");
            if (Dot(Cross(b - a, c - b), normal) < -kEps)
                Report("face ", f, " is not convex");
            if (!edges.emplace(std::pair{corners[j], corners[(j + 1) % corners.size()]}, f).second)
                Report("edge ", corners[j], "-", corners[(j + 1) % corners.size()],
                       " used twice in one direction (face ", f, ")");
        }
        for (int i = 0; i < model.VertexCount; ++i)
            if (Dot(normal, P(i) - v0) < -kEps) {
                Report("vertex ", i, " lies outside the plane of face ", f, ": not convex");
                break;
            }
    }
};

}  // namespace

std::vector<std::string> CheckPolyhedron(const GemModel& model) {
    Checker checker{model, {}, {}};
    checker.Run();
    return checker.problems;
}

}  // namespace kirameki::testing
