#include "worker/worker.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#include "worker/worker_client.h"

namespace kirameki {
namespace {

using namespace std::chrono_literals;

// Records the worker's notifications; waits for them from the test thread.
class RecordingSink : public WorkerSink {
  public:
    void OpenTitleWindow() override { Add("title"); }
    void PreviewDrawn(const PreviewPicture&) override { Add("preview"); }
    void RenderStarted() override { Add("started"); }
    void RenderProgress(int percent) override {
        std::lock_guard lock(mutex_);
        progress_.push_back(percent);
    }
    void RenderRows(const FrameImage&, int, int) override {}
    void RenderFinished() override { Add("finished"); }
    void CaptureProgress(int, int) override {}
    void CaptureFinished(int) override {}
    void GifProgress(int, int) override {}
    void GifFinished(int) override {}
    void LightStudyFinished(int result, const LightStudy& study) override {
        {
            std::lock_guard lock(mutex_);
            studyTilts_ = int(study.tilts.size());
        }
        Add(result == 1 ? "study done" : "study aborted");
    }
    void LiveFrame(const FrameImage& image, bool quick) override {
        {
            std::lock_guard lock(mutex_);
            liveWidth_ = image.Width();
        }
        Add(quick ? "live quick" : "live full");
    }
    int LiveWidth() {
        std::lock_guard lock(mutex_);
        return liveWidth_;
    }
    int StudyTilts() {
        std::lock_guard lock(mutex_);
        return studyTilts_;
    }

    int Count(const std::string& event) {
        std::lock_guard lock(mutex_);
        return int(std::count(events_.begin(), events_.end(), event));
    }
    bool WaitFor(const std::string& event, int count, std::chrono::milliseconds timeout = 20s) {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, timeout, [&] {
            return std::count(events_.begin(), events_.end(), event) >= count;
        });
    }
    std::vector<int> Progress() {
        std::lock_guard lock(mutex_);
        return progress_;
    }

