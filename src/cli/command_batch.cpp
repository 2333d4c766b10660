#include <CLI/App.hpp>
#include <CLI/Option.hpp>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "cli/batch_runner.h"
#include "cli/commands.h"
#include "cli/options.h"
#include "cli/signal_watcher.h"

namespace kirameki::cli {

namespace {

struct BatchOptions {
    std::string designs, out, shard = "0/1", job = "render";
    BatchRequest request;
};

int RunBatch(BatchOptions& o) {
    SignalWatcher signals;
    BatchRequest& request = o.request;
    if (o.job != "render" && o.job != "turntable")
        throw UsageError("batch: --job is render or turntable, not '" + o.job + "'");
    request.job = o.job == "render" ? BatchJob::kRender : BatchJob::kTurntable;
    const std::optional<Shard> shard = ParseShard(o.shard);
    if (!shard)
        throw UsageError("batch: --shard takes I/N with 0 <= I < N, not '" + o.shard + "'");
    std::vector<BatchItem> items;
    std::string error;
    if (!ListBatchDesigns(o.designs, items, error))
        throw UsageError("batch: " + error);
    AssignResultFolders(items, o.out);
    request.items = ShardItems(items, *shard);
    request.program = "/proc/self/exe";
    return RunBatchItems(request, std::cout, [&] { return signals.Interrupted(); });
}

}  // namespace

Command AddBatch(CLI::App& program) {
    CLI::App* app = program.add_subcommand(
        "batch",
        "render or turn every design of a library, sharded, restartable; one JSON "
        "line per design");
    auto o = std::make_shared<BatchOptions>();
    AddText(*app, "--designs", &o->designs, "FOLDER|LIST",
            "a folder of .asc designs, or a file listing them")
        ->required();
    AddText(*app, "--out", &o->out, "FOLDER", "where each design's results go")->required();
    AddText(*app, "--job", &o->job, "render|turntable",
            "a picture, or a full turn and its animated GIF (default render)");
    AddText(*app, "--shard", &o->shard, "I/N", "do the I-th of N shares (default 0/1)");
    AddInt(*app, "--frames", &o->request.frames, 1, 100000,
           "frames of a turntable (default: the settings')");
    app->add_option("flags", o->request.extra,
                    "after --: flags handed on to each render or capture")
        ->type_name("")
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    return {app, [o] { return RunBatch(*o); }};
}

}  // namespace kirameki::cli
