#include <CLI/App.hpp>
#include <CLI/Option.hpp>
#include <filesystem>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/commands.h"
#include "cli/json_output.h"
#include "cli/options.h"
#include "cli/scene_arguments.h"
#include "model/model_builder.h"
#include "model/stone_choice.h"
#include "model/stone_tables.h"
#include "output/model_export.h"
#include "scene/stone_source.h"

namespace kirameki::cli {

namespace {

struct ModelOptions {
    int cut = -1;
    std::string design, settings;
    bool json = false;
    std::string objPath, stlPath, glbPath;
    int stone = 0, colour = -1;
    double girdle = 10.0;
};

void PrintModel(const Json& source, const std::string& name, const GemModel& model) {
    Json vertices = Json::array();
    for (int i = 0; i < model.VertexCount; ++i) {
        const Vec3 v = model.ModelVertices[i];
        vertices.push_back({v.x, v.y, v.z});
    }
    Json faces = Json::array();
    for (int f = 0; f < model.FaceCount; ++f) {
        const FaceRecord& face = model.FaceTable[f];
        Json corners = Json::array();
        for (int j = 0; j < face.Count; ++j)
            corners.push_back(face.Index[j]);
        faces.push_back(std::move(corners));
    }
    Json document = source;
    document["name"] = name;
    document["vertices"] = std::move(vertices);
    document["faces"] = std::move(faces);
    PrintJson(document);
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

// A design goes by its first title line, else by its file's name (whatever bytes that has).
std::string DesignName(const OpenDesign& design) {
    for (const std::string& title : design.design.titles) {
        const auto first = title.find_first_not_of(" \t");
        if (first != std::string::npos)
            return ValidUtf8(title.substr(first, title.find_last_not_of(" \t") + 1 - first));
    }
    return ValidUtf8(std::filesystem::path(design.path).stem().string());
}

int RunModel(const ModelOptions& o) {
    const int outputs =
        int(o.json) + int(!o.objPath.empty()) + int(!o.stlPath.empty()) + int(!o.glbPath.empty());
    if (outputs != 1)
        throw UsageError("model needs exactly one of --json, --obj, --stl and --glb");
    if (o.cut < 0 && o.design.empty())
        throw UsageError("model needs --cut K or --design FILE.asc");
    auto model = std::make_unique<GemModel>();
    std::string name;
    Json source;
    StoneLook look = Look(o.stone, o.colour);
    if (!o.design.empty()) {
        OpenDesign design;
        std::string error;
        if (!OpenDesignFile(o.design, design, error))
            throw UsageError(error);
        if (std::string fit; !FillModel(design.solid, *model, fit))
            throw UsageError(o.design + ": " + fit);
        name = DesignName(design);
        source = {{"design", o.design}};
        if (RefractiveIndexInRange(design.design.index))
            look.refractiveIndex = design.design.index;
    } else {
        if (!HasGenerator(o.cut))
            throw UsageError("--cut takes an entry of the cut list, 0 to 27 except 22, not " +
                             std::to_string(o.cut));
        const ModelParameters parameters = o.settings.empty()
                                               ? kDefaultModelParameters
                                               : LoadSettingsArgument(o.settings).modelParameters;
        if (const std::string problem = ModelParametersProblem(o.cut, parameters); !problem.empty())
            throw UsageError(problem);
        BuildModel(o.cut, parameters, *model);
        name = std::string(CutNames()[std::size_t(o.cut)].english);
        source = {{"cut", o.cut}};
    }
    if (o.json) {
        PrintModel(source, name, *model);
        return 0;
    }
    const ExportMesh mesh = WeldedMesh(*model);
    std::string error;
    const bool written = !o.objPath.empty() ? WriteObjModel(o.objPath, mesh, name, look, error)
                         : !o.stlPath.empty()
                             ? WriteStlModel(o.stlPath, mesh, name, o.girdle, error)
                             : WriteGlbModel(o.glbPath, mesh, name, look, o.girdle, error);
    if (!written) {
        std::cerr << "kirameki-cli: " << error << "\n";
        return 1;
    }
    return 0;
}

}  // namespace

Command AddModel(CLI::App& program) {
    CLI::App* app = program.add_subcommand(
        "model", "write the polyhedron of a cut or a design as JSON, OBJ, STL or glTF binary");
    auto o = std::make_shared<ModelOptions>();
    CLI::Option* cut = AddInt(*app, "--cut", &o->cut, 0, kCutListSize - 1,
                              "an entry of the cut list (not 22), as built")
                           ->type_name("K");
    AddText(*app, "--design", &o->design, "FILE.asc", "a GemCad faceting design")->excludes(cut);
    AddText(*app, "--settings", &o->settings, "FILE",
            "the transformable solids' parameters from this settings file");
    AddInt(*app, "--stone", &o->stone, 0, kStoneCount - 1,
           "the stone whose index and dispersion the OBJ and glTF carry")
        ->type_name("S");
    AddInt(*app, "--colour", &o->colour, 0, kColourCount - 1,
           "the colour of the OBJ and glTF (default: the stone's)")
        ->type_name("C");
    app->add_flag("--json", o->json, "the vertices and faces as JSON on standard output");
    AddText(*app, "--obj", &o->objPath, "FILE",
            "Wavefront OBJ, welded, with per-face normals and a .mtl beside it ('-': standard "
            "output, no .mtl)");
    AddText(*app, "--stl", &o->stlPath, "FILE",
            "binary STL in millimetres, Z up ('-': standard output)");
    AddText(*app, "--glb", &o->glbPath, "FILE",
            "glTF binary with the stone's optics ('-': standard output)");
    AddNumber(*app, "--girdle", &o->girdle, 0.1, 10000.0,
              "the girdle's width in millimetres for STL and glTF (default 10)")
        ->type_name("MM");
    return {app, [o] { return RunModel(*o); }};
}

}  // namespace kirameki::cli
