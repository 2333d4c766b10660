#pragma once

#include <functional>
#include <vector>

#include "model/gem_model.h"
#include "render/frame_image.h"
#include "render/frame_renderer.h"

namespace kirameki {

// How a stone is studied: its render parameters (colour, index, depth, threads; the
// lighting is set by the study) and the study's own choices.
struct LightStudySetup {
    RenderParameters parameters;
    int size = 270;            // pixels across the pictures the figures are taken from
    double spin = 0.0;         // degrees the stone is turned about its axis, face-up
    double headShadow = 16.0;  // half-angle in degrees of the observer's head, 0 to 45
    double asetLow = 45.0;     // the ASET colour boundaries, degrees of elevation
    double asetHigh = 75.0;
    double tiltMax = 30.0;  // tilts from -tiltMax to +tiltMax ...
    int tiltSteps = 13;     // ... in this many equal steps (odd, so that 0 is one of them)
    int spectralSamples = 8;
    double contrastLevel = 0.25;  // darker than this share of the diffuser's light: dark
    double fireChroma = 0.5;      // chroma above which a pixel shows fire
    double fireLevel = 0.2;       // and brighter than this share of full scale
};

// The figures of one orientation, in percent.
struct LightFigures {
    double tilt = 0.0;           // degrees, about the picture's horizontal axis
    double isoBrightness = 0.0;  // light returned under ISO, of a white diffuser's
    double cosBrightness = 0.0;  // the same under COS
    double leakage = 0.0;        // traced light leaving below the girdle plane
    double headShadow = 0.0;     // traced light leaving into the head's shadow
    double asetGreen = 0.0, asetRed = 0.0, asetBlue = 0.0, asetBlack = 0.0;  // traced light
    double contrast = 0.0;  // the outline's share darker than contrastLevel under ISO
    // Face-up only (0 when tilted): the outline's share showing spectral colour in the
    // classic light (chroma and level above the setup's), and the mean chroma, 0 to 100.
    double fire = 0.0;
    double meanChroma = 0.0;
};

struct LightStudy {
    LightFigures faceUp;
    std::vector<LightFigures> tilts;  // -tiltMax to +tiltMax
    LightFigures tiltAverage;
    double isoSpread = 0.0;  // largest minus smallest ISO brightness at tilts 0, T/2 and T
    FrameImage iso, cos, aset, spectral;  // face-up pictures
};

// Studies the stone (its model vertices) face-up and tilted. `progress(done, total)` is
// called after each picture; false when `abortPoll` stopped it.
bool RunLightStudy(const LightStudySetup& setup, const GemModel& stone, Vec3 lightDirection,
                   TracerWorkAreas& work, LightStudy& study, const AbortPoll& abortPoll,
                   const std::function<void(int, int)>& progress);

// The stone's view vertices and face data for a face-up view turned by `spin` and tilted by
// `tilt` degrees about the picture's horizontal axis.
void PoseStone(GemModel& model, double spin, double tilt);

}  // namespace kirameki
