#include "app/viewer_session.h"

#include <filesystem>

#include "output/messages.h"

namespace kirameki {

// The keyboard thread posts straight into the worker's queue.
class ViewerSession::KeyboardPoster : public WorkerPoster {
  public:
    explicit KeyboardPoster(WorkerClient& client) : client_(client) {}
    void PostCommand(int command, int argument) override { client_.Post(command, argument); }
    void PostStop() override { client_.PostStop(); }

  private:
    WorkerClient& client_;
};

namespace {

AppSettings LoadedSettings(const ProgramPaths& paths) {
    AppSettings settings;
    LoadSettings(paths.settingsFile, settings, {paths.screenShotsFolder, paths.capturesFolder});
    return settings;
}

}  // namespace

ViewerSession::ViewerSession(const ProgramPaths& paths, Prompter& prompter)
    : paths_(paths),
      prompter_(prompter),
      settings_(LoadedSettings(paths)),
      scene_(settings_),
      worker_(scene_, sink_, idle_),
      client_(worker_, prompter_, idle_) {}

ViewerSession::~ViewerSession() {
    Stop();
}

void ViewerSession::Start() {
    if (started_)
        return;
    started_ = true;
    worker_.Start();
    poster_ = std::make_unique<KeyboardPoster>(client_);
    keyboard_ = std::make_unique<KeyboardThread>(keys_, *poster_);
}

void ViewerSession::Stop() {
    if (keyboard_)
        keyboard_->Stop();
    worker_.PostStop();
    worker_.Quit();
}

void ViewerSession::Commit() {
    const AppSettings settings = settings_;
    scene_.UpdateSettings([&](AppSettings& shared) { shared = settings; });
}

bool ViewerSession::SaveSettings(std::string& error) const {
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(paths_.settingsFile).parent_path(),
                                        ignored);
    return kirameki::SaveSettings(paths_.settingsFile, settings_, error);
}

void ViewerSession::Persist() {
    Commit();
    std::string error;
    if (!SaveSettings(error))
        prompter_.Tell(messages::kFailedToOpenFile, true);
}

}  // namespace kirameki
