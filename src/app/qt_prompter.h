#pragma once

#include <QWidget>

#include "worker/prompter.h"

namespace kirameki {

// Message boxes captioned "Confirmation", owned by a window.
class QtPrompter : public Prompter {
  public:
    explicit QtPrompter(QWidget* owner = nullptr) : owner_(owner) {}
    void SetOwner(QWidget* owner) { owner_ = owner; }
    bool AskYesNo(const std::string& text, DefaultAnswer preset) override;
    void Tell(const std::string& text, bool warning) override;

  private:
    QWidget* owner_;
};

}  // namespace kirameki
