#include <iostream>
#include <optional>
#include <string>

#include "cli/batch_runner.h"
#include "cli/commands.h"
#include "cli/signal_watcher.h"

namespace kirameki::cli {

int RunBatch(Arguments& args) {
    SignalWatcher signals;
    std::string designs, out, shardText = "0/1", job = "render";
    BatchRequest request;
    while (!args.Done()) {
        const std::string_view flag = args.Flag();
        if (flag == "--designs") {
            designs = args.Value(flag);
        } else if (flag == "--out") {
            out = args.Value(flag);
        } else if (flag == "--job") {
            job = args.Value(flag);
        } else if (flag == "--shard") {
            shardText = args.Value(flag);
        } else if (flag == "--frames") {
            request.frames = args.IntValue(flag, 1, 100000);
        } else if (flag == "--") {
            while (!args.Done())
                request.extra.push_back(args.Value(flag));
        } else {
            throw UsageError("batch: unknown option " + std::string(flag));
        }
    }
    if (designs.empty() || out.empty())
        throw UsageError(
            "usage: kirameki-cli batch --designs FOLDER|LIST --out FOLDER "
            "[--job render|turntable] [--shard I/N] [--frames N] [-- render or capture flags]");
    if (job != "render" && job != "turntable")
        throw UsageError("batch: --job is render or turntable, not '" + job + "'");
    request.job = job == "render" ? BatchJob::kRender : BatchJob::kTurntable;
    const std::optional<Shard> shard = ParseShard(shardText);
    if (!shard)
        throw UsageError("batch: --shard takes I/N with 0 <= I < N, not '" + shardText + "'");
    std::vector<BatchItem> items;
    std::string error;
    if (!ListBatchDesigns(designs, items, error))
        throw UsageError("batch: " + error);
    AssignResultFolders(items, out);
    request.items = ShardItems(items, *shard);
    request.program = "/proc/self/exe";
    return RunBatchItems(request, std::cout, [&] { return signals.Interrupted(); });
}

}  // namespace kirameki::cli
