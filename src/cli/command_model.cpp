#include <cstdio>
#include <iostream>
#include <memory>
#include <string>

#include "cli/commands.h"
#include "cli/json_writer.h"
#include "cli/scene_arguments.h"
#include "model/model_builder.h"
#include "model/stone_tables.h"
#include "output/model_export.h"

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

// The look of the stone S in colour C (its own colour when C is negative).
StoneLook Look(int stone, int colour) {
    const StoneRecord& record = Stones()[std::size_t(stone)];
    const ColourRecord& tint = Colours()[std::size_t(colour < 0 ? record.defaultColour : colour)];
    StoneLook look;
    look.name = std::string(record.english) + " " + std::string(tint.english);
    look.refractiveIndex = record.index100 / 100.0;
    look.dispersion = record.coefficient;
    look.absorption = tint.absorption;
    return look;
}

}  // namespace

int RunModel(Arguments& args) {
    int cut = -1;
    bool json = false;
    std::string objPath, stlPath, glbPath;
    int stone = 0, colour = -1;
    double girdle = 10.0;
    ModelParameters parameters = kDefaultModelParameters;
    while (!args.Done()) {
        const std::string_view flag = args.Flag();
        if (flag == "--cut") {
            cut = args.IntValue(flag, -1000000, 1000000);
        } else if (flag == "--json") {
            json = true;
        } else if (flag == "--obj") {
            objPath = args.Value(flag);
        } else if (flag == "--stl") {
            stlPath = args.Value(flag);
        } else if (flag == "--glb") {
            glbPath = args.Value(flag);
        } else if (flag == "--girdle") {
            girdle = args.DoubleValue(flag, 0.1, 10000.0);
        } else if (flag == "--stone") {
            stone = args.IntValue(flag, 0, kStoneCount - 1);
        } else if (flag == "--colour") {
            colour = args.IntValue(flag, 0, kColourCount - 1);
        } else if (flag == "--settings") {
            parameters = LoadSettingsArgument(args.Value(flag)).modelParameters;
        } else {
            throw UsageError("model: unknown option " + std::string(flag));
        }
    }
    const int outputs =
        int(json) + int(!objPath.empty()) + int(!stlPath.empty()) + int(!glbPath.empty());
    if (cut == -1 && outputs == 0)
        throw UsageError(
            "usage: kirameki-cli model --cut K [--settings FILE] [--stone S] [--colour C] "
            "(--json | --obj FILE | --stl FILE [--girdle MM] | --glb FILE [--girdle MM])");
    if (!HasGenerator(cut))
        throw UsageError("--cut takes an entry of the cut list, 0 to 27 except 22, not " +
                         std::to_string(cut));
    if (outputs != 1)
        throw UsageError("model needs exactly one of --json, --obj, --stl and --glb");
    if (const std::string problem = ModelParametersProblem(cut, parameters); !problem.empty())
        throw UsageError(problem);
    auto model = std::make_unique<GemModel>();
    BuildModel(cut, parameters, *model);
    if (json) {
        PrintJson(cut, *model);
        return 0;
    }
    const ExportMesh mesh = WeldedMesh(*model);
    const std::string name(CutNames()[std::size_t(cut)].english);
    std::string error;
    const bool written =
        !objPath.empty()   ? WriteObjModel(objPath, mesh, name, Look(stone, colour), error)
        : !stlPath.empty() ? WriteStlModel(stlPath, mesh, name, girdle, error)
                           : WriteGlbModel(glbPath, mesh, name, Look(stone, colour), girdle, error);
    if (!written) {
        std::cerr << error << "\n";
        return 1;
    }
    return 0;
}

}  // namespace kirameki::cli
