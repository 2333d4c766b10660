#include "app/viewer_session.h"

#include <cstdio>
#include <filesystem>
#include <utility>

#include "model/model_parameters.h"
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

AppSettings LoadedSettings(const ProgramPaths& paths, std::string& unreadable) {
    AppSettings settings;
    unreadable =
        LoadSettings(paths.settingsFile, settings, {paths.screenShotsFolder, paths.capturesFolder})
            .error;
    if (!unreadable.empty())
        std::fprintf(stderr, "kirameki: %s; it will not be written over\n", unreadable.c_str());
    // Parameters that cannot be built (a damaged file) fall back to their defaults rather
    // than keep the viewer from starting.
    if (RepairModelParameters(settings.modelParameters))
        std::fprintf(stderr, "kirameki: damaged solid parameters in %s were reset\n",
                     paths.settingsFile.c_str());
    return settings;
}

}  // namespace

ViewerSession::ViewerSession(const ProgramPaths& paths, Prompter& prompter)
    : paths_(paths),
      prompter_(prompter),
      settings_(LoadedSettings(paths, unreadableSettings_)),
      scene_(settings_),
      worker_(scene_, sink_, idle_),
      client_(worker_, prompter_, idle_),
      companion_(LoadCompanionSettings(CompanionSettingsPath(paths.settingsFile))) {
    ReopenDesign();
}

void ViewerSession::ReopenDesign() {
    if (companion_.openDesign.empty())
        return;
    auto design = std::make_shared<OpenDesign>();
    std::string error;
    if (OpenDesignFile(companion_.openDesign, *design, error)) {
        design_ = std::move(design);
        designShown_ = companion_.designShown;
        scene_.SetStone(Stone());
        return;
    }
    // Said once: the next start does not look for it again.
    startNotice_ = error;
    SetDesign(nullptr, false);
    if (!SaveCompanion(error))
        std::fprintf(stderr, "kirameki: %s\n", error.c_str());
}

StoneSource ViewerSession::Stone() const {
    return DesignShown() ? StoneSource{design_} : StoneSource{};
}

void ViewerSession::SetDesign(std::shared_ptr<const OpenDesign> design, bool shown) {
    const bool changed = design != design_ || (design && shown != designShown_);
    design_ = std::move(design);
    designShown_ = design_ && shown;
    scene_.SetStone(Stone());
    companion_.openDesign = design_ ? design_->path : std::string();
    companion_.designShown = designShown_;
    std::string error;
    if (changed && !SaveCompanion(error))
        std::fprintf(stderr, "kirameki: %s\n", error.c_str());
}

bool ViewerSession::SaveCompanion(std::string& error) {
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(paths_.settingsFile).parent_path(),
                                        ignored);
    return SaveCompanionSettings(CompanionSettingsPath(paths_.settingsFile), companion_, error);
}

std::string ViewerSession::TakeStartNotice() {
    return std::exchange(startNotice_, {});
}

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
    // A settings file that is there but could not be read is the user's to mend, never ours
    // to replace with what the viewer made up in its place.
    if (!unreadableSettings_.empty()) {
        error = unreadableSettings_;
        return false;
    }
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
