#pragma once

#include <functional>
#include <mutex>
#include <optional>
#include <string>

#include "output/app_settings.h"
#include "output/capture_loop.h"
#include "output/gif_files.h"
#include "render/frame_image.h"
#include "render/view_state.h"
#include "scene/stone_source.h"

namespace kirameki {

// Where the view panel draws: its size in pixels. The stone is drawn at the scale of the
// rendered picture, centred, so that the preview shows what a render will show.
struct PanelSize {
    int width = 400;
    int height = 400;
};

// Everything the window thread and the worker share, behind one lock: each side takes a
// copy of what it needs and hands over changes as whole values, so no field is ever read
// while the other thread writes it.
class SharedScene {
  public:
    explicit SharedScene(const AppSettings& settings) : settings_(settings) {}

    AppSettings Settings() const;
    void UpdateSettings(const std::function<void(AppSettings&)>& change);

    // Where the stone comes from: a design when one is shown, else the settings' cut. The
    // design itself never changes once opened, so sharing it is safe.
    StoneSource Stone() const;
    void SetStone(const StoneSource& stone);

    PanelSize Panel() const;
    void SetPanel(PanelSize panel);

    // An orientation the window thread restored (from a position or capture file); the
    // worker takes it at the start of its next command.
    void RequestView(const ViewState& view);
    std::optional<ViewState> TakeRequestedView();

    // The orientation the worker last showed, for records written by the window thread.
    ViewState ShownView() const;
    void PublishView(const ViewState& view);

    // The last rendered picture, copied when a render ends.
    FrameImage LastFrame() const;
    void PublishFrame(const FrameImage& image);

    // Frames on disk after the last run (written by the worker before it reports the end).
    int CapturedFrames() const;
    void SetCapturedFrames(int frames);
    // Why the last run stopped before its end when a frame could not be written; else empty.
    std::string CaptureError() const;
    void SetCaptureError(const std::string& error);

    std::string GifMessage() const;
    void SetGifMessage(const std::string& message);

  private:
    mutable std::mutex mutex_;
    AppSettings settings_;
    StoneSource stone_;
    PanelSize panel_;
    std::optional<ViewState> requestedView_;
    ViewState shownView_ = InitialViewState();
    FrameImage lastFrame_;
    int capturedFrames_ = 0;
    std::string captureError_;
    std::string gifMessage_;
};

}  // namespace kirameki
