#include <iostream>
#include <memory>
#include <string>

#include "cli/commands.h"
#include "cli/json_writer.h"
#include "model/design_export.h"
#include "model/model_builder.h"
#include "model/stone_tables.h"
#include "output/atomic_file.h"
#include "scene/stone_source.h"

namespace kirameki::cli {

namespace {

std::string JsonStrings(const std::vector<std::string>& texts) {
    std::string out = "[";
    for (std::size_t i = 0; i < texts.size(); ++i)
        out += (i ? "," : "") + JsonString(texts[i]);
    return out + "]";
}

std::string JsonNumbers(const std::vector<double>& values) {
    std::string out = "[";
    for (std::size_t i = 0; i < values.size(); ++i)
        out += (i ? "," : "") + JsonNumber(values[i]);
    return out + "]";
}

void PrintJson(const OpenDesign& open) {
    const Design& d = open.design;
    const std::vector<DesignPlane> planes = DesignPlanes(d);
    std::string out =
        "{\"titles\":" + JsonStrings(d.titles) + ",\n\"footnotes\":" + JsonStrings(d.footnotes) +
        ",\n\"gear\":" + std::to_string(d.gear) + ",\"offset\":" + JsonNumber(d.offset) +
        ",\"symmetry\":" + std::to_string(d.symmetry) +
        ",\"mirror\":" + (d.mirror ? "true" : "false") + ",\"index\":" + JsonNumber(d.index) +
        ",\n\"tiers\":[";
    for (std::size_t t = 0; t < d.tiers.size(); ++t) {
        const DesignTier& tier = d.tiers[t];
        std::string touching = "[";
        for (std::size_t p = 0, k = 0; p < planes.size(); ++p)
            if (planes[p].tier == int(t))
                touching +=
                    std::string(k++ ? "," : "") + (open.solid.touching[p] ? "true" : "false");
        out +=
            std::string(t ? ",\n" : "\n") + "{\"line\":" + std::to_string(tier.line) +
            ",\"angle\":" + JsonNumber(tier.below ? -tier.angle : tier.angle) +
            ",\"below\":" + (tier.below ? "true" : "false") +
            ",\"distance\":" + JsonNumber(tier.distance) +
            ",\"indices\":" + JsonNumbers(tier.indices) + ",\"names\":" + JsonStrings(tier.names) +
            ",\"instruction\":" + JsonString(tier.instruction) + ",\"touching\":" + touching + "]}";
    }
    const DesignProportions p = MeasureProportions(d, open.solid);
    out += "],\n\"proportions\":{\"lengthToWidth\":" + JsonNumber(p.lengthToWidth) +
           ",\"table\":" + JsonNumber(p.table) + ",\"crownHeight\":" + JsonNumber(p.crownHeight) +
           ",\"pavilionDepth\":" + JsonNumber(p.pavilionDepth) +
           ",\"totalDepth\":" + JsonNumber(p.totalDepth) +
           ",\"girdleThickness\":" + JsonNumber(p.girdleThickness) +
           ",\"volume\":" + JsonNumber(p.volume) +
           "},\n\"vertices\":" + std::to_string(open.solid.vertices.size()) +
           ",\"faces\":" + std::to_string(open.solid.faces.size()) +
           ",\"notes\":" + JsonStrings(open.solid.notes) + "}\n";
    std::cout << out;
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

}  // namespace

int RunDesign(Arguments& args) {
    std::string in, out;
    bool json = false;
    int cut = -1, gear = 96;
    while (!args.Done()) {
        const std::string_view flag = args.Flag();
        if (flag == "--in") {
            in = args.Value(flag);
        } else if (flag == "--out") {
            out = args.Value(flag);
        } else if (flag == "--json") {
            json = true;
        } else if (flag == "--cut") {
            cut = args.IntValue(flag, 0, kCutListSize - 1);
        } else if (flag == "--gear") {
            gear = args.IntValue(flag, 1, 720);
        } else {
            throw UsageError("design: unknown option " + std::string(flag));
        }
    }
    if (in.empty() == (cut < 0) || (json == !out.empty()) || (cut >= 0 && json))
        throw UsageError(
            "usage: kirameki-cli design --in FILE.asc (--json | --out FILE.asc) | --cut K --out "
            "FILE.asc [--gear N]");
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
        PrintJson(open);
        return 0;
    }
    return WriteText(out, WriteDesignText(open.design)) ? 0 : 1;
}

}  // namespace kirameki::cli
