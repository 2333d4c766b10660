#pragma once

#include <vector>

#include "ui/setting_dialog.h"

class QSpinBox;
class QTabWidget;

namespace kirameki {

// "Transformable Models": one tab for each of the five solids built from stored parameters
// (ellipsoid, prism, pyramid, 14 hedron, 26 hedron). The 26 hedron's tab shows and edits
// 100 minus its stored value, as settings files keep it.
class TransformableModelsDialog : public SettingDialog {
    Q_OBJECT

  public:
    // Opens on the tab of the given model when it is one of the five.
    TransformableModelsDialog(const AppSettings& settings, Prompter& prompter,
                              QWidget* parent = nullptr);

    // Whether a cut-list entry is built from these parameters (so OK must rebuild it).
    static bool IsTransformable(int model) { return model >= kFirstModel && model <= kLastModel; }

  protected:
    bool Store(AppSettings& settings) override;
    // Restores the parameters of the tab on show.
    void RestoreDefaults() override;

  private:
    static constexpr int kFirstModel = 23;
    static constexpr int kLastModel = 27;

    struct Field {
        int tab;
        int parameter;  // element of the model parameters
        bool inverted;  // shown as 100 minus the stored value
        QSpinBox* box;
    };

    void AddField(QGridLayout* grid, int row, int tab, int parameter, bool inverted,
                  const char* name, const QString& caption, int minimum, int maximum,
                  const QString& suffix);
    void Show(const ModelParameters& parameters, int tab);

    QTabWidget* tabs_ = nullptr;
    std::vector<Field> fields_;
};

}  // namespace kirameki
