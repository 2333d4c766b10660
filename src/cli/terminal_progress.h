#pragma once

namespace kirameki::cli {

// A progress bar on stderr, drawn only when stderr is a terminal.
class TerminalProgress {
  public:
    explicit TerminalProgress(const char* label);
    ~TerminalProgress();
    void Show(int done, int total);

  private:
    const char* label_;
    bool enabled_;
    bool drawn_ = false;
};

}  // namespace kirameki::cli
