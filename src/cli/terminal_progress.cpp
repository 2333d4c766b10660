#include "cli/terminal_progress.h"

#include <unistd.h>

#include <cstdio>
#include <string>

namespace kirameki::cli {

TerminalProgress::TerminalProgress(const char* label)
    : label_(label), enabled_(isatty(STDERR_FILENO) == 1) {}

TerminalProgress::~TerminalProgress() {
    if (drawn_)
        std::fputc('\n', stderr);
}

void TerminalProgress::Show(int done, int total) {
    if (!enabled_ || total <= 0)
        return;
    constexpr int kWidth = 30;
    const int filled = int(double(done) * kWidth / total);
    const std::string bar = std::string(filled, '#') + std::string(kWidth - filled, ' ');
    std::fprintf(stderr, "\r%s [%s] %d / %d  %3d %%", label_, bar.c_str(), done, total,
                 int(double(done) * 100.0 / total + 0.5));
    std::fflush(stderr);
    drawn_ = true;
}

}  // namespace kirameki::cli
