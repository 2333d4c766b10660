#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <memory>

#include "scene/stone_source.h"
#include "worker/prompter.h"

class QLabel;
class QPushButton;
class QTableWidget;

namespace kirameki {

// The open design as a cutting table: its titles, gear and notes, every tier (name, angle,
// indices, instruction), the proportions, and a button that saves it all as a PDF cutting
// sheet with outlines of the stone.
class DesignWindow : public QDialog {
    Q_OBJECT

  public:
    // Asks where to save the sheet (suggesting a path); empty when cancelled.
    using SheetChooser = std::function<QString(QWidget* owner, const QString& suggested)>;

    DesignWindow(SheetChooser choose, Prompter& prompts, QWidget* parent = nullptr);

    void SetDesign(std::shared_ptr<const OpenDesign> design);

    QTableWidget& Tiers() { return *tiers_; }
    QLabel& Proportions() { return *proportions_; }
    // The "Save PDF..." button's work: asks for the file, writes it, says how it went.
    void SavePdf();

  private:
    SheetChooser choose_;
    Prompter& prompts_;
    std::shared_ptr<const OpenDesign> design_;
    QLabel* titles_ = nullptr;
    QLabel* gear_ = nullptr;
    QTableWidget* tiers_ = nullptr;
    QLabel* proportions_ = nullptr;
    std::array<QLabel*, 2> outlines_{};
    QLabel* notes_ = nullptr;
};

}  // namespace kirameki
