#pragma once

#include <QDialog>
#include <QString>

#include "output/app_settings.h"
#include "worker/prompter.h"

class QGridLayout;
class QLabel;
class QLayout;
class QSpinBox;

namespace kirameki {

// The frame shared by the setting windows: a copy of the settings being edited, the window's
// body and the button row "Default (&D)", "OK", "CANCEL". OK asks the window to check its
// values and store them into a copy of the settings; only when that succeeds does the copy
// become the result and the window close, so a refused value keeps the window open and the
// result untouched. CANCEL leaves the result equal to the settings the window was given.
class SettingDialog : public QDialog {
    Q_OBJECT

  public:
    const AppSettings& Result() const { return result_; }
    void accept() override;

  protected:
    SettingDialog(const AppSettings& settings, Prompter& prompter, QWidget* parent);

    // Stores the shown values; false keeps the window open (after telling the user why).
    virtual bool Store(AppSettings& settings) = 0;
    // Runs on "Default (&D)".
    virtual void RestoreDefaults() = 0;

    // Puts the body above the button row; every window calls it once, after building its body.
    void FinishLayout(QLayout* body);

    // A row of a grid: caption, optional slider, spin box (with unit suffix) and its range.
    QSpinBox* AddNumberRow(QGridLayout* grid, int row, const char* name, const QString& caption,
                           int minimum, int maximum, const QString& suffix, bool withSlider);
    // Shows why the box refused a keystroke (its range) in the range label beside it.
    void ExplainRefusals(QSpinBox* box, QLabel* range, int minimum, int maximum);
    // A grey hint line spanning the rows' caption-to-range columns.
    void AddHint(QGridLayout* grid, int row, const QString& text);

    // The values of a fresh settings file.
    static AppSettings Defaults();

    Prompter& prompter_;

  private:
    AppSettings result_;
};

// The question asked by "Default (&D)" in most windows; the GIF window asks it in the singular.
inline constexpr const char* kRestoreDefaultsQuestion =
    QT_TRANSLATE_NOOP("Messages", "Restore default settings?");
inline constexpr const char* kRestoreDefaultQuestion =
    QT_TRANSLATE_NOOP("Messages", "Restore default setting?");

}  // namespace kirameki
