#include "render/render_threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <set>

namespace kirameki {
namespace {

TEST(RenderThreads, RunsEachJobOnceOnEachOfItsThreadsAndKeepsTheThreads) {
    RenderThreads threads;
    std::mutex mutex;
    std::set<std::thread::id> first, all;
    std::atomic<int> runs{0};
    // Jobs of changing size: the threads of the first are reused, more are added as needed;
    // a job of no threads leaves all the work to the owner.
    for (int count : {2, 2, 1, 3, 0, 2}) {
        std::set<std::thread::id> seen;
        threads.Start(count, [&] {
            ++runs;
            std::lock_guard lock(mutex);
            seen.insert(std::this_thread::get_id());
        });
        threads.Wait();
        EXPECT_EQ(int(seen.size()), count) << count;
        EXPECT_EQ(seen.count(std::this_thread::get_id()), 0u);
        if (first.empty())
            first = seen;
        all.insert(seen.begin(), seen.end());
    }
    EXPECT_EQ(runs, 2 + 2 + 1 + 3 + 0 + 2);
    EXPECT_EQ(all.size(), 3u);
    for (std::thread::id id : first)
        EXPECT_EQ(all.count(id), 1u);
}

TEST(RenderThreads, TheOwnerWorksAlongsideAJobThatWaitsForIt) {
    // A job that cannot finish before the owner has done its part: Start must not wait.
    RenderThreads threads;
    std::mutex mutex;
    std::condition_variable released;
    bool go = false;
    int finished = 0;
    threads.Start(2, [&] {
        std::unique_lock lock(mutex);
        released.wait(lock, [&] { return go; });
        ++finished;
    });
    {
        std::lock_guard lock(mutex);
        go = true;
    }
    released.notify_all();
    threads.Wait();
    EXPECT_EQ(finished, 2);
}

}  // namespace
}  // namespace kirameki
