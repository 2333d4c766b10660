#pragma once

#include <QDialog>
#include <functional>

#include "render/light_study.h"

class QLabel;
class QSpinBox;
class QTableWidget;

namespace kirameki {

class ViewerSession;

// How the current stone performs: its figures face-up and averaged over a tilt range, the
// ISO, COS, ASET and spectral-fire pictures and the tilt plot. "Measure" studies the stone
// as it is now (its cut or design, colour and index) on the worker, with a progress window
// that can abort; the window keeps the last study until measured again.
class LightPerformanceWindow : public QDialog {
    Q_OBJECT

  public:
    LightPerformanceWindow(ViewerSession& session, std::function<bool()> checkIndex,
                           QWidget* parent = nullptr);

    // Studies the current stone; false when busy, refused or aborted.
    bool Measure();
    const LightStudy& Study() const { return study_; }

  private:
    void Show(const LightStudy& study);

    ViewerSession& session_;
    std::function<bool()> checkIndex_;
    QSpinBox* headShadow_;
    QSpinBox* tiltMax_;
    QTableWidget* figures_;
    QLabel* spread_;
    QLabel* pictures_[4];
    QLabel* plot_;
    LightStudy study_;
};

}  // namespace kirameki
