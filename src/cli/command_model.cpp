#include <cstdio>
#include <iostream>
#include <memory>
#include <string>

#include "cli/commands.h"
#include "cli/json_writer.h"
#include "cli/scene_arguments.h"
#include "model/model_builder.h"
#include "model/stone_tables.h"
#include "output/atomic_file.h"

namespace kirameki::cli {

namespace {

void PrintJson(int cut, const GemModel& model) {
    std::string out = "{\"cut\":" + std::to_string(cut) +
                      ",\"name\":" + JsonString(CutNames()[cut].english) + ",\"vertices\":[";
    for (int i = 0; i < model.VertexCount; ++i) {
        const Vec3 v = model.ModelVertices[i];
        out += (i ? ",[" : "[") + JsonNumber(v.x) + "," + JsonNumber(v.y) + "," + JsonNumber(v.z) +
               "]";
    }
    out += "],\"faces\":[";
    for (int f = 0; f < model.FaceCount; ++f) {
        const FaceRecord& face = model.FaceTable[f];
        out += f ? ",[" : "[";
        for (int j = 0; j < face.Count; ++j)
            out += (j ? "," : "") + std::to_string(face.Index[j]);
        out += "]";
    }
    out += "]}\n";
    std::cout << out;
}

// Wavefront OBJ winds faces counter-clockwise seen from outside; the model's faces are
// wound the other way (their normal points inward), so the corners are written reversed.
bool WriteObj(const std::string& path, int cut, const GemModel& model, std::string& error) {
    return WriteFileAtomically(
        path,
        [&](std::FILE* file) {
            std::fprintf(file, "# Kirameki %s: %d vertices, %d faces\no stone\n",
                         std::string(CutNames()[cut].english).c_str(), model.VertexCount,
                         model.FaceCount);
            for (int i = 0; i < model.VertexCount; ++i) {
                const Vec3 v = model.ModelVertices[i];
                std::fprintf(file, "v %.17g %.17g %.17g\n", v.x, v.y, v.z);
            }
            for (int f = 0; f < model.FaceCount; ++f) {
                const FaceRecord& face = model.FaceTable[f];
                std::fputc('f', file);
                for (int j = face.Count - 1; j >= 0; --j)
                    std::fprintf(file, " %d", face.Index[j] + 1);
                std::fputc('\n', file);
            }
            return std::ferror(file) == 0;
        },
        error);
}

}  // namespace

int RunModel(Arguments& args) {
    int cut = -1;
    bool json = false;
    std::string objPath;
    ModelParameters parameters = kDefaultModelParameters;
    while (!args.Done()) {
        const std::string_view flag = args.Flag();
        if (flag == "--cut") {
            cut = args.IntValue(flag, -1000000, 1000000);
        } else if (flag == "--json") {
            json = true;
        } else if (flag == "--obj") {
            objPath = args.Value(flag);
        } else if (flag == "--settings") {
            parameters = LoadSettingsArgument(args.Value(flag)).modelParameters;
        } else {
            throw UsageError("model: unknown option " + std::string(flag));
        }
    }
    if (cut == -1 && !json && objPath.empty())
        throw UsageError(
            "usage: kirameki-cli model --cut K [--settings FILE] (--json | --obj FILE)");
    if (!HasGenerator(cut))
        throw UsageError("--cut takes an entry of the cut list, 0 to 27 except 22, not " +
                         std::to_string(cut));
    if (json == !objPath.empty())
        throw UsageError("model needs exactly one of --json and --obj");
    if (const std::string problem = ModelParametersProblem(cut, parameters); !problem.empty())
        throw UsageError(problem);
    auto model = std::make_unique<GemModel>();
    BuildModel(cut, parameters, *model);
    if (json) {
        PrintJson(cut, *model);
        return 0;
    }
    std::string error;
    if (!WriteObj(objPath, cut, *model, error)) {
        std::cerr << error << "\n";
        return 1;
    }
    return 0;
}

}  // namespace kirameki::cli
