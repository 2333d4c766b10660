#include <CLI/App.hpp>
#include <CLI/Option.hpp>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/commands.h"
#include "cli/json_output.h"
#include "cli/options.h"
#include "model/design_export.h"
#include "model/model_builder.h"
#include "model/stone_tables.h"
#include "output/atomic_file.h"
#include "scene/stone_source.h"

namespace kirameki::cli {

namespace {

void PrintDesign(const OpenDesign& open) {
    const Design& d = open.design;
    const std::vector<DesignPlane> planes = DesignPlanes(d);
    Json tiers = Json::array();
    for (std::size_t t = 0; t < d.tiers.size(); ++t) {
        const DesignTier& tier = d.tiers[t];
        Json touching = Json::array();
        for (std::size_t p = 0; p < planes.size(); ++p)
            if (planes[p].tier == int(t))
                touching.push_back(bool(open.solid.touching[p]));
        tiers.push_back({{"line", tier.line},
                         {"angle", tier.below ? -tier.angle : tier.angle},
                         {"below", tier.below},
                         {"distance", tier.distance},
                         {"indices", tier.indices},
                         {"names", tier.names},
                         {"instruction", tier.instruction},
                         {"touching", std::move(touching)}});
    }
    const DesignProportions p = MeasureProportions(d, open.solid);
    PrintJson({{"titles", d.titles},
               {"footnotes", d.footnotes},
               {"gear", d.gear},
               {"offset", d.offset},
               {"symmetry", d.symmetry},
               {"mirror", d.mirror},
               {"index", d.index},
               {"tiers", std::move(tiers)},
               {"proportions",
                {{"lengthToWidth", p.lengthToWidth},
                 {"table", p.table},
                 {"crownHeight", p.crownHeight},
                 {"pavilionDepth", p.pavilionDepth},
                 {"totalDepth", p.totalDepth},
                 {"girdleThickness", p.girdleThickness},
                 {"volume", p.volume}}},
               {"vertices", open.solid.vertices.size()},
               {"faces", open.solid.faces.size()},
               {"notes", open.solid.notes}});
}

bool WriteText(const std::string& path, const std::string& text) {
    std::string error;
    if (WriteFileAtomically(
            path,
            [&](std::FILE* file) {
                return std::fwrite(text.data(), 1, text.size(), file) == text.size();
            },
            error))
        return true;
    std::cerr << "kirameki-cli: " << error << "\n";
    return false;
}

struct DesignOptions {
    std::string in, out;
    bool json = false;
    int cut = -1, gear = 96;
};

int RunDesign(const DesignOptions& o) {
    const std::string& in = o.in;
    const std::string& out = o.out;
    const bool json = o.json;
    const int cut = o.cut, gear = o.gear;
    if (in.empty() == (cut < 0) || (json == !out.empty()) || (cut >= 0 && json))
        throw UsageError(
            "design takes --in FILE.asc with --json or --out FILE.asc, or --cut K with --out "
            "FILE.asc");
    if (cut >= 0) {
        if (!HasGenerator(cut))
            throw UsageError("--cut 22 is the separator line of the cut list");
        auto model = std::make_unique<GemModel>();
        BuildModel(cut, kDefaultModelParameters, *model);
        std::vector<std::string> notes;
        const Design design =
            DesignFromModel(*model, gear, std::string(CutNames()[cut].english), notes);
        for (const std::string& note : notes)
            std::cerr << "kirameki-cli: " << note << "\n";
        return WriteText(out, WriteDesignText(design)) ? 0 : 1;
    }
    OpenDesign open;
    std::string error;
    if (!OpenDesignFile(in, open, error))
        throw UsageError(error);
    if (json) {
        PrintDesign(open);
        return 0;
    }
    return WriteText(out, WriteDesignText(open.design)) ? 0 : 1;
}

}  // namespace

Command AddDesign(CLI::App& program) {
    CLI::App* app = program.add_subcommand(
        "design",
        "read a GemCad faceting design (.asc) and print or write it, or write a "
        "built-in cut as a design");
    auto o = std::make_shared<DesignOptions>();
    AddText(*app, "--in", &o->in, "FILE.asc", "the design to read");
    app->add_flag("--json", o->json,
                  "print the design, which facets touch the stone and its proportions as JSON");
    AddText(*app, "--out", &o->out, "FILE.asc", "write the design ('-': standard output)");
    AddInt(*app, "--cut", &o->cut, 0, kCutListSize - 1,
           "write this entry of the cut list (not 22) as a design")
        ->type_name("K");
    AddInt(*app, "--gear", &o->gear, 1, 720, "with --cut: the index gear's teeth (default 96)");
    return {app, [o] { return RunDesign(*o); }};
}

}  // namespace kirameki::cli
