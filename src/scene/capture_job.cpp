#include "scene/capture_job.h"

#include <algorithm>

#include "scene/render_settings.h"

namespace kirameki {

CaptureStart ResumeStart(const CaptureState& recorded, int frameCount, bool checkEveryFrame) {
    if (checkEveryFrame)
        return {0, true};
    // A record written by a checking run keeps checking from where it stopped.
    return {std::min(recorded.framesCaptured, frameCount), recorded.existenceCheck != 0};
}

std::string RecordedCountsProblem(const CaptureState& recorded, int frameCount) {
    if (recorded.framesCaptured >= 0 && recorded.framesCaptured <= frameCount)
        return {};
    return "The capture file says " + std::to_string(recorded.framesCaptured) + " of " +
           std::to_string(frameCount) + " frames are done.";
}

CaptureRun MakeCaptureRun(const AppSettings& s, const ViewState& start, const std::string& stem,
                          const CaptureStart& from) {
    CaptureRun run;
    run.stem = stem;
    run.frameCount = s.captureFrames;
    run.firstFrame = from.firstFrame;
    run.existenceCheck = from.existenceCheck;
    run.viewPointRotation = s.IncrementalViewMode != 0;
    run.start = start;
    run.trimming = s.trim.on != 0;
    run.margins = s.trim.Margins();
    run.background = BackgroundColourOf(s);
    run.parameters = RenderParametersFor(s);
    run.geometry = GeometryFor(s);
    return run;
}

}  // namespace kirameki
