#include "cli/batch_runner.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <thread>

#include "output/atomic_file.h"

extern char** environ;

namespace kirameki::cli {

namespace fs = std::filesystem;

namespace {

struct StepResult {
    int exitCode = 0;  // the child's exit status; 128 + signal when a signal ended it
    bool interrupted = false;
};

// Runs the program with its output appended to the log, polling for an interruption.
StepResult RunStep(const std::string& program, const std::vector<std::string>& arguments,
                   const std::string& log, const std::function<bool()>& interrupted) {
    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    argv.reserve(words.size() + 1);
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    // Not close-on-exec: the child writes its standard output there too.
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, log.c_str(),
                                     O_WRONLY | O_CREAT | O_APPEND, 0644);
    posix_spawn_file_actions_adddup2(&files, STDOUT_FILENO, STDERR_FILENO);
    // The signal watcher blocks the stop signals in this process; the child must see them.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none, defaults;
    sigemptyset(&none);
    sigemptyset(&defaults);
    sigaddset(&defaults, SIGINT);
    sigaddset(&defaults, SIGTERM);
    sigaddset(&defaults, SIGPIPE);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    pid_t child = 0;
    const int spawned =
        posix_spawn(&child, program.c_str(), &files, &attributes, argv.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    posix_spawnattr_destroy(&attributes);
    if (spawned != 0)
        return {127, false};

    StepResult result;
    int status = 0;
    for (;;) {
        const pid_t done = waitpid(child, &status, WNOHANG);
        if (done == child)
            break;
        if (done < 0)
            return {1, result.interrupted};
        if (!result.interrupted && interrupted()) {
            // As Ctrl+C in a terminal: a capture aborts and writes its record.
            kill(child, SIGINT);
            result.interrupted = true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return result;
}

// The last line the design's steps wrote: what went wrong, when something did.
std::string LastLine(const std::string& log) {
    std::ifstream in(log);
    std::string line, last;
    while (std::getline(in, line))
        if (!line.empty() && line.find('\r') == std::string::npos)
            last = line;
    return last;
}

// Flags that a resumed capture still takes: the rest of its scene is in its record.
std::vector<std::string> ResumeFlags(const std::vector<std::string>& extra) {
    std::vector<std::string> kept;
    for (std::size_t i = 0; i < extra.size(); ++i) {
        const std::string& flag = extra[i];
        const bool takes = flag == "--threads" || flag == "--depth" || flag == "--settings";
        const bool glued = flag.rfind("--threads=", 0) == 0 || flag.rfind("--depth=", 0) == 0 ||
                           flag.rfind("--settings=", 0) == 0;
        if (glued)
            kept.push_back(flag);
        else if (takes && i + 1 < extra.size()) {
            kept.push_back(flag);
            kept.push_back(extra[++i]);
        }
    }
    return kept;
}

struct DesignOutcome {
    std::string status;  // "done", "failed" or "interrupted"
    int exitCode = 0;
    std::vector<std::string> files;
};

DesignOutcome RunDesign(const BatchRequest& request, const BatchItem& item, bool begun,
                        const std::string& log, const std::function<bool()>& interrupted) {
    const auto run = [&](const std::vector<std::string>& arguments, DesignOutcome& outcome) {
        const StepResult step = RunStep(request.program, arguments, log, interrupted);
        outcome.exitCode = step.exitCode;
        if (step.interrupted)
            outcome.status = "interrupted";
        else if (step.exitCode != 0)
            outcome.status = "failed";
        return outcome.status.empty();
    };
    DesignOutcome outcome;
    if (request.job == BatchJob::kRender) {
        const std::string picture = (fs::path(item.folder) / "picture.png").string();
        std::vector<std::string> arguments = {"render", "--design", item.design, "--out", picture};
        arguments.insert(arguments.end(), request.extra.begin(), request.extra.end());
        if (!run(arguments, outcome))
            return outcome;
        outcome.files = {picture};
    } else {
        const std::string record = (fs::path(item.folder) / "turn.sqi").string();
        const std::string gif = (fs::path(item.folder) / "turn.gif").string();
        std::vector<std::string> arguments = {"capture", "--sqi", record};
        if (begun && fs::exists(record)) {
            // A turn cut off midway: every frame checked, the whole ones kept.
            arguments.insert(arguments.end(), {"--resume", "--check-existence"});
            const std::vector<std::string> kept = ResumeFlags(request.extra);
            arguments.insert(arguments.end(), kept.begin(), kept.end());
        } else {
            arguments.insert(arguments.end(), {"--design", item.design});
            if (request.frames > 0)
                arguments.insert(arguments.end(), {"--frames", std::to_string(request.frames)});
            arguments.insert(arguments.end(), request.extra.begin(), request.extra.end());
        }
        if (!run(arguments, outcome) || !run({"gif", "--sqi", record, "--out", gif}, outcome))
            return outcome;
        outcome.files = {record, gif};
    }
    outcome.status = "done";
    return outcome;
}

}  // namespace

int RunBatchItems(const BatchRequest& request, std::ostream& lines,
                  const std::function<bool()>& interrupted) {
    int worst = 0;
    for (const BatchItem& item : request.items) {
        nlohmann::json line = {
            {"design", item.design}, {"name", item.name}, {"folder", item.folder}};
        const BatchItemState state = StateOf(item);
        if (state == BatchItemState::kDone) {
            line["status"] = "skipped";
            lines << line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace)
                  << std::endl;
            continue;
        }
        std::error_code code;
        fs::create_directories(item.folder, code);
        const std::string log = (fs::path(item.folder) / "log.txt").string();
        const auto start = std::chrono::steady_clock::now();
        const DesignOutcome outcome =
            code ? DesignOutcome{"failed", 1, {}}
                 : RunDesign(request, item, state == BatchItemState::kBegun, log, interrupted);
        line["status"] = outcome.status;
        line["exit"] = outcome.exitCode;
        line["seconds"] =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        line["files"] = outcome.files;
        if (outcome.status == "done") {
            const std::string text =
                line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
            std::string error;
            if (!WriteFileAtomically(
                    BatchResultFile(item),
                    [&](std::FILE* f) { return std::fputs(text.c_str(), f) >= 0; }, error)) {
                line["status"] = "failed";
                line["error"] = error;
            }
        } else {
            line["error"] = code ? item.folder + ": " + code.message() : LastLine(log);
        }
        lines << line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << std::endl;
        if (line["status"] == "interrupted")
            return 3;
        if (line["status"] != "done")
            worst = 1;
    }
    return worst;
}

}  // namespace kirameki::cli
