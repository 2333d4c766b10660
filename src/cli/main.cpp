// The whole library once, in this file: its configuration reader and help formatter.
#include <CLI/CLI.hpp>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/commands.h"
#include "cli/options.h"

#ifndef KIRAMEKI_VERSION
#define KIRAMEKI_VERSION "unknown"
#endif

namespace {

// Errors are one line each: a message of the parser that runs over lines is joined.
std::string OneLine(std::string text) {
    for (char& c : text)
        if (c == '\n')
            c = ' ';
    while (!text.empty() && text.back() == ' ')
        text.pop_back();
    return text;
}

// What was written to standard output must have arrived: a closed pipe or a full disk is a
// failure, reported once.
int CheckStandardOutput(int status) {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return status;
    if (status == 0)
        std::cerr << "kirameki-cli: Cannot write to standard output: " << std::strerror(errno)
                  << "\n";
    return status == 0 ? 1 : status;
}

int Run(int argc, char** argv) {
    using namespace kirameki::cli;
    CLI::App program(
        "Kirameki renders cut gemstones: tables, models, pictures, captures and "
        "animations without a display.",
        "kirameki-cli");
    program.set_version_flag("--version", "kirameki-cli " KIRAMEKI_VERSION,
                             "print the version and exit");
    program.set_help_flag("-h,--help", "print this help and exit");
    program.require_subcommand(1);
    program.footer(
        "Each command has --help. '-' as an output file is standard output. Exit status: 0 "
        "success, 1 failure, 2 bad usage or input, 3 aborted.");
    // A flag given twice takes its last value; the scene flags apply every one in order.
    program.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    const std::vector<Command> commands = {
        AddTables(program),   AddModel(program),   AddPreview(program), AddRender(program),
        AddSettings(program), AddCapture(program), AddGif(program),     AddDesign(program),
        AddBatch(program),    AddMetrics(program)};

    if (argc < 2) {
        std::cerr << "kirameki-cli: no command given (see kirameki-cli --help)\n";
        return 2;
    }
    const std::string_view first = argv[1];
    if (first == "help") {
        std::cout << program.help();
        return 0;
    }
    if (first != "-h" && first != "--help" && first != "--version" && first.rfind('-', 0) == 0) {
        std::cerr << "kirameki-cli: unknown option '" << first << "' (see kirameki-cli --help)\n";
        return 2;
    }
    if (first.rfind('-', 0) != 0) {
        bool known = false;
        for (const Command& command : commands)
            known = known || command.app->get_name() == first;
        if (!known) {
            std::cerr << "kirameki-cli: unknown command '" << first
                      << "' (see kirameki-cli --help)\n";
            return 2;
        }
    }
    try {
        program.parse(argc, argv);
    } catch (const CLI::CallForHelp& e) {
        return program.exit(e);
    } catch (const CLI::CallForAllHelp& e) {
        return program.exit(e);
    } catch (const CLI::CallForVersion& e) {
        return program.exit(e);
    } catch (const CLI::ParseError& e) {
        const auto chosen = program.get_subcommands();
        const std::string where = chosen.empty() ? "" : " " + chosen.front()->get_name();
        std::cerr << "kirameki-cli" << where << ": " << OneLine(e.what()) << "\n";
        return 2;
    }
    for (const Command& command : commands)
        if (command.app->parsed())
            return command.run();
    return 2;  // the parser requires a command
}

}  // namespace

int main(int argc, char** argv) {
    // A closed pipe is a failed write to report, not a silent death.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        return CheckStandardOutput(Run(argc, argv));
    } catch (const kirameki::cli::UsageError& e) {
        std::cerr << "kirameki-cli: " << e.what() << "\n";
        return CheckStandardOutput(2);
    } catch (const std::exception& e) {
        std::cerr << "kirameki-cli: " << e.what() << "\n";
        return CheckStandardOutput(1);
    }
}
