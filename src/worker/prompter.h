#pragma once

#include <string>

namespace kirameki {

// Which button of a Yes/No question Enter presses.
enum class DefaultAnswer { kNo, kYes };

// The message boxes of the program, behind one interface so that tests can answer them.
// Every box is captioned "Confirmation".
class Prompter {
  public:
    virtual ~Prompter() = default;
    // A Yes/No question with the warning icon; true for Yes. The busy questions keep "No" as
    // the default; the questions that restore defaults or re-check frames offer "Yes".
    virtual bool AskYesNo(const std::string& text, DefaultAnswer preset) = 0;
    // A message with the warning icon (warning true) or none.
    virtual void Tell(const std::string& text, bool warning) = 0;
};

}  // namespace kirameki
