#pragma once

#include <memory>
#include <string>

#include "app/qt_worker_sink.h"
#include "output/companion_settings.h"
#include "scene/program_paths.h"
#include "worker/key_state.h"
#include "worker/keyboard_thread.h"
#include "worker/message_queue.h"
#include "worker/prompter.h"
#include "worker/shared_scene.h"
#include "worker/worker.h"
#include "worker/worker_client.h"

namespace kirameki {

// Everything the viewer runs on, owned in one place and handed to the windows by
// reference: the settings, the scene shared with the worker, the worker and keyboard
// threads and the window thread's half of their protocol.
class ViewerSession {
  public:
    ViewerSession(const ProgramPaths& paths, Prompter& prompter);
    ~ViewerSession();

    // Starts the worker (which builds the first model) and the keyboard thread.
    void Start();
    // Stops both threads; settings are kept.
    void Stop();

    // The window thread's copy of the settings; Commit hands changes to the worker.
    AppSettings& Settings() { return settings_; }
    void Commit();

    // Writes the settings file; false with the reason when it cannot be written, or when it
    // was there at start but could not be read (it is then left as it is).
    bool SaveSettings(std::string& error) const;
    // Commits and writes the settings file now (a setting confirmed with OK survives a
    // crash); a failed write says "Failed to open file.".
    void Persist();

    // The open design (the extra entry of the cut list; null: none) and whether it is the
    // stone rather than the settings' cut. The worker takes a change with its next command;
    // the companion file keeps it for the next start.
    const std::shared_ptr<const OpenDesign>& Design() const { return design_; }
    bool DesignShown() const { return design_ && designShown_; }
    StoneSource Stone() const;
    void SetDesign(std::shared_ptr<const OpenDesign> design, bool shown);
    void ShowDesign(bool shown) { SetDesign(design_, shown); }

    // The companion settings (the recent designs); SaveCompanion writes them now.
    CompanionSettings& Companion() { return companion_; }
    bool SaveCompanion(std::string& error);
    // Why the design open at the last exit could not be opened again, once; else empty.
    std::string TakeStartNotice();

    const ProgramPaths& Paths() const { return paths_; }
    SharedScene& Scene() { return scene_; }
    QtWorkerSink& Sink() { return sink_; }
    WorkerClient& Client() { return client_; }
    KeyStateTable& Keys() { return keys_; }
    KeyboardThread& Keyboard() { return *keyboard_; }
    Prompter& Prompts() { return prompter_; }

  private:
    class KeyboardPoster;

    void ReopenDesign();

    ProgramPaths paths_;
    std::string unreadableSettings_;  // why the settings file could not be read; then kept
    Prompter& prompter_;
    AppSettings settings_;
    SharedScene scene_;
    ManualResetEvent idle_{true};
    QtWorkerSink sink_;
    Worker worker_;
    WorkerClient client_;
    KeyStateTable keys_;
    std::unique_ptr<KeyboardPoster> poster_;
    std::unique_ptr<KeyboardThread> keyboard_;
    bool started_ = false;
    CompanionSettings companion_;
    std::shared_ptr<const OpenDesign> design_;
    bool designShown_ = false;
    std::string startNotice_;
};

}  // namespace kirameki
