#include "scene/capture_job.h"

#include <gtest/gtest.h>

namespace kirameki {
namespace {

TEST(CaptureJob, AResumeStartsWhereTheRecordStoppedAndKeepsItsChecking) {
    // Stopped at frame 5 of 128: frames 5.. are drawn, none before them looked at.
    EXPECT_EQ(ResumeStart({5, 0, 0}, 128, false).firstFrame, 5);
    EXPECT_FALSE(ResumeStart({5, 0, 0}, 128, false).existenceCheck);
    // A record written by a checking run goes on checking from where it stopped.
    EXPECT_TRUE(ResumeStart({5, 1, 0}, 128, false).existenceCheck);
    EXPECT_EQ(ResumeStart({5, 1, 0}, 128, false).firstFrame, 5);
    // Complete: only the turn back. Checking every frame starts from frame 0.
    EXPECT_EQ(ResumeStart({128, 0, 0}, 128, false).firstFrame, 128);
    const CaptureStart check = ResumeStart({128, 0, 0}, 128, true);
    EXPECT_EQ(check.firstFrame, 0);
    EXPECT_TRUE(check.existenceCheck);
    // Counts a damaged record may hold are refused before anything runs.
    EXPECT_EQ(RecordedCountsProblem({128, 0, 0}, 128), "");
    EXPECT_NE(RecordedCountsProblem({129, 0, 0}, 128), "");
    EXPECT_NE(RecordedCountsProblem({-1, 0, 0}, 128), "");
}

}  // namespace
}  // namespace kirameki
