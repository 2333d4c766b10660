#pragma once

#include <string>

namespace kirameki {

// The message boxes of the program, behind one interface so that tests can answer them.
// Every box is captioned "Confirmation".
class Prompter {
  public:
    virtual ~Prompter() = default;
    // A Yes/No question with the warning icon and "No" the default; true for Yes.
    virtual bool AskYesNo(const std::string& text) = 0;
    // A message with the warning icon (warning true) or none.
    virtual void Tell(const std::string& text, bool warning) = 0;
};

}  // namespace kirameki
