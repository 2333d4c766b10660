#include "scene/stone_source.h"

#include <filesystem>
#include <memory>

#include "model/model_builder.h"
#include "output/atomic_file.h"
#include "output/file_reading.h"
#include "output/path_block.h"

namespace kirameki {

namespace {

// No design a person writes comes near this; a larger file is not one.
constexpr std::size_t kLargestDesign = 4u << 20;

}  // namespace

bool OpenDesignFile(const std::string& path, OpenDesign& open, std::string& error) {
    const FileBytes file = ReadRegularFile(path, kLargestDesign);
    if (file.outcome != FileBytes::Outcome::kRead) {
        error = "Cannot read " + path + ": " + file.error;
        return false;
    }
    if (file.longer) {
        error = path + ": the file is too large for a design";
        return false;
    }
    const std::string text(file.bytes.begin(), file.bytes.end());
    DesignRead read = ReadDesignText(text);
    if (!read.ok) {
        error = path + ": " + read.error;
        return false;
    }
    SolidBuild build = BuildDesignSolid(read.design);
    if (!build.ok) {
        error = path + ": " + build.error;
        return false;
    }
    const auto probe = std::make_unique<GemModel>();
    if (std::string fit; !FillModel(build.solid, *probe, fit)) {
        error = path + ": " + fit;
        return false;
    }
    open = {path, text, std::move(read.design), std::move(build.solid)};
    return true;
}

void BuildSceneModel(const AppSettings& settings, const StoneSource& source, GemModel& model) {
    if (!source.design) {
        BuildModel(settings.model, settings.modelParameters, model);
        return;
    }
    std::string unused;
    FillModel(source.design->solid, model, unused);  // it fitted when the design was opened
}

std::string DesignBeside(const std::string& recordPath) {
    PathBlock block;
    ChoosePath(recordPath, block);
    return block.fullPath + ".asc";
}

bool WriteDesignBeside(const StoneSource& source, const std::string& recordPath,
                       std::string& error) {
    if (!source.design) {
        // A cut's record must not pick up the design of an earlier record of the same name.
        std::error_code ignored;
        std::filesystem::remove(DesignBeside(recordPath), ignored);
        return true;
    }
    const std::string& text = source.design->text;
    return WriteFileAtomically(
        DesignBeside(recordPath),
        [&](std::FILE* file) {
            return std::fwrite(text.data(), 1, text.size(), file) == text.size();
        },
        error);
}

}  // namespace kirameki