  private:
    void Add(const std::string& event) {
        {
            std::lock_guard lock(mutex_);
            events_.push_back(event);
        }
        changed_.notify_all();
    }
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::string> events_;
    std::vector<int> progress_;
    int studyTilts_ = 0;
    int liveWidth_ = 0;
};

class ScriptedPrompter : public Prompter {
  public:
    bool answer = false;
    int asked = 0;
    bool AskYesNo(const std::string&, DefaultAnswer) override {
        ++asked;
        return answer;
    }
    void Tell(const std::string&, bool) override {}
};

AppSettings SmallScene(int size) {
    AppSettings s;
    LoadDefaults(s, {"/s/", "/c/"});
    s.showTitleWindow = 0;
    s.imageSize = size;
    return s;
}

struct Protocol {
    explicit Protocol(int size = 64)
        : scene(SmallScene(size)), worker(scene, sink, idle), client(worker, prompter, idle) {
        worker.Start();
    }
    ~Protocol() {
        worker.PostStop();
        worker.Post(kAbortJob);
        worker.Quit();
    }
    void FinishRender() {
        // A large high-quality frame takes many seconds under ThreadSanitizer.
        ASSERT_TRUE(sink.WaitFor("finished", ++renders, 60s));
        client.RenderFinished();  // the window's handling of the notification
    }
    SharedScene scene;
    ManualResetEvent idle{true};
    RecordingSink sink;
    ScriptedPrompter prompter;
    Worker worker;
    WorkerClient client;
    int renders = 0;
};

TEST(WorkerProtocol, ARenderRunsToTheEndAndALateAbortIsDropped) {
    Protocol p;
    ASSERT_TRUE(p.client.Render());
    EXPECT_FALSE(p.idle.IsSet());
    p.FinishRender();
    EXPECT_TRUE(p.idle.Wait(5s));
    EXPECT_EQ(p.sink.Progress().back(), 100);
    EXPECT_EQ(p.scene.LastFrame().Width(), 64);
    // An abort that arrives when nothing runs is fetched and forgotten.
    p.worker.Post(kAbortJob);
    ASSERT_TRUE(p.client.Render());
    p.FinishRender();
    EXPECT_EQ(p.sink.Progress().back(), 100);
}

TEST(WorkerProtocol, TheBusyRuleAsksAndOnlyYesAborts) {
    Protocol p(512);
    p.scene.UpdateSettings([](AppSettings& s) {
        s.highQuality = 1;
        s.recursionDepth = 20;
    });
    ASSERT_TRUE(p.client.Render());
    // A second render while one runs is not carried out; "No" lets the first go on.
    p.prompter.answer = false;
    EXPECT_FALSE(p.client.Render());
    EXPECT_EQ(p.prompter.asked, 1);
    // A press in the view panel is ignored while the render holds the idle event.
    EXPECT_FALSE(p.client.BeginDrag(1, 10, 10));
    p.prompter.answer = true;
    EXPECT_TRUE(p.client.Busy());
    p.FinishRender();
    EXPECT_LT(p.sink.Progress().back(), 100);
    EXPECT_FALSE(p.client.Busy());
}

TEST(WorkerProtocol, ARenderPollEatsARotationRequest) {
    Protocol p(512);
    p.scene.UpdateSettings([](AppSettings& s) { s.highQuality = 1; });
    ASSERT_TRUE(p.client.Render());
    ASSERT_TRUE(p.sink.WaitFor("started", 1));
    p.client.Post(kAnimateRotation, 1006);  // taken by the render's poll and lost
    p.FinishRender();
    const int previews = p.sink.Count("preview");
    std::this_thread::sleep_for(200ms);
    EXPECT_EQ(p.sink.Count("preview"), previews) << "no rotation may run after the render";
    EXPECT_EQ(p.sink.Progress().back(), 100);
}

TEST(WorkerProtocol, HeldRotationTurnsUntilStoppedAndDragsAreThrottled) {
    Protocol p;
    p.scene.UpdateSettings([](AppSettings& s) { s.rotationSpeed = 1; });
    const ViewState before = p.scene.ShownView();
    p.client.Post(kAnimateRotation, 1006);
    ASSERT_TRUE(p.sink.WaitFor("preview", 3));
    // Counted before the stop: the redraw queued behind it may come before a count taken
    // after posting, and then the wait would never end.
    const int previews = p.sink.Count("preview");
    p.client.PostStop();
    p.client.Post(kRedrawPreview);  // queued behind the stop: runs once the loop ended
    ASSERT_TRUE(p.sink.WaitFor("preview", previews + 1));
    std::this_thread::sleep_for(100ms);
    const int after = p.sink.Count("preview");
    std::this_thread::sleep_for(100ms);
    EXPECT_EQ(p.sink.Count("preview"), after);
    EXPECT_NE(p.scene.ShownView().view.AxisA.x, before.view.AxisA.x);

    // One drag step outstanding at most: moves while a step is under way are dropped, so
    // when a move is taken every earlier step has already been drawn.
    ASSERT_TRUE(p.idle.Wait(5s));
    ASSERT_TRUE(p.client.BeginDrag(1, 100, 100));
    const int drawnBefore = p.sink.Count("preview");
    int moves = 0, taken = 0;
    const auto until = std::chrono::steady_clock::now() + 100ms;
    while (std::chrono::steady_clock::now() < until) {
        ++moves;
        if (p.client.Drag(100 + moves % 50, 100)) {
            ++taken;
            const int drawn = p.sink.Count("preview") - drawnBefore;
            ASSERT_TRUE(drawn == taken - 1 || drawn == taken) << drawn << " of " << taken;
        }
    }
    // How many moves are dropped depends on how the threads are scheduled (a loaded machine
    // spins the loop fewer times); the invariant above is what the throttle guarantees.
    EXPECT_GE(taken, 1);
    ASSERT_TRUE(p.idle.Wait(5s));
    EXPECT_EQ(p.sink.Count("preview") - drawnBefore, taken);
    p.client.EndDrag();
    EXPECT_FALSE(p.client.Drag(180, 100));
    ASSERT_TRUE(p.idle.Wait(5s));
}

TEST(WorkerProtocol, ALightStudyHoldsTheBusyRuleAndStopsOnAnAbort) {
    Protocol p;
    LightStudySetup setup;
    setup.size = 48;
    setup.tiltSteps = 3;
    p.client.StartLightStudy(setup);
    ASSERT_TRUE(p.sink.WaitFor("study done", 1));
    EXPECT_EQ(p.sink.StudyTilts(), 3);
    p.FinishRender();

    setup.size = 400;  // long enough to be under way when the abort comes
    setup.tiltSteps = 31;
    p.client.StartLightStudy(setup);
    p.prompter.answer = false;
    EXPECT_FALSE(p.client.Render());  // busy: asked, and No keeps the study running
    EXPECT_EQ(p.prompter.asked, 1);
    p.worker.Post(kAbortJob);
    ASSERT_TRUE(p.sink.WaitFor("study aborted", 1));
    p.FinishRender();
    ASSERT_TRUE(p.client.Render());  // free again
    p.FinishRender();
}

TEST(WorkerProtocol, TheLiveViewFollowsTheDragAndRefinesAtRest) {
    Protocol p(96);
    ASSERT_TRUE(p.client.BeginDrag(1, 100, 100));
    ASSERT_TRUE(p.idle.Wait(5s));
    ASSERT_TRUE(p.client.Drag(120, 100));
    ASSERT_TRUE(p.idle.Wait(5s));
    std::this_thread::sleep_for(300ms);
    EXPECT_EQ(p.sink.Count("live quick"), 0);  // off: the panel shows the surface model

    p.scene.SetLiveView(true);
    ASSERT_TRUE(p.client.Drag(140, 100));
    ASSERT_TRUE(p.sink.WaitFor("live quick", 1));
    EXPECT_EQ(p.sink.LiveWidth(), 96);  // the quick pass enlarged to the picture's size
    ASSERT_TRUE(p.sink.WaitFor("live full", 1));

    // A stream of moves: every one drawn as a surface model, the full picture only once
    // the moves stop.
    const int full = p.sink.Count("live full");
    for (int x = 150; x < 170; x += 2) {
        ASSERT_TRUE(p.idle.Wait(5s));
        p.client.Drag(x, 100);
    }
    ASSERT_TRUE(p.sink.WaitFor("live full", full + 1));
    EXPECT_LE(p.sink.Count("live full"), full + 3);
    p.client.EndDrag();
    EXPECT_EQ(p.scene.LastFrame().Width(), 0);  // live frames are not the rendered picture
}

TEST(WorkerProtocol, PointsArePackedWithoutSignExtension) {
    EXPECT_EQ(PointX(PackPoint(65535, 3)), 65535);
    EXPECT_EQ(PointY(PackPoint(-1, 40000)), 40000);
    EXPECT_EQ(PointX(PackPoint(-1, 0)), 65535);
}

}  // namespace
}  // namespace kirameki
