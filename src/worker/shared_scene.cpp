#include "worker/shared_scene.h"

namespace kirameki {

AppSettings SharedScene::Settings() const {
    std::lock_guard lock(mutex_);
    return settings_;
}

void SharedScene::UpdateSettings(const std::function<void(AppSettings&)>& change) {
    std::lock_guard lock(mutex_);
    change(settings_);
}

StoneSource SharedScene::Stone() const {
    std::lock_guard lock(mutex_);
    return stone_;
}

void SharedScene::SetStone(const StoneSource& stone) {
    std::lock_guard lock(mutex_);
    stone_ = stone;
}

PanelSize SharedScene::Panel() const {
    std::lock_guard lock(mutex_);
    return panel_;
}

void SharedScene::SetPanel(PanelSize panel) {
    std::lock_guard lock(mutex_);
    panel_ = panel;
}

void SharedScene::RequestView(const ViewState& view) {
    std::lock_guard lock(mutex_);
    requestedView_ = view;
}

std::optional<ViewState> SharedScene::TakeRequestedView() {
    std::lock_guard lock(mutex_);
    std::optional<ViewState> view;
    view.swap(requestedView_);
    return view;
}

ViewState SharedScene::ShownView() const {
    std::lock_guard lock(mutex_);
    return requestedView_ ? *requestedView_ : shownView_;
}

void SharedScene::PublishView(const ViewState& view) {
    std::lock_guard lock(mutex_);
    shownView_ = view;
}

FrameImage SharedScene::LastFrame() const {
    std::lock_guard lock(mutex_);
    return lastFrame_;
}

void SharedScene::PublishFrame(const FrameImage& image) {
    std::lock_guard lock(mutex_);
    lastFrame_ = image;
}

int SharedScene::CapturedFrames() const {
    std::lock_guard lock(mutex_);
    return capturedFrames_;
}

void SharedScene::SetCapturedFrames(int frames) {
    std::lock_guard lock(mutex_);
    capturedFrames_ = frames;
}

std::string SharedScene::CaptureError() const {
    std::lock_guard lock(mutex_);
    return captureError_;
}

void SharedScene::SetCaptureError(const std::string& error) {
    std::lock_guard lock(mutex_);
    captureError_ = error;
}

std::string SharedScene::GifMessage() const {
    std::lock_guard lock(mutex_);
    return gifMessage_;
}

void SharedScene::SetGifMessage(const std::string& message) {
    std::lock_guard lock(mutex_);
    gifMessage_ = message;
}

}  // namespace kirameki
