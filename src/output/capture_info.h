#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "output/scene_state.h"

namespace kirameki {

// The capture record (".sqi") and the position record (".gpi") are one flat little-endian
// record: the frame count and frames captured, the stone, cut, colour and index, the
// orientation of the stone, the light and the view point, the display settings, trimming,
// and for a parametric solid its parameters. 272 bytes for a cut; 288, 280, 280, 276, 276
// for the ellipsoid, prism, pyramid, 14 hedron and 26 hedron.
constexpr std::size_t kCaptureInfoBaseSize = 272;

// The record's bytes for the scene as it stands.
std::vector<std::uint8_t> CaptureInfoBytes(const SceneState& scene);

// Reads a record's bytes into the scene. Header only: the frame count and frames captured
// alone. Otherwise everything the bytes hold; a short record leaves the fields past its
// end as they were, extra bytes are ignored. Indices are not range-checked here: a value
// that no table holds is kept and refused where it would be used (see SceneProblem). An
// orientation whose axes are not unit and square to each other cannot be turned into a
// rotation: that frame keeps its previous value and the answer says so (empty: all taken).
std::string ReadCaptureInfoBytes(const std::uint8_t* bytes, std::size_t size, SceneState& scene,
                                 bool headerOnly);

// File forms of the two above. Writing goes through a temporary file renamed over the old
// one.
bool WriteCaptureInfo(const std::string& path, const SceneState& scene, std::string& error);

struct RecordRead {
    bool opened = false;  // false: the file could not be read and nothing changed
    std::string error;    // why it could not be read
    std::string refused;  // what the record held that could not be taken
};
RecordRead ReadCaptureInfo(const std::string& path, SceneState& scene, bool headerOnly);

// The first value of the scene that no table or range holds (a stone index of 99, a colour
// of -3, an index of 7.0, an image size of 0...), as one message; empty when the scene can
// be shown and rendered.
std::string SceneProblem(const AppSettings& settings);

}  // namespace kirameki
