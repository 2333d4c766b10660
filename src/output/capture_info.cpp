#include "output/capture_info.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <iterator>

#include "model/model_builder.h"
#include "model/stone_choice.h"
#include "model/stone_tables.h"
#include "output/atomic_file.h"
#include "output/binary_fields.h"
#include "output/file_reading.h"

namespace kirameki {

static_assert(std::endian::native == std::endian::little,
              "the record is little-endian and read by copying bytes");
static_assert(sizeof(Vec3) == 24, "a vector is stored as three doubles");

namespace {

// Visits the fields of the record in file order with their address and width.
template <typename Scene, typename Visit>
void ForEachField(Scene& scene, bool headerOnly, Visit visit) {
    auto& s = scene.settings;
    auto& v = scene.view;
    auto& c = scene.capture;
    visit(&s.captureFrames, 4);
    visit(&c.framesCaptured, 4);
    if (headerOnly)
        return;
    visit(&s.stone, 4);
    visit(&s.model, 4);
    visit(&s.stoneColour, 4);
    visit(&s.refractiveIndex, 8);
    visit(&v.object.FrameFlag, 4);
    visit(&v.object.AxisA, 24);
    visit(&v.object.AxisB, 24);
    visit(&v.light.FrameFlag, 4);
    visit(&v.light.AxisA, 24);
    visit(&v.light.AxisB, 24);
    visit(&v.view.AxisA, 24);  // the view point, from which its rotation is rebuilt
    visit(&v.view.AxisB, 24);
    visit(&c.panelOverlay, 4);
    visit(&s.IncrementalViewMode, 4);  // the run turns the view point, not the stone
    visit(&s.highQuality, 4);
    visit(&c.existenceCheck, 4);
    visit(&s.fire, 4);
    visit(s.backColour.data(), 24);
    visit(&s.mainLightVolume, 4);
    visit(&s.backLightVolume, 4);
    visit(&s.fillLightVolume, 4);
    visit(&s.narrowMainLight, 4);
    visit(&s.separateRenderWindow, 4);
    visit(&s.imageSize, 4);
    visit(&s.trim, 24);
    // The parameters of the parametric solid just read, and only those.
    auto* p = s.modelParameters.data();
    switch (s.model) {
        case 23:
            visit(p + kEllipsoidCompression, 16);
            break;
        case 24:
            visit(p + kPrismSides, 8);
            break;
        case 25:
            visit(p + kPyramidSides, 8);
            break;
        case 26:
            visit(p + kHedron14Ratio, 4);
            break;
        case 27:
            visit(p + kHedron26StoredRatio, 4);
            break;
        default:
            break;
    }
}

bool IsRotation(const OrientationFrame& f) {
    const double a = Length(f.AxisA), b = Length(f.AxisB), ab = Dot(f.AxisA, f.AxisB);
    return std::isfinite(a) && std::isfinite(b) && std::isfinite(ab) && std::abs(a - 1.0) < 1e-6 &&
           std::abs(b - 1.0) < 1e-6 && std::abs(ab) < 1e-6;
}

}  // namespace

std::vector<std::uint8_t> CaptureInfoBytes(const SceneState& scene) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(kCaptureInfoBaseSize + 16);
    FieldWriter writer(bytes);
    ForEachField(scene, false, [&](const void* field, std::size_t width) { writer(field, width); });
    return bytes;
}

std::string ReadCaptureInfoBytes(const std::uint8_t* bytes, std::size_t size, SceneState& scene,
                                 bool headerOnly) {
    const ViewState before = scene.view;
    const ModelParameters parametersBefore = scene.settings.modelParameters;
    FieldReader reader(bytes, size);
    ForEachField(scene, headerOnly, [&](void* field, std::size_t width) { reader(field, width); });
    if (headerOnly)
        return {};
    std::string refused =
        ModelParametersProblem(scene.settings.model, scene.settings.modelParameters);
    if (!refused.empty()) {
        scene.settings.modelParameters = parametersBefore;
        refused += " The current parameters are kept.";
    }
    OrientationFrame ViewState::*frames[] = {&ViewState::object, &ViewState::light,
                                             &ViewState::view};
    const char* names[] = {"stone", "light", "view point"};
    for (int i = 0; i < 3; ++i) {
        OrientationFrame& frame = scene.view.*frames[i];
        if (IsRotation(frame)) {
            Decompose(frame);
        } else {
            frame = before.*frames[i];
            if (refused.empty())
                refused = std::string("The record's ") + names[i] +
                          " orientation is damaged; the current one is kept.";
        }
    }
    scene.view.LightDirection = LightDirectionOf(scene.view.light);
    return refused;
}

bool WriteCaptureInfo(const std::string& path, const SceneState& scene, std::string& error) {
    const std::vector<std::uint8_t> bytes = CaptureInfoBytes(scene);
    return WriteFileAtomically(
        path,
        [&](std::FILE* file) {
            return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
        },
        error);
}

RecordRead ReadCaptureInfo(const std::string& path, SceneState& scene, bool headerOnly) {
    RecordRead result;
    // The longest record is 288 bytes; anything after it is ignored.
    const FileBytes file = ReadRegularFile(path, kCaptureInfoBaseSize + 16);
    if (file.outcome != FileBytes::Outcome::kRead) {
        result.error = "Cannot read " + path + ": " + file.error;
        return result;
    }
    result.opened = true;
    result.refused = ReadCaptureInfoBytes(file.bytes.data(), file.bytes.size(), scene, headerOnly);
    return result;
}

std::string SceneProblem(const AppSettings& s) {
    if (!IsStoneIndex(s.stone))
        return "The stone " + std::to_string(s.stone) + " is not in the stone list.";
    if (!HasGenerator(s.model))
        return "The cut " + std::to_string(s.model) + " is not in the cut list.";
    if (std::string problem = ModelParametersProblem(s.model, s.modelParameters); !problem.empty())
        return problem;
    if (!IsColourIndex(s.stoneColour))
        return "The colour " + std::to_string(s.stoneColour) + " is not in the colour list.";
    if (!RefractiveIndexInRange(s.refractiveIndex))
        return std::string(kRefractiveIndexRangeMessage);
    if (s.imageSize < 32 || s.imageSize > 512)
        return "The image size " + std::to_string(s.imageSize) + " is outside 32 to 512.";
    if (s.recursionDepth < 1 || s.recursionDepth > 20)
        return "The recursion depth " + std::to_string(s.recursionDepth) + " is outside 1 to 20.";
    if (s.captureFrames < 1)
        return "The frame count " + std::to_string(s.captureFrames) + " is not a positive number.";
    return {};
}

}  // namespace kirameki
