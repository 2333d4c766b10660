#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "scene/batch_plan.h"

namespace kirameki::cli {

// What a batch does for each design: a picture, or a turntable (a capture of a full turn and
// its animated GIF).
enum class BatchJob { kRender, kTurntable };

struct BatchRequest {
    std::vector<BatchItem> items;  // the shard's designs, result folders assigned
    BatchJob job = BatchJob::kRender;
    int frames = 0;                  // turntable frames (0: the settings' count)
    std::vector<std::string> extra;  // flags handed on to render or capture
    std::string program;             // this program, run once per step of a design
};

// How the batch ended: 0 every design done or skipped, 1 some failed, 3 interrupted.
// Each design runs as child processes of this program, so that one design that fails or
// crashes stops nothing else; their output goes to the design's log.txt. One JSON line per
// design goes to `lines`. `interrupted` is polled while a child runs; when it turns true the
// child is asked to stop (a capture then keeps its frames for the next run) and the batch
// ends.
int RunBatchItems(const BatchRequest& request, std::ostream& lines,
                  const std::function<bool()>& interrupted);

}  // namespace kirameki::cli
