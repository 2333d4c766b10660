#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

#include "worker/key_state.h"
#include "worker/keyboard_decision.h"
#include "worker/keyboard_thread.h"

namespace kirameki {
namespace {

constexpr int kLeft = kMaskLeft, kRight = kMaskRight, kUp = kMaskUp, kDown = kMaskDown;
constexpr int kX = kMaskX, kZ = kMaskZ;

struct Modifiers {
    bool shiftOrL = false, d = false, t = false;
};

// The code a first press of `mask` posts.
std::optional<int> FirstCode(int mask, Modifiers m = {}) {
    KeyboardPollState state;
    const KeyboardActions actions = DecideKeyboardActions(state, mask, m.shiftOrL, m.d, m.t);
    EXPECT_FALSE(actions.stop);
    return actions.rotation;
}

TEST(KeyboardDecision, HoldingKeysPostsOnceAndEachChangeStopsFirst) {
    KeyboardPollState state;
    auto poll = [&](int mask, bool shift = false) {
        return DecideKeyboardActions(state, mask, shift, false, false);
    };
    EXPECT_FALSE(poll(0).stop);  // nothing held at start: nothing posted
    KeyboardActions a = poll(kLeft);
    EXPECT_FALSE(a.stop);
    EXPECT_EQ(a.rotation, 1007);
    for (int i = 0; i < 20; ++i) {
        a = poll(kLeft, i >= 10);  // a modifier alone changes nothing
        EXPECT_FALSE(a.stop || a.rotation);
    }
    a = poll(kLeft | kUp);
    EXPECT_TRUE(a.stop);
    EXPECT_EQ(a.rotation, 1008);
    a = poll(0);
    EXPECT_TRUE(a.stop);
    EXPECT_FALSE(a.rotation);
    a = poll(0);
    EXPECT_FALSE(a.stop || a.rotation);
}

TEST(KeyboardDecision, RowsByModifierPriorityAndLastMatchingBitWins) {
    const Modifiers none, light{true, false, false}, d{false, true, false}, t{false, false, true};
    const int bits[] = {kRight, kLeft, kUp, kDown, kX, kZ};
    const int view[] = {1006, 1007, 1008, 1009, 1010, 1011};
    const int lightRay[] = {1012, 1013, 1014, 1015, 0, 0};
    const int dRow[] = {1105, 1115, 1125, 1135, 0, 0};
    for (int i = 0; i < 6; ++i) {
        SCOPED_TRACE(bits[i]);
        EXPECT_EQ(FirstCode(bits[i], none), view[i]);
        EXPECT_EQ(FirstCode(bits[i], light), lightRay[i]);
        EXPECT_EQ(FirstCode(bits[i], d), dRow[i]);
        EXPECT_EQ(FirstCode(bits[i], t), 1205);
    }
    EXPECT_EQ(FirstCode(kLeft | kRight), 1007);
    EXPECT_EQ(FirstCode(kLeft | kRight, light), 1013);
    EXPECT_EQ(FirstCode(kUp | kDown | kLeft), 1009);
    EXPECT_EQ(FirstCode(kX | kZ | kDown), 1011);
    EXPECT_EQ(FirstCode(kZ | kLeft, light), 1013);  // Z has no light-ray code
    EXPECT_EQ(FirstCode(kLeft, {true, true, true}), 1013);
    EXPECT_EQ(FirstCode(kLeft, {false, true, true}), 1115);
}

TEST(KeyStateTable, MaskHasTheRotationKeysOnly) {
    KeyStateTable keys;
    for (Key key : {Key::kLeft, Key::kDown, Key::kZ, Key::kShift, Key::kL, Key::kD, Key::kT}) {
        keys.SetDown(key, true);
    }
    keys.SetDown(Key::kLeft, false);
    EXPECT_EQ(KeyMask(keys), kDown | kZ);
    keys.SetDown(Key::kRight, true);
    keys.SetDown(Key::kUp, true);
    keys.SetDown(Key::kX, true);
    EXPECT_EQ(KeyMask(keys), kRight | kUp | kDown | kX | kZ);
    keys.ReleaseAll();
    EXPECT_EQ(KeyMask(keys), 0);
    EXPECT_FALSE(keys.IsDown(Key::kShift));
}

using Post = std::pair<int, int>;  // message or command, argument
constexpr Post kStop{7030, 0};

class RecordingPoster : public WorkerPoster {
  public:
    void PostCommand(int command, int argument) override { Add({command, argument}); }
    void PostStop() override { Add(kStop); }

    // The posts so far, once there are at least `count` or after a generous wait.
    std::vector<Post> WaitFor(std::size_t count) {
        std::unique_lock lock(mutex_);
        changed_.wait_for(lock, std::chrono::seconds(10), [&] { return posts_.size() >= count; });
        return posts_;
    }

  private:
    void Add(Post post) {
        {
            std::lock_guard lock(mutex_);
            posts_.push_back(post);
        }
        changed_.notify_all();
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<Post> posts_;
};

TEST(KeyboardThread, PostsKeyChangesAndSeesNothingWhilePaused) {
    KeyStateTable keys;
    RecordingPoster poster;
    KeyboardThread thread(keys, poster, std::chrono::milliseconds(1));
    keys.SetDown(Key::kLeft, true);
    EXPECT_EQ(poster.WaitFor(1), (std::vector<Post>{{7070, 1007}}));

    thread.Pause();
    keys.SetDown(Key::kLeft, false);
    keys.SetDown(Key::kRight, true);
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    keys.SetDown(Key::kRight, false);
    keys.SetDown(Key::kLeft, true);  // back to the keys held before the pause
    thread.Resume();
    keys.SetDown(Key::kUp, true);
    EXPECT_EQ(poster.WaitFor(3), (std::vector<Post>{{7070, 1007}, kStop, {7070, 1008}}));
}

TEST(KeyboardThread, StopWakesASleepingOrPausedThreadAtOnce) {
    KeyStateTable keys;
    RecordingPoster poster;
    const auto start = std::chrono::steady_clock::now();
    {
        KeyboardThread sleeping(keys, poster, std::chrono::hours(1));
        KeyboardThread paused(keys, poster, std::chrono::hours(1));
        paused.Pause();
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        sleeping.Stop();
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}

}  // namespace
}  // namespace kirameki
