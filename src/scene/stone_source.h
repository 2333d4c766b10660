#pragma once

#include <memory>
#include <string>

#include "model/design.h"
#include "model/design_solid.h"
#include "model/gem_model.h"
#include "output/app_settings.h"

namespace kirameki {

// A faceting design read from its file and built into a stone.
struct OpenDesign {
    std::string path;
    std::string text;  // the file as it was read, copied beside the records made from it
    Design design;
    DesignSolid solid;
};

// Reads and builds the design at path. False with one line in error ("F.asc: line 7: ...").
bool OpenDesignFile(const std::string& path, OpenDesign& design, std::string& error);

// Where the stone comes from: a design when one is open, else the settings' cut.
struct StoneSource {
    std::shared_ptr<const OpenDesign> design;
};

// Builds the stone of the source into the model (its model vertices; a cut that cannot be
// built leaves the model as it was). The one place the stone's source is read.
void BuildSceneModel(const AppSettings& settings, const StoneSource& source, GemModel& model);
inline void BuildSceneModel(const AppSettings& settings, GemModel& model) {
    BuildSceneModel(settings, {}, model);
}

// The file beside a record (or a picture) that carries the design it was made of: the
// record's stem + ".asc".
std::string DesignBeside(const std::string& recordPath);

// Writes the open design's file beside the record; for a cut, removes any design left
// there by an earlier record of the same name.
bool WriteDesignBeside(const StoneSource& source, const std::string& recordPath,
                       std::string& error);

}  // namespace kirameki
