#pragma once

#include "render/frame_image.h"
#include "render/light_study.h"
#include "render/preview_geometry.h"
#include "worker/shared_scene.h"

namespace kirameki {

// What a drag or a held button last turned: shown as the target picture of the panel.
enum TargetCode : int {
    kTargetUnset = 0,
    kTargetNone = -1,
    kTargetObject = 1,
    kTargetViewPoint = 2,
    kTargetLight = 3
};

// One redraw of the view panel's surface model, as the worker hands it over.
struct PreviewPicture {
    const PreviewPolygons& polygons;  // the faces to fill, in panel pixels
    PanelSize panel;
    int imageSize;        // the rendered picture's size, centred in the panel
    Vec3 lightDirection;  // for the light-ray picture
    int target;           // a TargetCode
    bool targetChanged;   // the target picture must be composed again
};

// The worker's notifications. They are called on the worker thread: an implementation
// copies what it keeps and hands it to its own thread.
class WorkerSink {
  public:
    virtual ~WorkerSink() = default;
    virtual void OpenTitleWindow() = 0;  // 5600, once at start
    virtual void PreviewDrawn(const PreviewPicture& picture) = 0;
    virtual void RenderStarted() = 0;              // 5605
    virtual void RenderProgress(int percent) = 0;  // 5620
    virtual void RenderRows(const FrameImage& image, int first, int last) = 0;
    virtual void RenderFinished() = 0;  // 5610
    virtual void CaptureProgress(int frame, int frameCount) = 0;
    virtual void CaptureFinished(int result) = 0;  // 8020: 1 done, 2 aborted
    virtual void GifProgress(int frame, int frameCount) = 0;
    virtual void GifFinished(int result) = 0;  // 8050: 1 written, 2 failed
    // A light study: pictures made of all it needs, then its figures (result 1 done, 2
    // aborted, the study then incomplete).
    virtual void LightStudyProgress(int /*done*/, int /*total*/) {}
    virtual void LightStudyFinished(int /*result*/, const LightStudy& /*study*/) {}
};

}  // namespace kirameki
